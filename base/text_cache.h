// Layouts of the texts that were drawn or measured last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>

#include "base/text_layout.h"
#include "engine/types.h"

namespace qen::base {

class FontObject;

class TextCache {
 public:
  // Stays until the frame after the next, and then until many other texts were asked for. Allocates nothing for a text
  // that is known.
  const TextLayout& Get(const FontObject& font, StringView text, const LayoutOptions& options);

  void EndFrame() { ++frame_; }

  String scratch;  // for a text that is being formatted

 private:
  struct Key {
    std::uint32_t font;
    LayoutOptions options;
    StringView text;

    friend bool operator==(const Key&, const Key&) = default;
  };

  struct Hash {
    std::size_t operator()(const Key& key) const;
  };

  struct Entry {
    Entry(const FontObject& font, StringView words, const LayoutOptions& options);

    String text;
    Key key;  // its text is `text`
    TextLayout layout;
    std::uint32_t lastUse = 0;  // the number of a frame
  };

  [[nodiscard]] bool CanForgetOldest() const;

  std::list<Entry> entries_;  // the one used last comes first
  std::uint32_t frame_ = 0;
  std::unordered_map<Key, std::list<Entry>::iterator, Hash> index_;
};

}  // namespace qen::base
