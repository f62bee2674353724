#include "formats/reading.h"

#include <algorithm>

#include "engine/string_converter.h"
#include "formats/definition_syntax.h"
#include "formats/definition_words.h"

namespace qen::formats {
namespace {

using Keywords = std::span<const Keyword>;

bool IsNumeric(Value value) {
  return value == Value::Number || value == Value::Flag || value == Value::Decimal || value == Value::Color ||
         value == Value::TextId;
}

class Reader {
 public:
  Reader(FileKind kind, StringView text, std::size_t begin) : kind_(kind) {
    out_.tokens = TokenizeMended(text, begin, out_.broken);
  }

  Reading Read() {
    switch (kind_) {
      case FileKind::Description:
        AddFile(Scope::Description);
        ReadChained();
        break;
      case FileKind::Language:
        AddFile(Scope::Languages);
        ReadLanguages();
        break;
      case FileKind::Page:
      case FileKind::Bag:
        AddFile(kind_ == FileKind::Page ? Scope::PageHeader : Scope::BagHeader);
        ReadPage();
        break;
      case FileKind::Style:
        AddFile(Scope::Style);
        ReadBlock(0);
        break;
    }
    return std::move(out_);
  }

 private:
  [[nodiscard]] bool AtEnd() const { return at_ >= out_.tokens.size(); }
  [[nodiscard]] const Token& TokenAt(std::size_t i) const { return out_.tokens[i]; }
  [[nodiscard]] bool Is(std::size_t i, StringView word) const {
    return i < out_.tokens.size() && !TokenAt(i).isQuoted && TokenAt(i).value == word;
  }
  [[nodiscard]] bool IsOpen(std::size_t i) const { return Is(i, kOpen); }

  void AddFile(Scope scope) { out_.blocks.push_back({.scope = scope}); }

  std::size_t Open(Scope scope, std::size_t parent, std::size_t opener, std::size_t name) {
    out_.blocks.push_back({scope, parent, opener, name, IsOpen(at_) ? at_ : kNone});
    if (IsOpen(at_)) ++at_;
    return out_.blocks.size() - 1;
  }

  // What a value is looked at as, further down its table.
  void AddStatement(const Keyword& keyword, std::size_t word, std::size_t block, bool chained = false) {
    Statement statement{.keyword = &keyword, .word = word, .block = block, .isChained = chained};
    const bool missing =
        AtEnd() || Is(at_, kClose) || Is(at_, kOpen) || BeginsItem(at_) ||
        (IsNumeric(keyword.value) && !TokenAt(at_).isQuoted && IsKnown(TokenAt(at_).value, out_.blocks[block].scope));
    statement.state = missing ? ValueState::Missing : ValueState::Read;
    if (!missing) statement.value = at_++;
    out_.statements.push_back(statement);
  }

  [[nodiscard]] bool BeginsItem(std::size_t word) const {
    return Is(word, word::kItem) && word + 1 < out_.tokens.size() && TokenAt(word + 1).value.front() == kWidgetMark;
  }

  static bool IsKnown(StringView word, Scope scope) {
    return TablesOf(scope).Find(word) != nullptr || (word == word::kItem && scope != Scope::Section);
  }

  // Keys whose values take the token's place, so that those further down the table are tried on them.
  void ReadChained() {
    const Keywords keys = TablesOf(out_.blocks[0].scope).first;
    while (!AtEnd()) {
      const std::size_t first = at_++;
      if (!TakeChain(keys, first)) out_.strays.push_back({first, 0});
    }
  }

  bool TakeChain(Keywords keys, std::size_t word) {
    bool taken = false;
    for (const Keyword& key : keys) {
      if (word == kNone || TokenAt(word).value != key.word) continue;
      AddStatement(key, word, 0, taken);
      taken = true;
      word = out_.statements.back().value;
    }
    return taken;
  }

  void ReadLanguages() {
    while (!AtEnd()) {
      const std::size_t word = at_++;
      if (TokenAt(word).value != word::kLang) {
        out_.strays.push_back({word, 0});
        continue;
      }
      AddStatement(kLanguage[0], word, 0);
      ReadSection(word, out_.statements.back().value);
    }
  }

  void ReadSection(std::size_t opener, std::size_t name) {
    const std::size_t block = Open(Scope::Section, 0, opener, name);
    while (!AtEnd()) {
      const std::size_t word = at_;
      const StringView value = TokenAt(word).value;
      if (Is(word, kClose)) {
        out_.blocks[block].close = at_++;
        return;
      }
      if (Is(word, word::kLang)) return;  // the section is not closed
      ++at_;
      if (value.starts_with(word::kTextPrefix)) {
        const std::int32_t id = StringConverter::ParseInt(value.substr(word::kTextPrefix.size()));
        const bool missing = AtEnd() || Is(at_, kClose);
        out_.texts.push_back({word, missing ? kNone : at_, block, id});
        if (!missing) ++at_;
      } else {
        out_.strays.push_back({word, block});
      }
    }
  }

