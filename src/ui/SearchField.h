#ifndef UI_SEARCHFIELD_H
#define UI_SEARCHFIELD_H

#include <functional>
#include <memory>

#include "ui/Menu.h"
#include "ui/TextField.h"

namespace zavel {

// A text field for queries, with a menu of its own.
class ZAVEL_API SearchField : public TextField {
 public:
  using TextField::TextField;

  // Null for none. What changes in the menu counts as a change of the field.
  const std::shared_ptr<Menu>& menu() const { return menu_; }
  void setMenu(std::shared_ptr<Menu> menu);

  // The user asked for a new line. Whether the logic behind the field made something of it; a host then has
  // nothing more to do.
  bool insertNewline();

  // That logic. Whoever sets it takes it off before going.
  std::function<bool()> onInsertNewline;

 private:
  std::shared_ptr<Menu> menu_;
  Connection menuChanged_;
};

}  // namespace zavel

#endif
