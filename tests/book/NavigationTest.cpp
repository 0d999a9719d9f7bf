#include <gtest/gtest.h>

#include "OpenBook.h"
#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

constexpr const char* kNoFurther = "80041010";

BookWriter bookOf(const std::string& text, uint32_t identity = 1, uint32_t start = 1) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, start, padded(text));
  return writer;
}

class Book : public OpenBook {
 public:
  using OpenBook::OpenBook;
  std::string zenbunNext(uint32_t block, uint32_t offset) {
    return go(SDicGetZenbunNextEntryAddress, block, offset);
  }
  std::string zenbunPrev(uint32_t block, uint32_t offset) {
    return go(SDicGetZenbunPrevEntryAddress, block, offset);
  }
};

// Three entries of 26 bytes at 2, 28 and 54; the end at 80.
std::string threeEntries() {
  return Text().begin().entry("AB", "CD").entry("EF", "GH").entry("IJ", "KL").end().bytes();
}

TEST(NextEntry, IsTheOneBehind) {
  Book book(bookOf(threeEntries()));
  EXPECT_EQ(book.next(1, 2), "1/28");
  EXPECT_EQ(book.next(1, 28), "1/54");
  EXPECT_EQ(book.next(1, 54), kNoFurther);
  EXPECT_EQ(book.next(0, 2048 + 2), "1/28");
}

TEST(PrevEntry, IsTheOneAhead) {
  Book book(bookOf(threeEntries()));
  EXPECT_EQ(book.prev(1, 54), "1/28");
  EXPECT_EQ(book.prev(1, 28), "1/2");
  EXPECT_EQ(book.prev(1, 2), kNoFurther);
  EXPECT_EQ(book.prev(1, 0), kNoFurther);
  EXPECT_EQ(book.prev(0, 2048 + 28), "1/2");
}

TEST(PrevEntry, RefusesOddOffsets) {
  Book book(bookOf(threeEntries()));
  EXPECT_EQ(book.prev(1, 29), "80000016");
  EXPECT_EQ(book.zenbunPrev(1, 29), "80000016");
}

// Each entry is led by what the headword's keyword stands behind; all three are found from the end.
TEST(PrevEntry, BeginsAtIndentOrBracketOrKeyword) {
  const auto entry = [](std::initializer_list<uint32_t> lead) {
    return words({0x2121, 0x2122}) + words(lead) + words({0x1F41, 1, 0x2341, 0x2342, 0x1F03});
  };
  const auto found = [&](std::initializer_list<uint32_t> lead) {
    const std::string text = entry(lead);
    return Book(bookOf(text)).prev(1, static_cast<uint32_t>(text.size()));
  };
  EXPECT_EQ(found({}), "1/4");
  EXPECT_EQ(found({0x1F09, 1}), "1/4");
  EXPECT_EQ(found({0x1F0A}), "1/6");
  EXPECT_EQ(found({0x1F09, 1, 0x215A}), "1/4");
  // A bracket without indent: two bytes ahead of the bracket.
  EXPECT_EQ(found({0x1F0A, 0x1F0A, 0x215A}), "1/6");
}

TEST(PrevEntry, PassesOverKeywordsWithinEntries) {
  const auto found = [](uint32_t argument) {
    return Book(bookOf(words({0x1F41, 1, 0x2341, 0x2342, 0x1F41, argument, 0x2343, 0x1F03}))).prev(1, 16);
  };
  EXPECT_EQ(found(0x0200), "1/0");
  EXPECT_EQ(found(0x0F00), "1/0");
  EXPECT_EQ(found(0x01FF), "1/8");
  EXPECT_EQ(found(0x1100), "1/8");
}

TEST(PrevEntry, EndsAtTheBodysStart) {
  std::string text(2048, '\0');
  BookWriter writer;
  writer.region(0x60, 1, padded(words({0x1F41, 1, 0x2341, 0x2342})));
  writer.region(0, 2, padded(words({0x2341, 0x2342, 0x2343, 0x2344})));
  Book book(writer);
  EXPECT_EQ(book.prev(2, 8), kNoFurther);
  EXPECT_EQ(book.prev(2, 0), kNoFurther);
}

TEST(PrevEntry, ReadsNoIndentAheadOfTheBody) {
  BookWriter writer;
  writer.region(0x60, 1, textAt(2044, words({0x1F09, 1})));
  writer.region(0, 2, padded(words({0x1F41, 1, 0x2341, 0x2342, 0x1F03})));
  EXPECT_EQ(Book(writer).prev(2, 10), "2/0");
}

TEST(PrevEntry, CrossesABlockBorder) {
  // The indent stands in the last words of the block ahead.
  Book book(bookOf(textAt(2044, words({0x1F09, 1, 0x1F41, 1, 0x2341, 0x2342, 0x1F03}))));
  EXPECT_EQ(book.prev(2, 10), "1/2044");
}

