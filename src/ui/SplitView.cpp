// Tests: tests/ui/TabViewTest.cpp
#include "ui/SplitView.h"

namespace zavel {

void SplitView::setDividerPosition(double position) {
  const double atLeast0 = position > 0 ? position : 0;  // false for no number, too
  change(dividerPosition_, atLeast0 < 1 ? atLeast0 : 1);
}

}  // namespace zavel
