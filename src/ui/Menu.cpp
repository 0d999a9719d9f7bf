// Tests: tests/ui/MenuTest.cpp
#include "ui/Menu.h"

#include <algorithm>
#include <utility>

namespace zavel {
namespace {

// False when the field had that value already.
template <typename T>
bool assign(T& field, const T& value) {
  if (field == value) return false;
  field = value;
  return true;
}

}  // namespace

int Menu::indexOfTag(int tag) const {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [tag](const MenuItem& item) { return !item.separator && item.tag == tag; });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

const MenuItem* Menu::itemWithTag(int tag) const {
  const int index = indexOfTag(tag);
  return index < 0 ? nullptr : &items_[static_cast<size_t>(index)];
}

void Menu::addItem(MenuItem item) {
  items_.push_back(std::move(item));
  changed.emit();
}

void Menu::removeItem(size_t index) {
  if (index >= items_.size()) return;
  items_.erase(items_.begin() + static_cast<ptrdiff_t>(index));
  changed.emit();
}

void Menu::removeAllItems() {
  if (items_.empty()) return;
  items_.clear();
  changed.emit();
}

void Menu::setTitle(size_t index, const std::string& title) {
  if (index < items_.size() && assign(items_[index].title, title)) changed.emit();
}

void Menu::setChecked(size_t index, bool checked) {
  if (index < items_.size() && assign(items_[index].checked, checked)) changed.emit();
}

void Menu::setEnabled(size_t index, bool enabled) {
  if (index < items_.size() && assign(items_[index].enabled, enabled)) changed.emit();
}

void Menu::checkOnly(int tag) {
  bool different = false;
  for (MenuItem& item : items_) {
    const bool checked = !item.separator && item.tag == tag;
    different = different || item.checked != checked;
    item.checked = checked;
  }
  if (different) changed.emit();
}

bool Menu::choose(size_t index) {
  if (index >= items_.size()) return false;
  const MenuItem item = items_[index];
  if (item.separator || !item.enabled || !item.action) return false;
  item.action(item);
  return true;
}

}  // namespace zavel
