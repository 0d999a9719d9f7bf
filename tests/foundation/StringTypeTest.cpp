#include "foundation/StringType.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace zavel::foundation {
namespace {

int typeOf(std::initializer_list<int> codes) {
  std::string key;
  for (int code : codes) key += {static_cast<char>(code >> 8), static_cast<char>(code)};
  return GFnGetStringType(key.c_str());
}

constexpr int kKana = 0x2422, kLetter = 0x2361, kDigit = 0x2331, kNeutral = 0x2121, kOther = 0x3021;

TEST(GFnGetStringType, TakesEveryCodeForItsClass) {
  const std::pair<int, int> kanaRanges[] = {
      {0x212B, 0x212C}, {0x213C, 0x213C}, {0x2421, 0x2473}, {0x2521, 0x2576}};
  const std::pair<int, int> letterRanges[] = {{0x2341, 0x235A}, {0x2361, 0x237A}, {0x2621, 0x2638},
                                              {0x2641, 0x2658}, {0x2721, 0x2741}, {0x2751, 0x2771},
                                              {0x216C, 0x216D}, {0x2127, 0x212A}, {0x2146, 0x2149}};
  std::set<int> kana, letters, neutral = {0x2121, 0x2124, 0x2125, 0x2126, 0x213E, 0x215D};
  for (const auto& [first, last] : kanaRanges)
    for (int code = first; code <= last; ++code) kana.insert(code);
  for (const auto& [first, last] : letterRanges)
    for (int code = first; code <= last; ++code) letters.insert(code);
  for (int high = 0x21; high <= 0x7E; ++high) {
    for (int low = 0x21; low <= 0x7E; ++low) {
      const int code = high << 8 | low;
      const bool digit = code >= 0x2330 && code <= 0x2339;
      const int expected = kana.count(code)      ? 2
                           : letters.count(code) ? 3
                           : digit               ? 4
                           : neutral.count(code) ? 0
                                                 : 1;
      EXPECT_EQ(typeOf({code}), expected) << std::hex << code;
    }
  }
}

TEST(GFnGetStringType, GivesNothingForAnEmptyOrNeutralKey) {
  EXPECT_EQ(typeOf({}), 0);
  EXPECT_EQ(typeOf({0x2121, 0x2126, 0x215D}), 0);
}

TEST(GFnGetStringType, PassesOverNeutralCodes) {
  EXPECT_EQ(typeOf({kNeutral, kKana, kNeutral, kKana}), 2);
  EXPECT_EQ(typeOf({kLetter, 0x215D, kLetter}), 3);
  EXPECT_EQ(typeOf({kDigit, 0x2125, kDigit, kNeutral}), 4);
}

TEST(GFnGetStringType, TakesTheProlongingMarkForKana) {
  EXPECT_EQ(typeOf({0x213C}), 2);
}

TEST(GFnGetStringType, EndsAsMixedAtACodeOfNoClass) {
  EXPECT_EQ(typeOf({kOther}), 1);
  EXPECT_EQ(typeOf({kKana, kOther}), 1);
  EXPECT_EQ(typeOf({kLetter, kOther, kLetter}), 1);
  EXPECT_EQ(typeOf({kDigit, kOther}), 1);
}

TEST(GFnGetStringType, LetsTheClassHeldDecideAboutTheNext) {
  EXPECT_EQ(typeOf({kLetter, kDigit}), 1);  // ａ１
  EXPECT_EQ(typeOf({kLetter, kKana}), 1);
  EXPECT_EQ(typeOf({kKana, kDigit}), 1);
  EXPECT_EQ(typeOf({kDigit, kKana}), 1);
  EXPECT_EQ(typeOf({kDigit, kLetter}), 3);  // １ａ
  EXPECT_EQ(typeOf({kKana, kLetter}), 3);   // あａ
  EXPECT_EQ(typeOf({kKana, kLetter, kKana}), 1);
}

TEST(GFnGetStringType, TakesHalfACharacterForMixed) {
  EXPECT_EQ(GFnGetStringType("\x24\x22\x24"), 1);
  EXPECT_EQ(GFnGetStringType("\x24"), 1);
}

}  // namespace
}  // namespace zavel::foundation
