#include "pages/page_sounds.h"

#include "engine/gui_page_object.h"
#include "engine/system.h"

namespace qen {
namespace {

constexpr std::int32_t kSample = 2;  // kept in memory

const void* lastSoundObject = nullptr;

}  // namespace

void PageSounds::Set(std::int32_t kind, const String& file) {
  const auto index = static_cast<std::size_t>(kind);
  files_[index] = file;
  if (System::sound == nullptr) return;
  if (handles_[index] != 0) System::sound->ReleaseSound(handles_[index]);
  handles_[index] = System::sound->CreateSound(file.c_str(), SoundDesc{}, kSample);
}

void PageSounds::Play(const void* object, std::int32_t kind) const {
  if (System::sound == nullptr) {
    lastSoundObject = object;
    return;
  }
  if (kind < 0 || static_cast<std::size_t>(kind) >= kKinds) return;
  const bool repeated = kind == sound_kind::kMouse && object == lastSoundObject;
  if (!repeated) System::sound->Play(handles_[static_cast<std::size_t>(kind)]);
  lastSoundObject = object;
}

void PageSounds::Release() {
  if (System::sound == nullptr) return;
  // In the order in which the page names its sounds.
  for (const std::int32_t kind : {sound_kind::kClick, sound_kind::kMouse, sound_kind::kAnimIn, sound_kind::kAnimOut}) {
    System::sound->ReleaseSound(handles_[static_cast<std::size_t>(kind)]);
  }
  ForgetHandles();
}

}  // namespace qen
