#ifndef UI_SPLITVIEW_H
#define UI_SPLITVIEW_H

#include "ui/View.h"

namespace zavel {

// Two children with a divider between them, which the user may move.
class ZAVEL_API SplitView : public View {
 public:
  using View::View;

  // Side by side; else one above the other.
  bool sideBySide() const { return sideBySide_; }
  void setSideBySide(bool sideBySide) { change(sideBySide_, sideBySide); }

  // What the first child takes of the whole, 0 to 1; beyond that it is cut, and no number counts as 0.
  double dividerPosition() const { return dividerPosition_; }
  void setDividerPosition(double position);

 private:
  bool sideBySide_ = false;
  double dividerPosition_ = 0.5;
};

}  // namespace zavel

#endif
