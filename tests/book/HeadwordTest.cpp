#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "OpenBook.h"
#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

BookWriter bookOf(const std::string& text, uint32_t identity = 1) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, 1, padded(text));
  return writer;
}

// The headword of a text, without the two zero bytes behind it, in hexadecimal.
std::string head(const std::string& text, uint32_t identity = 1, bool plain = false) {
  OpenBook book(bookOf(text, identity));
  const std::string found = book.headword(1, 0, plain);
  if (found.size() < 2 || found.substr(found.size() - 2) != std::string(2, '\0')) return found;
  return hexOf(found.substr(0, found.size() - 2));
}

std::string head(std::initializer_list<uint32_t> text, uint32_t identity = 1, bool plain = false) {
  return head(words(text), identity, plain);
}

// A tag with its argument, then letters up to Z: the first one that is shown tells how many bytes the tag
// took.
std::string tagAheadOfLetters(uint32_t tag, uint32_t argument, uint32_t mark) {
  std::string text = words({tag, argument});
  for (uint32_t letter = 0x2342; letter <= 0x235A; ++letter) text += be16(text.size() == 34 ? mark : letter);
  return text + be16(0x1F03);
}

// Bytes that the tag takes in a headword. The tags that are shown themselves are passed over.
int sizeOf(uint32_t tag, uint32_t argument = 0x2341, uint32_t mark = 0x2351, uint32_t identity = 1) {
  OpenBook book(bookOf(tagAheadOfLetters(tag, argument, mark), identity));
  const std::string found = book.headword(1, 0, true);
  const size_t at = found[0] == '\x1F' ? 2 : 0;
  return 2 + 2 * (found[at + 1] - 0x41);
}

TEST(Headword, IsTheTextUpToItsEnd) {
  EXPECT_EQ(head({0x2341, 0x2342, 0x1F03, 0x2343}), "23412342");
  EXPECT_EQ(head({0x2341, 0x2342, 0x1F0A, 0x2343}), "23412342");
  EXPECT_EQ(head({0x2341, 0x2342, 0x1F43, 0x2343}), "23412342");
  EXPECT_EQ(head({0x2341, 0x2342, 0x0000, 0x2343}), "23412342");
  EXPECT_EQ(head({0xA121, 0x2121, 0x2342, 0x1F0A}), "A12121212342");
}

TEST(Headword, CountsItsTwoZeroes) {
  EXPECT_EQ(OpenBook(bookOf(words({0x2341, 0x1F03}))).headword(1, 0), std::string("\x23\x41\0\0", 4));
}

TEST(Headword, BeginsWithWhatIsNotBlank) {
  for (const uint32_t tag : {0x0000u, 0x1F03u, 0x1F0Au, 0x1F43u}) {
    EXPECT_EQ(head({tag, 0x2121, tag, 0x2341, tag, 0x2342}), "21212341") << std::hex << tag;
  }
}

TEST(Headword, TakesEachTagByItsSize) {
  const std::map<uint32_t, int> sizes = {{0x1F09, 4},  {0x1F1A, 4},  {0x1F1B, 4},  {0x1F1C, 4},  {0x1F1D, 4},
                                         {0x1F1E, 4},  {0x1F36, 14}, {0x1F37, 14}, {0x1F44, 12}, {0x1F48, 12},
                                         {0x1F49, 14}, {0x1F39, 46}, {0x1F3A, 4},  {0x1F42, 4},  {0x1F4C, 4},
                                         {0x1F3C, 20}, {0x1F4D, 20}, {0x1F41, 4},  {0x1F4B, 8},  {0x1F62, 8},
                                         {0x1F63, 8},  {0x1F64, 8},  {0x1FE0, 4},  {0x1FE2, 4},  {0x1FE4, 4},
                                         {0x1FE6, 4},  {0x1F4A, 4},  {0x1F4E, 4},  {0x1F4F, 36}};
  for (uint32_t tag = 0x1F00; tag <= 0x1FFF; ++tag) {
    const auto row = sizes.find(tag);
    EXPECT_EQ(sizeOf(tag), row == sizes.end() ? 2 : row->second) << std::hex << tag;
  }
}

