#include "user/UserTable.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

const UserEntry kHard{
    .word = "a\tb\\", .phrase = "p\nq\r", .meaning = "意\\t味", .examples = {{"1=1|", "一\\＝"}, {"x", "y"}}};

TEST(UserTableTest, ALineHasAllColumns) {
  EXPECT_EQ(tableHeader(), "lang\tword\tkanji\tpos\tphrase\tmeaning\texamples\tsentences\n");
  const UserEntry dog{.language = UserLanguage::kJapanese,
                      .word = "いぬ",
                      .kanji = "犬",
                      .meaning = "dog",
                      .sentences = {{"A dog.", "犬。"}}};
  EXPECT_EQ(tableLine(dog), "ja\tいぬ\t犬\t\t\tdog\t\tA dog.=犬。\n");
  EXPECT_EQ(tableLine(kHard), "en\ta\\tb\\\\\t\t\tp\\nq\\r\t意\\\\t味\t1\\=1\\|=一\\\\＝|x=y\t\n");
}

TEST(UserTableTest, WhatIsWrittenIsReadBack) {
  TableReader reader;
  std::string header = tableHeader(), line = tableLine(kHard);
  header.pop_back();
  line.pop_back();
  UserEntry entry;
  EXPECT_EQ(reader.readHeader(header), "");
  EXPECT_EQ(reader.readLine(line, nullptr, &entry), "");
  EXPECT_EQ(entry, kHard);
}

TEST(UserTableTest, ABackslashAheadOfAnythingElseIsItself) {
  TableReader reader;
  UserEntry entry;
  ASSERT_EQ(reader.readHeader("word\tmeaning\texamples"), "");
  EXPECT_EQ(reader.readLine("a\t\\d\\=\\\\\\|\\\tC:\\dir\\=x=\\y\\|z\\", nullptr, &entry), "");
  EXPECT_EQ(entry.meaning, "\\d\\=\\\\|\\");
  EXPECT_EQ(entry.examples, (std::vector<UserExample>{{"C:\\dir=x", "\\y|z\\"}}));
  UserExample example;
  EXPECT_TRUE(readExample("C:\\new\\text=\\a", &example));
  EXPECT_EQ(example, (UserExample{"C:\\new\\text", "\\a"}));
}

TEST(UserTableTest, AMarkOfTheByteOrderIsNoColumn) {
  TableReader reader;
  EXPECT_EQ(reader.readHeader("\xEF\xBB\xBFword\tmeaning"), "");
}

TEST(UserTableTest, ColumnsComeInAnyOrderAndMayBeFew) {
  TableReader reader;
  UserEntry entry;
  EXPECT_EQ(reader.readHeader("meaning\tword\r"), "");
  EXPECT_EQ(reader.readLine("dog\tいぬ\r", nullptr, &entry), "");
  EXPECT_EQ(entry, (UserEntry{.language = UserLanguage::kJapanese, .word = "いぬ", .meaning = "dog"}));
  const UserLanguage english = UserLanguage::kEnglish;
  EXPECT_EQ(reader.readLine("dog\tいぬ", &english, &entry), "");
  EXPECT_EQ(entry.language, UserLanguage::kEnglish);
}

TEST(UserTableTest, WrongHeadersAreRefused) {
  TableReader reader;
  EXPECT_EQ(reader.readHeader("word\tmeening"), "there is no column \"meening\"");
  EXPECT_EQ(reader.readHeader("word\tword\tmeaning"), "the column \"word\" stands there twice");
  EXPECT_EQ(reader.readHeader("word"), "the column \"meaning\" is missing");
  EXPECT_EQ(reader.readHeader("meaning"), "the column \"word\" is missing");
}

TEST(UserTableTest, WrongLinesAreRefused) {
  TableReader reader;
  UserEntry entry;
  ASSERT_EQ(reader.readHeader("lang\tword\tpos\tmeaning\texamples"), "");
  EXPECT_EQ(reader.readLine("fr\ta\t\tb\t", nullptr, &entry), "lang: \"fr\" is neither en nor ja");
  EXPECT_EQ(
      reader.readLine("en\ta\tnown\tb\t", nullptr, &entry),
      "pos: \"nown\" is none; it is one of noun, pronoun, adjective, adverb, verb, transitive, intransitive, "
      "preposition, conjunction");
  EXPECT_EQ(reader.readLine("en\ta\t\tb\tx", nullptr, &entry),
            "examples: number 1 has no \"=\": each is ENGLISH=JAPANESE");
  EXPECT_EQ(reader.readLine("en\ta\t\tb\t\tc", nullptr, &entry), "it has 6 cells for 5 columns");
  EXPECT_EQ(reader.readLine("en\t\xFF", nullptr, &entry), "it is not UTF-8 text");
}

}  // namespace
}  // namespace zavel::host
