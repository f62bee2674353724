// The texts that were drawn or measured last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>

#include "base/draw_text.h"
#include "base/text_layout.h"
#include "engine/types.h"

namespace qen::base {

class FontObject;

struct CachedText {
  TextLayout layout;
  TextMesh mesh;                // as it was shown last
  std::uint32_t lastShown = 0;  // the number of a frame, from 2 on
};

class TextCache {
 public:
  // What was shown in a frame stays for the next one, the others until many were asked for. Allocates nothing for a
  // text that is known.
  CachedText& Get(const FontObject& font, StringView text, const LayoutOptions& options);

  // The mesh of a text for this frame, which keeps it; null when the frame shows the text at another placement already.
  const TextMesh* Show(CachedText& text, const FontObject& font, const TextPlacement& placement) const;

  void BeginFrame() { ++frame_; }

  String scratch;        // for a text that is being formatted
  TextMesh scratchMesh;  // for a text that a frame shows a second time, at another placement

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
    CachedText cached;
  };

  using Entries = std::list<Entry>;

  [[nodiscard]] bool CanForgetOldest() const;
  Entries::iterator Find(const Key& key);
  void ForgetOldest();

  Entries entries_;                          // the one used last comes first
  Entries::iterator next_ = entries_.end();  // what followed, the last time, on the one used last; the end: not known
  std::uint32_t frame_ = 2;
  std::unordered_map<Key, Entries::iterator, Hash> index_;
};

}  // namespace qen::base
