#include "research/A_Controller.h"

namespace zavel {

void A_Controller::initialize(const Rect& frame) {
  view_.setFrame(frame);
  view_.addChild(queryField_);
}

}  // namespace zavel
