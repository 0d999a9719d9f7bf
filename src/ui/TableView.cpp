// Tests: tests/ui/TableViewTest.cpp
#include "ui/TableView.h"

#include <algorithm>
#include <limits>

namespace zavel {

void TableView::setDataSource(TableDataSource* source) {
  if (source == source_) return;
  source_ = source;
  reloadData();
}

Value TableView::cell(size_t row, const std::string& identifier) const {
  return sourceHas(row) && column(identifier) ? source_->cell(row, identifier) : Value();
}

void TableView::reloadData() {
  constexpr size_t kMostRows = std::numeric_limits<int>::max();
  rowCount_ = source_ ? std::min(source_->rowCount(), kMostRows) : 0;
  if (!has(scrolledRow_)) scrolledRow_ = -1;
  if (selectedRow_ >= 0 && !has(selectedRow_)) {
    setSelectedRow(-1);  // tells of the new rows as well
  } else {
    notifyChange();
  }
}

bool TableView::selectRow(int row) {
  if (!has(row)) return false;
  setSelectedRow(row);
  return true;
}

void TableView::deselect() {
  setSelectedRow(-1);
}

void TableView::scrollRowToVisible(int row) {
  if (!has(row)) return;
  scrolledRow_ = row;
  notifyChange();
}

bool TableView::choose(int row) {
  if (!takesEvents() || (row != -1 && !has(row))) return false;
  setSelectedRow(row);
  return true;
}

bool TableView::doubleClick(int row) {
  const std::weak_ptr<const bool> here = alive();
  if (row < 0 || !choose(row)) return false;
  if (!here.expired()) doubleClicked.emit();
  return true;
}

bool TableView::edit(size_t row, const std::string& identifier, const Value& value) {
  const Column* const edited = column(identifier);
  if (!takesEvents() || !sourceHas(row) || !edited || !edited->editable) return false;
  if (!source_->setCell(row, identifier, value)) return false;
  notifyChange();
  return true;
}

bool TableView::moveRow(size_t from, size_t to) {
  if (!takesEvents() || !sourceHas(from) || !sourceHas(to) || from == to) return false;
  if (!source_->moveRow(from, to)) return false;
  notifyChange();
  return true;
}

// The source may have lost rows since the last reload.
bool TableView::sourceHas(size_t row) const {
  return source_ && row < rowCount_ && row < source_->rowCount();
}

const TableView::Column* TableView::column(const std::string& identifier) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [&](const Column& c) { return c.identifier == identifier; });
  return found == columns_.end() ? nullptr : &*found;
}

void TableView::setSelectedRow(int row) {
  if (change(selectedRow_, row)) selectionChanged.emit();
}

}  // namespace zavel
