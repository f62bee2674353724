// The texts that were drawn or measured last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "base/draw_text.h"
#include "base/text_layout.h"
#include "engine/types.h"

namespace qen::base {

class FontObject;

struct CachedText {
  TextLayout layout;
  std::vector<TextMesh> meshes;  // as it was shown, at one window each
};

class TextCache {
 public:
  // What was shown in a frame stays for the next one, the others until many were asked for. Allocates nothing for a
  // text that is known. The text stays where it is until it is forgotten.
  CachedText& Get(const FontObject& font, StringView text, const LayoutOptions& options);

  // The mesh of a text, whose quads stay until the next frame begins.
  const TextMesh& Show(CachedText& text, const FontObject& font, const TextWindow& window) const;

  void BeginFrame() { ++frame_; }

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
    Key key;                     // its text is `text`
    std::uint32_t lastUsed = 0;  // the number of a frame
    CachedText cached;
  };

  std::size_t Find(const Key& key) const;
  void ForgetOld();

  std::vector<std::unique_ptr<Entry>> entries_;  // in the order in which they were first used
  std::size_t last_ = 0;                         // the one used last
  std::size_t most_ = 0;                         // more are not kept without looking for old ones
  std::uint32_t frame_ = 2;
  std::unordered_map<Key, std::size_t, Hash> index_;
};

}  // namespace qen::base
