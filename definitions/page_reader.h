// Reads page and bag definitions: a header of keys, then item blocks, in two passes over the text.
#pragma once

#include "engine/types.h"

namespace qen {

class IPageBuilder;

enum class PageFormat : std::uint8_t {
  Page,
  Bag,  // without sounds, and without the line of timing
};

// Each gives false when a value is missing at the end of the text; the header also when it names no scene or the scene
// does not load. What was read stays.
bool ReadPageHeader(const String& text, PageFormat format, IPageBuilder& page);
bool ReadPageItems(const String& text, IPageBuilder& page);

}  // namespace qen
