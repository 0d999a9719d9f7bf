#include "dicttool/DictdIndex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/DictdFiles.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

using Words = std::vector<std::string>;

class DictdIndexTest : public ::testing::Test {
 protected:
  // "OFFSET+LENGTH" of every line under `word`; the error when there is one.
  Words find(const std::string& index, const std::string& word) {
    folder_.write("x.index", index);
    DictdIndex reader;
    std::string error;
    Words found;
    if (!reader.open(folder_.file("x.index"), &error) ||
        !reader.find(
            word,
            [&](const IndexLine& line) {
              found.push_back(std::to_string(line.offset) + "+" + std::to_string(line.length));
              return true;
            },
            &error)) {
      found.push_back(error.substr(error.find("x.index")));
    }
    return found;
  }

  test::TempFolder folder_;
};

constexpr const char* kSmall =
    "00databaseshort\tA\tB\n"
    "00databaseutf8\tA\tB\n"
    "cat\tC\tK\n"
    "cat burglar\tM\tD\n"
    "cats eye\tP\tE\n"
    "dog\tBA\tBB\n"
    "dog\tCB\tF\n"
    "école\t/\tG\n"
    "猫\tBAA\tH\n";

TEST_F(DictdIndexTest, FindsWordsWhateverTheirCaseAndSigns) {
  EXPECT_EQ(find(kSmall, "cat"), Words{"2+10"});
  EXPECT_EQ(find(kSmall, "CAT!"), Words{"2+10"});
  EXPECT_EQ(find(kSmall, "Cat's eye"), Words{"15+4"});
  EXPECT_EQ(find(kSmall, "ÉCOLE"), Words{"63+6"});
  EXPECT_EQ(find(kSmall, "猫"), Words{"4096+7"});
}

TEST_F(DictdIndexTest, LinesMayEndAsOnOtherSystems) {
  EXPECT_EQ(find("cat\tC\tK\r\ndog\tBA\tBB\tDog\r\n", "cat"), Words{"2+10"});
  EXPECT_EQ(find("cat\tC\tK\r\ndog\tBA\tBB\tDog\r\n", "dog"), Words{"64+65"});
  EXPECT_EQ(IndexLine::parse("dog\tBA\tBB\tDog\r")->spelling, "Dog");
}

TEST_F(DictdIndexTest, GivesEveryLineOfAWordInTheirOrder) {
  EXPECT_EQ(find(kSmall, "dog"), (Words{"64+65", "129+5"}));
}

TEST_F(DictdIndexTest, FindsNothingBeforeBetweenAndBehind) {
  for (const char* word : {"0", "ca", "catt", "do", "zebra", "犬", "鼠", "", "?!"}) {
    EXPECT_EQ(find(kSmall, word), Words{}) << word;
  }
}

TEST_F(DictdIndexTest, ReadsTheOptions) {
  folder_.write("x.index", kSmall);
  DictdIndex reader;
  std::string error;
  ASSERT_TRUE(reader.open(folder_.file("x.index"), &error));
  EXPECT_TRUE(reader.hasOption("utf8"));
  EXPECT_TRUE(reader.hasOption("short"));
  EXPECT_FALSE(reader.hasOption("allchars"));
  EXPECT_EQ(reader.rules(), (FoldRules{false, false}));
}

TEST_F(DictdIndexTest, KeepsSignsApartWhereTheIndexDoes) {
  const std::string index =
      "!\tA\tB\n"
      "00-database-allchars\tA\tB\n"
      "00-database-utf8\tA\tB\n"
      "c\tB\tC\n"
      "c#\tC\tD\n"
      "c++\tD\tE\n"
      "ジョン・スミス\tE\tF\n";
  EXPECT_EQ(find(index, "C++"), Words{"3+4"});
  EXPECT_EQ(find(index, "c"), Words{"1+2"});
  EXPECT_EQ(find(index, "!"), Words{"0+1"});
  EXPECT_EQ(find(index, "ジョン・スミス"), Words{"4+5"});
  EXPECT_EQ(find(index, "ジョンスミス"), Words{});
}

TEST_F(DictdIndexTest, HeedsCaseWhereTheIndexDoes) {
  const std::string index =
      "00-database-allchars\tA\tB\n"
      "00-database-case-sensitive\tA\tB\n"
      "Polish\tB\tC\n"
      "polish\tC\tD\n";
  EXPECT_EQ(find(index, "Polish"), Words{"1+2"});
  EXPECT_EQ(find(index, "polish"), Words{"2+3"});
  EXPECT_EQ(find(index, "POLISH"), Words{});
}

// Indexes of older makers keep the words as they are spelled, in an order that passes over signs and case.
TEST_F(DictdIndexTest, SearchesAnIndexOfUnfoldedWords) {
  const std::string index =
      "00-database-short\tA\tB\n"
      "Abc\tB\tC\n"
      "a.b.d\tC\tD\n"
      "A-B-E\tD\tE\n"
      "abf\tE\tF\n";
  EXPECT_EQ(find(index, "ABC"), Words{"1+2"});
  EXPECT_EQ(find(index, "abd"), Words{"2+3"});
  EXPECT_EQ(find(index, "abe"), Words{"3+4"});
}

