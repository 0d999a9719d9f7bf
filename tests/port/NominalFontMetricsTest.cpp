#include "base/NominalFontMetrics.h"

#include <gtest/gtest.h>

namespace zavel {
namespace {

TEST(NominalFontMetrics, FillsTheEmBoxForEveryFont) {
  NominalFontMetrics fonts;
  const FontHeights tall = fonts.heights("Gothic", 100);
  EXPECT_DOUBLE_EQ(tall.ascender, 88);
  EXPECT_DOUBLE_EQ(tall.descender, -12);
  const FontHeights small = fonts.heights("", 12.5);
  EXPECT_DOUBLE_EQ(small.ascender, 11);
  EXPECT_DOUBLE_EQ(small.descender, -1.5);
}

}  // namespace
}  // namespace zavel
