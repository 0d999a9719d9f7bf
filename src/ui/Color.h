#ifndef UI_COLOR_H
#define UI_COLOR_H

namespace zavel {

// Each part from 0 to 1; alpha 0 is clear.
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;

  bool operator==(const Color&) const = default;
};

}  // namespace zavel

#endif
