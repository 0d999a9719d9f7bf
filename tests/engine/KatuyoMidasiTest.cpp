#include "engine/KatuyoMidasi.h"

#include <gtest/gtest.h>

#include <memory>

#include "engine/DicFormat.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;
using test::tag;

// The tag of an entry, and the tag that opens the headword.
const std::string kStart = tag(kTagEntry) + tag(kTagMarkerEnd);

DicOneMidasiInfo Read(const std::string& text) {
  // A copy of exactly this size: a read behind the text is one behind the block.
  const std::unique_ptr<char[]> bytes(new char[text.size()]);
  text.copy(bytes.get(), text.size());
  DicOneMidasiInfo info;
  GetOneMidasiInfo({bytes.get(), text.size()}, &info);
  info.text = std::string_view(text).substr(0, info.text.size());
  return info;
}

TEST(GetOneMidasiInfo, ReadsTheHeadwordBehindTheOpeningTag) {
  const std::string text = kStart + "apple\n" + tag(kTagHinsi) + sjis("-[名]\n");
  const DicOneMidasiInfo info = Read(text);
  EXPECT_EQ(info.MidaInfo, "apple");
  EXPECT_EQ(info.syllables, "apple");
  EXPECT_EQ(info.markCount, 0);
  EXPECT_EQ(info.pronunciation, "");
  EXPECT_FALSE(info.star);
  EXPECT_EQ(info.text, text);
}

TEST(GetOneMidasiInfo, IsEmptyWithoutTheOpeningTag) {
  const DicOneMidasiInfo info = Read(tag(kTagEntry) + "*ap\xA5ple" + sjis("≦zz≧") + "\n");
  EXPECT_EQ(info.MidaInfo, "");
  EXPECT_EQ(info.syllables, "");
  EXPECT_EQ(info.markCount, 0);
  EXPECT_EQ(info.pronunciation, "");
  EXPECT_FALSE(info.star);
}

TEST(GetOneMidasiInfo, IsEmptyForAnEmptyText) {
  EXPECT_EQ(Read("").MidaInfo, "");
}

TEST(GetOneMidasiInfo, PassesOverAHomographNumber) {
  EXPECT_EQ(Read(tag(kTagEntry) + tag(kTagMarker) + "12" + tag(kTagMarkerEnd) + "bow\n").MidaInfo, "bow");
  // Behind the word too, and what follows the number belongs to the word.
  const std::string behind = kStart + "bo" + tag(kTagMarker) + "x,\n" + tag(kTagMarkerEnd) + "w\n";
  EXPECT_EQ(Read(behind).MidaInfo, "bow");
}

TEST(GetOneMidasiInfo, KeepsSyllableMarksApart) {
  const DicOneMidasiInfo info = Read(kStart + "com\xA5put\xA5" + "er\n");
  EXPECT_EQ(info.MidaInfo, "computer");
  EXPECT_EQ(info.syllables,
            "com\xA5put\xA5"
            "er");
  EXPECT_EQ(info.markCount, 2);
}

TEST(GetOneMidasiInfo, KeepsLettersBlanksApostrophesAndHyphens) {
  EXPECT_EQ(Read(kStart + "O'Neil-by the 2.Sea_&/\n").MidaInfo, "O'Neil-by the Sea");
}

TEST(GetOneMidasiInfo, CutsTrailingBlanks) {
  const DicOneMidasiInfo info = Read(kStart + "run  \n");
  EXPECT_EQ(info.MidaInfo, "run");
  EXPECT_EQ(info.syllables, "run");
}

TEST(GetOneMidasiInfo, PassesOverTheSecondHalfOfACharacter) {
  EXPECT_EQ(Read(kStart + "a" + sjis("Ｃ") + "b\n").MidaInfo, "ab");  // 0x82 'b'
  EXPECT_EQ(Read(kStart + sjis("亜") + "x\n").MidaInfo, "x");         // 0x88 0x9F, then a letter of its own
  EXPECT_EQ(Read(kStart + sjis("ＣＣ") + "bb\n").MidaInfo, "bb");
}

TEST(GetOneMidasiInfo, PassesOverTags) {
  EXPECT_EQ(Read(kStart + tag(kTagBold) + "run" + tag(kTagRoman) + "ner\n").MidaInfo, "runner");
}

TEST(GetOneMidasiInfo, EndsHalfACharacterAtATag) {
  EXPECT_EQ(Read(kStart + "\x82" + tag(kTagRoman) + "a\n").MidaInfo, "a");
}

