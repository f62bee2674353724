// Fonts.
#pragma once

#include "engine/resource.h"

namespace qen {

// In font pixels.
struct TextMetric {
  std::int32_t tmHeight = 0;  // of a line's cell
  std::int32_t tmAscent = 0;  // from the cell's top to the base line
  std::int32_t tmDescent = 0;
};

class Font : public Resource {
 public:
  virtual void GetTextMetric(TextMetric& metric) const = 0;

 protected:
  using Resource::Resource;
};

class FontManager : public ResourceManager {
 public:
  QEN_API static FontManager* GetSingleton();  // null while there is no engine

  // `height` negative: pixels of the em square; positive: of the cell; 0: a default. `width` 0: the face's own
  // proportions. A missing face falls back to another. `quality` 1: smoothed. Null on failure (the engine has logged
  // it).
  virtual Font* CreateEx(const Char* face, std::int32_t height, std::int32_t width, std::int32_t weight, bool italic,
                         std::int32_t quality, const String& group) = 0;
};

}  // namespace qen
