#ifndef UI_TABVIEW_H
#define UI_TABVIEW_H

#include <string>
#include <vector>

#include "ui/View.h"

namespace zavel {

// Views of which one is up.
class ZAVEL_API TabView : public View {
 public:
  struct Item {
    std::string identifier;
    View* view = nullptr;  // borrowed; when it goes, so does the item
  };

  using View::View;

  const std::vector<Item>& items() const { return items_; }
  // Makes `view` a child. The first item is selected, also in place of a selected one that goes. An
  // identifier or a view that is there already is refused.
  bool addItem(const std::string& identifier, View& view);

  // Empty while there are no items.
  const std::string& selectedIdentifier() const { return selected_; }
  // False, and nothing changed, for an identifier that isn't there.
  bool selectItem(const std::string& identifier);

 private:
  bool shows(const View& child) const override;
  void childLeft(const View& child) override;

  std::vector<Item> items_;
  std::string selected_;
};

}  // namespace zavel

#endif
