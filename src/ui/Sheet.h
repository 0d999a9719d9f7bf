#ifndef UI_SHEET_H
#define UI_SHEET_H

#include "ui/Panel.h"

namespace zavel {

// A panel over its window that asks for something and is accepted or cancelled.
class ZAVEL_API Sheet : public Panel {
 public:
  using Panel::Panel;

  // The user is done. True if the sheet was up; it is closed first, then `finished` is emitted.
  bool accept() { return finish(true); }
  bool cancel() { return finish(false); }

  Signal<bool> finished;  // accepted

 private:
  bool finish(bool accepted);
};

}  // namespace zavel

#endif