TEST(Headword, TakesSoundsAndFilmsByWhatIsInThem) {
  EXPECT_EQ(sizeOf(0x1F4A, 0x0000), 18);
  EXPECT_EQ(sizeOf(0x1F4A, 0x0100), 20);
  EXPECT_EQ(sizeOf(0x1F4A, 0x0200), 20);
  EXPECT_EQ(sizeOf(0x1F4A, 0x0300), 4);
  EXPECT_EQ(sizeOf(0x1F4E, 0x0000), 40);
  EXPECT_EQ(sizeOf(0x1F4E, 0x0100), 42);
  EXPECT_EQ(sizeOf(0x1F4E, 0x0200), 42);
  EXPECT_EQ(sizeOf(0x1F4F, 0x0000, 0x1F6F), 50);
  EXPECT_EQ(sizeOf(0x1F4F, 0x0000, 0x6F1F), 36);
}

TEST(Headword, TakesTagsOfSomeBooksByOtherSizes) {
  EXPECT_EQ(sizeOf(0x1F4A, 0x0100, 0x2351, 0x12C), 18);
  EXPECT_EQ(sizeOf(0x1F4A, 0x0200, 0x2351, 0x12C), 18);
  EXPECT_EQ(sizeOf(0x1F4A, 0x0000, 0x2351, 0x12C), 18);
  EXPECT_EQ(sizeOf(0x1F42, 0x2341, 0x2351, 0x130), 2);
  EXPECT_EQ(sizeOf(0x1F42, 0x2341, 0x2351, 0x13D), 2);
  EXPECT_EQ(head({0x1FE0, 0x1F04, 0x2341, 0x1F05, 0x1FE1, 0x1F03}, 0x92), "1F0423411F051FE1");
  EXPECT_EQ(head({0x1FE0, 0x1F04, 0x2341, 0x1F05, 0x1FE1, 0x1F03}, 0x91), "23411F051FE1");
  EXPECT_EQ(sizeOf(0x1FE0, 0x2341, 0x2351, 0x92), 4);
}

TEST(Headword, ShowsStyles) {
  EXPECT_EQ(head({0x1F04, 0x2341, 0x1F05, 0x1F06, 0x2341, 0x1F07, 0x1F0B, 0x2341, 0x1F0C, 0x1F0E, 0x2341,
                  0x1F0F, 0x1F12, 0x2341, 0x1F13, 0x1FE1, 0x1F0A}),
            "1F0423411F051F0623411F071F0B23411F0C1F0E23411F0F1F1223411F131FE1");
}

TEST(Headword, DropsWhatIsTurnedOffAndOnAgain) {
  for (const uint32_t on : {0x1F04u, 0x1F06u, 0x1F0Eu, 0x1F12u}) {
    EXPECT_EQ(head({on, 0x2341, on + 1, on, 0x2342, on + 1, 0x1F0A}),
              hexOf(words({on, 0x2341, 0x2342, on + 1})))
        << std::hex << on;
    EXPECT_EQ(head({on, 0x2341, on + 1, 0x2343, on, 0x2342, on + 1, 0x1F0A}),
              hexOf(words({on, 0x2341, on + 1, 0x2343, on, 0x2342, on + 1})));
  }
  EXPECT_EQ(head({0x1F04, 0x2341, 0x1F05, 0x1F06, 0x1F04, 0x2342, 0x1F03}), "1F0423411F051F061F042342");
}

TEST(Headword, EndsAtAPictureOrAReference) {
  for (const uint32_t tag : {0x1F44u, 0x1F48u, 0x1F4Du, 0x1F42u}) {
    EXPECT_EQ(head({0x2341, tag, 0x2342, 0x1F03}), "2341") << std::hex << tag;
    EXPECT_EQ(head({0x2121, tag, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x2342, 0x1F03}), "21212342") << std::hex << tag;
  }
  EXPECT_EQ(head({0x2341, 0x1F42, 0x2342, 0x1F03}, 0x130), "23412342");
  EXPECT_EQ(head({0x2341, 0x1F42, 0x2342, 0x1F03}, 0x13D), "23412342");
}

TEST(Headword, IsCutAtTheKeywordsEnd) {
  EXPECT_EQ(head({0x1F41, 1, 0x2341, 0x2342, 0x1F61, 0x2343, 0x1F0A}), "23412342");
  EXPECT_EQ(head({0x1F61, 0x2121, 0x1F61, 0x2341, 0x1F03}), "21212341");  // nothing was seen ahead of it
  EXPECT_EQ(head({0x2341, 0x1F61, 0x2342, 0x1F61, 0x2343, 0x1F03}), "23412342");  // the last one cuts
}

TEST(Headword, KeepsABracketThatClosesBehindTheCut) {
  for (uint32_t code = 0x214A; code <= 0x215B; ++code) {
    const bool closes = (code & 1) != 0;
    EXPECT_EQ(head({0x2341, 0x1F61, code, 0x2343, 0x1F0A}), closes ? "2341" + hexOf(be16(code)) : "2341");
  }
  EXPECT_EQ(head({0x2341, 0x1F61, 0x215B, 0x215B, 0x1F0A}), "2341215B");
  EXPECT_EQ(head({0x2341, 0x1F61, 0x1F0A}), "2341");
}

