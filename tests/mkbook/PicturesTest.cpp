// Pictures: what books store of bitmaps, PNG and JPEG files, and what is refused.
#include "mkbook/PictureFile.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdio>
#include <cstdlib>
// Behind <cstdio>, which it needs and doesn't include.
#include <jpeglib.h>

#include "mkbook/BitmapFile.h"
#include "mkbook/MediumFault.h"

namespace zavel::mkbook {
namespace {

using Kind = MediumShape::Kind;

std::string le(uint32_t value, int bytes) {
  std::string out;
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i);
  return out;
}

std::string unhex(std::string_view digits) {
  std::string out;
  for (size_t i = 0; i < digits.size(); i += 2)
    out += static_cast<char>(std::strtol(std::string(digits.substr(i, 2)).c_str(), nullptr, 16));
  return out;
}

// A bitmap file; `rows` as the file has them.
std::string bitmap(uint32_t width, int32_t height, uint32_t bits, const std::string& palette,
                   const std::string& rows, uint32_t perMetre = 0) {
  const uint32_t offset = 54 + static_cast<uint32_t>(palette.size());
  return "BM" + le(offset + static_cast<uint32_t>(rows.size()), 4) + le(0, 4) + le(offset, 4) + le(40, 4) +
         le(width, 4) + le(static_cast<uint32_t>(height), 4) + le(1, 2) + le(bits, 2) + le(0, 4) + le(0, 4) +
         le(perMetre, 4) + le(perMetre, 4) + le(0, 4) + le(0, 4) + palette + rows;
}

const std::string kBlack("\0\0\0\0", 4), kWhite("\xFF\xFF\xFF\0", 4), kRed("\0\0\xFF\0", 4);

std::string faultOf(const std::string& file) {
  try {
    readPicture(file);
  } catch (const MediumFault& fault) {
    return fault.what();
  }
  return "none";
}

std::string png(uint32_t width, uint32_t height, uint32_t format, const std::string& dots) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = width;
  image.height = height;
  image.format = format;
  png_alloc_size_t size = 0;
  EXPECT_NE(png_image_write_to_memory(&image, nullptr, &size, 0, dots.data(), 0, nullptr), 0);
  std::string out(size, '\0');
  EXPECT_NE(png_image_write_to_memory(&image, out.data(), &size, 0, dots.data(), 0, nullptr), 0);
  out.resize(size);
  return out;
}

// Of `components` 3 (red, green, blue) or 4 (print), noisy, so that its coded dots hold bytes FF.
std::string jpeg(uint32_t width, uint32_t height, int components = 3, bool progressive = false) {
  jpeg_compress_struct file;
  jpeg_error_mgr errors;
  file.err = jpeg_std_error(&errors);
  jpeg_create_compress(&file);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&file, &bytes, &size);
  file.image_width = width;
  file.image_height = height;
  file.input_components = components;
  file.in_color_space = components == 4 ? JCS_CMYK : JCS_RGB;
  jpeg_set_defaults(&file);
  jpeg_set_quality(&file, 95, TRUE);
  if (progressive) jpeg_simple_progression(&file);
  jpeg_start_compress(&file, TRUE);
  std::string row(width * static_cast<unsigned>(components), '\0');
  for (uint32_t y = 0, noise = 1; y < height; ++y) {
    for (char& dot : row) dot = static_cast<char>((noise = noise * 1103515245 + 12345) >> 16);
    auto* start = reinterpret_cast<JSAMPROW>(row.data());
    jpeg_write_scanlines(&file, &start, 1);
  }
  jpeg_finish_compress(&file);
  const std::string out(reinterpret_cast<char*>(bytes), size);
  jpeg_destroy_compress(&file);
  std::free(bytes);
  return out;
}

// Nine dots a row, the bottom row first: "#........" over "........#".
const std::string kTwoRows("\x00\x80\0\0\x80\x00\0\0", 8);

TEST(Pictures, ABitmapOfBlackAndWhiteIsDots) {
  const Medium picture = readPicture(bitmap(9, 2, 1, kWhite + kBlack, kTwoRows, 11811));
  EXPECT_EQ(picture.shape.kind, Kind::kMonoPicture);
  EXPECT_EQ(picture.shape.width, 9u);
  EXPECT_EQ(picture.shape.height, 2u);
  EXPECT_EQ(picture.shape.perInch, 300);
  EXPECT_EQ(picture.bytes, std::string("\x80\x00\x00\x80", 4));
}

// 1 stands for white here, and unused bits of a row's last byte stay 0.
TEST(Pictures, DotsAreDarkWhateverThePaletteSays) {
  EXPECT_EQ(readPicture(bitmap(9, 2, 1, kBlack + kWhite, kTwoRows)).bytes,
            std::string("\x7F\x80\xFF\x00", 4));
}

