#ifndef LOOKUP_RGBCOLOR_H
#define LOOKUP_RGBCOLOR_H

#include <cstdint>

namespace zavel {

// A colour of three channels, 0 dark to 0xFFFF full.
struct RGBColor {
  uint16_t red = 0;
  uint16_t green = 0;
  uint16_t blue = 0;

  bool operator==(const RGBColor&) const = default;
};

}  // namespace zavel

#endif
