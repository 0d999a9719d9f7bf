// A colour as preferences write it.
#ifndef CONFIG_ZAVELCOLOR_H
#define CONFIG_ZAVELCOLOR_H

namespace zavel {

// Each part from 0 to 1; what a preference file says beyond that is kept as it stands.
struct ZavelColor {
  double red = 1.0;
  double green = 1.0;
  double blue = 1.0;
  double alpha = 1.0;

  bool operator==(const ZavelColor&) const = default;
};

}  // namespace zavel

#endif
