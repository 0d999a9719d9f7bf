#ifndef UI_POPUPBUTTON_H
#define UI_POPUPBUTTON_H

#include <cstddef>
#include <vector>

#include "ui/Control.h"
#include "ui/MenuItem.h"

namespace zavel {

// A choice of one among items. While there are items one is selected, the first to begin with.
class ZAVEL_API PopUpButton : public Control {
 public:
  using Control::Control;

  const std::vector<MenuItem>& items() const { return items_; }
  void addItem(MenuItem item);
  // The selected item stays selected when another one goes; when it goes itself the first one is.
  void removeItem(size_t index);
  void removeAllItems();

  // -1 and null without items. The item is borrowed until the items change.
  int selectedIndex() const { return selectedIndex_; }
  const MenuItem* selectedItem() const;
  // False, and nothing changed, when there is no such item.
  bool selectIndex(size_t index);
  bool selectTag(int tag);

  // The user chose an item, be it the selected one. True if it could be chosen.
  bool choose(size_t index);

  Signal<> chosen;

 private:
  std::vector<MenuItem> items_;
  int selectedIndex_ = -1;
};

}  // namespace zavel

#endif
