#include "translate/Q_Controller.h"

namespace zavel {

void Q_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress,
                              const Layout& layout) {
  view_.setFrame(frame);
  view_.addChild(srcView_);
  view_.addChild(dstView_);
  parentWindow_ = parentWindow;
  progress_ = progress;
  layout_ = layout;
}

void Q_Controller::setSource(const std::string& text, int direction) {
  srcView_.setText(text);
  direction_ = direction;
}

}  // namespace zavel
