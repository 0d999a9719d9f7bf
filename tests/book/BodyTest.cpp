#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "OpenBook.h"
#include "Words.h"
#include "book/CEpwing.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

BookWriter bookOf(const std::string& text, uint32_t identity = 1) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, 1, padded(text));
  return writer;
}

// Bytes of the body at the book's start; -1 for a failure.
int lengthOf(const std::string& text, uint32_t identity = 1) {
  OpenBook book(bookOf(text, identity));
  const _SDICADDRESS start = {1, 0};
  char* bytes = nullptr;
  uint32_t length = 0;
  if (SDicGetBodyData(book.handle, &start, &bytes, &length) != 0) return -1;
  std::free(bytes);
  return static_cast<int>(length);
}

// A tag with ends of text behind it everywhere but at its argument: the walk stops at the first one that the
// tag doesn't take.
std::string tagWithin(uint32_t tag, uint32_t argument, uint32_t mark = 0x1F03) {
  std::string text = words({tag, argument});
  while (text.size() < 64) text += be16(text.size() == 34 ? mark : 0x1F03);
  return text;
}

TEST(BodyLength, TakesEachTagByItsSize) {
  const std::map<uint32_t, int> sizes = {{0x1F09, 4},  {0x1F1A, 4},  {0x1F1B, 4},  {0x1F1C, 4},  {0x1F1D, 4},
                                         {0x1F1E, 4},  {0x1F36, 14}, {0x1F37, 12}, {0x1F44, 12}, {0x1F48, 12},
                                         {0x1F49, 12}, {0x1F39, 46}, {0x1F3A, 4},  {0x1F42, 4},  {0x1F4C, 4},
                                         {0x1F3C, 20}, {0x1F4D, 20}, {0x1F41, 4},  {0x1F4B, 8},  {0x1F62, 8},
                                         {0x1F63, 8},  {0x1F64, 8},  {0x1FE0, 4},  {0x1FE2, 4},  {0x1FE4, 4},
                                         {0x1FE6, 4},  {0x1F4A, 4},  {0x1F4E, 4},  {0x1F4F, 36}, {0x1F03, 0}};
  std::string text;
  for (uint32_t tag = 0x1F00; tag <= 0x1FFF; ++tag) text += tagWithin(tag, 0x1F03);
  OpenBook book(bookOf(text));
  for (uint32_t tag = 0x1F00; tag <= 0x1FFF; ++tag) {
    const auto row = sizes.find(tag);
    const size_t size = row == sizes.end() ? 2 : static_cast<size_t>(row->second);
    const uint32_t at = (tag - 0x1F00) * 64;
    EXPECT_EQ(book.body(1, at), text.substr(at, size + 2)) << std::hex << tag;
  }
}

TEST(BodyLength, TakesOtherWordsBelowCharactersForTwoBytes) {
  for (const uint32_t word : {0x0000u, 0x0001u, 0x1EFFu, 0x2000u, 0x2120u}) {
    EXPECT_EQ(lengthOf(words({word, 0x1F03})), 4) << std::hex << word;
  }
  EXPECT_EQ(lengthOf(words({0x2121, 0xA121, 0xFFFF, 0x1F03})), 8);
}

TEST(BodyLength, TakesSoundsByTheirArgument) {
  const struct {
    uint32_t tag;
    uint32_t argument;
    int size;
  } rows[] = {{0x1F4A, 0x0000, 16}, {0x1F4A, 0xF0FF, 16}, {0x1F4A, 0x0100, 18}, {0x1F4A, 0x01FF, 18},
              {0x1F4A, 0x0200, 18}, {0x1F4A, 0x0300, 4},  {0x1F4A, 0x0F00, 4},  {0x1F4E, 0x0000, 40},
              {0x1F4E, 0x0100, 42}, {0x1F4E, 0x0200, 42}, {0x1F4E, 0x0400, 4}};
  for (const auto& row : rows)
    EXPECT_EQ(lengthOf(tagWithin(row.tag, row.argument)), row.size + 2)
        << std::hex << row.tag << row.argument;
}

TEST(BodyLength, TakesFilmsByTheirMark) {
  EXPECT_EQ(lengthOf(tagWithin(0x1F4F, 0, 0x1F6F)), 52);
  EXPECT_EQ(lengthOf(tagWithin(0x1F4F, 0, 0x6F1F)), 38);
}

TEST(BodyLength, EndsAheadOfTheNextEntrysIndent) {
  const std::string first = Text().entry("AB", "CD").bytes();
  ASSERT_EQ(first.size(), 26u);
  EXPECT_EQ(lengthOf(Text().entry("AB", "CD").entry("EF", "GH").end().bytes()), 26);
}

