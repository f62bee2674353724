// Sounds through SDL_mixer.
#pragma once

#include <memory>
#include <unordered_map>

#include "base/backends/sound_backend.h"

struct Mix_Chunk;

namespace qen::host {

enum class SoundOutput : std::uint8_t {
  Device,  // the system's
  None,    // sounds are loaded and take their time, but nothing is heard
};

// Plays wav and ogg files (and what else SDL_mixer was built for), many at once. One at a time.
class MixerSounds final : public base::ISoundBackend {
 public:
  // Null, after one line on standard error, when no device can be opened.
  static std::unique_ptr<MixerSounds> Open(SoundOutput output);

  ~MixerSounds() override;
  MixerSounds(const MixerSounds&) = delete;
  MixerSounds& operator=(const MixerSounds&) = delete;

  std::uint32_t Load(std::span<const std::uint8_t> file) override;
  void Play(std::uint32_t sound, float volume) override;
  void Free(std::uint32_t sound) override;  // silences it where it is playing

 private:
  struct FreeChunk {
    void operator()(Mix_Chunk* chunk) const;
  };

  MixerSounds();

  std::unordered_map<std::uint32_t, std::unique_ptr<Mix_Chunk, FreeChunk>> sounds_;
  std::uint32_t last_ = 0;
};

}  // namespace qen::host
