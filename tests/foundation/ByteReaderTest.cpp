#include "foundation/ByteReader.h"

#include <gtest/gtest.h>

namespace zavel {
namespace {

const uint8_t kBytes[] = {0x01, 0x02, 0xF3, 0x84, 0x95};

TEST(ByteReader, ReadsLittleEndFirst) {
  const ByteReader reader(kBytes, sizeof kBytes);
  uint16_t word = 0;
  uint32_t longWord = 0;
  EXPECT_TRUE(reader.readLE16At(0, &word));
  EXPECT_EQ(word, 0x0201);
  EXPECT_TRUE(reader.readLE32At(0, &longWord));
  EXPECT_EQ(longWord, 0x84F30201u);
}

TEST(ByteReader, ReadsBigEndFirst) {
  const ByteReader reader(kBytes, sizeof kBytes);
  uint16_t word = 0;
  uint32_t longWord = 0;
  EXPECT_TRUE(reader.readBE16At(2, &word));
  EXPECT_EQ(word, 0xF384);
  EXPECT_TRUE(reader.readBE32At(1, &longWord));
  EXPECT_EQ(longWord, 0x02F38495u);
}

TEST(ByteReader, ReadsUpToTheLastByteAndNoFurther) {
  const ByteReader reader(kBytes, sizeof kBytes);
  uint16_t word = 7;
  uint32_t longWord = 7;
  EXPECT_TRUE(reader.readBE16At(3, &word));
  EXPECT_EQ(word, 0x8495);
  word = 7;
  EXPECT_FALSE(reader.readLE16At(4, &word));
  EXPECT_FALSE(reader.readBE16At(4, &word));
  EXPECT_FALSE(reader.readLE32At(2, &longWord));
  EXPECT_FALSE(reader.readBE32At(2, &longWord));
  EXPECT_EQ(word, 7);
  EXPECT_EQ(longWord, 7u);
}

TEST(ByteReader, KnowsSpansThatWouldOverflow) {
  const ByteReader reader(kBytes, sizeof kBytes);
  EXPECT_TRUE(reader.contains(5, 0));
  EXPECT_TRUE(reader.contains(0, 5));
  EXPECT_FALSE(reader.contains(6, 0));
  EXPECT_FALSE(reader.contains(1, 5));
  EXPECT_FALSE(reader.contains(SIZE_MAX, 2));
  EXPECT_FALSE(reader.contains(2, SIZE_MAX));
}

TEST(ByteReader, AppendsInBothOrders) {
  std::string out;
  appendLE16(out, 0x8102);
  appendLE32(out, 0x81020304);
  appendBE16(out, 0x8102);
  appendBE32(out, 0x81020304);
  EXPECT_EQ(out, "\x02\x81\x04\x03\x02\x81\x81\x02\x81\x02\x03\x04");
}

TEST(ByteReader, WritesInPlaceLittleEndFirst) {
  uint8_t bytes[5] = {9, 9, 9, 9, 9};
  writeLE32(bytes, 0x81020304);
  EXPECT_EQ(bytes[0], 4);
  EXPECT_EQ(bytes[3], 0x81);
  EXPECT_EQ(bytes[4], 9);
  writeLE16(bytes + 3, 0xABCD);
  EXPECT_EQ(bytes[3], 0xCD);
  EXPECT_EQ(bytes[4], 0xAB);
}

}  // namespace
}  // namespace zavel
