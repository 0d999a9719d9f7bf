// Tests: tests/ui/PopUpButtonTest.cpp
#include "ui/PopUpButton.h"

#include <utility>

namespace zavel {

void PopUpButton::addItem(MenuItem item) {
  items_.push_back(std::move(item));
  if (selectedIndex_ < 0) selectedIndex_ = 0;
  notifyChange();
}

void PopUpButton::removeItem(size_t index) {
  if (index >= items_.size()) return;
  items_.erase(items_.begin() + static_cast<ptrdiff_t>(index));
  const int removed = static_cast<int>(index);
  if (items_.empty()) {
    selectedIndex_ = -1;
  } else if (removed == selectedIndex_) {
    selectedIndex_ = 0;
  } else if (removed < selectedIndex_) {
    --selectedIndex_;
  }
  notifyChange();
}

void PopUpButton::removeAllItems() {
  if (items_.empty()) return;
  items_.clear();
  selectedIndex_ = -1;
  notifyChange();
}

const MenuItem* PopUpButton::selectedItem() const {
  return selectedIndex_ < 0 ? nullptr : &items_[static_cast<size_t>(selectedIndex_)];
}

bool PopUpButton::selectIndex(size_t index) {
  if (index >= items_.size()) return false;
  change(selectedIndex_, static_cast<int>(index));
  return true;
}

bool PopUpButton::selectTag(int tag) {
  for (size_t i = 0; i < items_.size(); ++i)
    if (!items_[i].separator && items_[i].tag == tag) return selectIndex(i);
  return false;
}

bool PopUpButton::choose(size_t index) {
  if (!takesEvents() || index >= items_.size()) return false;
  if (items_[index].separator || !items_[index].enabled) return false;
  selectIndex(index);
  chosen.emit();
  return true;
}

}  // namespace zavel
