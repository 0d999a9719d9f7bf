// Places in a book.
#ifndef BOOK_ADDRESS_H
#define BOOK_ADDRESS_H

#include <cstdint>

#include "book/BookFormat.h"
#include "book/BookTypes.h"

namespace zavel::book {

// The same place with an offset of 0 to 2047.
constexpr _SDICADDRESS normalised(const _SDICADDRESS& address) {
  return {address.block + (address.offset >> kBlockShift),
          static_cast<uint32_t>(address.offset & kBlockMask)};
}

// `bytes` further on, normalised.
constexpr _SDICADDRESS further(const _SDICADDRESS& address, uint64_t bytes) {
  const uint64_t at = (uint64_t{address.block} << kBlockShift) + address.offset + bytes;
  return {static_cast<uint32_t>(at >> kBlockShift), static_cast<uint32_t>(at & kBlockMask)};
}

}  // namespace zavel::book

#endif
