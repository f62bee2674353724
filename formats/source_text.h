// A definition file's text with its places, and edits of it that leave every other byte as it was.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/types.h"

namespace qen::formats {

enum class Encoding : std::uint8_t { Utf8, Utf16LE, Utf16BE };  // the last one is no file's that readers take

// From 1. Columns count 16-bit units, as a byte-order mark does not.
struct Place {
  std::uint32_t line = 1;
  std::uint32_t column = 1;
};

// A part of a text, in its 16-bit units.
struct Range16 {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct Edit {
  Range16 range;
  String text;  // instead of it

  friend bool operator<(const Edit& a, const Edit& b) { return a.range.begin < b.range.begin; }
};

class SourceText {
 public:
  explicit SourceText(std::vector<std::uint8_t> bytes);

  [[nodiscard]] Encoding GetEncoding() const { return encoding_; }
  [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return bytes_; }

  // All of the file, a byte-order mark (U+FEFF) and what is behind U+0000 included. Bytes that are no UTF-8 are U+FFFD;
  // a last odd byte of UTF-16 is left out.
  [[nodiscard]] StringView Text() const { return text_; }
  [[nodiscard]] bool HasMark() const;

  [[nodiscard]] Place PlaceOf(std::size_t unit) const;          // of the end for one behind it
  [[nodiscard]] StringView LineOf(std::size_t unit) const;      // the line that it is in, without its end
  [[nodiscard]] std::size_t LineEnd(std::size_t unit) const;    // where that line ends
  [[nodiscard]] std::size_t BeginOf(std::uint32_t line) const;  // that line's first unit

  // The bytes with the edits. One that overlaps one before it is left out.
  [[nodiscard]] std::vector<std::uint8_t> Edited(std::vector<Edit> edits) const;

 private:
  [[nodiscard]] std::size_t LineIndex(std::size_t unit) const;
  void FindLines();
  void AppendEncoded(std::vector<std::uint8_t>& bytes, StringView text) const;
  [[nodiscard]] std::vector<std::size_t> ByteOffsets() const;  // of each unit, and of the end

  std::vector<std::uint8_t> bytes_;
  Encoding encoding_;
  String text_;
  std::vector<std::size_t> lines_;  // where they begin
};

}  // namespace qen::formats
