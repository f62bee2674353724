// Keywords of other kinds of widgets.
#include <algorithm>

#include "analysis/rules/reading_pass.h"
#include "analysis/words.h"
#include "engine/string_converter.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

using formats::WidgetKind;

// Null for an item without a name, and for no kind.
const WidgetKind* KindOf(const Source& source, const formats::Block& block) {
  if (block.scope != formats::Scope::Item || block.name == formats::kNone) return nullptr;
  const String name = ttolowercase(source.ValueAt(block.name).substr(0, 2));
  if (name.size() < 2 || name[0] != formats::kWidgetMark) return nullptr;
  const auto* found = std::ranges::find(formats::kWidgetKinds, name[1], &WidgetKind::letter);
  return found == formats::kWidgetKinds.end() ? nullptr : found;
}

// `lists, slide bars and texts`.
std::string NamesOf(StringView letters) {
  std::string names;
  std::size_t left = letters.size();
  for (const WidgetKind& kind : formats::kWidgetKinds) {
    if (letters.find(kind.letter) == StringView::npos) continue;
    --left;
    names += kind.names;
    if (left > 0) names += left == 1 ? " and " : ", ";
  }
  return names;
}

}  // namespace

void CheckKinds(ReadingPass& pass) {
  const formats::Reading& reading = pass.source.Reading();
  for (const formats::Statement& statement : reading.statements) {
    const StringView widgets = statement.keyword->widgets;
    const WidgetKind* kind = KindOf(pass.source, reading.blocks[statement.block]);
    if (widgets.empty() || kind == nullptr || widgets.find(kind->letter) != StringView::npos) continue;
    pass.Tell(
        Rule::MisplacedWord, statement.word,
        Quoted(statement.keyword->word) + " does nothing for a " + kind->name + ": it is for " + NamesOf(widgets));
  }
}

}  // namespace qen::analysis
