// Which texts a page shows, in which fonts and boxes.
#pragma once

#include <optional>
#include <vector>

#include "analysis/gui_model.h"
#include "base/backends/font_backend.h"

namespace qen::analysis {

// A box that words are written into, in whole world units.
struct TextBox {
  float width = 0.0F;
  float height = 0.0F;
  bool wraps = true;     // else one line
  bool scrolls = false;  // its height is no limit
};

struct TextUse {
  std::size_t value = formats::kNone;  // token of the page's file: the text id
  std::int32_t id = 0;
  std::optional<TextBox> box;  // nothing for words without one
  base::FontRequest font;
};

// Of the page's item blocks in their order. Ids below zero, and what is no number, name no text.
std::vector<TextUse> FindTextUses(const Page& page);

// The font that the block of a statement with a face names, on top of another.
base::FontRequest FontOf(const Source& source, const formats::Statement& face, base::FontRequest font);

// Of texts whose definition names none.
base::FontRequest DefaultFont();

}  // namespace qen::analysis
