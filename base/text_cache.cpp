#include "base/text_cache.h"

#include <functional>
#include <iterator>

#include "base/fonts.h"

namespace qen::base {
namespace {

constexpr std::size_t kUsual = 1024;  // are kept in any case

}  // namespace

std::size_t TextCache::Hash::operator()(const Key& key) const {
  std::size_t hash = std::hash<StringView>{}(key.text);
  const auto mix = [&hash](std::size_t value) { hash = (hash ^ value) * 0x9E3779B97F4A7C15U; };
  mix(key.font);
  mix(std::hash<float>{}(key.options.wrapWidth));
  mix(static_cast<std::size_t>(key.options.style) * 4 + (key.options.singleLine ? 2 : 0) +
      (key.options.expandTabs ? 1 : 0));
  return hash;
}

TextCache::Entry::Entry(const FontObject& font, StringView words, const LayoutOptions& options)
    : text(words), key{font.GetId(), options, text}, cached{.layout = LayOut(font, words, options), .mesh = {}} {}

// A frame that shows more texts than usual would lay out each of them anew, each time, were those of the frame before
// forgotten.
bool TextCache::CanForgetOldest() const {
  return entries_.size() >= kUsual && entries_.back().cached.lastShown + 1 < frame_;
}

void TextCache::ForgetOldest() {
  if (next_ == std::prev(entries_.end())) next_ = entries_.end();
  index_.erase(entries_.back().key);
  entries_.pop_back();
}

// Frames show their texts in the same order again and again, so the guess saves most searches.
TextCache::Entries::iterator TextCache::Find(const Key& key) {
  if (next_ != entries_.end() && next_->key == key) return next_;
  const auto known = index_.find(key);
  return known != index_.end() ? known->second : entries_.end();
}

CachedText& TextCache::Get(const FontObject& font, StringView text, const LayoutOptions& options) {
  const Key key{font.GetId(), options, text};
  // A shadow and its words follow on each other.
  if (!entries_.empty() && entries_.front().key == key) return entries_.front().cached;
  const auto found = Find(key);
  if (found != entries_.end()) {
    next_ = std::prev(found);
    entries_.splice(entries_.begin(), entries_, found);
    return found->cached;
  }
  font.ReportSubstitute();
  while (CanForgetOldest()) ForgetOldest();
  entries_.emplace_front(font, text, options);
  index_.emplace(entries_.front().key, entries_.begin());
  return entries_.front().cached;
}

const TextMesh* TextCache::Show(CachedText& text, const FontObject& font, const TextPlacement& placement) const {
  if (text.mesh.placement != placement) {
    if (text.lastShown == frame_) return nullptr;
    text.mesh.Build(font, text.layout, placement);
  }
  text.lastShown = frame_;
  return &text.mesh;
}

}  // namespace qen::base
