#include "base/text_cache.h"

#include <algorithm>
#include <functional>

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
    : text(words), key{font.GetId(), options, text}, cached{.layout = LayOut(font, words, options), .meshes = {}} {}

// Frames show their texts in the same order again and again, and a shadow and its words follow on each other: the
// guesses save most searches.
std::size_t TextCache::Find(const Key& key) const {
  for (std::size_t guess = last_; guess < entries_.size() && guess <= last_ + 1; ++guess) {
    if (entries_[guess]->key == key) return guess;
  }
  if (!entries_.empty() && entries_.front()->key == key) return 0;
  const auto known = index_.find(key);
  return known != index_.end() ? known->second : entries_.size();
}

CachedText& TextCache::Get(const FontObject& font, StringView text, const LayoutOptions& options) {
  const Key key{font.GetId(), options, text};
  last_ = Find(key);
  if (last_ == entries_.size()) {
    font.ReportSubstitute();
    if (entries_.size() >= std::max(most_, kUsual)) ForgetOld();
    last_ = entries_.size();
    entries_.push_back(std::make_unique<Entry>(font, text, options));
    index_.emplace(entries_.back()->key, last_);
  }
  entries_[last_]->lastUsed = frame_;
  return entries_[last_]->cached;
}

// A frame that shows more texts than usual would lay out each of them anew, each time, were those of the frame before
// forgotten. Twice as many as are kept may come before they are looked at again.
void TextCache::ForgetOld() {
  const auto isOld = [this](const std::unique_ptr<Entry>& entry) { return entry->lastUsed + 1 < frame_; };
  for (const std::unique_ptr<Entry>& entry : entries_) {
    if (isOld(entry)) index_.erase(entry->key);
  }
  std::erase_if(entries_, isOld);
  for (std::size_t i = 0; i < entries_.size(); ++i) index_.find(entries_[i]->key)->second = i;
  most_ = 2 * entries_.size();
}

const TextMesh& TextCache::Show(CachedText& text, const FontObject& font, const TextWindow& window) const {
  const auto isFit = [&](const TextMesh& mesh) { return mesh.window == window && mesh.lastShown != 0; };
  auto mesh = std::ranges::find_if(text.meshes, isFit);
  if (mesh == text.meshes.end()) {
    mesh = std::ranges::find_if(text.meshes, [this](const TextMesh& old) { return old.lastShown != frame_; });
    if (mesh == text.meshes.end()) mesh = text.meshes.emplace(mesh);
    mesh->Build(font, text.layout, window);
  }
  mesh->lastShown = frame_;
  return *mesh;
}

}  // namespace qen::base