TEST(Headword, TakesAtMost254Bytes) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += be16(0x2341);
  EXPECT_EQ(OpenBook(bookOf(text + be16(0x1F03))).headword(1, 0).size(), 256u);
  // At 126 characters one more is begun, a tag as well.
  std::string begun = text.substr(0, 252) + words({0x1F13, 0x2342});
  EXPECT_EQ(OpenBook(bookOf(begun)).headword(1, 0).substr(252), words({0x1F13, 0}));
}

TEST(Headword, KeepsNoBracketWhereThereIsNoRoomForIt) {
  std::string text;
  for (int i = 0; i < 127; ++i) text += be16(0x2341);
  text.insert(252, words({0x1F61}));
  EXPECT_EQ(OpenBook(bookOf(text.substr(0, 254) + words({0x215B, 0x215B}))).headword(1, 0).size(), 256u);
}

TEST(Headword, LeavesAuxiliaryTagsOutWhenPlain) {
  const std::initializer_list<uint32_t> text = {0x2341, 0x1FE2, 0x2342, 0x2343, 0x1FE3, 0x2344, 0x1F03};
  EXPECT_EQ(head(text, 1, false), "23411FE223431FE32344");
  EXPECT_EQ(head(text, 1, true), "234123432344");
}

std::string markedText(std::string_view marker) {
  return words({0x2341, 0x1FE2, 0}) + jis(marker) + words({0x2342, 0x1FE3, 0x2343, 0x1F03});
}

TEST(Headword, PutsBracketsForTheMarkersOfOneBook) {
  const struct {
    const char* marker;
    const char* shown;
  } rows[] = {{"ルビＧ開", "214A"}, {"ルビＧ終", "214B"}, {"連濁開", "223A"},
              {"連濁終", "223B"},   {"歴史仮開", "2179"}, {"歴史仮終", "217A"}};
  for (const auto& row : rows) {
    EXPECT_EQ(head(markedText(row.marker), 0x135), std::string("23411FE2") + row.shown + "1FE32343");
    EXPECT_EQ(head(markedText(row.marker), 0x135, true), std::string("2341") + row.shown + "2343");
  }
  EXPECT_EQ(head(markedText("ルビ"), 0x135, true), "23412343");
  // In other books it is text.
  EXPECT_EQ(head(markedText("連濁開"), 0x134, true), "2341" + hexOf(jis("連濁開")) + "23422343");
}

TEST(Headword, LooksForNoMarkerBehindOneCode) {
  EXPECT_EQ(head({0x2341, 0x1FE2, 0, 0x3E4A, 0x4F22, 0x4279, 0x332B, 0x1FE3, 0x1F03}, 0x135, true),
            "23413E4A4F224279332B");
}

TEST(Headword, ReadsAMarkerAtTheBooksLastWords) {
  const std::string text = words({0x1FE2, 0}) + jis("連濁開") + words({0x1FE3, 0x2341, 0x1F03});
  OpenBook book([&] {
    BookWriter writer;
    writer.identity = 0x135;
    return writer.region(0, 1, textAt(2048 - text.size(), text));
  }());
  EXPECT_EQ(book.headword(1, static_cast<uint32_t>(2048 - text.size()), true), words({0x223A, 0x2341, 0}));
}

// Without a bound each of these tags would look through all the rest.
TEST(Headword, LooksForMarkersOnlySoLong) {
  std::string text;
  while (text.size() < 300000) text += words({0x1FE2, 0});
  text += words({0x3E4A, 0x1F03});
  BookWriter writer;
  writer.identity = 0x135;
  writer.region(0, 1, padded(text));
  EXPECT_EQ(OpenBook(writer).headword(1, 0, true), "8004100D");
}

TEST(Headword, DropsTheDiamondOfOneBook) {
  EXPECT_EQ(head({0x2223, 0x2121, 0x2341, 0x2342, 0x2343, 0x1F03}, 0x91), "23412342214421212121");
  EXPECT_EQ(head({0x2223, 0x2121, 0x2341, 0x2342, 0x1F03}, 0x91), "2341214421212121");
  EXPECT_EQ(head({0x2223, 0x2121, 0x2341, 0x1F03}, 0x91), "222321212341");  // too short
  EXPECT_EQ(head({0x2222, 0x2121, 0x2341, 0x2342, 0x1F03}, 0x91), "2222212123412342");
  EXPECT_EQ(head({0x2223, 0x2121, 0x2341, 0x2342, 0x1F03}, 0x90), "2223212123412342");
}

