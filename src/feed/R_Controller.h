// The tab of feeds.
#ifndef FEED_R_CONTROLLER_H
#define FEED_R_CONTROLLER_H

#include <string>

#include "ui/BusyIndicator.h"
#include "ui/WebView.h"

namespace zavel {

// Takes its events and keeps what they asked for.
class ZAVEL_API R_Controller {
 public:
  // initialize:parentWindow:progress:  `viewNumber` tells this tab's results and translations from those of
  // other windows.
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress, int viewNumber);

  View& mainView() { return view_; }
  int viewID() const { return viewID_; }

  // Shows the feed at an address.
  void connectURLString(const std::string& url) { url_ = url; }
  const std::string& urlString() const { return url_; }
  void clear() { url_.clear(); }

  // No alert for a site that can't be reached: set while all sites are fetched unasked.
  void setAlertSkip(bool skip) { alertSkip_ = skip; }
  bool alertSkip() const { return alertSkip_; }

 private:
  View view_;
  WebView webView_;
  const void* parentWindow_ = nullptr;
  BusyIndicator* progress_ = nullptr;  // borrowed
  int viewID_ = 0;
  std::string url_;
  bool alertSkip_ = false;
};

}  // namespace zavel

#endif
