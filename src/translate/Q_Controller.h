// The tab of quick translation: a text and its translation, beside or above each other.
#ifndef TRANSLATE_Q_CONTROLLER_H
#define TRANSLATE_Q_CONTROLLER_H

#include <string>

#include "ui/BusyIndicator.h"
#include "ui/TextView.h"

namespace zavel {

class ZAVEL_API Q_Controller {
 public:
  // `direction` of setSource.
  static constexpr int kJtoE = 0;
  static constexpr int kEtoJ = 1;

  // How the tab is laid out, and whether it stands inside the browser client.
  struct Layout {
    bool upDown = true;
    bool buttonHide = false;
    bool inBrowser = false;
    bool operator==(const Layout&) const = default;
  };

  // initialize:parentWindow:progress:
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress, const Layout& layout);

  View& mainView() { return view_; }
  TextView& srcView() { return srcView_; }
  TextView& dstView() { return dstView_; }

  // setSource:direction:  Puts the text to be translated in its pane.
  void setSource(const std::string& text, int direction);
  int direction() const { return direction_; }

  const Layout& layout() const { return layout_; }
  void setLayoutUpDown(bool upDown) { layout_.upDown = upDown; }
  void setTransportButtonHide(bool hide) { layout_.buttonHide = hide; }

 private:
  View view_;
  TextView srcView_;
  TextView dstView_;
  const void* parentWindow_ = nullptr;
  BusyIndicator* progress_ = nullptr;  // borrowed
  int direction_ = kEtoJ;
  Layout layout_;
};

}  // namespace zavel

#endif
