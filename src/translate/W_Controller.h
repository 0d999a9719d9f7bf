// The tab of web search with translation.
#ifndef TRANSLATE_W_CONTROLLER_H
#define TRANSLATE_W_CONTROLLER_H

#include <string>

#include "platform/SjisBytes.h"
#include "ui/BusyIndicator.h"
#include "ui/WebView.h"

namespace zavel {

// Takes its events and keeps what they asked for.
class ZAVEL_API W_Controller {
 public:
  // initialize:parentWindow:progress:  `viewNumber` tells this tab's results and translations from those of
  // other windows.
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress, int viewNumber);

  View& mainView() { return view_; }
  int viewID() const { return viewID_; }

  // The address of the site that is searched; empty for none.
  void setSite(const std::string& url) { site_ = url; }
  const std::string& site() const { return site_; }
  void searchJ(const SjisBytes& query) { query_ = query; }
  const SjisBytes& query() const { return query_; }
  void clear();

 private:
  View view_;
  WebView webView_;
  const void* parentWindow_ = nullptr;
  BusyIndicator* progress_ = nullptr;  // borrowed
  int viewID_ = 0;
  std::string site_;
  SjisBytes query_;
};

}  // namespace zavel

#endif
