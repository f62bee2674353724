// Ranges and positions of slide bars.
#include <array>
#include <optional>
#include <string>

#include "analysis/rules/reading_pass.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

using formats::kNone;

constexpr StringView kBarPrefix = u"~s";

// What holds where nothing is written, and the last value that is.
struct BarValue {
  StringView word;
  std::int32_t number;
  std::size_t token = kNone;
};

struct Bar {
  std::array<BarValue, 3> values{{{formats::word::kMin, 0}, {formats::word::kMax, 100}, {formats::word::kPosition, 0}}};
  bool isWrong = false;
};

bool IsBar(const Source& source, const formats::Block& block) {
  return block.scope == formats::Scope::Item && block.name != kNone &&
         ttolowercase(source.ValueAt(block.name).substr(0, kBarPrefix.size())) == kBarPrefix;
}

void Take(const ReadingPass& pass, const formats::Statement& statement, Bar& bar) {
  for (BarValue& value : bar.values) {
    if (value.word != statement.keyword->word) continue;
    if (statement.value == kNone || pass.told[statement.value]) {
      bar.isWrong = true;
      return;
    }
    value.number = StringConverter::ParseInt(pass.source.ValueOf(statement));
    value.token = statement.value;
  }
}

void CheckBar(ReadingPass& pass, const Bar& bar) {
  if (bar.isWrong) return;
  const auto& [min, max, position] = bar.values;
  if (min.number > max.number) {
    pass.Tell(Rule::MinAboveMax, max.token != kNone ? max.token : min.token,
              "max is " + std::to_string(max.number) + ", but min is " + std::to_string(min.number));
  } else if (position.token != kNone && (position.number < min.number || position.number > max.number)) {
    pass.Tell(Rule::PositionOutside, position.token,
              "position is " + std::to_string(position.number) + ", but the bar goes from " +
                  std::to_string(min.number) + " to " + std::to_string(max.number));
  }
}

}  // namespace

void CheckBars(ReadingPass& pass) {
  const formats::Reading& reading = pass.source.Reading();
  std::vector<std::optional<Bar>> bars(reading.blocks.size());
  for (std::size_t i = 0; i < bars.size(); ++i) {
    if (IsBar(pass.source, reading.blocks[i])) bars[i].emplace();
  }
  for (const formats::Statement& statement : reading.statements) {
    if (bars[statement.block]) Take(pass, statement, *bars[statement.block]);
  }
  for (const std::optional<Bar>& bar : bars) {
    if (bar) CheckBar(pass, *bar);
  }
}

}  // namespace qen::analysis
