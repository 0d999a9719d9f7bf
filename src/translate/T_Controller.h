// The tab of quick page translation.
#ifndef TRANSLATE_T_CONTROLLER_H
#define TRANSLATE_T_CONTROLLER_H

#include <cstdint>
#include <string>

#include "translate/TranslationTags.h"
#include "ui/BusyIndicator.h"
#include "ui/ZEFWebView.h"

namespace zavel {

// Takes its events and keeps what they asked for.
class ZAVEL_API T_Controller {
 public:
  // initialize:parentWindow:progress:  `viewNumber` tells this tab's results and translations from those of
  // other windows.
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress, int viewNumber);

  View& mainView() { return view_; }
  int viewID() const { return viewID_; }
  // Where results are shown; what is dropped on it is translated.
  ZEFWebView& webView() { return webView_; }

  // translation:direction:  `direction` is a translation tag.
  void translation(const std::string& text, int direction);
  // translation:style:resultOnly:  `style` -1: the current one.
  void translation(const std::string& text, int style, bool resultOnly);
  void dropTranslation(const std::string& text);
  void setDirection(int tag) { direction_ = tag; }

  // What was asked for last.
  struct Request {
    std::string text;
    int direction = kAutoTranslateTag;
    int style = -1;
    bool resultOnly = false;
    bool operator==(const Request&) const = default;
  };
  const Request& request() const { return request_; }
  int direction() const { return direction_; }

 private:
  View view_;
  ZEFWebView webView_;
  const void* parentWindow_ = nullptr;
  BusyIndicator* progress_ = nullptr;  // borrowed
  int viewID_ = 0;
  int direction_ = kAutoTranslateTag;
  Request request_;
};

}  // namespace zavel

#endif
