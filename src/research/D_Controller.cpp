#include "research/D_Controller.h"

namespace zavel {

void D_Controller::initialize(const Rect& frame, int viewNumber) {
  view_.setFrame(frame);
  view_.addChild(queryField_);
  viewID_ = viewNumber;
}

}  // namespace zavel
