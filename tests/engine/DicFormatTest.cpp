#include "engine/DicFormat.h"

#include <gtest/gtest.h>

#include <set>

namespace zavel::engine {
namespace {

TEST(IsTag, KnowsTwentyEightPairsAndNoOther) {
  const std::set<uint16_t> tags = {0xF4A4, 0xF4B5, 0xF4D0, 0xF5A7, 0xF5B1, 0xF5B6, 0xF5B7,
                                   0xF5B8, 0xF5B9, 0xF5BD, 0xF5C1, 0xF5C2, 0xF5D0, 0xF5D1,
                                   0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D6, 0xF5D7, 0xF5D8,
                                   0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9};
  ASSERT_EQ(tags.size(), 28u);
  for (unsigned pair = 0; pair <= 0xFFFF; ++pair) {
    uint16_t tag = 1;
    const bool known = IsTag(static_cast<uint8_t>(pair >> 8), static_cast<uint8_t>(pair), &tag);
    EXPECT_EQ(known, tags.count(static_cast<uint16_t>(pair)) == 1) << std::hex << pair;
    EXPECT_EQ(tag, known ? pair : 1u) << std::hex << pair;
  }
}

}  // namespace
}  // namespace zavel::engine
