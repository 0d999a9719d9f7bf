#include "foundation/Bcd.h"

#include <gtest/gtest.h>

namespace zavel::foundation {
namespace {

const uint8_t kDigits[] = {0x01, 0x23, 0x45, 0x67, 0x89};

TEST(Bcd, ReadsTheHighDigitFirst) {
  EXPECT_EQ(BCD2ulong(kDigits, 1), 1u);
  EXPECT_EQ(BCD2ulong(kDigits, 4), 1234567u);
  EXPECT_EQ(GFnBCD2DWORD(kDigits, 5), 123456789u);
  EXPECT_EQ(GFn_BCD2DWORD(kDigits, 3), 12345u);
  EXPECT_EQ(BCD2ulong(kDigits, 0), 0u);
}

TEST(Bcd, CutsTheWordFormsToSixteenBits) {
  EXPECT_EQ(GFnBCD2WORD(kDigits, 2), 123);
  EXPECT_EQ(GFn_BCD2WORD(kDigits, 3), 12345);
  EXPECT_EQ(GFnBCD2WORD(kDigits, 4), 54919);    // 1234567 - 18 x 65536
  EXPECT_EQ(GFn_BCD2WORD(kDigits, 5), 0xCD15);  // of 123456789 = 0x075BCD15
}

TEST(Bcd, CutsNumbersOverThirtyTwoBits) {
  const uint8_t tooLarge[] = {0x99, 0x99, 0x99, 0x99, 0x99};
  EXPECT_EQ(BCD2ulong(tooLarge, 5), 1410065407u);  // 9999999999 - 2 x 4294967296
}

TEST(Bcd, CountsDigitsOverNineWithTheirValue) {
  const uint8_t odd[] = {0xAF};
  EXPECT_EQ(BCD2ulong(odd, 1), 115u);
}

TEST(Swap, TurnsTheBytesRound) {
  EXPECT_EQ(GFn_Swap(0x1234), 0x3412);
  EXPECT_EQ(GFn_Swap(0x80FF), 0xFF80);
  EXPECT_EQ(GFn_Swap2(0x12345678), 0x78563412u);
  EXPECT_EQ(GFn_Swap2(0x800000FF), 0xFF000080u);
  EXPECT_EQ(Little2BigUL(0x12345678), 0x78563412u);
  EXPECT_EQ(Big2LittleUL(0x12345678), 0x78563412u);
  EXPECT_EQ(Little2BigUS(0x1234), 0x3412);
  EXPECT_EQ(Big2LittleUS(0x1234), 0x3412);
}

}  // namespace
}  // namespace zavel::foundation
