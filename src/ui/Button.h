#ifndef UI_BUTTON_H
#define UI_BUTTON_H

#include <string>

#include "ui/Control.h"

namespace zavel {

class ZAVEL_API Button : public Control {
 public:
  using Control::Control;

  const std::string& title() const { return title_; }
  void setTitle(const std::string& title) { change(title_, title); }

  // Name of an image resource; empty for none.
  const std::string& imageName() const { return imageName_; }
  void setImageName(const std::string& name) { change(imageName_, name); }

  // Pressed in, or ticked.
  bool state() const { return state_; }
  void setState(bool on) { change(state_, on); }

  // The user clicked. True if the button took it.
  virtual bool click();

  Signal<> clicked;

 private:
  std::string title_;
  std::string imageName_;
  bool state_ = false;
};

}  // namespace zavel

#endif
