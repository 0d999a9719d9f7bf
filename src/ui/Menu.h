#ifndef UI_MENU_H
#define UI_MENU_H

#include <cstddef>
#include <string>
#include <vector>

#include "foundation/Export.h"
#include "ui/MenuItem.h"
#include "ui/Signal.h"

namespace zavel {

// A list of items. An index beyond it is passed over by setters and refused by choose().
class ZAVEL_API Menu {
 public:
  explicit Menu(std::string title = std::string()) : title_(std::move(title)) {}

  const std::string& title() const { return title_; }
  const std::vector<MenuItem>& items() const { return items_; }
  size_t count() const { return items_.size(); }

  // The first item with that tag that is no separator: its index or -1; the item (borrowed until the menu
  // changes) or null.
  int indexOfTag(int tag) const;
  const MenuItem* itemWithTag(int tag) const;

  void addItem(MenuItem item);
  void removeItem(size_t index);
  void removeAllItems();

  void setTitle(size_t index, const std::string& title);
  void setChecked(size_t index, bool checked);
  void setEnabled(size_t index, bool enabled);

  // Checks the items with `tag` and unchecks every other one.
  void checkOnly(int tag);

  // The user chose an item. True if its action ran: an item that is disabled, a separator or without an
  // action has nothing to run. The action may rebuild or let go of the menu.
  bool choose(size_t index);

  Signal<> changed;

 private:
  std::string title_;
  std::vector<MenuItem> items_;
};

}  // namespace zavel

#endif
