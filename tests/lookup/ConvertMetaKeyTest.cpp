#include <gtest/gtest.h>

#include <set>

#include "lookup/LookupTesting.h"
#include "lookup/MetaKey.h"

namespace zavel::test {
namespace {

std::string removed(const std::string& text) {
  return BareManager().ConvertMetaKey(text, 0);
}
std::string labelled(const std::string& text) {
  return BareManager().ConvertMetaKey(text, 1);
}

struct LabelRow {
  uint16_t key;
  const char* label;  // UTF-8
};

const LabelRow kLabelRows[] = {
    {0xF4A4, "【添え字下付き】"},
    {0xF4B5, "【添え字上付き】"},
    {0xF4D0, "【添え字なし】"},
    {0xF5A7, "【無視】"},
    {0xF5B1, "【ボールド】"},
    {0xF5B6, "【日本語ボールド指定開始】"},
    {0xF5B7, "【日本語ボールド指定終了】"},
    {0xF5B8, "【イタリック】"},
    {0xF5B9, "【ボールド・イタリック】"},
    {0xF5BC, ""},
    {0xF5BD, "【ニュースゴシック】"},
    {0xF5C1, "【ローマン(標準書体)】"},
    {0xF5C2, "【スモールキャピタル】"},
    {0xF5C5, "【不明１：指定終了】"},
    {0xF5C6, "【不明１：指定開始】"},
    {0xF5CA, "【不明２：指定終了】"},
    {0xF5CB, "【不明２：指定開始】"},
    {0xF5D0, "【複合語の英訳で語義番号を伴うもの】"},
    {0xF5D1, "【見出し】"},
    {0xF5D2, "【語源】"},
    {0xF5D3, "【品詞】"},
    {0xF5D4, "【訳語】"},
    {0xF5D5, "【用例･句例】"},
    {0xF5D6, "【成句･文例】"},
    {0xF5D7, "【囲み、表、その他の解説・注記】"},
    {0xF5D8, "【和訳：用例】"},
    {0xF5D9, "【追い込み派生語、発音】"},
    {0xF5E3, "【品詞：成句】"},
    {0xF5E4, "【訳語：成句】"},
    {0xF5E5, "【用例：成句】"},
    {0xF5E7, "【解説：成句】"},
    {0xF5E8, "【句例：英文】"},
    {0xF5E9, "【文例：英文】"},
};

TEST(ConvertMetaKey, LabelsEachKeyOfTheTable) {
  for (const LabelRow& row : kLabelRows) {
    EXPECT_EQ(labelled("a" + tag(row.key) + "b"), "a" + sjis(row.label) + "b") << row.label;
  }
}

TEST(ConvertMetaKey, RemovesEachKeyButWritesSuperscriptsInBrackets) {
  for (const LabelRow& row : kLabelRows) {
    std::string expected = "ab";
    if (row.key == 0xF4B5) expected = "a(b";
    if (row.key == 0xF4D0) expected = "a)b";
    EXPECT_EQ(removed("a" + tag(row.key) + "b"), expected) << row.label;
  }
}

TEST(ConvertMetaKey, LeavesEveryOtherPairAsItStands) {
  std::set<int> keys;
  for (const LabelRow& row : kLabelRows) keys.insert(row.key);
  for (int pair = 0xF400; pair <= 0xF5FF; ++pair) {
    const int low = pair & 0xFF;
    if (keys.contains(pair) || low == 0xF4 || low == 0xF5 || low == 0x1B) continue;
    const std::string text = "a" + tag(static_cast<uint16_t>(pair)) + "b";
    EXPECT_EQ(removed(text), text) << pair;
    EXPECT_EQ(labelled(text), text) << pair;
  }
}

TEST(ConvertMetaKey, DoesNotKnowTheMarkOfSenseNumbers) {
  EXPECT_EQ(removed("a\xF5\xC9"
                    "b"),
            "a\xF5\xC9"
            "b");
  EXPECT_EQ(findMetaKey(0xF5, 0xC9), nullptr);
}

TEST(ConvertMetaKey, ReturnsTextsOfUnderTwoBytesAsTheyAre) {
  for (const uint8_t mode : {0, 1}) {
    EXPECT_EQ(BareManager().ConvertMetaKey("", mode), "");
    EXPECT_EQ(BareManager().ConvertMetaKey("\xF5", mode), "\xF5");
    EXPECT_EQ(BareManager().ConvertMetaKey("\x1B", mode), "\x1B");
  }
}

TEST(ConvertMetaKey, TakesAnyOtherModeForRemoval) {
  EXPECT_EQ(BareManager().ConvertMetaKey("x" + tag(0xF4B5) + "2" + tag(0xF4D0), 7), "x(2)");
}

TEST(ConvertMetaKey, GivesASuperscriptBothBracketsAndASubscriptOnlyTheClosingOne) {
  EXPECT_EQ(removed("x" + tag(0xF4B5) + "2" + tag(0xF4D0) + "y"), "x(2)y");
  EXPECT_EQ(removed("H" + tag(0xF4A4) + "2" + tag(0xF4D0) + "O"), "H2)O");
}

TEST(ConvertMetaKey, SeesEachOfSeveralAdjacentKeys) {
  EXPECT_EQ(removed(tag(0xF5D1) + tag(0xF5B1) + "go" + tag(0xF5C1) + tag(0xF5BC)), "go");
}

TEST(ConvertMetaKey, EmptiesATextThatIsAllKeys) {
  EXPECT_EQ(removed(tag(0xF5D1)), "");
  EXPECT_EQ(removed(tag(0xF5D1) + tag(0xF5B1)), "");
  EXPECT_EQ(labelled(tag(0xF5BC)), "");
}

TEST(ConvertMetaKey, DoesNotLookAgainAtThePairThatARemovalMakesWithTheByteInFront) {
  // F5 [F5 D1] D2: once D1 is gone F5 D2 stand together, but the walk is past the F5.
  EXPECT_EQ(removed("\xF5" + tag(0xF5D1) + "\xD2x"), "\xF5\xD2x");
}

TEST(ConvertMetaKey, TurnsEscapesIntoBlanksExceptInTheLastByte) {
  EXPECT_EQ(removed("a\x1B"
                    "b"),
            "a b");
  EXPECT_EQ(labelled("\x1B\x1B"
                     "b"),
            "  b");
  EXPECT_EQ(removed("ab\x1B"), "ab\x1B");
  EXPECT_EQ(removed("a" + tag(0xF5D1) + "\x1B"), "a\x1B");
  // Not the last byte at the time it is looked at.
  EXPECT_EQ(removed("a\x1B" + tag(0xF5D1)), "a ");
}

TEST(ConvertMetaKey, IsBlindToCharacterBorders) {
  // 光 is 8C F5 and 躰 E7 5B: their inner bytes F5 E7 are taken for a key.
  EXPECT_EQ(removed(sjis("光躰")), "\x8C\x5B");
  // 躍 is 96 F4; with a half-width ｵ (B5) behind, a superscript seems to start.
  EXPECT_EQ(removed(sjis("躍") + "\xB5x"), "\x96(x");
}

TEST(ConvertMetaKey, KeepsZeroBytes) {
  EXPECT_EQ(removed(tag(0xF5D1) + raw("go\0")), raw("go\0"));
}

TEST(RemoveMetaKey, DropsKeysAndWhatStandsInBrackets) {
  const std::string entry = tag(0xF5D1) + "go" + tag(0xF4B5) + "1" + tag(0xF4D0) + " (come) x";
  EXPECT_EQ(BareManager().RemoveMetaKey(entry.c_str()), "go  x");
}

TEST(RemoveMetaKey, ReadsUpToTheZeroByte) {
  EXPECT_EQ(BareManager().RemoveMetaKey("ab\0cd"), "ab");
}

TEST(RemoveMetaKey, CutsTheTextWhereASubscriptClosesABracketThatABracketFollows) {
  const std::string entry = "H" + tag(0xF4A4) + "2" + tag(0xF4D0) + "O (water) x";
  EXPECT_EQ(BareManager().RemoveMetaKey(entry.c_str()), "H2)O ");
}

TEST(RemoveMetaKey, LeavesABracketThatIsNeverClosed) {
  EXPECT_EQ(BareManager().RemoveMetaKey("a (b"), "a (b");
}

}  // namespace
}  // namespace zavel::test