TEST(PrevEntry, FailsWhereABlockCantBeRead) {
  BookWriter writer;
  writer.region(0, 1, padded(threeEntries()));
  Book book(writer);
  EXPECT_EQ(book.prev(4, 10), "8004100D");
  EXPECT_EQ(book.next(4, 10), "8004100D");
  EXPECT_EQ(book.next(1, 100), "8004100D");  // zeroes up to the end of the region
}

// The last entry is measured by a keyword that stands behind the body's last block.
TEST(NextEntry, IsNoneBehindTheBodysLastBlock) {
  BookWriter writer;
  writer.region(0, 1, textAt(2040, words({0x2341, 0x2342, 0x2343, 0x2344})));
  writer.region(0x60, 2, padded(words({0x1F41, 1, 0x2341, 0x2342, 0x1F03})));
  Book book(writer);
  EXPECT_EQ(book.body(1, 2040), words({0x2341, 0x2342, 0x2343, 0x2344}));
  EXPECT_EQ(book.next(1, 2040), kNoFurther);
  EXPECT_EQ(book.zenbunNext(1, 2040), kNoFurther);
}

// 64 MiB of zeroes between entries, either way, are more than a book has.
TEST(Zenbun, GivesUpInAGapWithoutEnd) {
  const auto nameless = [](uint32_t sets) {
    const uint32_t table = 64 + 4 * sets;
    const std::string empty = blockSet(0, "");
    std::string codes, file(64, '\0');
    for (const char byte : words({0x1F41, 1, 0x2341, 0x2342, 0x1F03}))
      codes += code(0, 0, static_cast<uint8_t>(byte));
    for (uint32_t i = 0; i < sets; ++i)
      file += be32(i == 0 || i + 1 == sets ? table + static_cast<uint32_t>(empty.size()) : table);
    BookWriter writer;
    writer.file("gap", file + empty + blockSet(0, codes));
    writer.record({.kind = 0, .start = 1, .end = sets * 16, .flags = std::string(4, '\0'), .name = "gap"});
    Book book(writer);
    return book.zenbunNext(1, 0) + " " + book.zenbunPrev(sets * 16 - 15, 0);
  };
  EXPECT_EQ(nameless(3), "33/0 1/0");
  EXPECT_EQ(nameless(2100), "8004100E 8004100E");
}

// Two texts of two entries: 2, 28, the end at 54; zeroes; then 102, 128.
std::string twoTexts() {
  const std::string text = Text().begin().entry("AB", "CD").entry("EF", "GH").end().bytes();
  return text + std::string(100 - text.size(), '\0') + text;
}

TEST(Zenbun, GoesOnFromTextToText) {
  Book book(bookOf(twoTexts()));
  EXPECT_EQ(book.next(1, 28), kNoFurther);
  EXPECT_EQ(book.zenbunNext(1, 2), "1/28");
  EXPECT_EQ(book.zenbunNext(1, 28), "1/102");
  EXPECT_EQ(book.zenbunNext(1, 102), "1/128");
  EXPECT_EQ(book.zenbunNext(1, 128), kNoFurther);
  EXPECT_EQ(book.prev(1, 102), kNoFurther);
  EXPECT_EQ(book.zenbunPrev(1, 128), "1/102");
  EXPECT_EQ(book.zenbunPrev(1, 102), "1/28");
  EXPECT_EQ(book.zenbunPrev(1, 28), "1/2");
  EXPECT_EQ(book.zenbunPrev(1, 2), kNoFurther);
}

TEST(Zenbun, StaysInTheBody) {
  BookWriter writer = bookOf(twoTexts());
  writer.region(0x60, 2, padded(twoTexts()));
  Book book(writer);
  EXPECT_EQ(book.zenbunNext(1, 128), kNoFurther);  // zeroes, and behind them another region
  EXPECT_EQ(book.zenbunNext(2, 2), kNoFurther);
  EXPECT_EQ(book.zenbunPrev(2, 28), kNoFurther);
  EXPECT_EQ(book.zenbunNext(0, 2), kNoFurther);
  EXPECT_EQ(book.zenbunPrev(0, 2), kNoFurther);
  EXPECT_EQ(book.next(2, 2), kNoFurther);
  EXPECT_EQ(book.prev(2, 28), "2/2");
}

TEST(Zenbun, FailsWhereItCantBeMeasured) {
  Book book(bookOf(words({0x2341, 0x2342})));
  EXPECT_EQ(book.zenbunNext(1, 0), "8004100D");
}

