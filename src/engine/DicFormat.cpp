// Tests: tests/engine/DicFormatTest.cpp
#include "engine/DicFormat.h"

#include <algorithm>
#include <iterator>

namespace zavel::engine {
namespace {

// Sorted, for the binary search.
constexpr uint16_t kTags[] = {0xF4A4, 0xF4B5, 0xF4D0, 0xF5A7, 0xF5B1, 0xF5B6, 0xF5B7, 0xF5B8, 0xF5B9, 0xF5BD,
                              0xF5C1, 0xF5C2, 0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D6, 0xF5D7,
                              0xF5D8, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9};
static_assert(std::size(kTags) == 28);

}  // namespace

bool IsTag(uint8_t hi, uint8_t lo, uint16_t* tag) {
  const uint16_t pair = static_cast<uint16_t>(hi << 8 | lo);
  if (!std::binary_search(std::begin(kTags), std::end(kTags), pair)) return false;
  *tag = pair;
  return true;
}

}  // namespace zavel::engine
