#include "host/sounds/mixer_sounds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <vector>

namespace qen::host {
namespace {

std::vector<std::uint8_t> ReadClick() {
  std::ifstream file("samples/skylantern/sounds/click.wav", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class MixerSoundsTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(sounds, nullptr); }

  std::unique_ptr<MixerSounds> sounds = MixerSounds::Open(SoundOutput::None);
  const std::vector<std::uint8_t> wav = ReadClick();
};

TEST_F(MixerSoundsTest, RefusesWhatIsNoSound) {
  EXPECT_EQ(sounds->Load({}), 0U);
  EXPECT_EQ(sounds->Load(std::vector<std::uint8_t>{'n', 'o', ' ', 's', 'o', 'u', 'n', 'd'}), 0U);
  EXPECT_EQ(sounds->Load(std::span(wav).first(30)), 0U);
}

TEST_F(MixerSoundsTest, PlaysMoreAtOnceThanThereAreVoicesAndFreesThemWhilePlaying) {
  const std::uint32_t sound = sounds->Load(wav);
  const std::uint32_t second = sounds->Load(wav);
  EXPECT_NE(sound, 0U);
  EXPECT_NE(second, 0U);
  EXPECT_NE(sound, second) << "each has a name of its own";
  for (int i = 0; i < 100; ++i) sounds->Play(sound, 0.5F);
  sounds->Free(sound);
  sounds->Play(sound, 1.0F);
  sounds->Play(0, 1.0F);
  sounds->Free(0);
  EXPECT_NE(sounds->Load(wav), sound);
}

TEST_F(MixerSoundsTest, CanBeOpenedAgain) {
  sounds.reset();
  sounds = MixerSounds::Open(SoundOutput::None);
  ASSERT_NE(sounds, nullptr);
  EXPECT_NE(sounds->Load(wav), 0U);
}

}  // namespace
}  // namespace qen::host
