#include <gtest/gtest.h>

#include "OpenBook.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

std::string at(uint32_t offset) {
  return place(1, offset);
}

BookWriter withIndex(uint16_t kind, std::string_view blocks, std::string_view flags = {"\0\x7F\x7F\x7F", 4}) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(kind, 10, blocks, flags);
  return writer;
}

struct Choice {
  std::vector<uint16_t> kinds;
  const char* query;
  uint16_t chosen;  // 0: none
};

// Each index has the same keys (backward ones reversed) and leads to a body at the offset that is its kind.
TEST(SelectIndex, GoesByMethodAndKey) {
  const Choice rows[] = {
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "◆かな", 0x30},
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "◆ab", 0x40},
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "◆漢字", 0x60},
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "□かな", 0x90},
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "□ab", 0x92},
      {{0x30, 0x40, 0x60, 0x90, 0x91, 0x92}, "□漢字", 0x91},
      {{0x60, 0x91}, "◆かな", 0x60},
      {{0x60, 0x91}, "◆ab", 0x60},
      {{0x60, 0x91}, "□かな", 0x91},
      {{0x60, 0x91}, "□ab", 0x91},
      {{0x60}, "□ab", 0},
      {{0x70, 0x71, 0x72}, "■なか", 0x70},
      {{0x70, 0x71, 0x72}, "■ba", 0x72},
      {{0x70, 0x71, 0x72}, "■字漢", 0x71},
      {{0x71}, "■なか", 0x71},
      {{0x70}, "■字漢", 0},
      // Without an exact index forward ones stand in for it.
      {{0x90, 0x91, 0x92}, "◆かな", 0x90},
      {{0x90, 0x91, 0x92}, "◆ab", 0x92},
      {{0x90, 0x91, 0x92}, "◆漢字", 0x91},
      {{0x91}, "◆かな", 0x91},
      {{0x40, 0x90}, "◆かな", 0},     // there is an exact one, though not for kana
      {{0x90, 0x40}, "◆かな", 0x90},  // a forward one came first
      {{0x50}, "◆ab", 0},
      {{0xA0}, "◆ab", 0},
      {{0x81}, "△ab", 0x81},
      {{0x80}, "▲ab", 0x80},
      {{0x60}, "△ab", 0},
      {{0x60}, "▲ab", 0},
      {{}, "◆ab", 0},
  };
  for (const Choice& row : rows) {
    BookWriter writer;
    writer.region(0, 1, padded("body"));
    uint32_t block = 10;
    for (const uint16_t kind : row.kinds) {
      const bool grouped = kind == 0x80 || kind == 0x81;
      IndexBlock leaf(grouped ? 0xF0 : 0xE0);
      for (const char* key : {"ab", "かな", "漢字"}) {
        const std::string text = jis(key);
        if (grouped) {
          leaf.tagged(0, text, at(kind) + at(kind));
        } else {
          const bool two = kind == 0x71 || kind == 0x72 || kind == 0x91 || kind == 0x92 || kind == 0xA0;
          leaf.leaf(text, at(kind), two ? at(kind) : "");
        }
      }
      writer.region(kind, block++, leaf.bytes(), {"\0\x7F\x7F\x7F", 4});
    }
    OpenBook book(writer);
    const std::string expected = row.chosen == 0 ? "8004100C" : "ok: 1/" + std::to_string(row.chosen);
    EXPECT_EQ(book.search(row.query), expected) << row.query;
  }
}

// A forward index that stands in for an exact one finds whole words alone.
TEST(SelectIndex, MatchesWholeWordsExactly) {
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("かな"), at(2)).leaf(jis("かなう"), at(4));
  OpenBook book(withIndex(0x90, leaf.bytes()));
  EXPECT_EQ(book.search("◆かな"), "ok: 1/2");
  EXPECT_EQ(book.search("□かな"), "ok: 1/2 1/4");
}

TEST(SearchKey, WantsACharacter) {
  OpenBook book(withIndex(0x60, IndexBlock(0xE0).leaf(jis("Ａ"), at(2)).bytes()));
  EXPECT_EQ(book.search("◆"), "80041009");
}

