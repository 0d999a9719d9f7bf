#ifndef UI_TABLEDATASOURCE_H
#define UI_TABLEDATASOURCE_H

#include <cstddef>
#include <string>

#include "foundation/Export.h"
#include "platform/Value.h"

namespace zavel {

// Where a table takes its rows from. `row` is always below rowCount(), `column` an identifier of the table's.
class ZAVEL_API TableDataSource {
 public:
  virtual ~TableDataSource() = default;

  virtual size_t rowCount() const = 0;
  virtual Value cell(size_t row, const std::string& column) const = 0;

  // The user edited a cell in place, or dragged a row to where another one stands. False when it isn't taken.
  virtual bool setCell(size_t /*row*/, const std::string& /*column*/, const Value&) { return false; }
  virtual bool moveRow(size_t /*from*/, size_t /*to*/) { return false; }
};

}  // namespace zavel

#endif
