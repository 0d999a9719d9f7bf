#include <gtest/gtest.h>

#include "OpenBook.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// One leaf block of single words: each leads to the bodies named, as "key" and offsets in block 1. Keys are
// given in their order.
BookWriter words(const std::vector<std::pair<std::string, std::vector<uint16_t>>>& list) {
  IndexBlock leaf(0xE0);
  for (const auto& [key, offsets] : list) {
    for (const uint16_t offset : offsets) leaf.leaf(jis(key), place(1, offset));
  }
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(0x60, 10, leaf.bytes());
  writer.region(0x90, 11, leaf.bytes());
  return writer;
}

// A: 10 and 40; B: 20 and 40; C: 30 and 40 and 20.
BookWriter abc() {
  return words({{"Ａ", {40, 10}}, {"Ｂ", {40, 20}}, {"Ｃ", {40, 20, 30}}});
}

struct Row {
  const char* query;
  const char* answer;
};

TEST(Query, CombinesKeys) {
  const Row rows[] = {
      {"◆A", "ok: 1/10 1/40"},
      {"◆X", "ok:"},
      {"◆A│◆B", "ok: 1/10 1/20 1/40"},
      {"◆A◇◆B", "ok: 1/40"},
      {"◆B◇◆C", "ok: 1/20 1/40"},
      {"◆A│◆B◇◆C", "ok: 1/20 1/40"},
      {"◆A◇◆B│◆C", "ok: 1/20 1/30 1/40"},
      {"⊂◆A⊃", "ok: 1/10 1/40"},
      {"⊂◆A│◆B⊃◇◆C", "ok: 1/20 1/40"},
      {"◆C◇⊂◆A│◆B⊃", "ok: 1/20 1/40"},
      {"⊂⊂◆A⊃│⊂◆B⊃⊃", "ok: 1/10 1/20 1/40"},
      {"◆A│◆A", "ok: 1/10 1/40"},
      // A key without hits alone, ahead of and behind others.
      {"◆X│◆A", "ok: 1/10 1/40"},
      {"◆A│◆X", "ok: 1/10 1/40"},
      {"◆X│◆X", "ok:"},
      {"◆X◇◆A", "ok: 1/10 1/40"},
      // An intersection that leaves nothing.
      {"◆A◇◆X", "80041009"},
      {"◆A◇◆B◇◆X", "80041009"},
      {"⊂◆X⊃", "80041009"},
      {"⊂◆A◇◆X⊃", "80041009"},
      {"◆X◇⊂◆A⊃", "80041009"},
      // B runs a second time behind the group.
      {"◆A│◆B◇⊂◆C⊃", "ok: 1/20 1/40"},
  };
  for (const Row& row : rows) {
    OpenBook book(abc());
    EXPECT_EQ(book.search(row.query), row.answer) << row.query;
  }
}

TEST(Query, RefusesWhatIsMalformed) {
  for (const char* query : {"A", "◆", "◇", "│", "⊂", "⊃", "⊂⊃", "◆A◆B", "◆A⊂◆B⊃", "◆A◇", "◆A│", "◇◆A",
                            "◆A◇│◆B", "⊂◆A⊃⊂◆B⊃", "▽０", "▽", "▼", "▽０▼０A"}) {
    OpenBook book(abc());
    EXPECT_EQ(book.search(query), "80041009") << query;
  }
}

TEST(Query, KnowsNoFieldsWithoutMultiSearches) {
  OpenBook book(abc());
  EXPECT_EQ(book.search("▼０"), "8004100C");
  EXPECT_EQ(book.search("▼０A"), "8004100C");
}

// A bracket that closes nothing ends the query as its end would, and what follows is too much.
TEST(Query, EndsAtABracketThatClosesNothing) {
  OpenBook book(abc());
  EXPECT_EQ(book.search("◆A⊃"), "ok: 1/10 1/40");
  EXPECT_EQ(book.search("◆A⊃◇◆B"), "80041009");
  EXPECT_EQ(book.search("⊂◆A"), "ok: 1/10 1/40");  // as an end closes what is open
}

TEST(Query, RefusesHalfACode) {
  OpenBook book(abc());
  long count = 7, first = 7;
  EXPECT_EQ(SDicExecIndexSearch(book.handle, (jis("◆A") + "\x23").c_str(), false, false, &count, &first),
            0x80041009u);
  EXPECT_EQ(count, 0);
}

