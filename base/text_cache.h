// The texts that were drawn or measured last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "base/draw_list.h"
#include "base/text_layout.h"
#include "base/text_mesh.h"
#include "engine/types.h"

namespace qen::base {

class FontObject;

class TextCache {
 public:
  // A text that is kept; valid until the next one is asked for.
  using Id = std::size_t;

  // What was shown in a frame stays for the next one, the others until many were asked for. Allocates nothing for a
  // text that is known.
  Id Find(const FontObject& font, StringView text, const LayoutOptions& options);

  [[nodiscard]] const TextLayout& LayoutOf(Id text) const { return *texts_[text].layout; }

  // A text as it is seen through a window. Its glyphs stay until the next frame begins.
  const TextMesh& MeshOf(Id id, const FontObject& font, const TextWindow& window);

  void BeginFrame() { ++frame_; }

  String scratch;  // for a text that is being formatted

 private:
  struct Key {
    std::uint32_t font;
    LayoutOptions options;
    StringView words;
  };

  // Side by side in the order in which they were first asked for, as frames ask for them again and again.
  struct Text {
    std::uint32_t font = 0;
    LayoutOptions options;
    std::uint32_t firstWord = 0;  // in words_
    std::uint32_t length = 0;
    std::uint32_t lastUsed = 0;  // the number of a frame
    TextMesh mesh;               // as it was seen last
    std::unique_ptr<TextLayout> layout;
    std::vector<std::unique_ptr<TextMesh>> otherMeshes;  // where a frame shows it through several windows
  };

  [[nodiscard]] bool Is(const Text& text, const Key& key) const;
  [[nodiscard]] Id FindKnown(const Key& key) const;
  Id Add(const FontObject& font, const Key& key);
  void ForgetOld();
  void Keep(Text text, StringView words);
  const TextMesh& Show(TextMesh& mesh) const;

  static std::uint64_t HashOf(const Key& key);
  [[nodiscard]] Key KeyOf(const Text& text) const;

  std::vector<Text> texts_;
  String words_;          // of all texts
  std::size_t most_ = 0;  // more are not kept without looking for old ones
  Id last_ = 0;           // asked for
  std::uint32_t frame_ = 2;
  std::unordered_multimap<std::uint64_t, Id> byHash_;
};

}  // namespace qen::base
