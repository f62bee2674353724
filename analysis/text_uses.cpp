#include "analysis/text_uses.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

#include "analysis/block_index.h"
#include "analysis/number_forms.h"
#include "analysis/widget_parts.h"
#include "engine/font_desc.h"
#include "engine/string_converter.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

namespace word = formats::word;
using formats::kNone;
using formats::Scope;
using formats::Statement;

std::int32_t DefaultOf(StringView keyword) {
  return StringConverter::ParseInt(formats::Find(formats::kFont, keyword)->otherwise);
}

// Whole units, as far as a rectangle has them.
float Whole(float size) {
  constexpr float kMost = std::numeric_limits<std::int16_t>::max();
  return std::isfinite(size) ? std::min(std::trunc(size), kMost) : 0.0F;
}

// Others are told of as values.
bool IsSound(const Statement& statement, StringView value) {
  return !value.empty() && CheckNumber(*statement.keyword, value).fault == NumberFault::None;
}

class Finder {
 public:
  explicit Finder(const Page& page) : page_(page), blocks_(*page.source) {
    for (const Label& label : LabelsOf(page)) labels_.try_emplace({label.widget, label.side}, label);
  }

  std::vector<TextUse> Run() {
    for (const std::size_t block : page_.items) ReadItem(block);
    return std::move(uses_);
  }

 private:
  void ReadItem(std::size_t block) {
    const std::size_t name = page_.source->Reading().blocks[block].name;
    const auto known =
        name == kNone ? page_.widgetsByName.end() : page_.widgetsByName.find(ttolowercase(page_.source->ValueAt(name)));
    const std::size_t widget = known == page_.widgetsByName.end() ? kNone : known->second;
    const std::optional<TextBox> box = BoxOf(widget, Side::Both);
    const base::FontRequest font = ReadWords(block, box, DefaultFont());
    for (const std::size_t inner : blocks_.InnerOf(block)) ReadInner(inner, widget, box, font);
  }

  // Entries are rows of their list, in its font; the sides of a check button have labels of their own.
  void ReadInner(std::size_t block, std::size_t widget, const std::optional<TextBox>& box,
                 const base::FontRequest& font) {
    const formats::Block& inner = page_.source->Reading().blocks[block];
    if (inner.scope == Scope::Entry) ReadWords(block, box, font);
    if (inner.scope != Scope::Label) return;
    const bool checked = page_.source->ValueAt(inner.opener) == word::kBChecked;
    ReadWords(block, BoxOf(widget, checked ? Side::Checked : Side::Unchecked), DefaultFont());
  }

  // The text ids of a block, with the font that it sets.
  base::FontRequest ReadWords(std::size_t block, const std::optional<TextBox>& box, base::FontRequest font) {
    const std::size_t first = uses_.size();
    bool isEditable = false;
    for (const std::size_t index : blocks_.StatementsOf(block)) {
      const Statement& statement = page_.source->Reading().statements[index];
      const StringView value = page_.source->ValueOf(statement);
      if (statement.keyword->value == formats::Value::Face) font = FontOf(*page_.source, statement, font);
      if (statement.keyword->word == word::kEditabled) isEditable = StringConverter::ParseInt(value) != 0;
      if (statement.keyword->value != formats::Value::TextId || !IsSound(statement, value)) continue;
      const std::int32_t id = StringConverter::ParseInt(value);
      if (id < 0) continue;
      const bool isShownHere = statement.keyword->word == word::kTextId;
      uses_.push_back({statement.value, id, isShownHere ? box : std::nullopt, font});
    }
    for (std::size_t i = first; i < uses_.size(); ++i) {
      uses_[i].font = font;                  // it may stand behind the id
      if (isEditable) uses_[i].box.reset();  // what is written is shown instead
    }
    return font;
  }

  [[nodiscard]] std::optional<TextBox> BoxOf(std::size_t widget, Side side) const {
    const auto found = labels_.find({widget, side});
    if (found == labels_.end() || found->second.box == kNone) return std::nullopt;
    const std::optional<AABB>& box = page_.scene.nodes[found->second.box].box;
    if (!box) return std::nullopt;
    return TextBox{.width = Whole(2.0F * box->halfSize.x),
                   .height = Whole(2.0F * box->halfSize.z),
                   .wraps = !found->second.isRows,
                   .scrolls = found->second.scrolls};
  }

  const Page& page_;
  BlockIndex blocks_;
  std::map<std::pair<std::size_t, Side>, Label> labels_;
  std::vector<TextUse> uses_;
};

void SetFontWord(base::FontRequest& font, StringView keyword, std::int32_t value) {
  constexpr std::int32_t kItalic = 255;
  if (keyword == word::kHeight) font.height = value;
  if (keyword == word::kWidth) font.width = value;
  if (keyword == word::kWeight) font.weight = value;
  if (keyword == word::kItalic) font.italic = (value & 0xFF) == kItalic;
}

}  // namespace

base::FontRequest DefaultFont() {
  return {.face = String(formats::Find(formats::kText, word::kFont)->otherwise),
          .height = DefaultOf(word::kHeight),
          .width = DefaultOf(word::kWidth),
          .weight = DefaultOf(word::kWeight)};
}

base::FontRequest FontOf(const Source& source, const Statement& face, base::FontRequest font) {
  font.face = source.ValueOf(face).substr(0, LOGFONTW::kFaceSize - 1);
  // Its words stand behind it, up to the end of its block.
  const auto& statements = source.Reading().statements;
  const auto& blocks = source.Reading().blocks;
  for (std::size_t i = static_cast<std::size_t>(&face - statements.data()) + 1; i < statements.size(); ++i) {
    const formats::Block& block = blocks[statements[i].block];
    if (block.scope != Scope::Font || block.opener != face.word) break;
    SetFontWord(font, statements[i].keyword->word, StringConverter::ParseInt(source.ValueOf(statements[i])));
  }
  return font;
}

std::vector<TextUse> FindTextUses(const Page& page) { return Finder(page).Run(); }

}  // namespace qen::analysis
