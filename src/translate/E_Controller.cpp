#include "translate/E_Controller.h"

namespace zavel {

void E_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress) {
  view_.setFrame(frame);
  view_.addChild(srcView_);
  view_.addChild(dstView_);
  parentWindow_ = parentWindow;
  progress_ = progress;
}

void E_Controller::setSource(const std::string& text, int direction) {
  srcView_.setText(text);
  direction_ = direction;
}

}  // namespace zavel
