#ifndef UI_MENUITEM_H
#define UI_MENUITEM_H

#include <functional>
#include <memory>
#include <string>

#include "foundation/Export.h"

namespace zavel {

class Menu;

struct ZAVEL_API MenuItem {
  // The user chose the item, of which the action gets a copy: it may rebuild the menu.
  using Action = std::function<void(const MenuItem&)>;

  static MenuItem separatorItem();

  std::string title;
  int tag = 0;
  Action action;                // none: a heading, or an item of a pop-up
  std::string representedText;  // what rides on the item: an address, a name
  bool enabled = true;
  bool checked = false;
  bool separator = false;
  std::shared_ptr<Menu> submenu;
};

}  // namespace zavel

#endif