TEST(BodyLength, EndsAtAKeywordWithoutIndent) {
  EXPECT_EQ(lengthOf(Text().entry("AB", "CD").word(0x1F41).word(1).chars("EF").end().bytes()), 26);
}

TEST(BodyLength, EndsAheadOfABracketThatOpensTheNextEntry) {
  EXPECT_EQ(lengthOf(Text().entry("AB", "CD").word(0x215A).word(0x1F41).word(1).end().bytes()), 26);
}

TEST(BodyLength, TakesOffTheIndentOnlyWhenTheBracketStandsAheadOfIt) {
  EXPECT_EQ(lengthOf(words({0x2341, 0x215A, 0x1F09, 0x0001, 0x1F41, 0x0001, 0x1F03})), 4);
  EXPECT_EQ(lengthOf(words({0x2341, 0x2341, 0x1F09, 0x0001, 0x215A, 0x1F41, 0x0001, 0x1F03})), 8);
}

TEST(BodyLength, EndsAtNoKeywordBehindFewerThanTwoCharacters) {
  EXPECT_EQ(lengthOf(words({0x1F41, 1, 0x2341, 0x1F61, 0x1F41, 1, 0x2342, 0x2343, 0x1F03})), 18);
  EXPECT_EQ(lengthOf(words({0x1F41, 1, 0x2341, 0x2342, 0x1F61, 0x1F41, 1, 0x2343, 0x1F03})), 10);
}

TEST(BodyLength, TakesNothingOffWithoutAnIndent) {
  EXPECT_EQ(lengthOf(words({0x2341, 0x2342, 0x1F41, 1, 0x1F03})), 4);
}

TEST(BodyLength, EndsByTheKeywordsArgument) {
  for (const uint32_t argument : {0x0000u, 0x0001u, 0x0100u, 0x01FFu, 0x1000u})
    EXPECT_EQ(lengthOf(words({0x2341, 0x2342, 0x1F41, argument, 0x2343, 0x1F03})), 4) << argument;
  for (const uint32_t argument : {0x0200u, 0x0F00u, 0x1300u})
    EXPECT_EQ(lengthOf(words({0x2341, 0x2342, 0x1F41, argument, 0x2343, 0x1F03})), 12) << argument;
}

TEST(BodyLength, EndsInBook101AtAKeywordEndAheadOfAnIndent) {
  // Keyword and first end, then a second end ahead of an indent.
  const std::string text = words({0x1F41, 1, 0x2341, 0x2342, 0x1F61, 0x1F09, 1, 0x2343, 0x2344, 0x1F41, 1,
                                  0x1F61, 0x1F0A, 0x1F61, 0x1F09, 1, 0x1F03});
  EXPECT_EQ(lengthOf(text, 101), 26);
  EXPECT_EQ(lengthOf(text, 1), 18);
  EXPECT_EQ(lengthOf(words({0x2341, 0x2342, 0x1F41, 1, 0x1F61, 0x1F03}), 101), 12);
}

TEST(BodyLength, PassesKeywordsInBook102) {
  EXPECT_EQ(lengthOf(words({0x2341, 0x2342, 0x1F41, 1, 0x2343, 0x2344, 0x1F03}), 102), 14);
}

TEST(BodyLength, FailsWhereTheTextHasNoEnd) {
  EXPECT_EQ(OpenBook(bookOf(words({0x2341, 0x2342}))).body(1, 0), "8004100D");
  EXPECT_EQ(OpenBook(bookOf(words({0x2341, 0x1F03}))).body(3, 0), "8004100D");
  // A tag at the book's last word lacks its argument.
  OpenBook book(bookOf(std::string(2046, '\x23') + words({0x1F4A})));
  EXPECT_EQ(book.body(1, 0), "8004100D");
}

// Texts of more than 64 MiB have no end. Films' tags make the way short.
TEST(BodyLength, EndsTheWalkOfATextWithoutEnd) {
  const auto film = [](uint32_t sets) {
    std::string codes, file(64, '\0');
    for (int i = 0; i < 16384; ++i) codes += code(0, 0, 0x1F) + code(0, 0, 0x39);
    for (uint32_t i = 0; i < sets; ++i) file += be32(64 + 4 * sets + 4);
    const std::string set = blockSet(0, codes);
    file += be32(static_cast<uint32_t>(64 + 4 * sets + 4 + set.size()));  // the last set: ends of texts
    std::string ends;
    for (int i = 0; i < 100; ++i) ends += code(0, 0, 0x1F) + code(0, 0, 0x03);
    BookWriter writer;
    writer.file("film", file + set + blockSet(0, ends));
    writer.record(
        {.kind = 0, .start = 1, .end = sets * 16 + 16, .flags = std::string(4, '\0'), .name = "film"});
    return OpenBook(writer).body(1, 0).size();
  };
  EXPECT_GT(film(100), 100u * 32768);
  EXPECT_EQ(film(2100), 8u);  // "8004100D"
}

