#ifndef UI_BUSYINDICATOR_H
#define UI_BUSYINDICATOR_H

#include "ui/View.h"

namespace zavel {

// Runs or doesn't: starts aren't counted, one stop ends any number of them.
class ZAVEL_API BusyIndicator : public View {
 public:
  using View::View;

  bool running() const { return running_; }
  void start() { change(running_, true); }
  void stop() { change(running_, false); }

 private:
  bool running_ = false;
};

}  // namespace zavel

#endif
