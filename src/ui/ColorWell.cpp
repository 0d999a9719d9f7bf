// Tests: tests/ui/ButtonTest.cpp
#include "ui/ColorWell.h"

namespace zavel {

bool ColorWell::choose(const Color& color) {
  if (!takesEvents()) return false;
  setColor(color);
  chosen.emit();
  return true;
}

}  // namespace zavel
