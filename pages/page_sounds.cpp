#include "pages/page_sounds.h"

#include "commands/live_objects.h"
#include "engine/gui_page_object.h"
#include "engine/system.h"

namespace qen {
namespace {

constexpr std::int32_t kSample = 2;  // kept in memory

// Known by its address and, when it is a page or a widget, by the number that tells it from others that were there.
struct SoundObject {
  const void* address = nullptr;
  std::uint64_t serial = 0;
  friend bool operator==(const SoundObject&, const SoundObject&) = default;
};

SoundObject lastSoundObject;

}  // namespace

PageSounds::~PageSounds() { GiveBack(); }

void PageSounds::Set(std::int32_t kind, const String& file) {
  const auto index = static_cast<std::size_t>(kind);
  files_[index] = file;
  if (System::sound == nullptr) return;
  if (handles_[index] != 0) System::sound->ReleaseSound(handles_[index]);
  handles_[index] = System::sound->CreateSound(file.c_str(), SoundDesc{}, kSample);
}

void PageSounds::Play(const void* address, std::int32_t kind) const {
  const SoundObject object{address, LiveSerial(address)};
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
  handles_ = {};
}

void PageSounds::GiveBack() {
  for (SoundHandle& handle : handles_) {
    if (handle != 0 && System::sound != nullptr) System::sound->ReleaseSound(handle);
    handle = 0;
  }
}

}  // namespace qen
