#include "host/sounds/mixer_sounds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <vector>

namespace qen::host {
namespace {

TEST(MixerSoundsTest, PlaysMoreAtOnceThanThereAreVoicesAndFreesThemWhilePlaying) {
  std::ifstream file("samples/skylantern/sounds/click.wav", std::ios::binary);
  const std::vector<std::uint8_t> wav(std::istreambuf_iterator<char>(file), {});
  for (const char* opened : {"once", "again"}) {
    const std::unique_ptr<MixerSounds> sounds = MixerSounds::Open(SoundOutput::None);
    ASSERT_NE(sounds, nullptr) << opened;
    for (const std::size_t part : {0U, 8U, 30U}) EXPECT_EQ(sounds->Load(std::span(wav).first(part)), 0U) << part;
    const std::uint32_t sound = sounds->Load(wav);
    EXPECT_TRUE(sound != 0 && sound != sounds->Load(wav)) << "each has a name of its own";
    for (int i = 0; i < 100; ++i) sounds->Play(sound, 0.5F);
    sounds->Free(sound);
    sounds->Play(sound, 1.0F);
    sounds->Play(0, 1.0F);
    sounds->Free(0);
    EXPECT_NE(sounds->Load(wav), sound);
  }
}

}  // namespace
}  // namespace qen::host
