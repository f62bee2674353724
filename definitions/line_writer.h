// Puts the lines of a definition file together.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

struct Hex {
  std::uint32_t value;  // lower-case digits, no prefix, no leading zeros
};

struct Fixed {
  float value;  // four digits behind the point
};

class LineWriter {
 public:
  // One line of the parts given (texts, signed numbers, Hex, Fixed), ended with a carriage return and a line feed.
  template <class... Parts>
  void Line(const Parts&... parts) {
    (Add(parts), ...);
    Add(u"\r\n");
  }

  void Add(StringView part) { text_ += part; }
  void Add(std::int32_t number);
  void Add(Hex number);
  void Add(Fixed number);

  [[nodiscard]] const String& Text() const { return text_; }

 private:
  String text_;
};

}  // namespace qen
