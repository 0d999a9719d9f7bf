#include "platform/WaveFile.h"

#include <gtest/gtest.h>

#include "support/WaveBytes.h"

namespace zavel {
namespace {

using test::riff;
using test::waveChunk;
using test::waveFile;
using test::WaveFormat;

// "broken", "unknown", or what the file holds: "1 2x44100 16/4 abcd".
std::string read(std::string_view file) {
  WaveFile wave;
  const WaveFault fault = readWave(file, &wave);
  if (fault != WaveFault::kNone) return fault == WaveFault::kBroken ? "broken" : "unknown";
  return std::to_string(static_cast<int>(wave.coding)) + " " + std::to_string(wave.channels) + "x" +
         std::to_string(wave.rate) + " " + std::to_string(wave.bits) + "/" + std::to_string(wave.blockAlign) +
         " " + std::string(wave.samples);
}

std::string readOf(const WaveFormat& format, const std::string& samples = "abcdefgh") {
  return read(waveFile(format, samples));
}

TEST(WaveFile, TellsFormatAndSamples) {
  EXPECT_EQ(readOf({}), "1 1x44100 16/2 abcdefgh");
  EXPECT_EQ(readOf({.channels = 2}), "1 2x44100 16/4 abcdefgh");
  EXPECT_EQ(readOf({.channels = 2, .rate = 22050, .bits = 8}), "1 2x22050 8/2 abcdefgh");
  EXPECT_EQ(readOf({.rate = 11025}, ""), "1 1x11025 16/2 ");
}

TEST(WaveFile, KnowsCodings) {
  EXPECT_EQ(readOf({.bits = 24}, "abc"), "1 1x44100 24/3 abc");
  EXPECT_EQ(readOf({.bits = 32}), "1 1x44100 32/4 abcdefgh");
  EXPECT_EQ(readOf({.coding = 3, .bits = 32}), "3 1x44100 32/4 abcdefgh");
  EXPECT_EQ(readOf({.coding = 6, .rate = 8000, .bits = 8}), "6 1x8000 8/1 abcdefgh");
  EXPECT_EQ(readOf({.coding = 7, .rate = 8000, .bits = 8}), "7 1x8000 8/1 abcdefgh");
  EXPECT_EQ(readOf({.coding = 2, .bits = 4, .blockAlign = 8}), "2 1x44100 4/8 abcdefgh");
  EXPECT_EQ(readOf({.coding = 17, .bits = 4, .blockAlign = 8}), "17 1x44100 4/8 abcdefgh");
  EXPECT_EQ(readOf({.coding = 85, .bits = 0, .blockAlign = 1}), "unknown");  // MP3
  EXPECT_EQ(readOf({.coding = 0}), "unknown");
  EXPECT_EQ(readOf({.bits = 12}), "unknown");
  EXPECT_EQ(readOf({.coding = 3, .bits = 64}), "unknown");
  EXPECT_EQ(readOf({.coding = 6, .bits = 16}), "unknown");
  EXPECT_EQ(readOf({.coding = 17, .bits = 3, .blockAlign = 8}), "unknown");
}

// The long form names the coding behind 8 bytes more.
TEST(WaveFile, KnowsTheLongFormOfAFormat) {
  const std::string more = std::string("\x16\0\x10\0\x04\0\0\0", 8) + std::string("\x01\0", 2) +
                           std::string("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14);
  EXPECT_EQ(readOf({.coding = 0xFFFE, .extra = more}), "1 1x44100 16/2 abcdefgh");
  EXPECT_EQ(readOf({.coding = 0xFFFE, .extra = more.substr(0, 23)}), "unknown");
  EXPECT_EQ(readOf({.coding = 0xFFFE}), "unknown");
}

TEST(WaveFile, HoldsNumbersToWhatSoundsHave) {
  EXPECT_EQ(readOf({.channels = 0}), "broken");
  EXPECT_EQ(readOf({.rate = 0}), "broken");
  EXPECT_EQ(readOf({.channels = 8, .bits = 8}), "1 8x44100 8/8 abcdefgh");
  EXPECT_EQ(readOf({.channels = 9, .bits = 8}), "unknown");
  EXPECT_EQ(readOf({.rate = 1000}), "1 1x1000 16/2 abcdefgh");
  EXPECT_EQ(readOf({.rate = 999}), "unknown");
  EXPECT_EQ(readOf({.rate = 192000}), "1 1x192000 16/2 abcdefgh");
  EXPECT_EQ(readOf({.rate = 192001}), "unknown");
  EXPECT_EQ(readOf({.coding = 2, .channels = 3, .bits = 4, .blockAlign = 64}), "unknown");
  EXPECT_EQ(readOf({.blockAlign = 1}), "broken");
  EXPECT_EQ(readOf({.blockAlign = 0}), "broken");
  EXPECT_EQ(readOf({.coding = 2, .bits = 4, .blockAlign = 7}), "broken");   // a block's header alone
  EXPECT_EQ(readOf({.coding = 17, .bits = 4, .blockAlign = 4}), "broken");  // likewise
  EXPECT_EQ(readOf({.coding = 17, .channels = 2, .bits = 4, .blockAlign = 8}), "broken");
}

TEST(WaveFile, LeavesOutHalfABlock) {
  EXPECT_EQ(readOf({.channels = 2}, "abcdefg"), "1 2x44100 16/4 abcd");
  EXPECT_EQ(readOf({.channels = 2}, "abc"), "1 2x44100 16/4 ");
}

TEST(WaveFile, FindsItsChunksAmongOthers) {
  const std::string format = waveChunk("fmt ", WaveFormat{.bits = 8}.body());
  EXPECT_EQ(read(riff(waveChunk("LIST", "odd") + format + waveChunk("fact", "1234") +
                      waveChunk("data", "abc") + waveChunk("data", "second"))),
            "1 1x44100 8/1 abc");
  EXPECT_EQ(read(riff(waveChunk("data", "abc") + format)), "1 1x44100 8/1 abc");
  EXPECT_EQ(read(riff(format)), "broken");
  EXPECT_EQ(read(riff(waveChunk("data", "abc"))), "broken");
  EXPECT_EQ(read(riff(waveChunk("LIST", "odd", 0xFFFFFFFF) + format + waveChunk("data", "abc"))), "broken");
}

TEST(WaveFile, TakesWhatIsThereOfSamplesThatAreCutOff) {
  const std::string format = waveChunk("fmt ", WaveFormat{.bits = 8}.body());
  EXPECT_EQ(read(riff(format + waveChunk("data", "abcd", 0xFFFFFFFF))), "1 1x44100 8/1 abcd");
  EXPECT_EQ(read(waveChunk("RIFF", "WAVE" + format + waveChunk("data", "abcd"), 3)), "1 1x44100 8/1 abcd");
}

TEST(WaveFile, RefusesAllThatEndsAheadOfItsSamples) {
  const std::string file = waveFile({.bits = 8}, "ab");
  for (size_t length = 0; length < 44; ++length) EXPECT_EQ(read(file.substr(0, length)), "broken") << length;
  EXPECT_EQ(read(file.substr(0, 44)), "1 1x44100 8/1 ");
  EXPECT_EQ(read(file.substr(0, 45)), "1 1x44100 8/1 a");
  EXPECT_EQ(read(file), "1 1x44100 8/1 ab");
}

TEST(WaveFile, RefusesOtherFiles) {
  EXPECT_EQ(read("RIFX" + waveFile({}, "ab").substr(4)), "broken");
  EXPECT_EQ(read(waveChunk("RIFF", "AVI " + waveFile({}, "ab").substr(12))), "broken");
}

TEST(WaveFile, BoundsTheFormat) {
  EXPECT_EQ(read(riff(waveChunk("fmt ", WaveFormat{}.body().substr(0, 15)) + waveChunk("data", "ab"))),
            "broken");
  EXPECT_EQ(readOf({.extra = std::string(1024 - 16, 'x')}), "1 1x44100 16/2 abcdefgh");
  EXPECT_EQ(readOf({.extra = std::string(1024 - 15, 'x')}), "unknown");
}

TEST(WaveFile, IsWrittenWithRightLengths) {
  const std::string format = waveChunk("fmt ", WaveFormat{.bits = 8}.body());
  const std::string sloppy =
      waveChunk("RIFF", "WAVE" + waveChunk("LIST", "odd") + format + waveChunk("data", "abc", 1000), 7);
  WaveFile wave;
  ASSERT_EQ(readWave(sloppy, &wave), WaveFault::kNone);
  EXPECT_EQ(wholeWave(wave), std::string("RIFF\x28\0\0\0WAVE"
                                         "fmt \x10\0\0\0\x01\0\x01\0\x44\xAC\0\0\x44\xAC\0\0\x01\0\x08\0"
                                         "data\x04\0\0\0"
                                         "abc\0",
                                         48));
}

}  // namespace
}  // namespace zavel