TEST(Leaf, HasFixedRecords) {
  IndexBlock leaf(0xA0, 4);
  leaf.fixed(jis("ab"), 1, 2).fixed(jis("cd"), 1, 4);
  OpenBook book(withIndex(0x60, leaf.bytes()));
  EXPECT_EQ(book.search("◆ab"), "ok: 1/2");
  EXPECT_EQ(book.search("◆cd"), "ok: 1/4");
  EXPECT_EQ(book.search("◆ef"), "ok:");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"1/2", "1/4"}));
}

// A shorter key is filled up with zeroes, which are part of the entry.
TEST(Leaf, TakesPaddingForPartOfAnEntry) {
  IndexBlock leaf(0xA0, 4);
  leaf.fixed(jis("a"), 1, 2);
  OpenBook book(withIndex(0x92, leaf.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok:");
  EXPECT_EQ(book.search("□a"), "ok: 1/2");
}

struct Trailer {
  uint16_t kind;
  const char* query;
  bool two;
};

TEST(Leaf, HasOneOrTwoAddressesByItsKind) {
  const Trailer rows[] = {{0x30, "◆かな", false}, {0x40, "◆ab", false}, {0x60, "◆ab", false},
                          {0x70, "■なか", false}, {0x71, "■ba", true},  {0x72, "■ba", true},
                          {0x90, "□かな", false}, {0x91, "□ab", true},  {0x92, "□ab", true}};
  for (const Trailer& row : rows) {
    IndexBlock leaf(0xE0);
    for (const char* key : {"ab", "かな"}) leaf.leaf(jis(key), at(2), row.two ? at(6) : "");
    OpenBook book(withIndex(row.kind, leaf.bytes()));
    EXPECT_EQ(book.search(row.query), "ok: 1/2") << row.kind;
    EXPECT_EQ(book.headwords, (std::vector<std::string>{row.two ? "1/6" : "1/2"})) << row.kind;
  }
}

TEST(Leaf, GoesOnInTheNextBlock) {
  IndexBlock one(0xC0), two(0xE0);
  one.leaf(jis("a"), at(2)).leaf(jis("b"), at(4));
  two.leaf(jis("b"), at(6)).leaf(jis("c"), at(8));
  OpenBook book(withIndex(0x60, one.bytes() + two.bytes()));
  EXPECT_EQ(book.search("◆b"), "ok: 1/4 1/6");
  EXPECT_EQ(book.search("◆c"), "ok: 1/8");
}

TEST(Leaf, EndsWithItsLevel) {
  IndexBlock one(0xE0), two(0xE0);  // bit 5: the last of its level
  one.leaf(jis("a"), at(2));
  two.leaf(jis("a"), at(4));
  OpenBook book(withIndex(0x60, one.bytes() + two.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
}

// What is found stays found.
TEST(Leaf, EndsQuietlyWhereABlockCantBeRead) {
  OpenBook book(withIndex(0x60, IndexBlock(0xC0).leaf(jis("a"), at(2)).bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
}

TEST(Leaf, StopsBehindTheKey) {
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("a"), at(2)).leaf(jis("b"), at(4)).leaf(jis("a"), at(6));
  OpenBook book(withIndex(0x60, leaf.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
}

TEST(Leaf, EndsAtARecordThatLeavesItsBlock) {
  const std::string good = IndexBlock(0xE0).leaf(jis("a"), at(2)).bytes().substr(4, 9);
  for (const char length : {'\xFF', '\x80'}) {
    IndexBlock leaf(0xE0);
    leaf.record(good);
    for (size_t i = 0; i < 200; ++i) leaf.record(good);
    leaf.loose(std::string(2044 - 201 * good.size() - 1, '\0') + length).count(1000);
    OpenBook book(withIndex(0x60, leaf.bytes()));
    EXPECT_EQ(book.search("◆a"), "ok: 1/2");
  }
}

// Two levels over three leaves; each level is closed by a key behind all others.
std::string threeLeaves(const std::vector<std::string>& keys) {
  IndexBlock top(0x20, 4);
  top.inner(jis(keys[1]), 11).inner(jis(keys[3]), 12).closing(13);
  IndexBlock a(0xC0), b(0xC0), c(0xE0);
  a.leaf(jis(keys[0]), at(2)).leaf(jis(keys[1]), at(4));
  b.leaf(jis(keys[2]), at(6)).leaf(jis(keys[3]), at(8));
  c.leaf(jis(keys[4]), at(10));
  return top.bytes() + a.bytes() + b.bytes() + c.bytes();
}

TEST(Inner, LeadsToTheLeaf) {
  OpenBook book(withIndex(0x60, threeLeaves({"aa", "bb", "cc", "dd", "ee"})));
  EXPECT_EQ(book.search("◆aa"), "ok: 1/2");
  EXPECT_EQ(book.search("◆bb"), "ok: 1/4");
  EXPECT_EQ(book.search("◆cc"), "ok: 1/6");
  EXPECT_EQ(book.search("◆dd"), "ok: 1/8");
  EXPECT_EQ(book.search("◆ee"), "ok: 1/10");
  EXPECT_EQ(book.search("◆a"), "ok:");
  EXPECT_EQ(book.search("◆zz"), "ok:");
}

TEST(Inner, GoesOnInTheNextInnerBlock) {
  IndexBlock one(0x00, 2), two(0x20, 2);
  one.inner(jis("a"), 12);
  two.inner(jis("b"), 13).closing(13);
  IndexBlock a(0xC0), b(0xE0);
  a.leaf(jis("a"), at(2));
  b.leaf(jis("b"), at(4)).leaf(jis("c"), at(6));
  OpenBook book(withIndex(0x60, one.bytes() + two.bytes() + a.bytes() + b.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
  EXPECT_EQ(book.search("◆b"), "ok: 1/4");
  EXPECT_EQ(book.search("◆c"), "ok: 1/6");
}

// kept: without a closing key what sorts behind the last one is a broken index
TEST(Inner, IsBrokenBehindItsLastKey) {
  IndexBlock top(0x20, 2);
  top.inner(jis("b"), 11);
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("a"), at(2)).leaf(jis("c"), at(4));
  OpenBook book(withIndex(0x60, top.bytes() + leaf.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
  EXPECT_EQ(book.search("◆c"), "8004100E");
}

// The key goes on behind "go": the walk turns back into that record's child at the next record.
TEST(Inner, GoesIntoTheRecordBeforeWhenTheKeyGoesOn) {
  IndexBlock top(0x20, 4);
  top.inner(jis("go"), 11).inner(jis("zz"), 12);
  IndexBlock a(0xC0), b(0xE0);
  a.leaf(jis("going"), at(2));
  b.leaf(jis("going"), at(4));
  OpenBook book(withIndex(0x60, top.bytes() + a.bytes() + b.bytes()));
  EXPECT_EQ(book.search("◆going"), "ok: 1/2 1/4");
  IndexBlock behind(0x20, 4);
  behind.inner(jis("gn"), 11).inner(jis("zz"), 12);
  OpenBook other(withIndex(0x60, behind.bytes() + a.bytes() + b.bytes()));
  EXPECT_EQ(other.search("◆going"), "ok: 1/4");
}

TEST(Inner, IsBrokenWithoutKeyLength) {
  OpenBook book(withIndex(0x60, IndexBlock(0x20, 0).bytes()));
  EXPECT_EQ(book.search("◆a"), "8004100E");
}

TEST(Inner, IsBrokenWhenItsRecordsLeaveTheBlock) {
  OpenBook book(withIndex(0x60, IndexBlock(0x20, 4).count(65535).bytes()));
  EXPECT_EQ(book.search("◆a"), "8004100E");
}

TEST(Inner, IsBrokenWhenItLeadsBackToItself) {
  IndexBlock top(0x20, 4);
  top.closing(10);
  OpenBook book(withIndex(0x60, top.bytes()));
  EXPECT_EQ(book.search("◆a"), "8004100E");
}

TEST(Inner, FailsWhereItsChildCantBeRead) {
  IndexBlock top(0x20, 4);
  top.closing(99);
  OpenBook book(withIndex(0x60, top.bytes()));
  EXPECT_EQ(book.search("◆a"), "8004100D");
}

std::string head(std::string_view key, size_t skipped) {
  return "\x80" + std::string(1, static_cast<char>(key.size())) + std::string(skipped, '?') +
         std::string(key);
}

// Members are found by the key as it was typed, heads by the key as the index wants it.
TEST(Groups, HoldWordsOfOneKey) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("はは"), 2))
      .tagged(0xC0, jis("はは"), at(2) + at(20))
      .tagged(0xC0, jis("ぱぱ"), at(4) + at(40));
  leaf.tagged(0x00, jis("ひと"), at(6) + at(60));
  OpenBook book(withIndex(0x90, leaf.bytes(), {"\0\0\0\0", 4}));
  EXPECT_EQ(book.search("◆はは"), "ok: 1/2");
  EXPECT_EQ(book.search("◆パパ"), "ok: 1/4");
  EXPECT_EQ(book.search("◆ばば"), "ok:");
  EXPECT_EQ(book.search("◆ひと"), "ok: 1/6");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"1/20", "1/40", "1/60"}));
}

TEST(Groups, HaveOneAddressInOtherKinds) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("はは"), 2)).tagged(0xC0, jis("はは"), at(2)).tagged(0x00, jis("ひと"), at(6));
  OpenBook book(withIndex(0x30, leaf.bytes()));
  EXPECT_EQ(book.search("◆はは"), "ok: 1/2");
  EXPECT_EQ(book.search("◆ひと"), "ok: 1/6");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"1/2", "1/6"}));
}

