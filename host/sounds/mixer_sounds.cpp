#include "host/sounds/mixer_sounds.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace qen::host {
namespace {

constexpr int kRate = 44100;
constexpr int kStereo = 2;
constexpr int kBufferFrames = 1024;  // 23 ms, so that a click is heard with the click
constexpr int kVoices = 32;

struct CloseBytes {
  void operator()(SDL_RWops* bytes) const { SDL_RWclose(bytes); }
};

bool OpenDevice(SoundOutput output) {
  if (output == SoundOutput::None) SDL_SetHintWithPriority(SDL_HINT_AUDIODRIVER, "dummy", SDL_HINT_OVERRIDE);
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
  // Asked before one is opened: the system's own complaints about a missing device are long.
  const bool hasDevice = SDL_GetNumAudioDevices(0) != 0;
  if (hasDevice && Mix_OpenAudio(kRate, AUDIO_S16SYS, kStereo, kBufferFrames) == 0) return true;
  if (!hasDevice) SDL_SetError("there is no device");
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  return false;
}

}  // namespace

void MixerSounds::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

std::unique_ptr<MixerSounds> MixerSounds::Open(SoundOutput output) {
  if (OpenDevice(output)) return std::unique_ptr<MixerSounds>(new MixerSounds);
  std::fprintf(stderr, "no sound: %s\n", SDL_GetError());
  return nullptr;
}

MixerSounds::MixerSounds() { Mix_AllocateChannels(kVoices); }

MixerSounds::~MixerSounds() {
  sounds_.clear();
  Mix_CloseAudio();
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

std::uint32_t MixerSounds::Load(std::span<const std::uint8_t> file) {
  if (file.empty() || file.size() > std::numeric_limits<int>::max()) return 0;
  // Closed here: the mixer does not always do so when it fails.
  const std::unique_ptr<SDL_RWops, CloseBytes> bytes(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())));
  Mix_Chunk* chunk = bytes == nullptr ? nullptr : Mix_LoadWAV_RW(bytes.get(), 0);
  if (chunk == nullptr) return 0;
  sounds_[++last_].reset(chunk);
  return last_;
}

void MixerSounds::Play(std::uint32_t sound, float volume) {
  const auto found = sounds_.find(sound);
  if (found == sounds_.end()) return;
  const int channel = Mix_PlayChannel(-1, found->second.get(), 0);
  if (channel < 0) return;  // every voice is busy: one more would not be heard
  Mix_Volume(channel, static_cast<int>(std::clamp(volume, 0.0F, 1.0F) * MIX_MAX_VOLUME));
}

void MixerSounds::Free(std::uint32_t sound) { sounds_.erase(sound); }

}  // namespace qen::host