TEST(Pictures, ABitmapFromTheTopDownIsTurned) {
  EXPECT_EQ(readPicture(bitmap(9, -2, 1, kWhite + kBlack, kTwoRows)).bytes,
            std::string("\x00\x80\x80\x00", 4));
}

TEST(Pictures, OtherBitmapsStayAsTheyAre) {
  const std::string files[] = {bitmap(9, 2, 1, kWhite + kRed, kTwoRows),
                               bitmap(2, 1, 4, std::string(64, 'p'), std::string(4, '\x12')),
                               bitmap(2, 1, 8, std::string(1024, 'p'), std::string(4, '\x12')),
                               bitmap(1, 2, 24, "", std::string(8, 'x')), bitmap(1, 1, 32, "", "xyz0")};
  for (const std::string& file : files) {
    const Medium picture = readPicture(file);
    EXPECT_EQ(picture.shape.kind, Kind::kColorPicture);
    EXPECT_EQ(picture.bytes, file);
    EXPECT_EQ(picture.shape.size, file.size());
  }
}

TEST(Pictures, BitmapsThatArentWholeAreRefused) {
  const std::string good = bitmap(9, 2, 1, kWhite + kBlack, kTwoRows);
  EXPECT_EQ(faultOf(good.substr(0, 53)), "is no whole bitmap");
  EXPECT_EQ(faultOf(good.substr(0, good.size() - 1)), "breaks off: a part of its dots is missing");
  EXPECT_EQ(faultOf(bitmap(0, 2, 1, kWhite + kBlack, kTwoRows)), "has no dots");
  EXPECT_EQ(faultOf(bitmap(30001, 1, 1, kWhite + kBlack, kTwoRows)),
            "is too large: 30001 x 1 dots, and 40 million are read at most");
  EXPECT_EQ(faultOf(bitmap(9000, 9000, 1, kWhite + kBlack, kTwoRows)),
            "is too large: 9000 x 9000 dots, and 40 million are read at most");
  EXPECT_EQ(faultOf(bitmap(1, INT32_MIN, 1, kWhite + kBlack, kTwoRows)),
            "is too large: 1 x 2147483648 dots, and 40 million are read at most");
  const std::string other = "is a bitmap of another form; save it without compression, or as PNG";
  EXPECT_EQ(faultOf(bitmap(1, 1, 16, "", "abcd")), other);
  std::string packed = good;
  packed[30] = 1;
  EXPECT_EQ(faultOf(packed), other);
  std::string olderHeader = good;
  olderHeader[14] = 12;
  EXPECT_EQ(faultOf(olderHeader), other);
  std::string early = good;
  early[10] = 20;  // its dots begin within its header
  EXPECT_EQ(faultOf(early), "breaks off: a part of its dots is missing");
}

TEST(Pictures, APngIsABitmapOfItsColours) {
  const std::string dots("\xFF\0\0\0\xFF\0\0\0\xFF\xFF\0\0", 12);  // red green / blue red
  const Medium picture = readPicture(png(2, 2, PNG_FORMAT_RGB, dots));
  EXPECT_EQ(picture.shape.kind, Kind::kColorPicture);
  // The bottom row first: colours 2 and 0, then 0 and 1 of red, green, blue.
  const std::string palette("\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0", 12), rows("\x20\0\0\0\x01\0\0\0", 8);
  std::string expected = bitmap(2, 2, 4, palette, rows);
  expected.replace(34, 4, le(8, 4));  // bytes of the rows
  expected.replace(46, 4, le(3, 4));  // colours
  EXPECT_EQ(picture.bytes, expected);
}

TEST(Pictures, ManyColoursNeedMoreBits) {
  std::string dots;
  for (int i = 0; i < 257; ++i) dots += {static_cast<char>(i), static_cast<char>(i / 256), 'x'};
  EXPECT_EQ(readPicture(png(256, 1, PNG_FORMAT_RGB, dots)).bytes.substr(28, 1), std::string(1, 8));
  const std::string bytes = readPicture(png(257, 1, PNG_FORMAT_RGB, dots)).bytes;
  EXPECT_EQ(bytes.substr(28, 1), std::string(1, 24));
  EXPECT_EQ(bytes.substr(54 + 3, 3), "x" + std::string("\0\1", 2));  // blue, green, red of the second dot
}

TEST(Pictures, TransparentDotsAreWhite) {
  const Medium picture = readPicture(png(1, 1, PNG_FORMAT_RGBA, std::string("\x10\x20\x30\0", 4)));
  EXPECT_EQ(picture.bytes.substr(54, 4), kWhite);
}

