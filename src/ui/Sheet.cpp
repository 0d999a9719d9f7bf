// Tests: tests/ui/PanelTest.cpp
#include "ui/Sheet.h"

namespace zavel {

bool Sheet::finish(bool accepted) {
  if (!shown()) return false;
  close();
  finished.emit(accepted);
  return true;
}

}  // namespace zavel
