#include "book/Bitmap.h"

#include <gtest/gtest.h>

#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// A 1-bit bitmap file with the rows given, which are padded to four bytes already.
std::string mono(uint32_t width, uint32_t height, const std::string& rows) {
  std::string out(kMonoBitmapHeader, '\0');
  writeBitmapHeader({static_cast<uint32_t>(62 + rows.size()), 62, width, height, 1, 100, 100}, out.data());
  writePalette(kWhiteBlack, out.data());
  return out + rows;
}

TEST(BitmapHeader, HasItsNumbersLowByteFirst) {
  std::string out(54, 'x');
  writeBitmapHeader({0x01020304, 0x3E, 33, 0x200, 4, 0x1111, 0x2222}, out.data());
  EXPECT_EQ(hexOf(out),
            "424D"
            "04030201"
            "00000000"
            "3E000000"
            "28000000"
            "21000000"
            "00020000"
            "0100"
            "0400"
            "00000000"
            "00000000"
            "11110000"
            "22220000"
            "00000000"
            "00000000");
}

// 3 x 2: bits 101 and 010. Bits of 1 take the back colour.
TEST(BitmapMonoToColor, PaintsBitsWithoutPaddingRows) {
  const std::string in = mono(3, 2, std::string("\xBF\x00\x00\x00\x40\x00\x00\x00", 8));
  std::string out;
  ASSERT_TRUE(BitmapMonoToColorWithBack(in, &out, 1, 2, 3, 4, 5, 6));
  EXPECT_EQ(hexOf(out),
            "424D"
            "48000000"
            "00000000"
            "36000000"
            "28000000"
            "03000000"
            "02000000"
            "0100"
            "1800"
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "060504"
            "030201"
            "060504"
            "030201"
            "060504"
            "030201");
  ASSERT_TRUE(BitmapMonoToColor(in, &out, 1, 2, 3));
  EXPECT_EQ(hexOf(out.substr(54)),
            "FFFFFF030201FFFFFF"
            "030201FFFFFF030201");
}

TEST(BitmapMonoToColor, RoundsSourceRowsUpToFourBytes) {
  // 33 wide: rows of 8 bytes, of which one bit of the fifth counts.
  std::string rows(16, '\0');
  rows[4] = '\x80';
  std::string out;
  ASSERT_TRUE(BitmapMonoToColor(mono(33, 2, rows), &out, 0, 0, 0));
  ASSERT_EQ(out.size(), 54u + 2 * 33 * 3);
  EXPECT_EQ(hexOf(out.substr(54 + 31 * 3, 9)), "000000FFFFFF000000");
  EXPECT_EQ(out.substr(54 + 33 * 3), std::string(99, '\0'));
}

TEST(BitmapMonoToColor, RefusesOtherFiles) {
  const std::string good = mono(8, 1, std::string(4, '\0'));
  std::string out = "kept";
  EXPECT_FALSE(BitmapMonoToColor("", &out, 0, 0, 0));
  EXPECT_FALSE(BitmapMonoToColor("BM", &out, 0, 0, 0));
  const struct {
    size_t at;
    char byte;
  } changes[] = {{0, 'X'}, {1, 'X'}, {28, 4}, {28, 24}, {30, 1},  {33, 1},
                 {18, 33}, {21, 1},  {22, 2}, {25, 1},  {10, 63}, {13, 1}};
  for (const auto& change : changes) {
    std::string bad = good;
    bad[change.at] = change.byte;
    EXPECT_FALSE(BitmapMonoToColor(bad, &out, 0, 0, 0)) << change.at;
  }
  EXPECT_FALSE(BitmapMonoToColor(good.substr(0, good.size() - 1), &out, 0, 0, 0));
  EXPECT_EQ(out, "kept");
}

}  // namespace
}  // namespace zavel::book
