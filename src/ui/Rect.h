#ifndef UI_RECT_H
#define UI_RECT_H

namespace zavel {

// A place inside the parent, in points.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const Rect&) const = default;
};

}  // namespace zavel

#endif
