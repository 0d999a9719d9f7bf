#include "translate/W_Controller.h"

namespace zavel {

void W_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress,
                              int viewNumber) {
  view_.setFrame(frame);
  view_.addChild(webView_);
  parentWindow_ = parentWindow;
  progress_ = progress;
  viewID_ = viewNumber;
}

void W_Controller::clear() {
  query_ = SjisBytes();
}

}  // namespace zavel
