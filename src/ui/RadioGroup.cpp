// Tests: tests/ui/RadioGroupTest.cpp
#include "ui/RadioGroup.h"

#include <utility>

namespace zavel {

void RadioGroup::setCells(std::vector<Cell> cells) {
  if (cells == cells_ && selectedIndex_ == -1) return;
  cells_ = std::move(cells);
  selectedIndex_ = -1;
  notifyChange();
}

const RadioGroup::Cell* RadioGroup::selectedCell() const {
  return selectedIndex_ < 0 ? nullptr : &cells_[static_cast<size_t>(selectedIndex_)];
}

bool RadioGroup::selectTag(int tag) {
  for (size_t i = 0; i < cells_.size(); ++i) {
    if (cells_[i].tag != tag) continue;
    change(selectedIndex_, static_cast<int>(i));
    return true;
  }
  return false;
}

bool RadioGroup::choose(int tag) {
  if (!takesEvents() || !selectTag(tag)) return false;
  chosen.emit();
  return true;
}

}  // namespace zavel
