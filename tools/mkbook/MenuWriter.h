// The menus of one kind: texts one behind the other in a region, whose items lead to entries and to each
// other.
#ifndef MKBOOK_MENUWRITER_H
#define MKBOOK_MENUWRITER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/BodyWriter.h"
#include "mkbook/BookSource.h"

namespace zavel::mkbook {

class MenuWriter {
 public:
  // Takes those of `menus` that show pictures, or the others.
  MenuWriter(const std::vector<Menu>& menus, bool pictures);

  bool empty() const { return menus_.empty(); }

  // Measures the menus and puts them behind one another from block `first` on: their lengths depend on what
  // items lead somewhere, not on where. Result: the block behind them.
  uint32_t place(uint32_t first, BodyWriter& writer);

  // Where a reader begins with a menu. Nothing for another name. After place(), or with block 0.
  std::optional<_SDICADDRESS> addressOf(const std::string& name) const;

  // The region's bytes. After place().
  std::string bytes(BodyWriter& writer) const;

 private:
  std::string text(size_t number, BodyWriter& writer) const;

  std::vector<Menu> menus_;
  std::vector<size_t> places_;  // of their beginnings, in bytes
  uint32_t first_ = 0;
};

}  // namespace zavel::mkbook

#endif
