#include "base/text_cache.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

#include "base/fonts.h"

namespace qen::base {
namespace {

constexpr std::size_t kUsual = 1024;  // are kept in any case

}  // namespace

std::uint64_t TextCache::HashOf(const Key& key) {
  std::uint64_t hash = std::hash<StringView>{}(key.words);
  const auto mix = [&hash](std::uint64_t value) { hash = (hash ^ value) * 0x9E3779B97F4A7C15U; };
  mix(key.font);
  mix(std::hash<float>{}(key.options.wrapWidth));
  mix(static_cast<std::uint64_t>(key.options.style) * 4 + (key.options.singleLine ? 2 : 0) +
      (key.options.expandTabs ? 1 : 0));
  return hash;
}

TextCache::Key TextCache::KeyOf(const Text& text) const {
  return {text.font, text.options, StringView(words_).substr(text.firstWord, text.length)};
}

bool TextCache::Is(const Text& text, const Key& key) const {
  return text.font == key.font && text.length == key.words.size() && text.options == key.options &&
         std::memcmp(words_.data() + text.firstWord, key.words.data(), text.length * sizeof(Char)) == 0;
}

// Frames show their texts in the same order again and again, and a shadow and its words follow on each other: the
// guesses save most searches. The number of texts when it is not known.
TextCache::Id TextCache::FindKnown(const Key& key) const {
  for (const Id guess : {last_ + 1, last_, Id{0}}) {
    if (guess < texts_.size() && Is(texts_[guess], key)) return guess;
  }
  const auto [first, end] = byHash_.equal_range(HashOf(key));
  const auto found = std::find_if(first, end, [&](const auto& known) { return Is(texts_[known.second], key); });
  return found != end ? found->second : texts_.size();
}

TextCache::Id TextCache::Find(const FontObject& font, StringView text, const LayoutOptions& options) {
  const Key key{font.GetId(), options, text};
  last_ = FindKnown(key);
  if (last_ == texts_.size()) last_ = Add(font, key);
  texts_[last_].lastUsed = frame_;
  return last_;
}

TextCache::Id TextCache::Add(const FontObject& font, const Key& key) {
  font.ReportSubstitute();
  if (texts_.size() >= std::max(most_, kUsual)) ForgetOld();
  Text text;
  text.font = key.font;
  text.options = key.options;
  text.layout = std::make_unique<TextLayout>(LayOut(font, key.words, key.options));
  Keep(std::move(text), key.words);
  return texts_.size() - 1;
}

void TextCache::Keep(Text text, StringView words) {
  text.firstWord = static_cast<std::uint32_t>(words_.size());
  text.length = static_cast<std::uint32_t>(words.size());
  words_ += words;
  byHash_.emplace(HashOf({text.font, text.options, words}), texts_.size());
  texts_.push_back(std::move(text));
}

// A frame that shows more texts than usual would lay out each of them anew, each time, were those of the frame before
// forgotten. Twice as many as are kept may come before they are looked at again.
void TextCache::ForgetOld() {
  std::vector<Text> texts = std::exchange(texts_, {});
  const String words = std::exchange(words_, {});
  byHash_.clear();
  for (Text& text : texts) {
    if (text.lastUsed + 1 < frame_) continue;
    const StringView kept = StringView(words).substr(text.firstWord, text.length);
    Keep(std::move(text), kept);
  }
  most_ = 2 * texts_.size();
}

const TextMesh& TextCache::MeshOf(Id id, const FontObject& font, const TextWindow& window) {
  Text& text = texts_[id];
  if (text.mesh.window == window && text.mesh.lastShown != 0) return Show(text.mesh);
  const auto isFit = [&](const auto& mesh) { return mesh->window == window; };
  const auto known = std::ranges::find_if(text.otherMeshes, isFit);
  if (known != text.otherMeshes.end()) return Show(**known);

  TextMesh* free = &text.mesh;
  if (free->lastShown == frame_) {
    const auto isFree = [this](const auto& mesh) { return mesh->lastShown != frame_; };
    const auto other = std::ranges::find_if(text.otherMeshes, isFree);
    free = other != text.otherMeshes.end() ? other->get()
                                           : text.otherMeshes.emplace_back(std::make_unique<TextMesh>()).get();
  }
  free->Build(font, *text.layout, window);
  return Show(*free);
}

const TextMesh& TextCache::Show(TextMesh& mesh) const {
  mesh.lastShown = frame_;
  return mesh;
}

}  // namespace qen::base
