// Definition files as their readers take them: which word is a keyword, which its value, and which nobody reads.
//
// Where a block or a value is missing, what follows is read as it was meant, so that one mistake is told once.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"
#include "formats/keyword.h"
#include "formats/tokens.h"

namespace qen::formats {

inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);  // no position

// Where words stand. Each has keywords of its own.
enum class Scope : std::uint8_t {
  Description,
  Languages,  // outside of sections
  Section,
  PageHeader,  // and between item blocks
  BagHeader,
  Item,
  Label,  // of one side of a check button
  Entry,
  Font,
  Style,
};

// The tables whose keywords a scope reads, in the order in which they are tried. The second one may be empty.
struct Tables {
  std::span<const Keyword> first;
  std::span<const Keyword> second;

  [[nodiscard]] const Keyword* Find(StringView word) const;
};
Tables TablesOf(Scope scope);

// Members are positions of tokens, or kNone.
struct Block {
  Scope scope = Scope::PageHeader;
  std::size_t parent = kNone;  // position of a block
  std::size_t opener = kNone;  // the keyword; none for the file
  std::size_t name = kNone;    // of an item block the widget, of a font block the face, of a section the language
  std::size_t brace = kNone;   // "{", which no reader asks for
  std::size_t close = kNone;   // none for the file, and for a block that is not closed
};

enum class ValueState : std::uint8_t {
  Read,
  Missing,  // at the end of the file, or what stands there is meant for something else
  Unread,   // the reader does not take it here
  None,     // the keyword has none of its own (a block)
};

struct Statement {
  const Keyword* keyword = nullptr;
  std::size_t word = kNone;   // token
  std::size_t value = kNone;  // token; of an unread one where it stands
  std::size_t block = 0;      // where it stands
  ValueState state = ValueState::Read;
  bool isChained = false;  // the word is the value of the statement before it, and taken as a keyword as well
};

// A text of a language.
struct TextEntry {
  std::size_t word = kNone;   // "str" and the id
  std::size_t value = kNone;  // none when it is missing
  std::size_t block = 0;      // the section
  std::int32_t id = 0;
};

// A word that nobody reads, and the block where it stands. Quoted ones are comments.
struct Stray {
  std::size_t word = kNone;
  std::size_t block = 0;
};

struct Reading {
  std::vector<Token> tokens;
  std::vector<std::size_t> broken;  // tokens whose quote is not closed
  std::vector<Block> blocks;        // the first one is the file
  std::vector<Statement> statements;
  std::vector<TextEntry> texts;
  std::vector<Stray> strays;
};

enum class FileKind : std::uint8_t { Description, Language, Page, Bag, Style };

// Reads from `begin` to the end or the first U+0000. The tokens refer to the text.
Reading ReadDefinition(FileKind kind, StringView text, std::size_t begin = 0);

// Whether readers of that kind skip a byte-order mark, and refuse files that are too short.
constexpr bool SkipsMark(FileKind kind) { return kind != FileKind::Description && kind != FileKind::Language; }

}  // namespace qen::formats