TEST(Groups, EndBehindTheKey) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("b"), 2)).tagged(0xC0, jis("b"), at(2)).record(head(jis("a"), 2));
  leaf.tagged(0xC0, jis("a"), at(4));
  OpenBook book(withIndex(0x60, leaf.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok:");
}

// A record without length ends its block's records, and the next block's go on in its place.
TEST(Groups, GoOnInTheNextBlockBehindAnEmptyRecord) {
  IndexBlock one(0xD0), two(0xF0);
  one.tagged(0x00, jis("a"), at(2)).record(std::string(2, '\0')).count(3);
  two.tagged(0x00, jis("b"), at(4)).tagged(0x00, jis("c"), at(6)).count(0);
  OpenBook book(withIndex(0x60, one.bytes() + two.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
  EXPECT_EQ(book.search("◆b"), "ok: 1/4");
  EXPECT_EQ(book.search("◆c"), "ok: 1/6");
}

TEST(Groups, EndAtAnUnknownTag) {
  IndexBlock leaf(0xF0);
  leaf.tagged(0x00, jis("a"), at(2)).tagged(0x40, jis("a"), at(4)).tagged(0x00, jis("a"), at(6));
  OpenBook book(withIndex(0x60, leaf.bytes()));
  EXPECT_EQ(book.search("◆a"), "ok: 1/2");
}

// The members' headwords stand one behind the other in a list of their own.
TEST(KeywordGroups, TakeHeadwordsFromAList) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("a"), 4) + place(20, 0));
  leaf.record("\xC0" + at(2)).record("\xC0" + at(4)).record("\xC0" + at(6));
  leaf.tagged(0x00, jis("b"), at(8) + at(80));
  Text list;
  list.chars("xy").feed().chars("z").feed();
  list.raw(std::string(2046 - list.size(), '!')).feed().chars("q").feed();
  for (const uint16_t kind : {0x80, 0x81}) {
    BookWriter writer = withIndex(kind, leaf.bytes());
    writer.region(0x05, 20, list.bytes());
    OpenBook book(writer);
    const std::string method = kind == 0x80 ? "▲" : "△";
    EXPECT_EQ(book.search(method + "a"), "ok: 1/2 1/4 1/6");
    EXPECT_EQ(book.headwords, (std::vector<std::string>{"20/0", "20/6", "20/10"}));
    EXPECT_EQ(book.search(method + "b"), "ok: 1/8");
    EXPECT_EQ(book.headwords.back(), "1/80");
  }
}

