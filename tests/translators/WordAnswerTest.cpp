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

// A dictionary of general words, one of technical terms, one of names.
class BaseFormsTest : public WordAnswerTest {
 protected:
  BaseFormsTest() {
    test::DictdFiles words;
    words.entry("go\n行く\n", {"go"}).entry("past\n過去\n", {"past"}).write(folder_.file("words"));
    test::DictdFiles terms;
    terms.entry("コンパイラ\n(noun) compiler\n", {"compiler"})
        .entry("過去\n(noun) past\n", {"past"})
        .entry("ペースト\n(noun) paste\n", {"paste"})
        .write(folder_.file("terms"));
    test::DictdFiles names;
    names.entry("00-database-info\nENAMDICT - Names\n", {"00-database-info"})
        .entry("呉 [ご]\n(surname) Go\n", {"go"})
        .entry("グース\n(surname) Goes\n", {"goes"})
        .entry("田中 [たなか]\n(surname) Tanaka\n", {"tanaka"})
        .write(folder_.file("names"));
  }

  // What the answer says to a reader.
  std::string said(const std::string& word) {
    const WordAnswer found = WordAnswer::of(
        word, {folder_.file("words.index"), folder_.file("terms.index"), folder_.file("names.index")});
    EXPECT_EQ(found.complaints, std::vector<std::string>{});
    const Value result = found.result(Direction::kEnglish);
    const Value* search = result.find("Search");
    return search->asArray()->empty() ? "(nothing)" : search->asArray()->front().string();
  }
};

TEST_F(BaseFormsTest, AFormThatNoneHoldsLeadsToItsBase) {
  EXPECT_EQ(said("compilers"), "★terms\n    compilers: form of compiler\n    コンパイラ (noun) compiler\n");
  EXPECT_EQ(said("Compilers"), "★terms\n    Compilers: form of Compiler\n    コンパイラ (noun) compiler\n");
  EXPECT_EQ(said("Tanaka's"), "★names\n    Tanaka's: form of Tanaka\n    田中 [たなか] (surname) Tanaka\n");
  EXPECT_EQ(said("tanakas"), "★names\n    tanakas: form of tanaka\n    田中 [たなか] (surname) Tanaka\n");
  EXPECT_EQ(said("zebras"), "(nothing)");
}

TEST_F(BaseFormsTest, AllBasesSideBySideAreShown) {
  EXPECT_EQ(said("pasted"),
            "★words\n    pasted: form of past\n    past 過去\n"
            "\n★terms\n    pasted: form of past\n    過去 (noun) past\n"
            "    pasted: form of paste\n    ペースト (noun) paste\n");
}

TEST_F(BaseFormsTest, TheWordItselfComesFirst) {
  EXPECT_EQ(said("go"), "★words\n    go 行く\n\n★names\n    呉 [ご] (surname) Go\n");
  // A name that is written small is hardly meant; a capital says that it is.
  EXPECT_EQ(said("goes"), "★names\n    グース (surname) Goes\n\n★words\n    goes: form of go\n    go 行く\n");
  EXPECT_EQ(said("Goes"), "★names\n    グース (surname) Goes\n");
}

TEST_F(BaseFormsTest, NamesAnswerToABaseInSmallLettersOnlyWhereNoWordDoes) {
  EXPECT_EQ(said("going"), "★words\n    going: form of go\n    go 行く\n");
  EXPECT_EQ(said("Going"),
            "★words\n    Going: form of Go\n    go 行く\n"
            "\n★names\n    Going: form of Go\n    呉 [ご] (surname) Go\n");
}

TEST_F(BaseFormsTest, AJapaneseWordHasNone) {
  EXPECT_EQ(said("コンパイラs"), "(nothing)");
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
