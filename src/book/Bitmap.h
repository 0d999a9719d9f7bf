// Bitmap files in memory, as Windows writes them. Integers in them are little-endian.
#ifndef BOOK_BITMAP_H
#define BOOK_BITMAP_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zavel::book {

inline constexpr size_t kBitmapHeader = 54;       // file and info header
inline constexpr size_t kMonoBitmapHeader = 62;   // with a palette of two
inline constexpr size_t kIconBitmapHeader = 118;  // with a palette of sixteen

// What a bitmap's headers say. Bits of a pixel: 1, 4 or 24, never compressed; rows go bottom up.
struct BitmapInfo {
  uint32_t fileSize;
  uint32_t offset;  // of the pixels
  uint32_t width;
  uint32_t height;
  uint16_t bits;
  uint32_t xPerMetre;
  uint32_t yPerMetre;
};

// Writes the 54 bytes of headers.
void writeBitmapHeader(const BitmapInfo& info, char* out);

// Palettes: four bytes a colour, blue, green, red, zero.
void writePalette(std::string_view colors, char* out);
inline constexpr std::string_view kBlackWhite{"\0\0\0\0\xFF\xFF\xFF\0", 8};
inline constexpr std::string_view kWhiteBlack{"\xFF\xFF\xFF\0\0\0\0\0", 8};

// A 1-bit bitmap file as a 24-bit one: bits of 1 take the back colour, bits of 0 the fore colour. Rows of the
// result aren't padded (kept: docs/quirks.md). False when `in` is no uncompressed 1-bit bitmap, or shorter
// than it says.
bool BitmapMonoToColorWithBack(std::string_view in, std::string* out, uint8_t red, uint8_t green,
                               uint8_t blue, uint8_t backRed, uint8_t backGreen, uint8_t backBlue);

// The same on white.
bool BitmapMonoToColor(std::string_view in, std::string* out, uint8_t red, uint8_t green, uint8_t blue);

}  // namespace zavel::book

#endif