// A line feed in the last word of a block: the next headword begins the next block.
TEST(KeywordGroups, FollowTheListIntoTheNextBlock) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("a"), 4) + place(20, 2044)).record("\xC0" + at(2)).record("\xC0" + at(4));
  BookWriter writer = withIndex(0x80, leaf.bytes());
  writer.region(0x05, 20, std::string(2044, '!') + jis("x") + be16(0x1F0A) + jis("y") + be16(0x1F0A));
  OpenBook book(writer);
  EXPECT_EQ(book.search("▲a"), "ok: 1/2 1/4");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"20/2044", "21/0"}));
}

TEST(KeywordGroups, EndWhereTheListCantBeRead) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("a"), 4) + place(99, 0)).record("\xC0" + at(2)).record("\xC0" + at(4));
  OpenBook book(withIndex(0x80, leaf.bytes()));
  EXPECT_EQ(book.search("▲a"), "ok:");
}

// Headwords of 64 KiB come to no line feed.
TEST(KeywordGroups, EndAtAHeadwordWithoutEnd) {
  IndexBlock leaf(0xF0);
  leaf.record(head(jis("a"), 4) + place(20, 0)).record("\xC0" + at(2));
  const auto found = [&](size_t headword) {
    BookWriter writer = withIndex(0x80, leaf.bytes());
    writer.region(0x05, 20, std::string(headword, '!') + be16(0x1F0A));
    return OpenBook(writer).search("▲a");
  };
  EXPECT_EQ(found(65534), "ok: 1/2");
  EXPECT_EQ(found(65536), "ok:");
}