TEST(GetOneMidasiInfo, NotesAStar) {
  const DicOneMidasiInfo info = Read(kStart + "**big\n");
  EXPECT_TRUE(info.star);
  EXPECT_EQ(info.MidaInfo, "big");
}

TEST(GetOneMidasiInfo, EndsAtAComma) {
  EXPECT_EQ(Read(kStart + "gray, grey*\n").MidaInfo, "gray");
}

TEST(GetOneMidasiInfo, IsNotReopenedByALaterTag) {
  const std::string next = "\n" + tag(kTagMarkerEnd) + "x*\xA5\n";
  for (const std::string& end : {std::string(), std::string(","), sjis("≦z≧")}) {
    const DicOneMidasiInfo info = Read(kStart + "bow" + end + next);
    EXPECT_EQ(info.MidaInfo, "bow");
    EXPECT_EQ(info.markCount, 0);
    EXPECT_FALSE(info.star);
  }
}

TEST(GetOneMidasiInfo, ReadsThePronunciation) {
  const DicOneMidasiInfo info = Read(kStart + "bush " + sjis("≦b?") + "\xE9" + sjis("≧ x\n"));
  EXPECT_EQ(info.pronunciation, "b?\xE9");
  EXPECT_EQ(info.MidaInfo, "bush");
}

TEST(GetOneMidasiInfo, EndsThePronunciationAtItsFirstComma) {
  EXPECT_EQ(Read(kStart + "a" + sjis("≦ei, x≧\n")).pronunciation, "ei");
}

TEST(GetOneMidasiInfo, KeepsASecondOpeningMarkInThePronunciation) {
  EXPECT_EQ(Read(kStart + "a" + sjis("≦x≦y≧\n")).pronunciation, "x" + sjis("≦") + "y");
}

TEST(GetOneMidasiInfo, CanHaveAnEmptyPronunciation) {
  EXPECT_EQ(Read(kStart + "a" + sjis("≦≧z\n")).pronunciation, "");
  EXPECT_EQ(Read(kStart + "a" + sjis("≦≧z\n")).MidaInfo, "a");
}

TEST(GetOneMidasiInfo, RunsOnInAnOpenPronunciationOverTheEndOfTheLine) {
  EXPECT_EQ(Read(kStart + "a" + sjis("≦x\ny") + tag(kTagImi) + "z,w\n").pronunciation,
            "x\ny" + tag(kTagImi) + "z");
}

TEST(GetOneMidasiInfo, SuspendsThePronunciationForAMarker) {
  const std::string text =
      kStart + "a" + sjis("≦x") + tag(kTagMarker) + "9" + tag(kTagMarkerEnd) + sjis("y≧\n");
  EXPECT_EQ(Read(text).pronunciation, "xy");
}

TEST(GetOneMidasiInfo, LeavesOffAtASecondEntry) {
  const std::string first = kStart + "bow\nx";
  EXPECT_EQ(Read(first + kStart + "low\n").text, first);
  // An entry tag alone, ahead of the headword, doesn't count as a beginning.
  const std::string twice = tag(kTagEntry) + kStart + "low\n";
  EXPECT_EQ(Read(twice).text, twice);
  EXPECT_EQ(Read(twice).MidaInfo, "low");
}

TEST(GetOneMidasiInfo, HoldsItsAreasToTheSizeOfAnEntry) {
  const std::string letters(70000, 'a');
  const DicOneMidasiInfo info = Read(kStart + letters + sjis("≦") + letters);
  EXPECT_EQ(info.MidaInfo, std::string(65534, 'a'));
  EXPECT_EQ(info.syllables, std::string(65534, 'a'));
  EXPECT_EQ(info.pronunciation, std::string(65534, 'a'));
}

TEST(GetOneMidasiInfo, ReadsNothingBehindATextCutAnywhere) {
  const std::string text = tag(kTagEntry) + tag(kTagMarker) + "1" + tag(kTagMarkerEnd) + "*re\xA5" + "cord" +
                           sjis("Ｃ≦r?≧\n") + tag(kTagHinsi) + sjis("-[名]\n") + tag(kTagEntry);
  for (size_t length = 0; length <= text.size(); ++length) {
    const DicOneMidasiInfo info = Read(text.substr(0, length));
    EXPECT_EQ(std::string("record").rfind(info.MidaInfo, 0), 0u) << length;
  }
}

}  // namespace
}  // namespace zavel::engine
