// Tests: tests/book/BodyTest.cpp
#include "book/OutBuffer.h"

#include <cstdlib>
#include <cstring>

namespace zavel::book {

char* allocateOut(size_t size) {
  return size <= static_cast<size_t>(-1) - kSlack ? static_cast<char*>(std::calloc(1, size + kSlack))
                                                  : nullptr;
}

char* copyOut(std::string_view bytes) {
  char* const out = allocateOut(bytes.size());
  if (out) std::memcpy(out, bytes.data(), bytes.size());
  return out;
}

}  // namespace zavel::book
