#ifndef UI_TEXTFIELD_H
#define UI_TEXTFIELD_H

#include <string>

#include "ui/Control.h"

namespace zavel {

// A line of text for the user to fill in, UTF-8. What is no UTF-8 comes in as U+FFFD.
class ZAVEL_API TextField : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  void setText(const std::string& text);

  // The user made the text what it is now. Emits textEdited, even for the same text. True if it was taken.
  bool type(const std::string& text);

  Signal<> textEdited;

 private:
  std::string text_;
};

}  // namespace zavel

#endif