TEST(Body, CrossesBlocksAndSets) {
  std::string text(32760, '\x23');
  text += words({0x1F0A, 0x1F12, 0x2341, 0x2342, 0x2343, 0x1F03, 0x2344});
  OpenBook book(bookOf(text));
  EXPECT_EQ(book.body(16, 2000),
            std::string(40, '\x23') + words({0x1F0A, 0x1F12, 0x2341, 0x2342, 0x2343, 0x1F03}));
  EXPECT_EQ(book.body(1, 15 * 2048 + 2000).size(), 52u);  // the same place, not normalised
}

TEST(Body, HasZeroesBehindIt) {
  OpenBook book(bookOf(words({0x2341, 0x1F03, 0x2342})));
  const _SDICADDRESS start = {1, 0};
  char* bytes = nullptr;
  uint32_t length = 0;
  ASSERT_EQ(SDicGetBodyData(book.handle, &start, &bytes, &length), 0u);
  ASSERT_EQ(length, 4u);
  EXPECT_EQ(std::string(bytes, 68), words({0x2341, 0x1F03}) + std::string(64, '\0'));
  std::free(bytes);
}

// `count` small letters a in full width, then the end.
std::string letters(size_t count) {
  std::string text;
  while (count-- > 0) text += be16(0x2361);
  return text + be16(0x1F03);
}

std::string patched(uint32_t block, uint32_t offset, size_t count, uint32_t identity = 139) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, block, textAt(offset, letters(count)));
  return OpenBook(writer).body(block, offset);
}

TEST(BodyPatches, PutKnownFaultsOfBook139Right) {
  std::string text = letters(60);
  text[13] = text[99] = 'E';
  text[15] = text[101] = 'D';
  EXPECT_EQ(patched(25, 1550, 60), text);
  text = letters(60);
  std::memset(text.data() + 28, 0, 4);
  EXPECT_EQ(patched(1871, 618, 60), text);
  EXPECT_EQ(patched(1871, 826, 60), text);
  text = letters(60);
  text.replace(46, 2, "\x1F\x0A");
  EXPECT_EQ(patched(1915, 1592, 60), text);
}

TEST(BodyPatches, TouchNoOtherEntryAndNoOtherBook) {
  EXPECT_EQ(patched(25, 1548, 60), letters(60));
  EXPECT_EQ(patched(26, 1550, 60), letters(60));
  EXPECT_EQ(patched(25, 1550, 60, 138), letters(60));
}

TEST(BodyPatches, StayInsideTheEntry) {
  std::string text = letters(7);  // 16 bytes
  text[13] = 'E';
  text[15] = 'D';
  EXPECT_EQ(patched(25, 1550, 7), text);
  EXPECT_EQ(patched(1871, 618, 14), letters(14));  // 30 bytes, where 28 to 31 would be zeroes
  EXPECT_EQ(patched(1915, 1592, 3), letters(3));
}

_SDICADDRESS asked;

void knowsTheBody(const _SDICADDRESS* address, char** bytes, uint32_t* length) {
  asked = *address;
  *bytes = static_cast<char*>(std::malloc(3));
  std::memcpy(*bytes, "abc", 3);
  *length = 3;
}

void knowsNothing(const _SDICADDRESS* address, char**, uint32_t*) {
  asked = *address;
}

TEST(BodyHook, IsAskedFirstInBook120) {
  OpenBook book(bookOf(words({0x2341, 0x1F03}), 120));
  OpenBook other(bookOf(words({0x2341, 0x1F03}), 121));
  EXPECT_EQ(CEpwing::_meikyoBodyData, nullptr);
  CEpwing::_meikyoBodyData = knowsTheBody;
  EXPECT_EQ(book.body(1, 0), "abc");
  EXPECT_EQ(asked.block, 1u);
  EXPECT_EQ(other.body(1, 0), words({0x2341, 0x1F03}));
  asked = {};
  CEpwing::_meikyoBodyData = knowsNothing;
  EXPECT_EQ(book.body(1, 0), words({0x2341, 0x1F03}));
  EXPECT_EQ(asked.block, 1u);
  CEpwing::_meikyoBodyData = nullptr;
}

}  // namespace
}  // namespace zavel::book
