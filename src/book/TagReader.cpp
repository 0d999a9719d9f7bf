// Tests: tests/book/MediaTest.cpp
#include "book/TagReader.h"

#include "book/BookFormat.h"

namespace zavel::book {

std::optional<std::string_view> TagReader::upTo(size_t offset, uint16_t closing) const {
  for (size_t end = offset; end + 2 <= kLongestTag; end += 2) {
    const uint16_t here = word(end);
    if (here == closing) return std::string_view(reinterpret_cast<const char*>(tag_ + offset), end - offset);
    if (here == 0 || here == kTagEnd) break;
  }
  return std::nullopt;
}

}  // namespace zavel::book
