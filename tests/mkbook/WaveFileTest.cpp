// Sounds: what is taken out of WAVE files, and what is refused.
#include "mkbook/WaveFile.h"

#include <gtest/gtest.h>

#include "mkbook/MediumFault.h"

namespace zavel::mkbook {
namespace {

std::string le(uint32_t value, int bytes) {
  std::string out;
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i);
  return out;
}

std::string chunk(const std::string& name, const std::string& content) {
  return name + le(static_cast<uint32_t>(content.size()), 4) + content +
         (content.size() % 2 != 0 ? std::string(1, '\0') : "");
}

std::string format(uint32_t coding, uint32_t channels, uint32_t rate, uint32_t bits) {
  const uint32_t align = channels * ((bits + 7) / 8);
  return chunk("fmt ", le(coding, 2) + le(channels, 2) + le(rate, 4) + le(rate * align, 4) + le(align, 2) +
                           le(bits, 2));
}

std::string wave(const std::string& chunks) {
  return "RIFF" + le(static_cast<uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

std::string faultOf(const std::string& file) {
  try {
    readWave(file);
  } catch (const MediumFault& fault) {
    return fault.what();
  }
  return "none";
}

TEST(WaveFile, PlainSamplesLoseTheirHeader) {
  const struct {
    uint32_t channels, rate, bits;
    uint16_t expected;
  } cases[] = {{1, 44100, 16, 0x0100}, {1, 22050, 16, 0x0101}, {1, 11025, 16, 0x0102}, {2, 44100, 16, 0x1100},
               {2, 22050, 8, 0x1111},  {1, 11025, 8, 0x0112},  {1, 44100, 8, 0x0110}};
  for (const auto& [channels, rate, bits, expected] : cases) {
    const Medium sound = readWave(wave(format(1, channels, rate, bits) + chunk("data", "abcdefgh")));
    EXPECT_EQ(sound.shape.kind, MediumShape::Kind::kSound);
    EXPECT_EQ(sound.shape.format, expected);
    EXPECT_EQ(sound.shape.size, 8u);
    EXPECT_EQ(sound.bytes, "abcdefgh");
  }
}

TEST(WaveFile, AllElseKeepsItsChunks) {
  for (const std::string& shape :
       {format(1, 1, 48000, 16), format(3, 1, 44100, 32), format(1, 4, 44100, 16), format(1, 1, 44100, 24)}) {
    const std::string chunks = shape + chunk("LIST", "odd") + chunk("data", std::string(24, 'x'));
    const Medium sound = readWave(wave(chunks));
    EXPECT_EQ(sound.shape.format, 0);
    EXPECT_EQ(sound.bytes, chunks);
  }
}

TEST(WaveFile, OtherChunksArePassedOver) {
  EXPECT_EQ(readWave(wave(chunk("LIST", "abc") + format(1, 1, 11025, 8) + chunk("fact", "1234") +
                          chunk("data", "xy") + chunk("data", "no")))
                .bytes,
            "xy");
}

// Who writes to a pipe can't go back and tell the length.
TEST(WaveFile, ALengthThatIsntToldIsTheRest) {
  const std::string head = "RIFF" + le(0xFFFFFFFF, 4) + "WAVE";
  EXPECT_EQ(readWave(head + format(1, 1, 11025, 8) + "data" + le(0xFFFFFFFF, 4) + "abc").bytes, "abc");
  EXPECT_EQ(faultOf(head + format(1, 1, 48000, 8) + "data" + le(0xFFFFFFFF, 4) + "abc"),
            "doesn't tell its length; save it anew with a program that edits sounds");
}

TEST(WaveFile, IsRefusedWhenItIsntWhole) {
  const std::string good = wave(format(1, 2, 44100, 16) + chunk("data", "abcdefgh"));
  EXPECT_EQ(faultOf(good), "none");
  EXPECT_EQ(faultOf(""), "is no WAVE file");
  EXPECT_EQ(faultOf("RIFX" + good.substr(4)), "is no WAVE file");
  EXPECT_EQ(faultOf(good.substr(0, good.size() - 4)), "breaks off: a part of it is missing");
  EXPECT_EQ(faultOf(wave(chunk("data", "abcdefgh"))), "is damaged: it doesn't tell its format");
  EXPECT_EQ(faultOf(wave(chunk("fmt ", "short") + chunk("data", "abcdefgh"))),
            "is damaged: it doesn't tell its format");
  EXPECT_EQ(faultOf(wave(format(1, 2, 44100, 16))), "has no samples");
  EXPECT_EQ(faultOf(wave(format(1, 2, 44100, 16) + chunk("data", "abcdef"))),
            "breaks off in the middle of a sample");
  EXPECT_EQ(faultOf(wave(format(1, 0, 44100, 16) + chunk("data", "abcd"))),
            "is damaged: its format makes no sense");
  EXPECT_EQ(faultOf(wave(format(1, 2, 0, 16) + chunk("data", "abcd"))),
            "is damaged: its format makes no sense");
  std::string contradiction = good;
  contradiction[32] = 2;  // bytes of all channels' samples
  EXPECT_EQ(faultOf(contradiction), "is damaged: the size of its samples contradicts itself");
}

}  // namespace
}  // namespace zavel::mkbook
