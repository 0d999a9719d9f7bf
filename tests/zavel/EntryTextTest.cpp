#include "EntryText.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/Platform.h"
#include "support/DicWriter.h"

namespace zavel::host {
namespace {

using test::sjis;

constexpr uint32_t kRed = 0xFF0000;

ScrpSTElement run(uint32_t at, uint8_t face, RGBColor colour) {
  ScrpSTElement element;
  element.scrpStartChar = at;
  element.scrpFace = face;
  element.scrpColor = colour;
  return element;
}

const RGBColor kIndex{0xFFFF, 0, 0}, kText{0, 0, 0}, kNumber{0, 0, 0xFFFF};

std::vector<Entry> entries(const std::string& text, const std::vector<ScrpSTElement>& runs) {
  return entriesFromLayout(text, runs, kRed, platform().encoding());
}

TEST(EntriesFromLayout, SplitsAtHeadwordsAndReadsTheirMarks) {
  const std::string text = "***(2)go\r-[v]\r\r(1)church\r";
  const auto found = entries(text, {run(0, 0, kText), run(0, 1, kIndex), run(8, 0, kText), run(15, 0, kText),
                                    run(15, 1, kIndex), run(24, 0, kText)});
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].headword, "go");
  EXPECT_EQ(found[0].stars, 3);
  EXPECT_EQ(found[0].homograph, 2);
  EXPECT_EQ(found[0].text, "go\n-[v]");
  EXPECT_EQ(found[1].headword, "church");
  EXPECT_EQ(found[1].stars, 0);
  EXPECT_EQ(found[1].homograph, 1);
}

TEST(EntriesFromLayout, SpansFollowTheRuns) {
  const std::string text = "(1)go\r" + sjis("行く");
  const auto found =
      entries(text, {run(0, 0, kText), run(0, 1, kIndex), run(5, 0, kText), run(8, 2, kNumber)});
  ASSERT_EQ(found.size(), 1u);
  ASSERT_EQ(found[0].spans.size(), 3u);
  EXPECT_EQ(found[0].spans[0].begin, 0u);
  EXPECT_TRUE(found[0].spans[0].bold);
  EXPECT_EQ(found[0].spans[0].colour, kRed);
  EXPECT_EQ(found[0].spans[1].begin, 2u);  // the line end behind "go"
  EXPECT_FALSE(found[0].spans[1].bold);
  EXPECT_EQ(found[0].spans[2].begin, 6u);  // behind 行: three bytes in UTF-8
  EXPECT_TRUE(found[0].spans[2].italic);
  EXPECT_EQ(found[0].spans[2].colour, 0x0000FFu);
}

TEST(EntriesFromLayout, TakesAsManyEntriesAsRunsInItsStride) {
  constexpr uint32_t kEntries = 300000;
  std::string text;
  std::vector<ScrpSTElement> runs;
  for (uint32_t i = 0; i < kEntries; ++i) {
    text += "a\r";
    runs.push_back(run(2 * i, 1, kIndex));
  }
  const auto begin = std::chrono::steady_clock::now();
  const auto found = entries(text, runs);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  ASSERT_EQ(found.size(), kEntries);
  EXPECT_EQ(found.back().headword, "a");
  EXPECT_EQ(found.back().spans.size(), 1u);
  EXPECT_TRUE(found.back().spans[0].bold);
}

TEST(EntriesFromLayout, AJapaneseHeadwordHasAReadingAndAForm) {
  const std::string text = sjis("いく 行く") + "\rto go";
  const auto found = entries(text, {run(0, 1, kIndex), run(9, 0, kText)});
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].reading, "いく");
  EXPECT_EQ(found[0].headword, "行く");
}

TEST(EntriesFromLayout, AHeadwordAsLongAsADamagedEntryIsCut) {
  const std::string text = std::string(3000, 'a') + "\rto go";
  const auto found = entries(text, {run(0, 1, kIndex), run(3000, 0, kText)});
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].headword, std::string(2048, 'a'));
  EXPECT_EQ(found[0].text, std::string(3000, 'a') + "\nto go");
}

TEST(EntriesFromLayout, TextWithoutHeadwordsIsOneEntry) {
  const auto found = entries("\r(1)" + sjis("訳") + "\r\r", {run(0, 0, kText)});
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].headword, "");
  EXPECT_EQ(found[0].homograph, 0);
  EXPECT_EQ(found[0].text, "\n(1)訳");
}

TEST(EntriesFromLayout, ARunBeyondTheTextIsPassedOver) {
  const auto found = entries("go", {run(0, 1, kIndex), run(4000000000u, 0, kIndex)});
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].text, "go");
}

TEST(EntriesFromLayout, OfNothingIsNothing) {
  EXPECT_TRUE(entries("\r\r", {}).empty());
}

}  // namespace
}  // namespace zavel::host
