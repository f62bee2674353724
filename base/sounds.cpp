#include "base/sounds.h"

#include <cstdint>
#include <vector>

#include "base/backends/file_backend.h"
#include "base/backends/sound_backend.h"
#include "base/record.h"
#include "base/resource_store.h"

namespace qen::base {

SoundService::~SoundService() {
  for (const auto& [file, sample] : samples_) backend_->Free(sample.name);
}

SoundHandle SoundService::CreateSound(const Char* file, const SoundDesc& desc, std::int32_t kind) {
  Record("ISound::CreateSound", file, kind);
  const StringView name = file == nullptr ? StringView() : file;
  const Samples::pointer sample = Load(name);
  if (sample == nullptr) return 0;
  ++sample->second.uses;
  if (++last_ == 0) ++last_;
  sounds_.insert_or_assign(last_, Sound{String(name), sample, desc.volume});
  return last_;
}

void SoundService::Play(SoundHandle sound) {
  Record("ISound::Play", FileOf(sound));
  const auto found = sounds_.find(sound);
  if (found == sounds_.end()) return;
  backend_->Play(found->second.sample->second.name, found->second.volume);
}

void SoundService::ReleaseSound(SoundHandle sound) {
  Record("ISound::ReleaseSound", FileOf(sound));
  const auto found = sounds_.find(sound);
  if (found == sounds_.end()) return;
  const Samples::pointer sample = found->second.sample;
  sounds_.erase(found);
  if (--sample->second.uses > 0) return;
  backend_->Free(sample->second.name);
  samples_.erase(samples_.find(sample->first));
}

StringView SoundService::FileOf(SoundHandle sound) const {
  const auto found = sounds_.find(sound);
  return found == sounds_.end() ? StringView() : found->second.file;
}

SoundService::Samples::pointer SoundService::Load(StringView file) {
  const String key = FileKey(file);
  if (const auto known = samples_.find(key); known != samples_.end()) return &*known;
  std::vector<std::uint8_t> bytes;
  if (backend_ == nullptr || files_ == nullptr || !files_->Read(file, bytes)) {
    log_.ReportMissing(u"sound", file);
    return nullptr;
  }
  const std::uint32_t name = backend_->Load(bytes);
  if (name == 0) {
    log_.ReportMissing(u"sound", file, u"not a sound");
    return nullptr;
  }
  return &*samples_.emplace(key, Sample{name, 0}).first;
}

}  // namespace qen::base
