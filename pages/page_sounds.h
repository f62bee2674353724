// The interface sounds of a page.
#pragma once

#include <array>
#include <cstdint>

#include "engine/sound.h"
#include "engine/types.h"

namespace qen {

class PageSounds {
 public:
  PageSounds() = default;
  ~PageSounds();
  PageSounds(const PageSounds&) = delete;
  PageSounds& operator=(const PageSounds&) = delete;

  // Remembers the file name and loads it, when there is a sound service. Kinds are sound_kind's.
  void Set(std::int32_t kind, const String& file);

  // Plays the sound of a kind; the mouse-over sound only when the object at `address` is not the last one that asked
  // for a sound, on any page. Other kinds do nothing.
  void Play(const void* address, std::int32_t kind) const;

  void Release();   // gives all four back, those too that were not made; the file names stay
  void GiveBack();  // gives back those that were made
  [[nodiscard]] const String& FileName(std::int32_t kind) const { return files_[static_cast<std::size_t>(kind)]; }

 private:
  static constexpr std::size_t kKinds = 4;

  std::array<String, kKinds> files_;
  std::array<SoundHandle, kKinds> handles_{};
};

}  // namespace qen
