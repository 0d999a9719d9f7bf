// The thirteen files of small compilations.
#include "mkdict/BasicSet.h"

#include <gtest/gtest.h>

#include "engine/EngineAPI.h"
#include "foundation/ByteReader.h"
#include "mkdict/DicFileWriter.h"
#include "mkdict/SmallSet.h"

namespace zavel::mkdict {
namespace {

using test::sjis;

std::string bytes(std::initializer_list<int> list) {
  std::string out;
  for (int b : list) out += static_cast<char>(b);
  return out;
}

TEST(BasicSet, OneEntryByteForByte) {
  const std::string entry =
      "\xF5\xD1\xF5\xB1"
      "apple\xF5\xC1\n\xF5\xD3-[\x96\xBC]\n\xF5\xD4\x82\xE8\x82\xF1\x82\xB2\n";
  Compilation compilation;
  compilation.english.push_back({"apple", entry, 0});
  const auto files = filesOf(compilation);
  EXPECT_EQ(entry, files.at("ej.dic"));
  EXPECT_EQ(bytes({1, 0, 15, 0, 0, 0, 2, 0, 'l', 'e', 0, 0, 0, 0, 0}), files.at("ej.ix3"));
  EXPECT_EQ(bytes({3, 0, 0, 0,   11, 0, 0, 0, 'a', 0, 0,   3, 0, 0, 0, 22,
                   0, 0, 0, 'p', 0,  0, 5, 0, 0,   0, 'p', 0, 0, 0, 0}),
            files.at("ej.idx"));
}

TEST(BasicSet, HasThirteenFiles) {
  const auto files = smallSet();
  EXPECT_EQ(13u, files.size());
  EXPECT_EQ(13u, basicSetNames().size());
  for (const std::string& name : basicSetNames()) EXPECT_EQ(1u, files.count(name)) << name;
}

// Neighbours in an index are neighbours on the disk, whatever the order of the source.
TEST(BasicSet, EntriesLieInTheOrderOfTheirIndex) {
  const auto files = smallSet();
  const std::string& je = files.at("je.dic");
  EXPECT_EQ(test::entryJ("あいさつ", "挨拶", "x") + test::entryJ("あいさつする", "挨拶する", "x") +
                test::entryJ("あ", "", "x") + test::entryJ("いぬ", "犬", "x"),
            je);
}

// A file that is cut short shows by this: the last row then leads beyond its end.
TEST(BasicSet, TheLastRowLeadsToTheLastEntry) {
  Compilation compilation = smallCompilation();
  compilation.japanese.push_back({"", sjis("犬犬"), test::entryJ("ん", "犬犬", "by written form alone"), 0});
  const auto files = filesOf(compilation);
  const std::string& je = files.at("je.dic");
  EXPECT_EQ(0u, je.find(test::entryJ("ん", "犬犬", "by written form alone")));
  for (const std::string name : {"ej", "je"}) {
    const std::string& rows = files.at(name + ".ix3");
    const uint32_t last = readLE32(reinterpret_cast<const uint8_t*>(rows.data()) + rows.size() - 4);
    EXPECT_EQ(files.at(name + ".dic").rfind("\xF5\xD1"), last) << name;
  }
}

TEST(BasicSet, SameCompilationSameBytes) {
  EXPECT_EQ(smallSet(), smallSet());
}

TEST(BasicSet, TheEngineFindsEveryWord) {
  const test::TempFolder folder;
  writeSet(folder.path(), smallSet());
  ASSERT_EQ(1, InitAPI(folder.prefix().c_str(), nullptr, nullptr));
  uint32_t size = 0;
  Handle list = nullptr;
  for (std::string word : {"apple", "apply", "ax", "go", "applied"}) {
    ASSERT_EQ(1, SerchImiE(word.data(), nullptr, 0, &size, &list, 1));
    const std::string entry = word == "applied" ? "apply" : word;
    EXPECT_EQ(std::vector<std::string>{test::entryE(entry, "名", "りんご")}, test::takeEntries(list, size))
        << word;
  }
  for (std::string word : {sjis("あ"), sjis("いぬ"), sjis("犬"), sjis("挨拶"), sjis("アイサツスル")}) {
    ASSERT_EQ(1, SerchImiJ(word.data(), nullptr, 0, &size, &list, 1));
    EXPECT_EQ(1u, test::takeEntries(list, size).size()) << word;
  }
  ASSERT_EQ(1, GetKatuyo("went", &size, &list));
  EXPECT_EQ((std::vector<std::pair<int, std::string>>{{6, "go"}, {8, "went"}}), test::takeForms(list, size));
  EndAPI();
}

TEST(BasicSet, HomophonesComeByFrequency) {
  Compilation compilation;
  compilation.japanese.push_back({sjis("かみ"), sjis("紙"), test::entryJ("かみ", "紙", "x"), 7});
  compilation.japanese.push_back({sjis("かみ"), sjis("神"), test::entryJ("かみ", "神", "x"), 3});
  EXPECT_EQ(test::entryJ("かみ", "神", "x") + test::entryJ("かみ", "紙", "x"),
            filesOf(compilation).at("je.dic"));
}

TEST(BasicSet, CountsWhatItLeavesOut) {
  Compilation c = smallCompilation();
  c.english.push_back({"caf\x82\xA0", test::entryE("x", "名", "x"), 0});
  c.english.push_back({"long", "\xF5\xD1" + std::string(65532, 'x') + "\n", 0});
  c.english.push_back({"open", "\xF5\xD1open", 0});
  c.english.push_back({"bare", "bare\n", 0});
  c.english.push_back({"twin",
                       "\xF5\xD1"
                       "a\n\xF5\xD1"
                       "b\n",
                       0});
  c.english.push_back({"-", "\xF5\xD1-\n", 0});
  c.derived.push_back({"longer", {5}, 0});
  c.derived.push_back({"l0ng", {0}, 0});
  c.katu.push_back({{"be"}, "be{:"});
  c.katu.push_back({{"be"}, std::string(511, 'x')});
  c.japanese.push_back({sjis("ー"), "", test::entryJ("ー", "", "x"), 0});
  filesOf(c);
  EXPECT_EQ(1u, c.summary.leftOutCount("English words with characters that no query can hold"));
  EXPECT_EQ(1u, c.summary.leftOutCount("entries of 65,535 bytes and more"));
  EXPECT_EQ(1u, c.summary.leftOutCount("entries without a line end"));
  EXPECT_EQ(1u, c.summary.leftOutCount("entries that do not begin with the entry tag"));
  EXPECT_EQ(1u, c.summary.leftOutCount("entries with a second entry tag inside"));
  EXPECT_EQ(1u, c.summary.leftOutCount("English index: nothing left of the word once its marks are dropped"));
  EXPECT_EQ(1u, c.summary.leftOutCount("derived words of entries left out"));
  EXPECT_EQ(1u, c.summary.leftOutCount("derived words with characters that no query can hold"));
  EXPECT_EQ(2u, c.summary.leftOutCount("irregular paradigms that do not fit a record"));
  EXPECT_EQ(1u, c.summary.leftOutCount("by reading: nothing left of the word once its marks are dropped"));
  EXPECT_EQ(4u, c.summary.valueOf("English entries"));
  EXPECT_EQ(4u, c.summary.valueOf("Japanese entries"));
}

TEST(BasicSet, AnEntryMayHave65534Bytes) {
  Compilation c;
  c.english.push_back({"long", "\xF5\xD1" + std::string(65531, 'x') + "\n", 0});
  EXPECT_EQ(65534u, filesOf(c).at("ej.dic").size());
}

// 510 bytes of items fill the 512 that a reader looks at, braces included.
TEST(BasicSet, AnIrregularParadigmMayFillItsWindow) {
  Compilation c;
  const std::string items = std::string(507, 'x') + ":" + sjis("現");
  c.katu.push_back({{std::string(507, 'x')}, items});
  const std::string dic = filesOf(c).at("katu.dic");
  ASSERT_EQ(512u, dic.size());
  EXPECT_EQ('q', dic.front());
  EXPECT_EQ('s', dic.back());
  EXPECT_EQ(static_cast<char>('x' - 10), dic[1]);
}

TEST(BasicSet, WordsOfAFullBlockStayReachableByTheOtherIndex) {
  // 6,000 words いあ + four kana are 13 bytes a row and more than the block of いあ holds.
  Compilation c;
  for (unsigned i = 0; i < 6000; ++i) {
    std::string kana = "\x82\xA2\x82\xA0";
    for (unsigned rest = i, k = 0; k < 4; ++k, rest /= 40)
      kana += std::string("\x82") + static_cast<char>(0xA9 + rest % 40);
    const std::string kanji = sjis("亜") + kana;
    c.japanese.push_back({kana, kanji, "\xF5\xD1" + kana + "\x1B" + kanji + "\n\xF5\xD4x\n", i});
  }
  filesOf(c);
  // 65,531 bytes hold 5,040 rows of 9 + 4 bytes by reading, 3,449 of 9 + 10 by written form.
  EXPECT_EQ(6000u - 5040, c.summary.leftOutCount("by reading: more frequent words fill the block"));
  EXPECT_EQ(5040u, c.summary.valueOf("Japanese entries by reading, rows"));
  EXPECT_EQ(3449u, c.summary.valueOf("Japanese entries by written form, rows"));
  EXPECT_EQ(5040u, c.summary.valueOf("Japanese entries"));
}

TEST(SourcesText, ListsThemApart) {
  EXPECT_EQ("", sourcesText({}));
  EXPECT_EQ(
      "Source: A\nVersion: 1\nLicence: free\nUsed for: all\n\nSource: B\nLicence: other\nUsed for: rest\n",
      sourcesText({{"A", "1", "free", "all"}, {"B", "", "other", "rest"}}));
}

}  // namespace
}  // namespace zavel::mkdict
