// Tests: tests/ui/ButtonTest.cpp
#include "ui/Checkbox.h"

namespace zavel {

bool Checkbox::click() {
  if (!takesEvents()) return false;
  setState(!state());
  clicked.emit();
  return true;
}

}  // namespace zavel
