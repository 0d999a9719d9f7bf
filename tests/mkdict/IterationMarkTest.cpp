// The mark 々 in written forms.
#include "mkdict/IterationMark.h"

#include <gtest/gtest.h>

#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using test::sjis;

TEST(IterationMark, StandsForTheKanjiBefore) {
  EXPECT_EQ(sjis("我我"), withKanjiRepeated(sjis("我々")));
  EXPECT_EQ(sjis("代代木"), withKanjiRepeated(sjis("代々木")));
  EXPECT_EQ(sjis("三三五五"), withKanjiRepeated(sjis("三々五々")));
  EXPECT_EQ(sjis("図図しい"), withKanjiRepeated(sjis("図々しい")));
}

TEST(IterationMark, TwoStandForTwo) {
  EXPECT_EQ(sjis("部分部分"), withKanjiRepeated(sjis("部分々々")));
  EXPECT_EQ(sjis("人人"), withKanjiRepeated(sjis("人々々")));  // one kanji, however many marks
}

TEST(IterationMark, WithNothingBeforeItStays) {
  EXPECT_EQ(sjis("々"), withKanjiRepeated(sjis("々")));
  EXPECT_EQ("", withKanjiRepeated(""));
}

// メ is 0x8381 and 々 0x8158.
TEST(IterationMark, IsAWholeCharacter) {
  EXPECT_EQ("X\x83\x81\x58", withKanjiRepeated("X\x83\x81\x58"));  // メ and "X", not half of メ and 々
  EXPECT_EQ("XX", withKanjiRepeated("X\x81\x58"));
}

}  // namespace
}  // namespace zavel::mkdict
