#include "research/A_Controller.h"

namespace zavel {

void A_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress) {
  view_.setFrame(frame);
  view_.addChild(queryField_);
  parentWindow_ = parentWindow;
  progress_ = progress;
}

}  // namespace zavel