  void ReadPage() {
    const Keywords keys = TablesOf(out_.blocks[0].scope).first;
    if (Is(0, word::kName)) {
      at_ = 1;
      AddStatement(kPageHeader[0], 0, 0);
    }
    while (!AtEnd()) {
      const std::size_t word = at_++;
      if (TokenAt(word).value == word::kItem) {
        const std::size_t name = AtEnd() || Is(at_, kClose) || IsOpen(at_) ? kNone : at_++;
        ReadBlock(Open(Scope::Item, 0, word, name));
      } else if (!TakeChain(keys, word)) {
        out_.strays.push_back({word, 0});
        ReadMeantItem(word);
      }
    }
  }

  // Whether a widget's name and its block stand there.
  [[nodiscard]] bool NamesWidget(std::size_t word) const {
    return word < out_.tokens.size() && !TokenAt(word).isQuoted && TokenAt(word).value.front() == kWidgetMark &&
           IsOpen(word + 1);
  }

  // The block behind a word that stands for "item", or behind a name without one.
  void ReadMeantItem(std::size_t word) {
    if (NamesWidget(word)) {
      ReadBlock(Open(Scope::Item, 0, word, word));
    } else if (!TokenAt(word).isQuoted && !Is(word, kClose) && NamesWidget(at_)) {
      const std::size_t name = at_++;
      ReadBlock(Open(Scope::Item, 0, word, name));
    }
  }

  // Up to the block's closing brace, or to where the next one begins. Braces inside that nobody reads are passed over
  // in pairs, as a misspelt keyword may have a block.
  void ReadBlock(std::size_t block) {
    const Scope scope = out_.blocks[block].scope;
    const Tables tables = TablesOf(scope);
    std::size_t depth = 0;
    while (!AtEnd()) {
      const std::size_t word = at_;
      if (block != 0 && depth == 0 && Is(word, kClose)) {
        out_.blocks[block].close = at_++;
        return;
      }
      if (block != 0 && BeginsWhatFollows(scope, word)) return;
      ++at_;
      if (const Keyword* keyword = tables.Find(TokenAt(word).value)) {
        ReadStatement(*keyword, word, block);
        continue;
      }
      out_.strays.push_back({word, block});
      if (IsOpen(word)) ++depth;
      if (Is(word, kClose) && depth > 0) --depth;
    }
  }

  // Whether a word shows that its block should have been closed before it.
  [[nodiscard]] bool BeginsWhatFollows(Scope scope, std::size_t word) const {
    if (Is(word, word::kItem)) return BeginsItem(word);
    if (TokenAt(word).isQuoted) return false;
    const Keyword* item = Find(kItem, TokenAt(word).value);
    const bool text = Find(kText, TokenAt(word).value) != nullptr;
    if (scope == Scope::Font) return item != nullptr || text;
    return (scope == Scope::Entry || scope == Scope::Label) && item != nullptr && item->value == Value::Block;
  }

  void ReadStatement(const Keyword& keyword, std::size_t word, std::size_t block) {
    if (keyword.value == Value::Face) {
      AddStatement(keyword, word, block);
      ReadBlock(Open(Scope::Font, block, word, out_.statements.back().value));
    } else if (keyword.value == Value::Block) {
      out_.statements.push_back({.keyword = &keyword, .word = word, .block = block, .state = ValueState::None});
      ReadBlock(Open(keyword.word == word::kListItem ? Scope::Entry : Scope::Label, block, word, kNone));
    } else if (keyword.word == word::kTexture && out_.blocks[block].scope == Scope::Item && !IsSlot(block)) {
      out_.statements.push_back({.keyword = &keyword, .word = word, .block = block, .state = ValueState::Unread});
      const bool follows = !AtEnd() && !Is(at_, kClose) && !IsKnown(TokenAt(at_).value, Scope::Item);
      if (follows) out_.statements.back().value = at_++;
    } else {
      AddStatement(keyword, word, block);
    }
  }

  // Only slots have a texture; on all others its value is looked at as a keyword.
  [[nodiscard]] bool IsSlot(std::size_t block) const {
    const std::size_t name = out_.blocks[block].name;
    if (kind_ != FileKind::Bag || name == kNone) return false;
    const String begin = ttolowercase(TokenAt(name).value.substr(0, 2));
    return begin.size() == 2 && begin[0] == kWidgetMark && begin[1] == kSlotLetter;
  }

  FileKind kind_;
  Reading out_;
  std::size_t at_ = 0;
};

}  // namespace

const Keyword* Tables::Find(StringView word) const {
  const Keyword* found = formats::Find(first, word);
  return found != nullptr ? found : formats::Find(second, word);
}

Tables TablesOf(Scope scope) {
  switch (scope) {
    case Scope::Description:
      return {kDescription, {}};
    case Scope::Languages:
      return {kLanguage, {}};
    case Scope::Section:
      return {};
    case Scope::PageHeader:
      return {kPageKeys, {}};
    case Scope::BagHeader:
      return {kBagKeys, {}};
    case Scope::Item:
      return {kItem, kText};
    case Scope::Label:
      return {kText, {}};
    case Scope::Entry:
      return {kEntry, {}};
    case Scope::Font:
      return {kFont, {}};
    case Scope::Style:
      return {kStyle, {}};
  }
  return {};
}

Reading ReadDefinition(FileKind kind, StringView text, std::size_t begin) { return Reader(kind, text, begin).Read(); }

}  // namespace qen::formats
