// Dictionaries in dictd form as sources.
#include "mkbook/DictdSource.h"

#include <gtest/gtest.h>

#include "mkbook/Failure.h"
#include "support/DictdFiles.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using Kind = Span::Kind;

std::string shown(const std::vector<Span>& spans) {
  std::string out;
  for (const Span& span : spans)
    out += span.kind == Kind::kReference ? "{" + span.text + "->" + span.target + "}" : span.text;
  return out;
}

std::string shown(const std::vector<Line>& lines) {
  std::string out;
  for (const Line& line : lines) out += std::to_string(line.indent) + ":" + shown(line.spans) + "|";
  return out;
}

TEST(DictdLines, TurnBlanksIntoIndents) {
  EXPECT_EQ(shown(dictdLines("a\n    n 1: b c\n\tq\n\n x\n\n")), "1:a|5:n 1: b c|9:q|1:|2:x|");
  EXPECT_EQ(shown(dictdLines("")), "");
  EXPECT_EQ(shown(dictdLines("a\r\nb")), "1:a|1:b|");
}

TEST(DictdLines, FindReferences) {
  EXPECT_EQ(shown(dictdLines("see {dog}, {cat}")), "1:see {dog->dog}, {cat->cat}|");
  EXPECT_EQ(shown(dictdLines("{Den\n   Haag} x")), "1:{Den->Den Haag}|4:{Haag->Den Haag} x|");
  EXPECT_EQ(shown(dictdLines("{dog-\n   iron}")), "1:{dog-->dog-iron}|4:{iron->dog-iron}|");
  EXPECT_EQ(shown(dictdLines("{few(a)} {x (y)}")), "1:{few(a)->few} {x (y)->x (y)}|");
  EXPECT_EQ(shown(dictdLines("{} {a{b} c} {open")), "1:{} {a{b->b} c} {open|");
}

TEST(HeadwordLength, IsTheLongestBeginningThatIsAWord) {
  EXPECT_EQ(headwordLength("'s Gravenhage", {"s gravenhage"}), 13u);
  EXPECT_EQ(headwordLength("able //x// <suffix>", {"able"}), 4u);
  EXPECT_EQ(headwordLength("chide // x", {"chide"}), 5u);
  EXPECT_EQ(headwordLength("Abdication \\Ab`di*ca\"tion\\, n.", {"abdication"}), 10u);
  EXPECT_EQ(headwordLength("ice cream soda", {"ice", "ice cream"}), 9u);
  EXPECT_EQ(headwordLength("Yahoo! x", {"yahoo"}), 6u);
  EXPECT_EQ(headwordLength("cats", {"cat"}), 0u);
  EXPECT_EQ(headwordLength("", {"cat"}), 0u);
}

class Dictd : public testing::Test {
 protected:
  DictdSource open() {
    files_.write(folder_.file("d"));
    return DictdSource(folder_.file("d.index"), &summary_);
  }

  test::TempFolder folder_;
  test::DictdFiles files_;
  mkdict::Summary summary_;
};

TEST_F(Dictd, GivesEntriesInTheOrderOfTheText) {
  files_.entry("Zoo\n    a place\n", {"zoo"}).entry("ant <n>\nan insect\n", {"ant", "pismire"});
  const DictdSource source = open();
  ASSERT_EQ(source.size(), 2u);
  EXPECT_EQ(source.entry(0).headword, "Zoo");
  EXPECT_EQ(shown(source.entry(0).note), "");
  EXPECT_EQ(source.entry(0).words, (std::vector<std::string>{"zoo", "Zoo"}));
  EXPECT_EQ(shown(source.entry(0).lines), "5:a place|");
  EXPECT_EQ(source.entry(1).headword, "ant");
  EXPECT_EQ(shown(source.entry(1).note), " <n>");
  EXPECT_EQ(source.entry(1).words, (std::vector<std::string>{"ant", "pismire", "ant"}));
  EXPECT_EQ(shown(source.entry(1).lines), "1:an insect|");
}

TEST_F(Dictd, PutsTheWordAheadOfTextWithoutIt) {
  files_.entry("\nsomething\n", {"ant"});
  const DictdSource source = open();
  EXPECT_EQ(source.entry(0).headword, "ant");
  EXPECT_EQ(shown(source.entry(0).lines), "1:something|");
}

TEST_F(Dictd, TakesTitleAndTermsFromWhatItSaysOfItself) {
  files_.entry("00-database-short\n     Small Words\n", {"00-database-short"})
      .entry("00-database-url\n  http://words\n", {"00-database-url"})
      .entry("00-database-info\nMade by me.\nLicensed under\n  the GPL\n", {"00-database-info"})
      .entry("ant\nx\n", {"ant"});
  const DictdSource source = open();
  EXPECT_EQ(source.size(), 1u);
  EXPECT_EQ(source.title(), "Small Words");
  EXPECT_EQ(source.publisher(), "Small Words http://words Licensed under the GPL");
}

TEST_F(Dictd, TakesBytesThatAreNoUtf8ForLatin1) {
  files_.entry("caf\xE9\nx\n", {"caf\xE9"});
  const DictdSource source = open();
  EXPECT_EQ(source.entry(0).headword, "café");
  EXPECT_EQ(summary_.leftOutCount("entries that are not UTF-8, read as Latin-1"), 1u);
}

TEST_F(Dictd, CountsWordsWithoutText) {
  files_.entry("ant\nx\n", {"ant"}).entry("\n", {"empty"});
  EXPECT_EQ(open().size(), 1u);
  EXPECT_EQ(summary_.leftOutCount("words that lead to no text"), 1u);
}

TEST_F(Dictd, TellsWhatIsMissing) {
  try {
    DictdSource source(folder_.file("none.index"), &summary_);
    FAIL() << "read";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.what(), folder_.file("none.index") + " is missing");
    EXPECT_EQ(failure.status(), 3);
  }
  folder_.write("alone.index", "");
  try {
    DictdSource source(folder_.file("alone.index"), &summary_);
    FAIL() << "read";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.what(), folder_.file("alone.dict") + " is missing");
  }
}

TEST_F(Dictd, RefusesWhatIsEmptyOrDamaged) {
  folder_.write("e.index", "");
  folder_.write("e.dict", "");
  EXPECT_THROW(DictdSource(folder_.file("e.index"), &summary_), Failure);
  folder_.write("d.index", "ant\tA\tZ\n");
  folder_.write("d.dict", "x");
  try {
    DictdSource source(folder_.file("d.index"), &summary_);
    FAIL() << "read";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.what(), folder_.file("d.index") + " is damaged: line 1 of the index leads nowhere");
    EXPECT_EQ(failure.status(), 5);
  }
}

}  // namespace
}  // namespace zavel::mkbook