TEST(Query, RefusesNothing) {
  OpenBook book(abc());
  long count = 7, first = 7;
  EXPECT_EQ(SDicExecIndexSearch(book.handle, "", false, false, &count, &first), 0x80000016u);
  EXPECT_EQ(SDicExecIndexSearch(book.handle, nullptr, false, false, &count, &first), 0x80000016u);
  EXPECT_EQ(SDicExecIndexSearch(book.handle, jis("◆A").c_str(), false, false, nullptr, &first), 0x80000016u);
  EXPECT_EQ(SDicExecIndexSearch(book.handle, jis("◆A").c_str(), false, false, &count, nullptr), 0x80000016u);
}

TEST(Query, BoundsGroups) {
  OpenBook book(abc());
  const auto nested = [](size_t depth) {
    std::string query;
    for (size_t i = 0; i < depth; ++i) query += "⊂";
    query += "◆A";
    for (size_t i = 0; i < depth; ++i) query += "⊃";
    return query;
  };
  EXPECT_EQ(book.search(nested(200)), "ok: 1/10 1/40");
  EXPECT_EQ(book.search(nested(201)), "80041009");
  EXPECT_EQ(book.search(nested(5000)), "80041009");
}

// 62 characters behind the tag fill the key; what goes beyond is dropped.
TEST(Query, CutsLongKeys) {
  const std::string longest(62, 'A');
  OpenBook book(words({{longest, {10}}}));
  EXPECT_EQ(book.search("◆" + longest), "ok: 1/10");
  EXPECT_EQ(book.search("◆" + longest + "BBBB"), "ok: 1/10");
  EXPECT_EQ(book.search("◆" + longest.substr(1)), "ok:");
}

// The index has 40 ahead of 10.
TEST(Query, NumbersByPlaceAndKnowsTheIndexsFirst) {
  OpenBook book(abc());
  EXPECT_EQ(book.search("◆A"), "ok: 1/10 1/40");
  EXPECT_EQ(book.firstHit, 1);
  EXPECT_EQ(book.search("◆C"), "ok: 1/20 1/30 1/40");
  EXPECT_EQ(book.firstHit, 2);
  EXPECT_EQ(book.search("◆X"), "ok:");
  EXPECT_EQ(book.firstHit, 0);
}

TEST(Query, KeepsTheFirstHitWhileItIsThere) {
  OpenBook book(words({{"Ａ", {10, 40}}, {"Ｂ", {40, 20}}, {"Ｃ", {30}}}));
  EXPECT_EQ(book.search("◆A│◆B"), "ok: 1/10 1/20 1/40");
  EXPECT_EQ(book.firstHit, 0);  // of A
  EXPECT_EQ(book.search("◆A◇◆B"), "ok: 1/40");
  EXPECT_EQ(book.firstHit, 0);  // A's is gone, B's is there
  EXPECT_EQ(book.search("◆X│◆C"), "ok: 1/30");
  EXPECT_EQ(book.firstHit, 0);
}

TEST(Query, TakesTwoKeysOfOneBodyForOneHit) {
  OpenBook book(words({{"Ａ", {10}}, {"Ｂ", {10}}}));
  EXPECT_EQ(book.search("◆A│◆B"), "ok: 1/10");
}

TEST(SearchResult, IsThereUntilTheNextSearch) {
  OpenBook book(abc());
  _SDICITEMADDRESS hit{};
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0, &hit), 0x80000016u);
  book.search("◆A");
  EXPECT_EQ(SDicGetSearchResult(book.handle, 1, &hit), 0u);
  EXPECT_EQ(hit.zero, 0u);
  EXPECT_EQ(hit.body.block, 1u);
  EXPECT_EQ(hit.body.offset, 40u);
  EXPECT_EQ(SDicGetSearchResult(book.handle, 2, &hit), 0x80000016u);
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0x100000000, &hit), 0x80000016u);
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0, nullptr), 0x80000016u);
  book.search("◇");
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0, &hit), 0x80000016u);
}

TEST(SearchResult, StaysWhenKept) {
  OpenBook book(abc());
  long count = 0, first = 0;
  const auto keep = [&](const char* query) {
    return SDicExecIndexSearch(book.handle, jis(query).c_str(), false, true, &count, &first);
  };
  EXPECT_EQ(keep("◆A"), 0u);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(keep("◆C"), 0u);  // the earlier hits stay as they are
  EXPECT_EQ(count, 2);
  _SDICITEMADDRESS hit{};
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0, &hit), 0u);
  EXPECT_EQ(hit.body.offset, 10u);
  EXPECT_EQ(keep(""), 0x80000016u);
  EXPECT_EQ(SDicGetSearchResult(book.handle, 0, &hit), 0u);
}

}  // namespace
}  // namespace zavel::book
