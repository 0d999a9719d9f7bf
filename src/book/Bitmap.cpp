// Tests: tests/book/BitmapTest.cpp
#include "book/Bitmap.h"

#include <cstring>

#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr uint32_t kInfoHeader = 40;
constexpr size_t kPlaceOfOffset = 10;
constexpr size_t kPlaceOfWidth = 18;
constexpr size_t kPlaceOfHeight = 22;
constexpr size_t kPlaceOfBits = 28;
constexpr size_t kPlaceOfCompression = 30;

// What is shown is never larger; more is a header that lies.
constexpr uint32_t kLargestSide = 32767;

const uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

bool isMonoBitmap(std::string_view in) {
  return in.size() >= kBitmapHeader && in.starts_with("BM") && readLE16(bytesOf(in) + kPlaceOfBits) == 1 &&
         readLE32(bytesOf(in) + kPlaceOfCompression) == 0;
}

}  // namespace

void writeBitmapHeader(const BitmapInfo& info, char* out) {
  uint8_t* const header = reinterpret_cast<uint8_t*>(out);
  std::memset(header, 0, kBitmapHeader);
  header[0] = 'B';
  header[1] = 'M';
  writeLE32(header + 2, info.fileSize);
  writeLE32(header + kPlaceOfOffset, info.offset);
  writeLE32(header + 14, kInfoHeader);
  writeLE32(header + kPlaceOfWidth, info.width);
  writeLE32(header + kPlaceOfHeight, info.height);
  writeLE16(header + 26, 1);  // planes
  writeLE16(header + kPlaceOfBits, info.bits);
  writeLE32(header + 38, info.xPerMetre);
  writeLE32(header + 42, info.yPerMetre);
}

void writePalette(std::string_view colors, char* out) {
  std::memcpy(out + kBitmapHeader, colors.data(), colors.size());
}

bool BitmapMonoToColorWithBack(std::string_view in, std::string* out, uint8_t red, uint8_t green,
                               uint8_t blue, uint8_t backRed, uint8_t backGreen, uint8_t backBlue) {
  if (!isMonoBitmap(in)) return false;
  const uint32_t width = readLE32(bytesOf(in) + kPlaceOfWidth);
  const uint32_t height = readLE32(bytesOf(in) + kPlaceOfHeight);
  if (width > kLargestSide || height > kLargestSide) return false;
  const size_t stride = (width + 31) / 32 * 4;
  const size_t offset = readLE32(bytesOf(in) + kPlaceOfOffset);
  if (offset > in.size() || stride * height > in.size() - offset) return false;
  const size_t size = kBitmapHeader + size_t{width} * height * 3;
  out->assign(kBitmapHeader, '\0');
  out->reserve(size);
  writeBitmapHeader({static_cast<uint32_t>(size), kBitmapHeader, width, height, 24, 0, 0}, out->data());
  const char fore[] = {static_cast<char>(blue), static_cast<char>(green), static_cast<char>(red)};
  const char back[] = {static_cast<char>(backBlue), static_cast<char>(backGreen), static_cast<char>(backRed)};
  for (size_t row = 0; row < height; ++row) {
    const uint8_t* const bits = bytesOf(in) + offset + row * stride;
    for (size_t x = 0; x < width; ++x)
      out->append((bits[x / 8] >> (7 - x % 8) & 1) != 0 ? back : fore, sizeof fore);
  }
  return true;
}

bool BitmapMonoToColor(std::string_view in, std::string* out, uint8_t red, uint8_t green, uint8_t blue) {
  return BitmapMonoToColorWithBack(in, out, red, green, blue, 0xFF, 0xFF, 0xFF);
}

}  // namespace zavel::book
