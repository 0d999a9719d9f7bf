#include "dicttool/WordAnswer.h"

#include <gtest/gtest.h>

#include "support/DictdFiles.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

class WordAnswerTest : public ::testing::Test {
 protected:
  WordAnswerTest() {
    test::DictdFiles one;
    one.entry("cat\n猫\n", {"cat"}).entry("cat (verb)\n吐く\n", {"cat"}).write(folder_.file("one"));
    test::DictdFiles two;
    two.entry("cow\n牛\n", {"cow"}).write(folder_.file("two"));
    test::DictdFiles three;
    three.entry("猫 [ねこ]\n(noun) cat\n", {"cat", "猫"}).writePacked(folder_.file("three"));
  }

  WordAnswer answer(const std::string& word) {
    return WordAnswer::of(
        word, {folder_.file("one.index"), folder_.file("two.index"), folder_.file("three.index")});
  }

  test::TempFolder folder_;
};

TEST_F(WordAnswerTest, GivesAnEnglishWordOneText) {
  const Value result = answer("cat").result(Direction::kEnglish);
  EXPECT_EQ(*result.find("Search"), Value(Value::Array{"★one\n"
                                                       "    cat 猫\n"
                                                       "    cat (verb) 吐く\n"
                                                       "\n"
                                                       "★three\n"
                                                       "    猫 [ねこ] (noun) cat\n"}));
  EXPECT_EQ(*result.find("DictInfoJE"),
            Value(Value::Dict{{"1", folder_.file("one.index")}, {"2", folder_.file("three.index")}}));
}

TEST_F(WordAnswerTest, GivesAJapaneseWordNumbersAndLines) {
  const Value result = answer("cat").result(Direction::kJapanese);
  EXPECT_EQ(*result.find("Search"),
            Value(Value::Array{int64_t{1}, "cat 猫", "cat (verb) 吐く", int64_t{2}, "猫 [ねこ] (noun) cat"}));
}

TEST_F(WordAnswerTest, GivesAnEmptyListForAWordThatNoneHolds) {
  for (const Direction form : {Direction::kEnglish, Direction::kJapanese}) {
    const Value result = answer("zebra").result(form);
    EXPECT_EQ(*result.find("Search"), Value(Value::Array()));
    EXPECT_EQ(*result.find("DictInfoJE"), Value(Value::Dict()));
  }
}

TEST_F(WordAnswerTest, NamesADamagedDictionaryAndAsksTheOthers) {
  folder_.write("one.index", "");
  folder_.write("two.dict", "");  // nobody asks for a word in it
  const WordAnswer found = answer("cat");
  EXPECT_EQ(found.complaints,
            std::vector<std::string>{folder_.file("one.index") + " is damaged: it is empty"});
  EXPECT_EQ(found.searched, 2u);
  ASSERT_EQ(found.groups.size(), 1u);
  EXPECT_EQ(found.groups[0].lines, std::vector<std::string>{"猫 [ねこ] (noun) cat"});
}

TEST_F(WordAnswerTest, ShowsTwentyLinesAndCountsTheRest) {
  test::DictdFiles many;
  for (int i = 10; i < 33; ++i) many.entry("a" + std::to_string(i) + "\n", {"a"});
  many.write(folder_.file("many"));
  const WordAnswer found = WordAnswer::of("a", {folder_.file("many.index")});
  ASSERT_EQ(found.groups.size(), 1u);
  ASSERT_EQ(found.groups[0].lines.size(), 21u);
  EXPECT_EQ(found.groups[0].lines[0], "a10");
  EXPECT_EQ(found.groups[0].lines[19], "a29");
  EXPECT_EQ(found.groups[0].lines[20], "… and 3 more");
}

}  // namespace
}  // namespace zavel::dicttool
