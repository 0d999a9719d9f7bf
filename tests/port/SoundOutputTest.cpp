// Sounds into a file: SDL's driver for that writes what a card would get, silence until the sound begins and
// from its end on.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "base/LinuxPlatform.h"
#include "foundation/Storage.h"
#include "platform/ImportWAV.h"
#include "platform/Log.h"
#include "support/EnvironmentVariable.h"
#include "support/TempFolder.h"
#include "support/WaveBytes.h"

namespace zavel {
namespace {

using test::EnvironmentVariable;
using test::waveFile;
using test::WaveFormat;

uint32_t play(const std::string& file) {
  return ImportWAVDataFromMemory(file.data(), static_cast<uint32_t>(file.size()));
}

std::string g_logged;

class SoundOutputTest : public testing::Test {
 protected:
  SoundOutputTest() {
    g_logged.clear();
    setLogSink([](const std::string& line) { g_logged += line + "\n"; });
  }
  ~SoundOutputTest() override { setLogSink(nullptr); }

  // From the first byte on that is no silence.
  std::string heard(char silence = '\0') {
    const std::string all = folder.read("heard");
    return all.substr(std::min(all.size(), all.find_first_not_of(silence)));
  }

  test::TempFolder folder;
  EnvironmentVariable driver{"SDL_AUDIODRIVER", "disk"};
  EnvironmentVariable delay{"SDL_DISKAUDIODELAY", "0"};
  EnvironmentVariable output{"SDL_DISKAUDIOFILE", folder.file("heard").c_str()};
};

// Samples that no decoder leaves out, and that are no silence.
std::string someSamples(size_t bytes) {
  std::string samples;
  for (size_t i = 0; i < bytes; ++i) samples += static_cast<char>(1 + i % 100);
  return samples;
}

TEST_F(SoundOutputTest, PlaysEverySampleAsItIs) {
  const std::string samples = someSamples(44100);
  EXPECT_EQ(play(waveFile({.channels = 2}, samples)), 0u);
  const std::string file = heard();
  ASSERT_GE(file.size(), samples.size());
  EXPECT_EQ(file.substr(0, samples.size()), samples);
  EXPECT_EQ(file.find_first_not_of('\0', samples.size()), std::string::npos);
  EXPECT_EQ(g_logged, "");
}

TEST_F(SoundOutputTest, PlaysEightBitsWithTheirOwnSilence) {
  const std::string samples = someSamples(3001);
  EXPECT_EQ(play(waveFile({.rate = 11025, .bits = 8}, samples)), 0u);
  const std::string file = heard('\x80');
  ASSERT_GT(file.size(), samples.size());
  EXPECT_EQ(file.substr(0, samples.size()), samples);
  EXPECT_EQ(file.find_first_not_of('\x80', samples.size()), std::string::npos);
}

TEST_F(SoundOutputTest, PlaysSoundsOneAfterTheOther) {
  for (const size_t bytes : {2000, 6000, 400}) {
    const std::string samples = someSamples(bytes);
    EXPECT_EQ(play(waveFile({}, samples)), 0u);
    EXPECT_EQ(heard().substr(0, bytes), samples) << bytes;
  }
}

// mu-law: 0xFF is 0, 0x80 the loudest, 32124.
TEST_F(SoundOutputTest, DecodesMuLaw) {
  EXPECT_EQ(play(waveFile({.coding = 7, .rate = 8000, .bits = 8}, "\x80\xFF")), 0u);
  EXPECT_EQ(heard().substr(0, 4), std::string("\x7C\x7D\0\0", 4));
}

// One block: predictor 1000, step index 0 (step 7), then two samples. 4 adds the step and an eighth of it
// (7 + 0), 12 takes the same away at the next step: index 2, step 9 (9 + 1).
TEST_F(SoundOutputTest, DecodesImaAdpcm) {
  const std::string block("\xE8\x03\0\0\xC4\0\0\0", 8);
  const WaveFormat format = {
      .coding = 17, .bits = 4, .blockAlign = 8, .extra = std::string("\x02\0\x09\0", 4)};
  EXPECT_EQ(play(waveFile(format, block)), 0u);
  EXPECT_EQ(heard().substr(0, 6), std::string("\xE8\x03\xEF\x03\xE5\x03", 6));
}

// Says that there are 1000 samples in 8 bytes.
TEST_F(SoundOutputTest, RefusesBlocksThatCantBe) {
  const WaveFormat format = {
      .coding = 17, .bits = 4, .blockAlign = 8, .extra = std::string("\x02\0\xE8\x03", 4)};
  EXPECT_EQ(play(waveFile(format, std::string(8, '\0'))), 0x80041001u);
  EXPECT_FALSE(std::filesystem::exists(folder.file("heard")));
}

TEST_F(SoundOutputTest, ReturnsWhenTheSoundIsOver) {
  const EnvironmentVariable realTime("SDL_DISKAUDIODELAY", nullptr);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(play(waveFile({.rate = 8000, .bits = 8}, someSamples(8000))), 0u);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1000));
}

// Where there is a card, this one is none.
TEST_F(SoundOutputTest, IsSilentAboutAMissingCard) {
  const EnvironmentVariable alsa("SDL_AUDIODRIVER", "alsa");
  const EnvironmentVariable card("AUDIODEV", "no-such-card");
  testing::internal::CaptureStderr();
  EXPECT_EQ(play(waveFile({}, "ab")), 0x80000013u);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(g_logged, "QuickTime error\n");
}

TEST_F(SoundOutputTest, TriesAgainAfterAFailure) {
  {
    const EnvironmentVariable none("SDL_AUDIODRIVER", "no-such-driver");
    EXPECT_EQ(play(waveFile({}, "ab")), 0x80000013u);
  }
  EXPECT_EQ(play(waveFile({}, "ab")), 0u);
  EXPECT_EQ(heard().substr(0, 2), "ab");
  EXPECT_EQ(g_logged, "QuickTime error\n");
}

TEST_F(SoundOutputTest, PlaysWithStandardErrorClosed) {
  const int kept = ::dup(2);
  ::close(2);
  const uint32_t code = play(waveFile({}, "ab"));
  const bool stillClosed = ::fcntl(2, F_GETFD) < 0;
  ::dup2(kept, 2);
  ::close(kept);
  EXPECT_EQ(code, 0u);
  EXPECT_TRUE(stillClosed);
}

size_t openDescriptors() {
  size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

TEST_F(SoundOutputTest, LeavesNothingOpen) {
  EXPECT_EQ(play(waveFile({}, "ab")), 0u);
  const size_t before = openDescriptors();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(play(waveFile({}, "ab")), 0u);
  EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
}  // namespace zavel
