#ifndef UI_ZEFWEBVIEW_H
#define UI_ZEFWEBVIEW_H

#include "ui/DroppedText.h"
#include "ui/WebView.h"

namespace zavel {

// The web view of a translation tab. It takes dragged text, and posts it as ZFDropNotification.
class ZAVEL_API ZEFWebView : public WebView {
 public:
  using WebView::WebView;

  bool dragEntered(const std::optional<std::string>& text) override;
  void dragExited() override { text_.exit(); }
  bool drop() override;

 private:
  DroppedText text_;
};

}  // namespace zavel

#endif
