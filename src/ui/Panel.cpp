// Tests: tests/ui/PanelTest.cpp
#include "ui/Panel.h"

namespace zavel {

Panel::Panel(const Rect& frame) : View(frame) {
  setHidden(true);
}

}  // namespace zavel
