#ifndef UI_COLORWELL_H
#define UI_COLORWELL_H

#include "ui/Color.h"
#include "ui/Control.h"

namespace zavel {

class ZAVEL_API ColorWell : public Control {
 public:
  using Control::Control;

  const Color& color() const { return color_; }
  void setColor(const Color& color) { change(color_, color); }

  // The user chose a colour, be it the same. True if the well took it.
  bool choose(const Color& color);

  Signal<> chosen;

 private:
  Color color_;
};

}  // namespace zavel

#endif
