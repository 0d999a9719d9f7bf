// What the catalog says of a book's regions.
#ifndef BOOK_CONTROLENTRY_H
#define BOOK_CONTROLENTRY_H

#include <cstdint>

namespace zavel::book {

// One for each usable record of the catalog. Copied by value.
struct _EPBOOKCONTROLENTRY {
  uint16_t kind = 0;  // the low byte tells the role (book/BookFormat.h)
  uint8_t flag0 = 0;
  uint8_t flag1 = 0;  // the flags steer how an index wants its keys
  uint8_t flag2 = 0;
  uint8_t flag3 = 0;
  uint8_t reserved[2] = {};
  uint32_t start = 0;  // first block of the region
  uint32_t end = 0;    // last block of it
};
static_assert(sizeof(_EPBOOKCONTROLENTRY) == 16);

// Which file holds which blocks. One for each record that is no font.
struct _SDIC_ADDRMAPINFO_V2 {
  char name[32] = {};  // relative to the catalog's folder
  uint32_t start = 0;
  uint32_t end = 0;
  uint16_t kind = 0;
  uint16_t zero = 0;
};

// The order of regions in their map: by first block.
int Fp_CompareAddrMapAdd(const void* info, const void* other);

// 0 when the region holds the block (uint32_t), for finding.
int Fp_CompareAddrMapFind(const void* info, const void* block);

}  // namespace zavel::book

#endif
