// What plays sounds.
#pragma once

#include <cstdint>
#include <span>

namespace qen::base {

class ISoundBackend {
 public:
  virtual ~ISoundBackend() = default;
  virtual std::uint32_t Load(std::span<const std::uint8_t> file) = 0;  // a sound file's bytes; 0 when it is no sound
  virtual void Play(std::uint32_t sound, float volume) = 0;
  virtual void Free(std::uint32_t sound) = 0;
};

}  // namespace qen::base
