#include "analysis/rules/command_rest.h"

#include <algorithm>

#include "analysis/rules/word_homes.h"
#include "analysis/words.h"
#include "formats/command_words.h"

namespace qen::analysis {
namespace {

constexpr Char kColon = u':';

const formats::Stray* FindStray(const formats::Reading& reading, std::size_t word) {
  const auto found = std::ranges::lower_bound(reading.strays, word, {}, &formats::Stray::word);
  return found == reading.strays.end() || found->word != word ? nullptr : &*found;
}

bool AreOnOneLine(const Source& source, std::size_t token, std::size_t next) {
  const std::size_t end = source.RangeAt(token).end;
  const StringView between = source.Text().Text().substr(end, source.RangeAt(next).begin - end);
  return between.find_first_of(u"\n\r;") == StringView::npos;
}

}  // namespace

std::size_t RestOfCommand(const Source& source, const formats::Statement& command) {
  if (command.keyword->value != formats::Value::Command || command.value == formats::kNone) return formats::kNone;
  const std::size_t next = command.value + 1;
  const formats::Stray* stray = FindStray(source.Reading(), next);
  if (stray == nullptr || !AreOnOneLine(source, command.value, next)) return formats::kNone;
  const StringView value = source.ValueAt(command.value);
  const StringView rest = source.ValueAt(next);
  if (!value.ends_with(kColon) && !rest.starts_with(kColon)) return formats::kNone;
  const StringView word = value.substr(0, value.find(kColon));
  const formats::CommandWord* known = formats::FindCommand(word);
  if (known != nullptr && known->argument != formats::Argument::None) return next;
  const bool isRemark = known != nullptr || source.TokenAt(next).isQuoted;
  const bool isKeyword = !Nearest(rest, WordsOf(source.Reading().blocks[stray->block].scope)).empty();
  return isRemark || isKeyword ? formats::kNone : next;
}

bool IsRestOfCommand(const Source& source, const formats::Stray& stray) {
  const auto& statements = source.Reading().statements;
  const auto behind = std::ranges::upper_bound(statements, stray.word, {}, &formats::Statement::word);
  return behind != statements.begin() && RestOfCommand(source, *std::prev(behind)) == stray.word;
}

}  // namespace qen::analysis
