#include "host/sounds/mixer_sounds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace qen::host {
namespace {

void Append(std::vector<std::uint8_t>& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// A second of silence.
std::vector<std::uint8_t> MakeWav() {
  constexpr std::uint32_t kRate = 8000;
  std::vector<std::uint8_t> bytes{'R', 'I', 'F', 'F'};
  Append(bytes, 36 + kRate, 4);
  for (const char c : {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '}) bytes.push_back(static_cast<std::uint8_t>(c));
  for (const std::uint32_t value : {16U, 0x00010001U, kRate, kRate, 0x00080001U}) Append(bytes, value, 4);
  for (const char c : {'d', 'a', 't', 'a'}) bytes.push_back(static_cast<std::uint8_t>(c));
  Append(bytes, kRate, 4);
  bytes.resize(bytes.size() + kRate, 128);
  return bytes;
}

class MixerSoundsTest : public ::testing::Test {
 protected:
  std::unique_ptr<MixerSounds> sounds = MixerSounds::Open(SoundOutput::None);
};

TEST_F(MixerSoundsTest, LoadsSoundsUnderNamesOfTheirOwn) {
  ASSERT_NE(sounds, nullptr);
  const std::uint32_t first = sounds->Load(MakeWav());
  const std::uint32_t second = sounds->Load(MakeWav());
  EXPECT_NE(first, 0U);
  EXPECT_NE(second, 0U);
  EXPECT_NE(first, second);
}

TEST_F(MixerSoundsTest, RefusesWhatIsNoSound) {
  ASSERT_NE(sounds, nullptr);
  const std::vector<std::uint8_t> wav = MakeWav();
  EXPECT_EQ(sounds->Load({}), 0U);
  EXPECT_EQ(sounds->Load(std::vector<std::uint8_t>{'n', 'o', ' ', 's', 'o', 'u', 'n', 'd'}), 0U);
  EXPECT_EQ(sounds->Load(std::span(wav).first(30)), 0U);
}

TEST_F(MixerSoundsTest, PlaysMoreAtOnceThanThereAreVoicesAndFreesThemWhilePlaying) {
  ASSERT_NE(sounds, nullptr);
  const std::uint32_t sound = sounds->Load(MakeWav());
  for (int i = 0; i < 100; ++i) sounds->Play(sound, 0.5F);
  sounds->Free(sound);
  sounds->Play(sound, 1.0F);
  sounds->Play(0, 1.0F);
  sounds->Free(0);
  EXPECT_NE(sounds->Load(MakeWav()), sound);
}

TEST_F(MixerSoundsTest, CanBeOpenedAgain) {
  sounds.reset();
  sounds = MixerSounds::Open(SoundOutput::None);
  ASSERT_NE(sounds, nullptr);
  EXPECT_NE(sounds->Load(MakeWav()), 0U);
}

}  // namespace
}  // namespace qen::host
