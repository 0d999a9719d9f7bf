// The tab of text translation: two panes, a text and its translation.
#ifndef TRANSLATE_E_CONTROLLER_H
#define TRANSLATE_E_CONTROLLER_H

#include <string>

#include "ui/BusyIndicator.h"
#include "ui/TextView.h"

namespace zavel {

class ZAVEL_API E_Controller {
 public:
  // `direction` of setSource.
  static constexpr int kJtoE = 0;
  static constexpr int kEtoJ = 1;

  // initialize:parentWindow:progress:
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress);

  View& mainView() { return view_; }
  TextView& srcView() { return srcView_; }
  TextView& dstView() { return dstView_; }

  // setSource:direction:  Puts the text to be translated in its pane.
  void setSource(const std::string& text, int direction);
  int direction() const { return direction_; }

 private:
  View view_;
  TextView srcView_;
  TextView dstView_;
  const void* parentWindow_ = nullptr;
  BusyIndicator* progress_ = nullptr;  // borrowed
  int direction_ = kEtoJ;
};

}  // namespace zavel

#endif