// Rows 0111 1111 11 and 1111 1111 10, 1 for white.
TEST(Pictures, APngOfOneBitInBlackAndWhiteIsDots) {
  const Medium picture = readPicture(unhex(
      "89504e470d0a1a0a0000000d494844520000000a000000020100000000491a707d0000000e4944415478da63a83fc0f0bf0100"
      "07ff02bf5841dd970000000049454e44ae426082"));
  EXPECT_EQ(picture.shape.kind, Kind::kMonoPicture);
  EXPECT_EQ(picture.shape.width, 10u);
  EXPECT_EQ(picture.bytes, std::string("\x80\x00\x00\x40", 4));
}

TEST(Pictures, APngOfOneBitInRedStaysColoured) {
  const Medium picture = readPicture(unhex(
      "89504e470d0a1a0a0000000d4948445200000002000000010103000000ceecedc900000006504c5445ff0000ffffff411d3411"
      "0000000a4944415478da637000000042004184bf8e620000000049454e44ae426082"));
  EXPECT_EQ(picture.shape.kind, Kind::kColorPicture);
  EXPECT_EQ(picture.bytes.substr(54, 8), kRed + kWhite);
}

TEST(Pictures, PngsThatArentWholeAreRefused) {
  const std::string good = png(2, 2, PNG_FORMAT_RGB, std::string(12, 'x'));
  EXPECT_TRUE(faultOf(good.substr(0, good.size() / 2)).starts_with("is damaged: "));
  EXPECT_TRUE(faultOf(good.substr(0, 12)).starts_with("is damaged: "));
  std::string huge = good;
  huge.replace(16, 8, std::string("\0\0\x75\x30\0\0\x75\x30", 8));
  EXPECT_NE(faultOf(huge), "none");
}

TEST(Pictures, AJpegStaysAsItIs) {
  for (const bool progressive : {false, true}) {
    const std::string file = jpeg(40, 30, 3, progressive);
    const Medium picture = readPicture(file);
    EXPECT_EQ(picture.shape.kind, Kind::kColorPicture);
    EXPECT_EQ(picture.shape.width, 40u);
    EXPECT_EQ(picture.shape.height, 30u);
    EXPECT_EQ(picture.bytes, file);
  }
}

TEST(Pictures, JpegsThatArentWholeAreRefused) {
  const std::string good = jpeg(40, 30);
  EXPECT_TRUE(faultOf(good.substr(0, good.size() / 2)).starts_with("is damaged: "));
  EXPECT_TRUE(faultOf(good.substr(0, 4)).starts_with("is damaged: "));
  EXPECT_EQ(faultOf(jpeg(16, 16, 4)), "has the four colours of print; save it in red, green and blue");
  std::string huge = good;
  huge.replace(huge.find("\xFF\xC0") + 5, 4, "\x75\x30\x75\x30");
  EXPECT_EQ(faultOf(huge), "is too large: 30000 x 30000 dots, and 40 million are read at most");
}

TEST(Pictures, OtherFilesAreRefused) {
  EXPECT_EQ(faultOf("GIF89a"), "is no picture that is known here; save it as PNG, JPEG or BMP");
  EXPECT_EQ(faultOf(""), "is no picture that is known here; save it as PNG, JPEG or BMP");
}

// Two dots of 16 x 15: the top left one nearly dark red (1), the bottom right one blue (12), the others white
// (15).
TEST(Icons, HaveTheNearestOfSixteenColours) {
  std::string dots(16 * 15 * 3, '\xFF');
  dots.replace(0, 3, std::string("\x90\x05\x00", 3));
  dots.replace(dots.size() - 3, 3, std::string("\x10\x10\xFA", 3));
  const std::string icon = readIcon(png(16, 15, PNG_FORMAT_RGB, dots), 16, 15);
  ASSERT_EQ(icon.size(), 120u);
  EXPECT_EQ(icon[7], '\xFC');  // the bottom row comes first
  EXPECT_EQ(icon[14 * 8], '\x1F');
  EXPECT_EQ(icon[0], '\xFF');
}

TEST(Icons, AreTakenFromBitmapsToo) {
  EXPECT_EQ(readIcon(bitmap(2, 1, 24, "", std::string("\0\0\0\xFF\xFF\xFF\0\0", 8)), 2, 1), "\x0F");
}

TEST(Icons, HaveOneSizeAlone) {
  const auto fault = [](const std::string& file) -> std::string {
    try {
      readIcon(file, 32, 32);
    } catch (const MediumFault& found) {
      return found.what();
    }
    return "none";
  };
  EXPECT_EQ(fault(png(32, 31, PNG_FORMAT_RGB, std::string(32 * 31 * 3, 'x'))),
            "has 32 x 31 dots; this icon has 32 x 32");
  EXPECT_EQ(fault(jpeg(32, 32)), "is no PNG or BMP");
}

}  // namespace
}  // namespace zavel::mkbook