TEST_F(DictdIndexTest, TellsTheSpellingOfTheFourthColumn) {
  const std::optional<IndexLine> line = IndexLine::parse("cats eye\tP\tE\tCat's eye");
  ASSERT_TRUE(line);
  EXPECT_EQ(line->word, "cats eye");
  EXPECT_EQ(line->spelling, "Cat's eye");
  EXPECT_EQ(line->offset, 15u);
  EXPECT_EQ(line->length, 4u);
  EXPECT_EQ(IndexLine::parse("dog\tA\tB")->spelling, "dog");
}

TEST_F(DictdIndexTest, RefusesLinesOfAnotherForm) {
  for (const char* line : {"", "cat", "cat\tA", "cat\t\tB", "cat\tA\t", "cat\tA!\tB", "cat\tAAAAAAA\tB"}) {
    EXPECT_FALSE(IndexLine::parse(line)) << line;
  }
}

TEST_F(DictdIndexTest, WritesNumbersAsItReadsThem) {
  EXPECT_EQ(indexNumber("A"), 0u);
  EXPECT_EQ(indexNumber("/"), 63u);
  EXPECT_EQ(indexNumber("BA"), 64u);
  EXPECT_EQ(indexNumber("//////"), 68719476735u);
  EXPECT_EQ(indexNumber(""), std::nullopt);
  EXPECT_EQ(indexNumber("=A"), std::nullopt);
  EXPECT_EQ(indexNumberText(0), "A");
  EXPECT_EQ(indexNumberText(63), "/");
  EXPECT_EQ(indexNumberText(64), "BA");
  EXPECT_EQ(indexNumberText(68719476735u), "//////");
}

std::string number(int value) {
  std::string digits = std::to_string(value);
  return std::string(5 - digits.size(), '0') + digits;
}

// 40,000 words, every one of which is found, and every gap between them empty, in a few reads.
TEST_F(DictdIndexTest, HalvesALargeIndex) {
  test::DictdFiles files;
  for (int i = 0; i < 40000; ++i) files.line("w" + number(i) + "\t" + test::dictdNumber(i) + "\tB");
  folder_.write("x.index", files.index());
  test::FaultyStorage disk;
  disk.failAt(0);
  DictdIndex reader;
  std::string error;
  ASSERT_TRUE(reader.open(folder_.file("x.index"), &error));
  std::vector<uint64_t> found;
  const auto note = [&](const IndexLine& line) {
    found.push_back(line.offset);
    return true;
  };
  for (int i = 0; i < 40000; i += 7) {
    found.clear();
    ASSERT_TRUE(reader.find("w" + number(i), note, &error));
    ASSERT_EQ(found, std::vector<uint64_t>{static_cast<uint64_t>(i)});
    ASSERT_TRUE(reader.find("w" + number(i) + "5", note, &error));
    ASSERT_EQ(found.size(), 1u);
  }
  disk.failAt(0);
  ASSERT_TRUE(reader.find("w23456", note, &error));
  EXPECT_LE(disk.count("readAt"), 12);  // half a megabyte, halved down to four kilobytes, and those
}

// Words of one length in order, with lines of 900 to 3000 bytes: a line is often longer than what a halving
// leaves.
TEST_F(DictdIndexTest, HalvesAnIndexOfLongLines) {
  std::string index;
  for (int i = 0; i < 400; ++i) {
    const size_t length = 900 + static_cast<size_t>(i) * 1237 % 2101;
    std::string line = "w" + number(i) + "\t" + test::dictdNumber(i) + "\tB\t";
    line.append(length - line.size(), 'x');
    index += line + "\n";
  }
  folder_.write("x.index", index);
  DictdIndex reader;
  std::string error;
  ASSERT_TRUE(reader.open(folder_.file("x.index"), &error)) << error;
  for (int i = 0; i < 400; ++i) {
    std::vector<uint64_t> found;
    const auto note = [&](const IndexLine& line) {
      found.push_back(line.offset);
      return true;
    };
    ASSERT_TRUE(reader.find("w" + number(i), note, &error)) << error;
    ASSERT_TRUE(reader.find("w" + number(i) + "5", note, &error)) << error;
    EXPECT_EQ(found, std::vector<uint64_t>{static_cast<uint64_t>(i)});
  }
}

TEST_F(DictdIndexTest, StopsWhereItIsTold) {
  folder_.write("x.index", kSmall);
  DictdIndex reader;
  std::string error;
  ASSERT_TRUE(reader.open(folder_.file("x.index"), &error));
  int calls = 0;
  EXPECT_TRUE(reader.find(
      "dog",
      [&](const IndexLine&) {
        ++calls;
        return false;
      },
      &error));
  EXPECT_EQ(calls, 1);
}

TEST_F(DictdIndexTest, NamesDamage) {
  EXPECT_EQ(find("", "cat"), Words{"x.index is damaged: it is empty"});
  EXPECT_EQ(find("cat\tA\tB", "cat"), Words{"x.index is damaged: its last line is incomplete"});
  EXPECT_EQ(find("cat\tA\n", "cat"), Words{"x.index is damaged: it is not a valid index"});
  EXPECT_EQ(find("cat\tA\t!\n", "cat"), Words{"x.index is damaged: it is not a valid index"});
  EXPECT_EQ(find(std::string(100000, 'x') + "\n", "cat"),
            Words{"x.index is damaged: it is not a valid index"});
  DictdIndex reader;
  std::string error;
  EXPECT_FALSE(reader.open(folder_.file("none.index"), &error));
  EXPECT_EQ(error, folder_.file("none.index") + " is missing");
  EXPECT_FALSE(reader.open(folder_.path(), &error));  // a folder
}

}  // namespace
}  // namespace zavel::dicttool
