// Adding and overwriting, through the exported functions.
#include <gtest/gtest.h>

#include "engine/UserDicFixture.h"

namespace zavel::engine {
namespace {

using namespace std::string_literals;

class AddUserDicTest : public UserDicTest {};

EntryE Word(const std::string& word, const std::string& imi = "意味") {
  return {.word = word, .imi = imi};
}

TEST_F(AddUserDicTest, AnEnglishEntryComesBackAsItWasGiven) {
  const EntryE entry{
      .word = "Zebra crossing", .imi = "横断歩道 (UK)", .hinsi = 6, .youreis = {{"a b", "ア、イ"}}};
  ASSERT_EQ(Add(entry), 1);
  for (const bool reopened : {false, true}) {
    if (reopened) Reopen();
    const auto found = FindE("zebracrossing");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].entry == entry);
  }
}

TEST_F(AddUserDicTest, AJapaneseEntryComesBackAsItWasGiven) {
  const EntryJ entry{.kana = "くだもの",
                     .kanji = "果物",
                     .imi = "fruit",
                     .kureis = {{"fruit juice", "果物のジュース"}, {"x", "か"}},
                     .bunreis = {{"I eat fruit.", "果物を食べる。"}, {"y", "く"}}};
  ASSERT_EQ(Add(entry), 1);
  for (const bool reopened : {false, true}) {
    if (reopened) Reopen();
    const auto found = FindJ("クダモノ");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].entry == entry);
    EXPECT_EQ(found[0].kanji.pos1, 0);
    EXPECT_EQ(found[0].kanji.dicOffset, found[0].kana.dicOffset);
  }
}

TEST_F(AddUserDicTest, OverwritingChangesTheEntryInItsRow) {
  ASSERT_EQ(Add(Word("cat", "猫")), 1);
  ASSERT_EQ(Add(Word("cat", "ネコ")), 1);
  auto found = FindE("cat");
  ASSERT_EQ(found.size(), 2u);
  ASSERT_EQ(Add(Word("Cat", "三毛猫"), &found[0].sikibetu), 1);
  found = FindE("cat");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].entry.word, "Cat");
  EXPECT_EQ(found[0].entry.imi, "三毛猫");
  EXPECT_EQ(found[1].entry.imi, "ネコ");
}

TEST_F(AddUserDicTest, DeletingAndArranging) {
  for (const char* word : {"cat", "catalog", "dog", "a"}) ASSERT_EQ(Add(Word(word)), 1);
  auto found = FindE("catalog");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(DelUserDicE(&found[0].sikibetu), 18);
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  Reopen();
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  EXPECT_EQ(Files().size(), 8u);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  auto dog = FindJ("いぬ");
  ASSERT_EQ(DelUserDicJ(&dog[0].kana, &dog[0].kanji), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  Reopen();
  EXPECT_EQ(ListJ(), (std::vector<std::string>{"ねこ"}));
  EXPECT_EQ(Files().size(), 8u);
}

}  // namespace
}  // namespace zavel::engine
