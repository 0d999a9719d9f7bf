// Tests: tests/ui/TextFieldTest.cpp
#include "ui/SearchField.h"

#include <utility>

namespace zavel {

void SearchField::setMenu(std::shared_ptr<Menu> menu) {
  if (menu == menu_) return;
  menu_ = std::move(menu);
  menuChanged_ = menu_ ? menu_->changed.connect([this] { notifyChange(); }) : Connection();
  notifyChange();
}

bool SearchField::insertNewline() {
  if (!takesEvents() || !onInsertNewline) return false;
  const std::function<bool()> handler = onInsertNewline;  // which may set another one
  return handler();
}

}  // namespace zavel
