#include "base/recording/fake_devices.h"

#include <cstdint>

namespace qen::base {

std::uint32_t FakeSound::Load(std::span<const std::uint8_t> file) {
  std::string content(file.begin(), file.end());
  if (content.empty() || content.starts_with("bad")) return 0;
  loaded.emplace(++last_, std::move(content));
  return last_;
}

void FakeSound::Play(std::uint32_t sound, float) { played.push_back(loaded.at(sound)); }

void FakeSound::Free(std::uint32_t sound) { loaded.erase(sound); }

}  // namespace qen::base
