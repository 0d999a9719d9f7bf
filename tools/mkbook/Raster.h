// A picture as dots.
#ifndef MKBOOK_RASTER_H
#define MKBOOK_RASTER_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace zavel::mkbook {

struct Raster {
  uint32_t width = 0, height = 0;
  std::string rgb;  // rows from the top, three bytes a dot

  // 0xRRGGBB.
  uint32_t color(size_t x, size_t y) const {
    const auto* const dot = reinterpret_cast<const uint8_t*>(rgb.data()) + (y * width + x) * 3;
    return static_cast<uint32_t>(dot[0] << 16 | dot[1] << 8 | dot[2]);
  }
};

// Sides and dots that are still read; more is refused before anything is allocated for it.
inline constexpr uint32_t kLongestSide = 30000;
inline constexpr uint64_t kMostDots = 40'000'000;

// Throws MediumFault.
void demandReadableSize(uint64_t width, uint64_t height);

}  // namespace zavel::mkbook

#endif
