#include "book/BookImage.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"

namespace zavel::host {
namespace {

std::string le(uint32_t value, size_t bytes) {
  std::string out;
  for (; bytes > 0; --bytes, value >>= 8) out += static_cast<char>(value & 0xFF);
  return out;
}

// A bitmap file; rows from the bottom up, each filled up to four bytes.
std::string bitmap(uint32_t width, uint32_t height, uint32_t bits, const std::string& palette,
                   const std::string& rows) {
  const uint32_t offset = static_cast<uint32_t>(54 + palette.size());
  return "BM" + le(offset + static_cast<uint32_t>(rows.size()), 4) + le(0, 4) + le(offset, 4) + le(40, 4) +
         le(width, 4) + le(height, 4) + le(1, 2) + le(bits, 2) + le(0, 4) + le(0, 4) + le(100, 4) +
         le(100, 4) + le(static_cast<uint32_t>(palette.size() / 4), 4) + le(0, 4) + palette + rows;
}

const std::string kBlackWhite("\0\0\0\0\xFF\xFF\xFF\0", 8);

// Three columns, three rows:  #..
//                             .#.
//                             ##.
std::string threeByThree() {
  return bitmap(3, 3, 1, kBlackWhite,
                std::string("\x20\0\0\0", 4) + std::string("\xA0\0\0\0", 4) + std::string("\x60\0\0\0", 4));
}

TEST(BookImageTest, ABitmapOfTwoColours) {
  const auto image = readBitmap(threeByThree());
  ASSERT_TRUE(image);
  EXPECT_EQ(image->width, 3u);
  EXPECT_EQ(image->height, 3u);
  EXPECT_EQ(inBlocks(*image), "▀▄\n▀▀\n");
  EXPECT_FALSE(hasColours(*image));
}

TEST(BookImageTest, ABitmapOfSixteenColours) {
  std::string palette(64, '\0');
  palette.replace(4, 3, "\xFF\x80\x40");  // blue, green, red
  const auto image = readBitmap(bitmap(2, 1, 4, palette, std::string("\x10\0\0\0", 4)));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->dots, (std::vector<uint32_t>{0x4080FF, 0x000000}));
  EXPECT_TRUE(hasColours(*image));
  EXPECT_EQ(inColours(*image),
            "\x1b[38;2;64;128;255m\x1b[48;2;255;255;255m▀\x1b[38;2;0;0;0m\x1b[48;2;255;255;255m▀\x1b[0m\n");
}

TEST(BookImageTest, ABitmapOfAllColours) {
  const auto image = readBitmap(bitmap(1, 1, 24, "", std::string("\x01\x02\x03\0", 4)));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->dots, std::vector<uint32_t>{0x030201});
}

TEST(BookImageTest, WhatIsCutOrClaimsTooMuchIsNone) {
  const std::string whole = threeByThree();
  for (size_t length = 0; length < whole.size(); ++length) EXPECT_FALSE(readBitmap(whole.substr(0, length)));
  std::string wide = whole;
  wide.replace(18, 4, "\xFF\xFF\xFF\x7F");
  EXPECT_FALSE(readBitmap(wide));
  std::string far = whole;
  far.replace(10, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_FALSE(readBitmap(far));
  std::string packed = whole;
  packed[30] = 1;
  EXPECT_FALSE(readBitmap(packed));
  std::string colours = whole;
  colours.replace(46, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_FALSE(readBitmap(colours));
}

TEST(BookImageTest, BlanksAtTheEndsOfLinesAreLeftOut) {
  BookImage image{4, 1, {0, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}};
  EXPECT_EQ(inBlocks(image), "▀\n");
}

// Signature, chunks with their sums; the dots stored as they are.
TEST(BookImageTest, APngOfTwoColours) {
  const auto image = readBitmap(threeByThree());
  ASSERT_TRUE(image);
  const std::string expected = std::string("\x89PNG\r\n\x1A\n", 8) + test::be32(13) + "IHDR" + test::be32(3) +
                               test::be32(3) + std::string("\x01\x03\0\0\0", 5) + test::be32(0xB51C3E8D) +
                               test::be32(6) + "PLTE" + std::string("\0\0\0\xFF\xFF\xFF", 6);
  const std::string png = pngFile(*image);
  EXPECT_EQ(png.substr(0, 29), expected.substr(0, 29));
  EXPECT_EQ(png.substr(33, 14), expected.substr(33, 14));
  // Rows of a filter byte and a byte of dots, white being 1: .## / #.# / ..#
  EXPECT_NE(png.find(std::string("\x78\x01\x01\x06\0\xF9\xFF\0\x60\0\xA0\0\x20", 13)), std::string::npos);
  EXPECT_EQ(png.substr(png.size() - 12), test::be32(0) + "IEND" + test::be32(0xAE426082));
}

TEST(BookImageTest, FormsByTheirFirstBytes) {
  EXPECT_STREQ(formOf("BM"), "bmp");
  EXPECT_STREQ(formOf("\xFF\xD8\xFF"), "jpeg");
  EXPECT_STREQ(formOf("\x89PNG"), "png");
  EXPECT_STREQ(formOf("RIFF"), "wav");
  EXPECT_STREQ(formOf(""), "unknown");
}

TEST(BookImageTest, Base64) {
  EXPECT_EQ(base64(""), "");
  EXPECT_EQ(base64("f"), "Zg==");
  EXPECT_EQ(base64("fo"), "Zm8=");
  EXPECT_EQ(base64("foo"), "Zm9v");
  EXPECT_EQ(base64("\xFF\xFE\xFD"), "//79");
}

}  // namespace
}  // namespace zavel::host
