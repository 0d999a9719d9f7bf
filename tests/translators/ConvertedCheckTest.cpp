#include "dicttool/ConvertedCheck.h"

#include <gtest/gtest.h>

#include "dicttool/DictdWriter.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

class ConvertedCheckTest : public ::testing::Test {
 protected:
  // Two entries of 8 bytes; as digits of an index "A" is 0, "I" 8 and "Q" 16.
  void SetUp() override {
    folder_.write("d.dict", "ant\n蟻\ncat\n猫\n");
    folder_.write("d.index", kIndex);
  }

  Failure check(const std::string& name = "d") { return checkConverted(folder_.file(name), &words_); }

  std::string told(const std::string& index) {
    folder_.write("d.index", index);
    const Failure failure = check();
    EXPECT_EQ(failure.status, failure.message.empty() ? kExitDone : kExitDamaged);
    return withoutFolder(failure.message);
  }

  std::string withoutFolder(std::string text) const {
    for (size_t at; (at = text.find(folder_.prefix())) != std::string::npos;) {
      text.erase(at, folder_.prefix().size());
    }
    return text;
  }

  static constexpr const char* kIndex = "ant\tA\tI\ncat\tI\tI\n猫\tI\tI\n";
  test::TempFolder folder_;
  size_t words_ = 99;
};

TEST_F(ConvertedCheckTest, ASoundOneHasAsManyWordsAsLines) {
  EXPECT_FALSE(check());
  EXPECT_EQ(words_, 3u);
  EXPECT_FALSE(check("d.index"));
  EXPECT_FALSE(check("d.dict"));
}

TEST_F(ConvertedCheckTest, WhatIsMissingIsNamed) {
  EXPECT_EQ(withoutFolder(check("none").message), "none.index is missing");
  folder_.write("one.index", kIndex);
  const Failure failure = check("one");
  EXPECT_EQ(failure.status, kExitDamaged);
  EXPECT_EQ(withoutFolder(failure.message), "one.dict is missing");
}

TEST_F(ConvertedCheckTest, WhatIsEmptyOrCutShortIsDamaged) {
  EXPECT_EQ(told(""), "d.index is damaged: it is empty");
  EXPECT_EQ(told("ant\tA\tI\ncat\tI\tI"), "d.index is damaged: its last line does not end");
  folder_.write("d.dict", "ant\n蟻\ncat\n猫");
  EXPECT_EQ(told(kIndex), "d.index is damaged: the line at byte 8 leads to no entry");
  folder_.write("d.dict", "");
  EXPECT_EQ(told(kIndex), "d.dict is damaged: it is empty");
}

TEST_F(ConvertedCheckTest, EveryLineIsLookedAt) {
  EXPECT_EQ(told("ant\tA\tI\ncat\tI\n"), "d.index is damaged: the line at byte 8 is not an index line");
  EXPECT_EQ(told("ant\tA\tI\ncat\tI\t!\n"), "d.index is damaged: the line at byte 8 is not an index line");
  EXPECT_EQ(told("cat\tI\tI\nant\tA\tI\n"), "d.index is damaged: the line at byte 8 is out of order");
  EXPECT_EQ(told("ant\tA\tI\nant\tI\tI\n"), "");  // one word may lead to two
}

TEST_F(ConvertedCheckTest, ALineLeadsToAWholeEntry) {
  const std::string none = "d.index is damaged: the line at byte 0 leads to no entry";
  EXPECT_EQ(told("ant\tA\tA\n"), none);       // of no length
  EXPECT_EQ(told("ant\tA\tH\n"), none);       // ends ahead of the line's end
  EXPECT_EQ(told("ant\tB\tH\n"), none);       // begins inside a line
  EXPECT_EQ(told("ant\tI\tJ\n"), none);       // goes beyond the text
  EXPECT_EQ(told("ant\tQ\tB\n"), none);       // begins at the text's end
  EXPECT_EQ(told("ant\t//////\tB\n"), none);  // far beyond it
  EXPECT_EQ(told("ant\tA\tQ\n"), "");         // both entries are one with a line end inside
}

TEST_F(ConvertedCheckTest, TheTextIsUtf8) {
  folder_.write("d.dict", "ant\n\xFF\xFF\xFF\ncat\n猫\n");
  EXPECT_EQ(told(kIndex), "d.dict is damaged: it holds bytes that are no UTF-8");
}

TEST_F(ConvertedCheckTest, WhatTheWriterMakesIsSound) {
  DictdWriter writer(folder_.file("made"));
  ASSERT_TRUE(writer.addEntry("00-database-utf8\n\n"));
  writer.addWord("00-database-utf8", 0);
  ASSERT_TRUE(writer.addEntry("猫 [ねこ]\n(noun) cat\n"));
  for (const char* word : {"猫", "ねこ", "cat"}) writer.addWord(word, 0);
  ASSERT_TRUE(writer.finish());
  EXPECT_FALSE(check("made"));
  EXPECT_EQ(words_, 4u);
  // Each line that is left is a whole one.
  const std::string index = folder_.read("made.index");
  folder_.write("made.index", index.substr(0, index.rfind('\n', index.size() - 2) + 1));
  EXPECT_EQ(check("made").message,
            folder_.file("made.index") + " is damaged: it has not the size that its text tells");
}

}  // namespace
}  // namespace zavel::dicttool
