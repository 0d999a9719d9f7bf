// The file that a book is opened by: what it is, and which file holds which blocks.
#ifndef MKBOOK_CATALOG_H
#define MKBOOK_CATALOG_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zavel::mkbook {

// How an index wants its keys (docs/book-format.md, "Keys").
using IndexFlags = std::array<uint8_t, 4>;

struct CatalogRecord {
  uint16_t kind = 0;   // as in book/BookFormat.h
  uint32_t first = 0;  // block
  uint32_t last = 0;   // block
  IndexFlags flags{};
  std::string name;  // of the file, at most 31 bytes
};

struct Catalog {
  std::string title;  // Shift_JIS; what doesn't fit 63 bytes falls, whole characters
  uint32_t identity = 0;
  bool readsThrough = true;  // the whole text may be read from its beginning to its end
  std::vector<CatalogRecord> records;
  std::string largeIcon;  // 32 x 32 dots of four bits, the bottom row first: 512 bytes
  std::string smallIcon;  // 16 x 15 dots: 120 bytes

  // As much of the title as fits.
  std::string storedTitle() const;

  // The file. Throws std::length_error when a name is too long.
  std::string bytes() const;
};

// The icons that compiled books have: a book, seen from the front.
std::string largeBookIcon();
std::string smallBookIcon();

}  // namespace zavel::mkbook

#endif
