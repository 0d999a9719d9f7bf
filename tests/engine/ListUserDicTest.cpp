// Lists of user headwords.
#include "engine/ListUserDic.h"

#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::entryE;
using test::entryJ;
using test::sjis;
using namespace std::string_literals;

class ListUserDicTest : public RamDicTest {};

TEST_F(ListUserDicTest, AnEmptyDictionaryIs1WithoutAList) {
  for (const auto list : {GetListUserDicE, GetListUserDicJ}) {
    uint16_t count = 99;
    uint32_t size = 99;
    Handle handle = reinterpret_cast<Handle>(&count);
    EXPECT_EQ(list(&count, &handle, &size), 1);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(handle, nullptr);
  }
}

TEST_F(ListUserDicTest, GivesHeadwordsWithTheirNuls) {
  for (const char* word : {"dog", "cat"}) ASSERT_EQ(Add(EntryE{.word = word}), 1);
  uint16_t count = 0;
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(GetListUserDicE(&count, &list, &size), 1);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(size, 8u);
  EXPECT_EQ(TakeBytes(list), "cat\0dog\0"s);
}

// By letters without case; words that are equal so, in the order of their bytes, each once.
TEST_F(ListUserDicTest, EnglishHeadwordsInOrderEachOnce) {
  for (const char* word :
       {"dog", "Cat", "cat", "a-b", "cat", "AB", "ab c", "abd", "CAT", "c'at", "zebra", "a"}) {
    ASSERT_EQ(Add(EntryE{.word = word}), 1);
  }
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "AB", "a-b", "ab c", "abd", "CAT", "Cat", "c'at", "cat",
                                               "dog", "zebra"}));
}

// Katakana among hiragana; ー is no kana and doesn't count; the reading alone is listed.
TEST_F(ListUserDicTest, JapaneseHeadwordsInOrderEachOnce) {
  const std::pair<const char*, const char*> words[] = {{"ねこ", "猫"}, {"いぬ", "犬"}, {"ネコ", ""},
                                                       {"ねこ", ""},   {"ねーこ", ""}, {"ねか", ""},
                                                       {"イヌイ", ""}};
  for (const auto& [kana, kanji] : words) ASSERT_EQ(Add(EntryJ{.kana = kana, .kanji = kanji}), 1);
  EXPECT_EQ(ListJ(), (std::vector<std::string>{"いぬ", "イヌイ", "ねか", "ねーこ", "ねこ", "ネコ"}));
}

TEST_F(ListUserDicTest, NullIs18AndTheRestIsCleared) {
  for (const auto list : {GetListUserDicE, GetListUserDicJ}) {
    uint16_t count = 99;
    uint32_t size = 99;
    Handle handle = nullptr;
    EXPECT_EQ(list(nullptr, &handle, &size), 18);
    EXPECT_EQ(list(&count, nullptr, &size), 18);
    EXPECT_EQ(list(&count, &handle, nullptr), 18);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(size, 0u);
  }
}

TEST_F(ListUserDicTest, DeletedHeadwordsAreGone) {
  for (const char* word : {"cat", "catalog"}) ASSERT_EQ(Add(EntryE{.word = word}), 1);
  const auto found = FindE("cat");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(ListE(), std::vector<std::string>{"catalog"});
}

TEST_F(ListUserDicTest, AnEntryWithoutHeadwordIs20) {
  WriteSetE({{"cat", "no entry\n"}});
  Status status = 1;
  EXPECT_TRUE(ListE(&status).empty());
  EXPECT_EQ(status, 20);
}

// A row that leads to the same block from every prefix would keep the list busy for hours.
TEST_F(ListUserDicTest, MoreEntriesThanTheFileCanHoldAre20) {
  WriteSetE({{"cat", entryE("cat", "名", "猫")}, {"dog", entryE("dog", "名", "犬")}});
  ASSERT_EQ(EndAPI(), 1);
  std::string ix3 = File("ej.ix3");
  // A block that counts the same entry 1,000 times.
  ix3 = ix3.substr(0, 128) +
        test::writeBlock(std::vector<std::string>(1000, ""), std::vector<uint32_t>(1000, 128));
  SetFile("ej.ix3", ix3);
  ASSERT_EQ(OpenBoth(), 1);
  Status status = 1;
  ListE(&status);
  EXPECT_EQ(status, 20);
  EXPECT_EQ(ArrangeUserDicE(), 20);
}

TEST(RemoveSameMidasi, WantsANulAtTheEnd) {
  std::string list = "cat\0dog"s;
  EXPECT_EQ(RemoveSameMidasi(&list), 20);
  list.clear();
  EXPECT_EQ(RemoveSameMidasi(&list), 20);
  list = "dog\0cat\0dog\0Cat\0"s;
  EXPECT_EQ(RemoveSameMidasi(&list), 1);
  EXPECT_EQ(list, "Cat\0cat\0dog\0"s);
}

TEST(GetListCount, CountsNulsAsFarAsSixteenBitsGo) {
  uint16_t count = 99;
  GetListCount("", &count);
  EXPECT_EQ(count, 0);
  GetListCount("a\0bc\0"s, &count);
  EXPECT_EQ(count, 2);
  GetListCount(std::string(65535, '\0'), &count);
  EXPECT_EQ(count, 65535);
  GetListCount(std::string(65536, '\0'), &count);
  EXPECT_EQ(count, 65535);
}

TEST(CompStr, GoesByBytes) {
  EXPECT_LT(compStr("Cat", "cat"), 0);
  EXPECT_EQ(compStr("cat", "cat"), 0);
  EXPECT_GT(compStr("\x82\xA0", "zz"), 0);
  EXPECT_LT(compStr("cat", "cats"), 0);
}

TEST(CompNewStr, GoesByLettersAndKanaAlone) {
  const std::string marks[] = {"a b", "a-b", "A.B", "(ab)", "a12b", "a" + sjis("、猫１") + "b"};
  for (const std::string& word : marks) EXPECT_EQ(compNewStr(word, "ab"), 0) << word;
  EXPECT_EQ(compNewStr(sjis("ネコ"), sjis("ねこ")), 0);
  EXPECT_EQ(compNewStr(sjis("ねーこ"), sjis("ねこ")), 0);
  EXPECT_EQ(compNewStr(sjis("猫ねこ"), sjis("ねこ")), 0);
  EXPECT_LT(compNewStr(sjis("いぬ"), sjis("ネコ")), 0);
  EXPECT_LT(compNewStr("Z", sjis("あ")), 0);
  EXPECT_LT(compNewStr("ca", "CAT"), 0);
  EXPECT_GT(compNewStr("dog", "CAT"), 0);
  EXPECT_EQ(compNewStr("123", "!?"), 0);
  EXPECT_EQ(compNewStr("ab\x82", "ab"), 0) << "half a character";
}

}  // namespace
}  // namespace zavel::engine
