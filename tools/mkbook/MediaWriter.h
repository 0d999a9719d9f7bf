// Pictures and sounds of a book: their regions with the tables at the start, and the tags that lead to them
// (docs/book-format.md, "Pictures and sounds").
#ifndef MKBOOK_MEDIAWRITER_H
#define MKBOOK_MEDIAWRITER_H

#include <cstdint>
#include <string>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/BookFolder.h"
#include "mkbook/BookSource.h"
#include "mkbook/Catalog.h"

namespace zavel::mkbook {

class MediaWriter {
 public:
  // Throws std::length_error for more pictures than tables can tell of.
  explicit MediaWriter(const std::vector<MediumShape>& media);

  // Puts the regions behind one another from block `first` on. Result: the block behind them. Until then tags
  // lead to block 0; their lengths are the same.
  uint32_t place(uint32_t first);

  // What stands ahead of and behind a medium's caption in a text.
  std::string opening(size_t number) const;
  std::string closing(size_t number) const;

  // Writes the regions' files and gives their records. After place(). Throws Failure.
  std::vector<CatalogRecord> write(const BookSource& source, const BookFolder& folder) const;

 private:
  struct Item {
    MediumShape shape;
    uint16_t number = 0;  // in its region's table, from 1
    uint64_t offset = 0;  // in its region
  };
  struct Region {
    MediumShape::Kind kind;
    uint16_t entryKind;
    const char* file;
    std::vector<size_t> items = {};
    uint64_t size = 0;  // bytes
    uint32_t first = 0;
  };

  Region& regionOf(MediumShape::Kind kind);
  const Region& regionOf(MediumShape::Kind kind) const;
  void layOut(Region* region);
  std::string table(const Region& region) const;
  _SDICADDRESS address(const Item& item, uint64_t behind) const;

  std::vector<Item> items_;
  std::vector<Region> regions_;
};

}  // namespace zavel::mkbook

#endif
