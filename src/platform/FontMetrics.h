// Heights of a font's line, all that the system asks of fonts.
#ifndef PLATFORM_FONTMETRICS_H
#define PLATFORM_FONTMETRICS_H

#include <string>

namespace zavel {

struct FontHeights {
  double ascender;   // above the base line, in points, positive
  double descender;  // below the base line, in points, negative
};

class FontMetrics {
 public:
  virtual ~FontMetrics() = default;
  // `name` is UTF-8; `size` in points. An unknown font gets the heights of the default one.
  virtual FontHeights heights(const std::string& name, double size) = 0;
};

}  // namespace zavel

#endif
