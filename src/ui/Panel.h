#ifndef UI_PANEL_H
#define UI_PANEL_H

#include <string>

#include "ui/View.h"

namespace zavel {

// A small window of its own. It is hidden until it is shown first.
class ZAVEL_API Panel : public View {
 public:
  explicit Panel(const Rect& frame = {});

  const std::string& title() const { return title_; }
  void setTitle(const std::string& title) { change(title_, title); }

  void show() { setHidden(false); }
  void close() { setHidden(true); }

 private:
  std::string title_;
};

}  // namespace zavel

#endif