// In book 102 entries are texts: what is found is the tag that begins one.
TEST(Book102, GoesBackToTheBeginOfATextAndForthOverTexts) {
  const std::string text = words({0x1F02, 0x2341, 0x1F41, 1, 0x2342, 0x1F03, 0x1F02, 0x2343, 0x2344, 0x1F03});
  Book book(bookOf(text, 102));
  EXPECT_EQ(book.prev(1, 18), "1/12");
  EXPECT_EQ(book.prev(1, 14), "1/0");  // the tag just ahead is stepped over
  EXPECT_EQ(book.prev(1, 12), "1/0");
  EXPECT_EQ(book.prev(1, 2), kNoFurther);
  EXPECT_EQ(book.zenbunPrev(1, 18), "1/12");
  EXPECT_EQ(book.zenbunPrev(1, 14), "1/0");
  EXPECT_EQ(book.zenbunNext(1, 2), "1/14");
}

TEST(Book102, StepsBackFirstOnlyWithinABlock) {
  const std::string text = textAt(2044, words({0x1F02, 0x2341, 0x2342, 0x1F03}));
  EXPECT_EQ(Book(bookOf(text, 102)).prev(2, 0), "1/2044");
}

// In book 101 the whole text's entries are those with an indent at the start of a line.
TEST(Book101, CountsKeywordsAtTheStartOfALineInTheWholeText) {
  const auto found = [](std::initializer_list<uint32_t> lead, bool zenbun) {
    const std::string text = words(lead) + words({0x1F41, 1, 0x2341, 0x2342, 0x1F61, 0x2343});
    Book book(bookOf(text, 101));
    const uint32_t end = static_cast<uint32_t>(text.size());
    return zenbun ? book.zenbunPrev(1, end) : book.prev(1, end);
  };
  EXPECT_EQ(found({0x2121, 0x1F0A, 0x1F09, 1}, true), "1/4");
  EXPECT_EQ(found({0x2121, 0x1F02, 0x1F09, 1}, true), "1/4");
  EXPECT_EQ(found({0x2121, 0x2121, 0x1F09, 1}, true), kNoFurther);
  EXPECT_EQ(found({0x2121, 0x1F0A, 0x1F0A}, true), kNoFurther);
  EXPECT_EQ(found({0x2121, 0x2121, 0x1F09, 1}, false), "1/4");
  EXPECT_EQ(found({0x2121, 0x1F0A, 0x1F0A}, false), "1/6");
}

// Entries at 1240, 1266 and 1292 of block 24449.
TEST(Book300, EndsItsWholeTextAheadOfItsTail) {
  const std::string text =
      textAt(2048 + 1240, Text().entry("AB", "CD").entry("EF", "GH").entry("IJ", "KL").end().bytes());
  Book book(bookOf(text, 300, 24448));
  EXPECT_EQ(book.zenbunNext(24449, 1240), "24449/1266");
  EXPECT_EQ(book.zenbunNext(24449, 1266), kNoFurther);
  EXPECT_EQ(book.next(24449, 1266), "24449/1292");
  EXPECT_EQ(Book(bookOf(text, 299, 24448)).zenbunNext(24449, 1266), "24449/1292");
}

// Entries of all lengths over several sets, in three texts.
class WholeBook : public ::testing::Test {
 protected:
  WholeBook() {
    for (int text = 0; text < 3; ++text) {
      bytes_.begin();
      for (int i = 0; i < 900; ++i) {
        starts_.push_back(bytes_.size());
        bytes_.entry("W" + std::to_string(i), std::string(static_cast<size_t>(1 + i * 7 % 40), 'b'));
      }
      bytes_.end();
      lasts_.push_back(starts_.back());
      bytes_.raw(std::string(static_cast<size_t>(text) * 1000, '\0'));
    }
  }

  static std::string at(size_t place) {
    return OpenBook::show({static_cast<uint32_t>(1 + place / 2048), static_cast<uint32_t>(place % 2048)});
  }

  Text bytes_;
  std::vector<size_t> starts_;
  std::vector<size_t> lasts_;
};

TEST_F(WholeBook, IsWalkedForthAndBack) {
  Book book(bookOf(bytes_.bytes()));
  ASSERT_GT(bytes_.size(), 4u * 32768);
  for (size_t i = 0; i < starts_.size(); ++i) {
    const uint32_t block = static_cast<uint32_t>(1 + starts_[i] / 2048);
    const uint32_t offset = static_cast<uint32_t>(starts_[i] % 2048);
    const bool first = i % 900 == 0, last = i % 900 == 899;
    const std::string next = i + 1 < starts_.size() ? at(starts_[i + 1]) : kNoFurther;
    const std::string prev = i > 0 ? at(starts_[i - 1]) : kNoFurther;
    ASSERT_EQ(book.next(block, offset), last ? kNoFurther : next) << i;
    ASSERT_EQ(book.prev(block, offset), first ? kNoFurther : prev) << i;
    ASSERT_EQ(book.zenbunNext(block, offset), next) << i;
    ASSERT_EQ(book.zenbunPrev(block, offset), prev) << i;
    ASSERT_EQ(fromJis(book.headword(block, offset).substr(0, 2)), "Ｗ") << i;
  }
}

}  // namespace
}  // namespace zavel::book
