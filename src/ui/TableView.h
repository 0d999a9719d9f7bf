#ifndef UI_TABLEVIEW_H
#define UI_TABLEVIEW_H

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "ui/Control.h"
#include "ui/TableDataSource.h"

namespace zavel {

// Rows and columns over a data source, at most one row selected.
class ZAVEL_API TableView : public Control {
 public:
  struct Column {
    std::string identifier;
    std::string title = std::string();
    bool editable = false;
    // What a cell may be set to, its value being an index; empty where the cell holds the value itself.
    std::vector<std::string> choices = {};
    double width = 0;  // points; 0 for whatever the host gives

    bool operator==(const Column&) const = default;
  };

  using Control::Control;

  // Borrowed; null for none. Whoever gave it takes it back before it goes.
  void setDataSource(TableDataSource* source);

  const std::vector<Column>& columns() const { return columns_; }
  void setColumns(const std::vector<Column>& columns) { change(columns_, columns); }

  // As the source had it at the last reloadData().
  size_t rowCount() const { return rowCount_; }
  // Null for a row or column that isn't there.
  Value cell(size_t row, const std::string& column) const;

  // Asks the source for its rows anew. The selection stays at its row, and goes when there is no such row.
  void reloadData();

  // -1 while none is selected.
  int selectedRow() const { return selectedRow_; }
  // False, and nothing changed, for a row that isn't there.
  bool selectRow(int row);
  void deselect();

  // The row last asked to be brought into view, -1 for none since the row went. Asking is a change each time.
  int scrolledRow() const { return scrolledRow_; }
  void scrollRowToVisible(int row);

  // --- The user's events; true if they were taken ---

  // Selects the row, or none for -1.
  bool choose(int row);
  // Selects the row, then emits doubleClicked.
  bool doubleClick(int row);
  bool edit(size_t row, const std::string& column, const Value& value);
  bool moveRow(size_t from, size_t to);

  // The selected row is another one than before, whoever changed it, or none.
  Signal<> selectionChanged;
  Signal<> doubleClicked;

 private:
  bool has(int row) const { return row >= 0 && static_cast<size_t>(row) < rowCount_; }
  bool sourceHas(size_t row) const;
  const Column* column(const std::string& identifier) const;
  void setSelectedRow(int row);

  TableDataSource* source_ = nullptr;  // borrowed
  std::vector<Column> columns_;
  size_t rowCount_ = 0;
  int selectedRow_ = -1;
  int scrolledRow_ = -1;
};

}  // namespace zavel

#endif
