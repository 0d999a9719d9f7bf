// A tag with its arguments, as a caller hands it in: a pointer into a text, without a length. What a text's
// end cuts off reads as zeroes there, and no more than kLongestTag bytes are ever looked at.
#ifndef BOOK_TAGREADER_H
#define BOOK_TAGREADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "book/BookTypes.h"
#include "foundation/Bcd.h"
#include "foundation/ByteReader.h"

namespace zavel::book {

inline constexpr size_t kLongestTag = 512;

class TagReader {
 public:
  explicit TagReader(const char* tag) : tag_(reinterpret_cast<const uint8_t*>(tag)) {}

  uint16_t word(size_t offset) const { return readBE16(tag_ + offset); }
  uint8_t byte(size_t offset) const { return tag_[offset]; }
  uint32_t bcd(size_t offset, size_t bytes) const { return foundation::GFnBCD2DWORD(tag_ + offset, bytes); }

  // Four bytes of block and two of offset, packed decimal.
  _SDICADDRESS address(size_t offset) const { return {bcd(offset, 4), bcd(offset + 4, 2)}; }

  // What stands from `offset` up to the word `closing`. Nothing where the text ends first.
  std::optional<std::string_view> upTo(size_t offset, uint16_t closing) const;

 private:
  const uint8_t* tag_;  // borrowed
};

}  // namespace zavel::book

#endif
