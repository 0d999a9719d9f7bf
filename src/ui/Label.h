#ifndef UI_LABEL_H
#define UI_LABEL_H

#include <string>

#include "ui/View.h"

namespace zavel {

// Text that the user can't change.
class ZAVEL_API Label : public View {
 public:
  using View::View;

  const std::string& text() const { return text_; }
  void setText(const std::string& text) { change(text_, text); }

 private:
  std::string text_;
};

}  // namespace zavel

#endif
