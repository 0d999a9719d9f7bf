// Which sections of an entry the filters of a meaning search keep.
#include "engine/ImiFilter.h"

#include <gtest/gtest.h>

#include <set>

#include "engine/SearchFixture.h"

namespace zavel::test {
namespace {

using engine::IsImiFilter;

std::string filtered(uint8_t filter, std::string text) {
  engine::ImiFilter(filter, &text);
  return text;
}

std::string filteredJ(uint8_t filter, std::string text) {
  engine::ImiFilterJ(filter, &text);
  return text;
}

// All 28 tags.
constexpr uint16_t kAllTags[] = {0xF4A4, 0xF4B5, 0xF4D0, 0xF5A7, 0xF5B1, 0xF5B6, 0xF5B7,
                                 0xF5B8, 0xF5B9, 0xF5BD, 0xF5C1, 0xF5C2, 0xF5D0, 0xF5D1,
                                 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D6, 0xF5D7, 0xF5D8,
                                 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9};

TEST(IsImiFilter, KnowsFourFilters) {
  for (int filter = 0; filter < 256; ++filter) {
    EXPECT_EQ(filter == 0 || filter == 3 || filter == 4 || filter == 5,
              IsImiFilter(static_cast<uint8_t>(filter)));
  }
}

struct Table {
  uint8_t filter;
  std::set<uint16_t> starts;
  std::set<uint16_t> ends;
};

const Table kTables[] = {
    {3,
     {0xF5D3, 0xF5D4},
     {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D5, 0xF5D6, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7}},
    {4,
     {0xF5D6, 0xF5E4},
     {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3, 0xF5E5, 0xF5E7}},
    {5,
     {0xF5D5, 0xF5D8, 0xF5E5},
     {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D6, 0xF5D7, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E7}},
};

TEST(ImiFilter, BeginsASectionAtItsStartTagsAlone) {
  for (const Table& table : kTables) {
    for (const uint16_t value : kAllTags) {
      const std::string text = "x" + tag(value) + "y";
      EXPECT_EQ(table.starts.contains(value) ? tag(value) + "y" : "", filtered(table.filter, text))
          << int{table.filter} << " " << std::hex << value;
    }
  }
}

TEST(ImiFilter, EndsASectionAtTheTagsOfItsTable) {
  for (const Table& table : kTables) {
    const std::string start = tag(*table.starts.begin());
    for (const uint16_t value : kAllTags) {
      const std::string kept = table.ends.contains(value) ? start + "a" : start + "a" + tag(value) + "b";
      EXPECT_EQ(kept, filtered(table.filter, start + "a" + tag(value) + "b"))
          << int{table.filter} << " " << std::hex << value;
    }
  }
}

TEST(ImiFilter, EndsASectionAtTheReferenceMark) {
  for (const Table& table : kTables) {
    const std::string start = tag(*table.starts.begin());
    EXPECT_EQ(start + "a" + start + "c",
              filtered(table.filter, start + "a" + sjis("《★") + "b" + start + "c"));
    EXPECT_EQ(start + "a" + sjis("《") + "b", filtered(table.filter, start + "a" + sjis("《") + "b"));
  }
}

TEST(ImiFilter, TakesAnEntryApart) {
  const std::string entry = head("run") + line(0xF5D3, "-[動]") + line(0xF5D4, "走る") +
                            line(0xF5D5, "run fast") + line(0xF5D8, " 速く走る") + line(0xF5D6, "run out") +
                            line(0xF5E4, "尽きる") + line(0xF5E5, "it ran out") + line(0xF5D8, " 尽きた");
  EXPECT_EQ(line(0xF5D3, "-[動]") + line(0xF5D4, "走る"), filtered(3, entry));
  EXPECT_EQ(line(0xF5D6, "run out") + line(0xF5E4, "尽きる"), filtered(4, entry));
  EXPECT_EQ(line(0xF5D5, "run fast") + line(0xF5D8, " 速く走る") + line(0xF5E5, "it ran out") +
                line(0xF5D8, " 尽きた"),
            filtered(5, entry));
}

TEST(ImiFilter, LeavesNothingOfAnEntryWithoutTheSection) {
  EXPECT_EQ("", filtered(4, entryE("apple", "名", "りんご")));
  EXPECT_EQ("", filtered(3, ""));
  EXPECT_EQ("", filtered(3, "\xF5"));
  EXPECT_EQ(tag(0xF5D4) + "\xF5", filtered(3, tag(0xF5D4) + "\xF5")) << "half a tag at the end is text";
}

// The scan is by bytes: the second byte of 員 (0x88F5) and a half-width ﾕ (0xD5) read as a tag.
TEST(ImiFilter, SeesATagInTheSecondByteOfAKanji) {
  EXPECT_EQ(tag(0xF5D4) + "\x88", filtered(3, tag(0xF5D4) + sjis("員") +
                                                  "\xD5"
                                                  "a"));
}

TEST(ImiFilterJ, KeepsMeaningsAsTheEnglishOneDoes) {
  const std::string entry = entryJ("くだもの", "果物", "fruit") + line(0xF5D5, "¶果物屋");
  EXPECT_EQ(line(0xF5D4, "fruit"), filteredJ(3, entry));
  EXPECT_EQ(tag(0xF5D4) + "a", filteredJ(3, tag(0xF5D4) + "a" + sjis("《★") + "b"));
}

TEST(ImiFilterJ, KeepsEveryPhraseOfAList) {
  const std::string kureis = line(0xF5D5, "果物屋") + tag(0xF5D8) + " a fruit shop\n" +
                             line(0xF5D5, "/果物皿") + tag(0xF5D8) + " a fruit dish\n";
  const std::string bunreis =
      line(0xF5D6, "[文例]x") + tag(0xF5D8) + " It is.\n" + line(0xF5D6, "/y") + tag(0xF5D8) + " So.\n";
  const std::string entry = entryJ("くだもの", "果物", "fruit") + kureis + bunreis;
  EXPECT_EQ(kureis, filteredJ(4, entry));
  EXPECT_EQ(bunreis, filteredJ(5, entry));
}

TEST(ImiFilterJ, EndsASectionAtTheOtherTagsOfItsList) {
  const std::set<uint16_t> ends = {0xF5A7, 0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D7,
                                   0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9};
  for (const uint8_t filter : {4, 5}) {
    const uint16_t start = filter == 4 ? 0xF5D5 : 0xF5D6;
    const uint16_t other = filter == 4 ? 0xF5D6 : 0xF5D5;
    for (const uint16_t value : kAllTags) {
      const bool isEnd = ends.contains(value) || value == other;
      const std::string text = tag(start) + "a" + tag(value) + "b";
      EXPECT_EQ(isEnd ? tag(start) + "a" : text, filteredJ(filter, text))
          << int{filter} << " " << std::hex << value;
    }
  }
}

TEST(ImiFilterJ, EndsASectionAtItsSecondOtherSide) {
  const std::string d5 = tag(0xF5D5), d8 = tag(0xF5D8);
  EXPECT_EQ(d5 + "a" + d8 + "b", filteredJ(4, d5 + "a" + d8 + "b" + d8 + "c"));
  EXPECT_EQ(d5 + "a" + d8 + "b" + d5 + "c" + d8 + "d",
            filteredJ(4, d5 + "a" + d8 + "b" + d5 + "c" + d8 + "d"))
      << "counted anew in each section";
  EXPECT_EQ(d5 + "a" + d8 + "b" + d5 + "c" + d8 + "d",
            filteredJ(4, d5 + "a" + d8 + "b" + d8 + "x" + d5 + "c" + d8 + "d"));
}

TEST(ImiFilterJ, CopiesTheReferenceMarkInLists) {
  EXPECT_EQ(tag(0xF5D5) + sjis("a《★b"), filteredJ(4, tag(0xF5D5) + sjis("a《★b")));
}

TEST(ImiFilterJ, SkipsAnOtherSideOutsideASection) {
  EXPECT_EQ("", filteredJ(4, "x" + tag(0xF5D8) + "y"));
}

}  // namespace
}  // namespace zavel::test
