// Bitmap files (BMP): those that come as pictures, and those that others are stored as.
#ifndef MKBOOK_BITMAPFILE_H
#define MKBOOK_BITMAPFILE_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mkbook/Raster.h"

namespace zavel::mkbook {

// A bitmap file's header, checked against its length. Bytes are borrowed.
class BitmapFile {
 public:
  // Of 1, 4, 8, 24 or 32 bits a dot, not packed. Throws MediumFault for anything else.
  explicit BitmapFile(std::string_view bytes);

  uint32_t width() const { return width_; }
  uint32_t height() const { return height_; }
  uint16_t perInch() const { return perInch_; }  // dots; 72 where the file doesn't say

  // Whether it has one bit a dot, for black and for white.
  bool isMonochrome() const;
  // Of a monochrome one: rows from the top, each padded to a byte, 1 is dark.
  std::string dots() const;

  Raster raster() const;

 private:
  void readPalette(size_t header);
  const uint8_t* row(uint32_t y) const;  // counted from the top
  uint32_t color(const uint8_t* row, uint32_t x) const;

  std::string_view bytes_;
  uint32_t width_ = 0, height_ = 0, bits_ = 0, offset_ = 0;
  uint64_t stride_ = 0;
  bool topDown_ = false;
  uint16_t perInch_ = 72;
  std::vector<uint32_t> palette_;  // 0xRRGGBB; as long as the bits can tell
};

// A bitmap file of a picture, with 4 or 8 bits a dot where its colours are few enough, else 24.
std::string bitmapOf(const Raster& raster);

}  // namespace zavel::mkbook

#endif
