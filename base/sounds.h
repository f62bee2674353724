// The sound service.
#pragma once

#include <unordered_map>

#include "base/log.h"
#include "engine/sound.h"

namespace qen::base {

class IFileBackend;
class ISoundBackend;

class SoundService final : public ISound {
 public:
  SoundService(ISoundBackend* backend, IFileBackend* files, LogService& log)
      : backend_(backend), files_(files), log_(log) {}
  ~SoundService() override;
  SoundService(const SoundService&) = delete;
  SoundService& operator=(const SoundService&) = delete;

  SoundHandle CreateSound(const Char* file, const SoundDesc& desc, std::int32_t kind) override;
  void Play(SoundHandle sound) override;
  void ReleaseSound(SoundHandle sound) override;

 private:
  // A file's samples, shared by the sounds made from it.
  struct Sample {
    std::uint32_t name;  // the backend's
    std::uint32_t uses;
  };
  using Samples = std::unordered_map<String, Sample>;

  struct Sound {
    String file;  // as it was asked for
    Samples::pointer sample;
    float volume;
  };

  Samples::pointer Load(StringView file);
  [[nodiscard]] StringView FileOf(SoundHandle sound) const;

  ISoundBackend* backend_;  // null: System::sound is null as well
  IFileBackend* files_;     // may be null
  LogService& log_;
  Samples samples_;
  std::unordered_map<SoundHandle, Sound> sounds_;
  SoundHandle last_ = 0;
};

}  // namespace qen::base
