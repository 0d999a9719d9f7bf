#include "feed/R_Controller.h"

namespace zavel {

void R_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress,
                              int viewNumber) {
  view_.setFrame(frame);
  view_.addChild(webView_);
  parentWindow_ = parentWindow;
  progress_ = progress;
  viewID_ = viewNumber;
}

}  // namespace zavel
