// In which indexes words stand, and that each of their beginnings and ends is found where a search looks for
// it.
#include "mkbook/WordIndexes.h"

#include <gtest/gtest.h>

#include "book/SDic.h"
#include "mkbook/BookFolder.h"
#include "mkbook/Catalog.h"
#include "mkbook/RegionFile.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::jis;

std::string filesFor(const std::vector<std::string>& words) {
  WordIndexes indexes;
  for (const std::string& word : words) indexes.add(word, {1, 2});
  indexes.settle();
  std::string out;
  for (const WordIndexes::File& file : indexes.files())
    if (file.index->size() > 0)
      out += (out.empty() ? "" : " ") + std::string(file.name, std::string(file.name).find('.'));
  return out;
}

TEST(WordIndexes, FileAWordWhereItsKeysAreLookedFor) {
  EXPECT_EQ(filesFor({jis("かな")}), "EXACTK FORWARDK BACKWARDK");
  EXPECT_EQ(filesFor({jis("カード")}), "EXACTK FORWARDK BACKWARDK");
  EXPECT_EQ(filesFor({jis("dog")}), "EXACTL FORWARDL BACKWARDL");
  EXPECT_EQ(filesFor({jis("漢字")}), "EXACT FORWARD BACKWARD");
  EXPECT_EQ(filesFor({jis("2001")}), "EXACT FORWARD BACKWARD");
  EXPECT_EQ(filesFor({jis("かな漢字")}), "EXACT FORWARDK FORWARD BACKWARD");
  EXPECT_EQ(filesFor({jis("漢字かな")}), "EXACT FORWARD BACKWARDK BACKWARD");
  // Digits ahead of letters are letters, behind them they are not.
  EXPECT_EQ(filesFor({jis("24-hour")}), "EXACTL FORWARDL FORWARD BACKWARDL");
  EXPECT_EQ(filesFor({jis("mp3")}), "EXACT FORWARDL FORWARD BACKWARD");
  EXPECT_EQ(filesFor({jis("caf") + "\xA1\x21"}), "EXACT FORWARDL FORWARD BACKWARD");
}

// The sign makes a key of no one kind, and no key holds it.
TEST(WordIndexes, FileAWordWithSignsAsItIsSpelledAndWithout) {
  EXPECT_EQ(filesFor({jis("ac/dc")}), "EXACTL EXACT FORWARDL FORWARD BACKWARDL BACKWARD");
  EXPECT_EQ(filesFor({jis("ice cream")}), "EXACTL FORWARDL BACKWARDL");
  EXPECT_EQ(filesFor({jis("(")}), "");
}

// Beginnings are of the first 62 characters, as many as a search takes in; ends are of what stands behind
// them, too.
TEST(WordIndexes, FileLongWordsByTheirOwnEnds) {
  EXPECT_EQ(filesFor({jis(std::string(62, 'a') + "あ")}), "EXACTL FORWARDL BACKWARDK BACKWARD");
}

TEST(WordIndexes, AlwaysHaveTheGeneralOnes) {
  WordIndexes indexes;
  indexes.settle();
  ASSERT_EQ(indexes.files().size(), 3u);
  EXPECT_STREQ(indexes.files()[0].name, kExactFile);
  EXPECT_STREQ(indexes.files()[1].name, kForwardFile);
  EXPECT_STREQ(indexes.files()[2].name, kBackwardFile);
}

class Indexed {
 public:
  explicit Indexed(const std::vector<std::string>& words) {
    WordIndexes indexes;
    for (size_t i = 0; i < words.size(); ++i) indexes.add(jis(words[i]), {1, static_cast<uint32_t>(2 * i)});
    indexes.settle();
    Catalog catalog;
    RegionFile text(folder_.file("BODY"), 1);
    text.finish();
    catalog.records.push_back({0, 1, 1, {}, "BODY"});
    uint32_t first = 2;
    for (const WordIndexes::File& file : indexes.files()) {
      RegionFile region(folder_.file(file.name), file.index->blocks());
      file.index->write(first, region);
      region.finish();
      catalog.records.push_back(
          {file.index->kind(), first, first + file.index->blocks() - 1, file.index->flags(), file.name});
      first += file.index->blocks();
    }
    folder_.write("B", catalog.bytes());
    EXPECT_EQ(SDicOpenDictionary(folder_.file("B").c_str(), &book_, nullptr, false, false), 0u);
  }
  ~Indexed() { SDicCloseDictionary(book_); }
  Indexed(const Indexed&) = delete;
  Indexed& operator=(const Indexed&) = delete;

  bool finds(const std::string& query, size_t word) const {
    long count = 0, first = 0;
    if (SDicExecIndexSearch(book_, query.c_str(), false, false, &count, &first) != 0) return false;
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      SDicGetSearchResult(book_, static_cast<unsigned long>(i), &hit);
      if (hit.body.offset == 2 * word) return true;
    }
    return false;
  }

 private:
  test::TempFolder folder_;
  void* book_ = nullptr;
};

TEST(WordIndexes, FindEveryBeginningAndEndOfEveryWord) {
  const std::vector<std::string> words = {"かな漢字", "漢字かな", "dog",     "24hour",       "mp3player",
                                          "Ａあ亜1a", "あＡ",     "Tシャツ", "3Dプリンター", "アa亜あ"};
  const Indexed book(words);
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string word = jis(words[i]);
    EXPECT_TRUE(book.finds(jis("◆") + word, i)) << words[i];
    for (size_t at = 0; at < word.size(); at += 2) {
      EXPECT_TRUE(book.finds(jis("□") + word.substr(0, at + 2), i)) << words[i] << " to " << at;
      EXPECT_TRUE(book.finds(jis("■") + word.substr(at), i)) << words[i] << " from " << at;
    }
  }
}

}  // namespace
}  // namespace zavel::mkbook
