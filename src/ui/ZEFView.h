#ifndef UI_ZEFVIEW_H
#define UI_ZEFVIEW_H

#include "ui/DroppedText.h"
#include "ui/View.h"

namespace zavel {

// The root view of a main controller. It takes dragged text, and posts it as ZFDropNotification.
class ZAVEL_API ZEFView : public View {
 public:
  using View::View;

  bool dragEntered(const std::optional<std::string>& text) override;
  void dragExited() override { text_.exit(); }
  bool drop() override;

 private:
  DroppedText text_;
};

}  // namespace zavel

#endif
