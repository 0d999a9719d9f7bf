// Tests: tests/ui/TabViewTest.cpp
#include "ui/TabView.h"

#include <algorithm>

namespace zavel {

bool TabView::addItem(const std::string& identifier, View& view) {
  const bool known = std::any_of(items_.begin(), items_.end(), [&](const Item& item) {
    return item.identifier == identifier || item.view == &view;
  });
  if (known) return false;
  if (items_.empty()) selected_ = identifier;
  items_.push_back({identifier, &view});
  addChild(view);
  return true;
}

bool TabView::selectItem(const std::string& identifier) {
  const bool known = std::any_of(items_.begin(), items_.end(),
                                 [&](const Item& item) { return item.identifier == identifier; });
  if (known) change(selected_, identifier);
  return known;
}

bool TabView::shows(const View& child) const {
  return std::none_of(items_.begin(), items_.end(),
                      [&](const Item& item) { return item.view == &child && item.identifier != selected_; });
}

void TabView::childLeft(const View& child) {
  const auto item =
      std::find_if(items_.begin(), items_.end(), [&](const Item& i) { return i.view == &child; });
  if (item == items_.end()) return;
  const bool wasSelected = item->identifier == selected_;
  items_.erase(item);
  if (wasSelected) selected_ = items_.empty() ? std::string() : items_.front().identifier;
}

}  // namespace zavel