// Six passes, one for each vowel that the mark may stand for, and a seventh sound that the design carries.
TEST(Backward, TakesALeadingLongMarkForEachVowel) {
  // Entries are reversed: what is typed "ーき" stands as "き" and what the mark is.
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("きあ"), at(2)).leaf(jis("きい"), at(4)).leaf(jis("きう"), at(6));
  leaf.leaf(jis("きえ"), at(8)).leaf(jis("きお"), at(10)).leaf(jis("きが"), at(12)).leaf(jis("きん"), at(14));
  OpenBook book(withIndex(0x70, leaf.bytes(), {"\0\0\0\0", 4}));
  EXPECT_EQ(book.search("■ーき"), "ok: 1/2 1/4 1/6 1/8 1/10 1/12");
}

TEST(Backward, RunsOnePassForOtherKeys) {
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("きー"), at(4)).leaf(jis("きあ"), at(2));
  OpenBook book(withIndex(0x70, leaf.bytes(), {"\0\x01\0\0", 4}));
  EXPECT_EQ(book.search("■ーき"), "ok: 1/4");  // the flags keep the mark
  EXPECT_EQ(book.search("■あき"), "ok: 1/2");
}

// Entries are stored reversed, and a key finds all words that end in it.
TEST(Backward, FindsWordsByTheirEnd) {
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("かさ"), at(2)).leaf(jis("かさあ"), at(4)).leaf(jis("かと"), at(6));
  OpenBook book(withIndex(0x70, leaf.bytes()));
  EXPECT_EQ(book.search("■さか"), "ok: 1/2 1/4");
  EXPECT_EQ(book.search("■か"), "ok: 1/2 1/4 1/6");
  EXPECT_EQ(book.search("■あさか"), "ok: 1/4");
}

TEST(KillCompare, LetsASearchRunToItsEnd) {
  OpenBook book(withIndex(0x60, threeLeaves({"aa", "bb", "cc", "dd", "ee"})));
  EXPECT_EQ(SDicSetKillCompare(book.handle, true), 0u);
  EXPECT_EQ(book.search("◆cc"), "ok: 1/2 1/4 1/6 1/8 1/10");
  EXPECT_EQ(SDicSetKillCompare(book.handle, false), 0u);
  EXPECT_EQ(book.search("◆cc"), "ok: 1/6");
  EXPECT_EQ(SDicSetKillCompare(nullptr, true), 0x80000016u);
}

// A key of blanks: no rule drops them, comparisons pass over them, and with a prefix every record is a hit.
TEST(Blanks, AreAKey) {
  IndexBlock leaf(0xE0);
  leaf.leaf(jis("a"), at(2) + at(2)).leaf(jis("b"), at(4) + at(4));
  OpenBook book(withIndex(0x91, leaf.bytes()));
  EXPECT_EQ(book.search("□　"), "ok: 1/2 1/4");
  EXPECT_EQ(book.search("◆　"), "ok:");
}

}  // namespace
}  // namespace zavel::book
