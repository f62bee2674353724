// Sound samples.
#pragma once

#include <cstdint>

#include "engine/types.h"
#include "engine/vec.h"

namespace qen {

using SoundHandle = std::uint32_t;  // 0: no sound

// How a sound is to be played; the defaults suit interface sounds.
struct SoundDesc {
  String name;
  std::int32_t channel = -1;
  std::int32_t loops = 0;
  std::int32_t voices = 1;
  std::int32_t priority = 1;
  float volume = 1.0F;
  std::int32_t pan = 0;
  std::int32_t bits = 16;
  std::int32_t bufferSize = 10240;
  Vec3 position;
  Vec3 velocity;
  float minDistance = 300.0F;
  float maxDistance = 100000.0F;
  float pitch = 1.0F;
  std::int32_t group = -1;
  float delay = 0.0F;
};

class ISound {
 public:
  virtual ~ISound() = default;
  // `kind` 2: a sample kept in memory. Returns 0 when the file cannot be loaded (the engine has logged it).
  virtual SoundHandle CreateSound(const Char* file, const SoundDesc& desc, std::int32_t kind) = 0;
  virtual void Play(SoundHandle sound) = 0;          // nothing for 0 or a released handle
  virtual void ReleaseSound(SoundHandle sound) = 0;  // nothing for 0 or a released handle
};

}  // namespace qen
