// Tests: tests/mkbook/PicturesTest.cpp
#include "mkbook/PictureFile.h"

#include <iterator>
#include <limits>
#include <optional>

#include "mkbook/BitmapFile.h"
#include "mkbook/JpegFile.h"
#include "mkbook/MediumFault.h"
#include "mkbook/PngFile.h"

namespace zavel::mkbook {
namespace {

using Kind = MediumShape::Kind;

constexpr uint32_t kBlack = 0x000000, kWhite = 0xFFFFFF;

// Those of book/DicIcon.cpp.
constexpr uint32_t kIconColors[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                    0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                    0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

uint8_t nearestIconColor(uint32_t color) {
  uint8_t best = 0;
  int bestDistance = std::numeric_limits<int>::max();
  for (uint8_t i = 0; i < std::size(kIconColors); ++i) {
    int distance = 0;
    for (const int shift : {16, 8, 0}) {
      const int apart =
          static_cast<int>(color >> shift & 0xFF) - static_cast<int>(kIconColors[i] >> shift & 0xFF);
      distance += apart * apart;
    }
    if (distance >= bestDistance) continue;
    best = i;
    bestDistance = distance;
  }
  return best;
}

// The dots of black and white, 1 is dark; nothing where there are other colours.
std::optional<std::string> blackAndWhite(const Raster& raster) {
  const size_t length = (size_t{raster.width} + 7) / 8;
  std::string out(length * raster.height, '\0');
  for (uint32_t y = 0; y < raster.height; ++y) {
    for (uint32_t x = 0; x < raster.width; ++x) {
      const uint32_t color = raster.color(x, y);
      if (color != kBlack && color != kWhite) return std::nullopt;
      char& byte = out[y * length + x / 8];
      if (color == kBlack) byte = static_cast<char>(byte | 0x80 >> x % 8);
    }
  }
  return out;
}

Medium finished(MediumShape shape, std::string bytes) {
  if (bytes.size() > kLargestMedium) throw MediumFault("takes more than 128 MB in a book");
  shape.size = static_cast<uint32_t>(bytes.size());
  return {shape, std::move(bytes)};
}

Medium readBitmapPicture(std::string file) {
  const BitmapFile bitmap(file);
  MediumShape shape{Kind::kColorPicture, bitmap.width(), bitmap.height(), bitmap.perInch(), 0, 0};
  if (!bitmap.isMonochrome()) return finished(shape, std::move(file));
  shape.kind = Kind::kMonoPicture;
  return finished(shape, bitmap.dots());
}

Medium readPngPicture(std::string_view file) {
  const Raster raster = readPng(file);
  MediumShape shape{Kind::kColorPicture, raster.width, raster.height, MediumShape().perInch, 0, 0};
  if (isOneBitPng(file)) {
    if (std::optional<std::string> dots = blackAndWhite(raster)) {
      shape.kind = Kind::kMonoPicture;
      return finished(shape, std::move(*dots));
    }
  }
  return finished(shape, bitmapOf(raster));
}

}  // namespace

Medium readPicture(std::string file) {
  if (isPng(file)) return readPngPicture(file);
  if (isJpeg(file)) {
    MediumShape shape;
    checkJpeg(file, &shape.width, &shape.height);
    return finished(shape, std::move(file));
  }
  if (file.starts_with("BM")) return readBitmapPicture(std::move(file));
  throw MediumFault("is no picture that is known here; save it as PNG, JPEG or BMP");
}

std::string readIcon(std::string_view file, uint32_t width, uint32_t height) {
  if (!isPng(file) && !file.starts_with("BM")) throw MediumFault("is no PNG or BMP");
  const Raster raster = isPng(file) ? readPng(file) : BitmapFile(file).raster();
  if (raster.width != width || raster.height != height)
    throw MediumFault("has " + std::to_string(raster.width) + " x " + std::to_string(raster.height) +
                      " dots; this icon has " + std::to_string(width) + " x " + std::to_string(height));
  std::string out;
  for (uint32_t y = height; y > 0; --y) {
    for (uint32_t x = 0; x < width; x += 2)
      out += static_cast<char>(nearestIconColor(raster.color(x, y - 1)) << 4 |
                               nearestIconColor(raster.color(x + 1, y - 1)));
  }
  return out;
}

}  // namespace zavel::mkbook