std::string headAt(uint32_t identity, uint32_t block, uint32_t offset, const std::string& text) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, block, textAt(offset, text));
  return OpenBook(writer).headword(block, offset);
}

TEST(Headword, PutsOneFaultOfBook139Right) {
  const std::string text = words({0x2361, 0x2361, 0x2361, 0x2361, 0x1F03});
  EXPECT_EQ(headAt(139, 25, 1550, text), words({0x2361, 0x2361, 0x2345, 0x2344, 0}));
  EXPECT_EQ(headAt(139, 25, 1552, text), words({0x2361, 0x2361, 0x2361, 0x2361, 0}));
  EXPECT_EQ(headAt(138, 25, 1550, text), words({0x2361, 0x2361, 0x2361, 0x2361, 0}));
  EXPECT_EQ(headAt(139, 25, 1550, words({0x2361, 0x2361, 0x2361, 0x1F03})),
            words({0x2361, 0x2361, 0x2361, 0}));
}

TEST(Headword, FailsWhereItCantBeRead) {
  OpenBook book(bookOf(words({0x2341, 0x1F03})));
  EXPECT_EQ(book.headword(9, 0), "8004100D");
  EXPECT_EQ(book.headword(1, 100), "8004100D");  // nothing but zeroes up to the end
}

TEST(Headword, PassesZeroesOnlySoLong) {
  BookWriter writer;
  writer.record({.kind = 0, .start = 1, .end = 1000, .flags = std::string(4, '\0'), .name = "z.dat"});
  std::string file(64, '\0');
  for (int set = 0; set < 63; ++set) file += be32(64 + 4 * 63);
  writer.file("z.dat", file + blockSet(0, ""));
  EXPECT_EQ(OpenBook(writer).headword(1, 0), "8004100E");
}

std::string truncated(const std::string& text, uint32_t characters) {
  OpenBook book(bookOf(words({0x2341, 0x1F03})));
  char* out = nullptr;
  const std::string ended = text + std::string(2, '\0');
  if (SDicTruncateHeadword(book.handle, ended.c_str(), &out, characters) != 0) return "failed";
  size_t length = 0;
  while (out[length] != '\0' || out[length + 1] != '\0') length += 2;
  const std::string found(out, length);
  std::free(out);
  return hexOf(found);
}

// Emphasis counts as begun: its end is always there.
TEST(TruncateHeadword, CountsCharactersAndNotTags) {
  const std::string text = words({0x2341, 0x1F04, 0x2342, 0x1F05, 0x2343, 0x1F13});
  EXPECT_EQ(truncated(text, 0), "1F13");
  EXPECT_EQ(truncated(text, 1), "23411F041F051F13");
  EXPECT_EQ(truncated(text, 2), "23411F0423421F051F13");
  EXPECT_EQ(truncated(text, 3), "23411F0423421F0523431F13");
  EXPECT_EQ(truncated(text, 99), "23411F0423421F0523431F13");
  EXPECT_EQ(truncated("", 5), "1F13");
}

TEST(TruncateHeadword, ClosesStylesInTheirOrder) {
  EXPECT_EQ(truncated(words({0x1F12, 0x1F06, 0x1F0E, 0x1F04, 0x2341, 0x2342}), 1),
            "1F121F061F0E1F0423411F051F0F1F071F13");
  EXPECT_EQ(truncated(words({0x1F13, 0x2341}), 1), "1F132341");
  EXPECT_EQ(truncated(words({0x1F13, 0x1F12, 0x2341}), 1), "1F131F1223411F13");
}

TEST(TruncateHeadword, TakesAtMost256Bytes) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += be16(0x2341);
  EXPECT_EQ(truncated(text, 1000).size(), 2u * (256 + 2));
}

// "A" and its one zero byte: what stands behind them is the caller's.
TEST(TruncateHeadword, TakesNoHalfCharacter) {
  OpenBook book(bookOf(words({0x2341, 0x1F03})));
  const std::unique_ptr<char[]> text(new char[4]{'\x23', '\x41', '\x23', '\0'});
  char* out = nullptr;
  ASSERT_EQ(SDicTruncateHeadword(book.handle, text.get(), &out, 9), 0u);
  EXPECT_EQ(std::string(out), "\x23\x41\x1F\x13");
  std::free(out);
}

}  // namespace
}  // namespace zavel::book
