#include "translate/T_Controller.h"

namespace zavel {

void T_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress,
                              int viewNumber) {
  view_.setFrame(frame);
  view_.addChild(webView_);
  parentWindow_ = parentWindow;
  progress_ = progress;
  viewID_ = viewNumber;
}

void T_Controller::translation(const std::string& text, int direction) {
  request_ = {text, direction, -1, false};
}

void T_Controller::translation(const std::string& text, int style, bool resultOnly) {
  request_ = {text, direction_, style, resultOnly};
}

void T_Controller::dropTranslation(const std::string& text) {
  translation(text, direction_);
}

}  // namespace zavel
