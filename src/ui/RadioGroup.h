#ifndef UI_RADIOGROUP_H
#define UI_RADIOGROUP_H

#include <string>
#include <vector>

#include "ui/Control.h"

namespace zavel {

// Cells of which at most one is on, told apart by their tags.
class ZAVEL_API RadioGroup : public Control {
 public:
  struct Cell {
    std::string title;
    int tag = 0;

    bool operator==(const Cell&) const = default;
  };

  using Control::Control;

  const std::vector<Cell>& cells() const { return cells_; }
  // Also selects none.
  void setCells(std::vector<Cell> cells);

  // Null while none is on. Borrowed until the cells change.
  const Cell* selectedCell() const;
  // Its place among the cells, -1 while none is on.
  int selectedIndex() const { return selectedIndex_; }
  // False, and nothing changed, for a tag that no cell has.
  bool selectTag(int tag);
  void deselect() { change(selectedIndex_, -1); }

  // The user clicked a cell, be it the one that is on. True if the group took it.
  bool choose(int tag);

  Signal<> chosen;

 private:
  std::vector<Cell> cells_;
  int selectedIndex_ = -1;
};

}  // namespace zavel

#endif
