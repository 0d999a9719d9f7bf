#ifndef UI_CHECKBOX_H
#define UI_CHECKBOX_H

#include "ui/Button.h"

namespace zavel {

// A button whose state every click turns over, before `clicked` is emitted.
class ZAVEL_API Checkbox : public Button {
 public:
  using Button::Button;

  bool click() override;
};

}  // namespace zavel

#endif
