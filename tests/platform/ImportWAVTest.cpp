#include "platform/ImportWAV.h"

#include <gtest/gtest.h>

#include "platform/Log.h"
#include "support/FakePlatform.h"
#include "support/WaveBytes.h"

namespace zavel {
namespace {

using test::waveChunk;
using test::waveFile;
using test::WaveFormat;

std::string g_logged;

// A host whose sound output keeps what it is given.
class ImportWAV : public testing::Test {
 protected:
  ImportWAV() {
    g_logged.clear();
    setLogSink([](const std::string& line) { g_logged += line + "\n"; });
  }
  ~ImportWAV() override { setLogSink(nullptr); }

  static uint32_t play(const std::string& file) {
    return ImportWAVDataFromMemory(file.data(), static_cast<uint32_t>(file.size()));
  }

  test::FakePlatform host;
};

TEST_F(ImportWAV, PlaysAFile) {
  const std::string file = waveFile({.channels = 2}, "abcdefgh");
  EXPECT_EQ(play(file), 0u);
  ASSERT_EQ(host.sounds.played.size(), 1u);
  EXPECT_EQ(host.sounds.played[0], file);
  EXPECT_EQ(g_logged, "");
}

// What can be made good is handed on made good.
TEST_F(ImportWAV, HandsOnNoWrongLength) {
  const std::string format = waveChunk("fmt ", WaveFormat{}.body());
  EXPECT_EQ(play(waveChunk("RIFF", "WAVE" + format + waveChunk("data", "ab", 0xFFFFFFFF), 0)), 0u);
  ASSERT_EQ(host.sounds.played.size(), 1u);
  EXPECT_EQ(host.sounds.played[0], waveFile({}, "ab"));
}

TEST_F(ImportWAV, PlaysNothingForNoSamples) {
  EXPECT_EQ(play(waveFile({}, "")), 0u);
  EXPECT_EQ(host.sounds.played.size(), 0u);
}

TEST_F(ImportWAV, RefusesWhatIsNoSound) {
  EXPECT_EQ(ImportWAVDataFromMemory(nullptr, 44), 0x80000016u);
  EXPECT_EQ(play(""), 0x8004100Eu);
  EXPECT_EQ(play(waveFile({.blockAlign = 7}, "ab")), 0x8004100Eu);
  EXPECT_EQ(play(waveFile({.coding = 85}, "ab")), 0x80041001u);
  EXPECT_EQ(ImportWAVDataFromMemory("RIFF", 0x10000001), 0x80041001u);  // nobody looks that far
  EXPECT_EQ(host.sounds.played.size(), 0u);
  EXPECT_EQ(g_logged, "");
}

TEST_F(ImportWAV, TellsThatNothingCanPlay) {
  host.sounds.answer = SoundResult::kNotStarted;
  EXPECT_EQ(play(waveFile({}, "ab")), 0x80000013u);
  EXPECT_EQ(g_logged, "QuickTime error\n");
}

TEST_F(ImportWAV, TellsWhatElseFails) {
  host.sounds.answer = SoundResult::kUnknown;
  EXPECT_EQ(play(waveFile({}, "ab")), 0x80041001u);
  host.sounds.answer = SoundResult::kBrokeOff;
  EXPECT_EQ(play(waveFile({}, "ab")), 0x80000005u);
  EXPECT_EQ(g_logged, "");
}

}  // namespace
}  // namespace zavel
