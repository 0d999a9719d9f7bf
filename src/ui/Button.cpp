// Tests: tests/ui/ButtonTest.cpp
#include "ui/Button.h"

namespace zavel {

bool Button::click() {
  if (!takesEvents()) return false;
  clicked.emit();
  return true;
}

}  // namespace zavel
