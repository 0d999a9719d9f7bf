// Headword search through the exported functions.
#include <gtest/gtest.h>

#include <filesystem>

#include "engine/SearchFixture.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

// "abcaa", "abcab" ... in order.
std::string wordNo(int number) {
  return std::string("abc") + static_cast<char>('a' + number / 26) + static_cast<char>('a' + number % 26);
}

// A call with raw arguments.
struct Call {
  const char* word = "app";
  uint8_t mode = 0;
  uint8_t dic = kBasic;
  bool withSize = true, withList = true;
};

class SerchMidasiETest : public SearchTest {
 protected:
  void addWords(std::initializer_list<const char*> words) {
    for (const char* added : words) dic.addE(added, head(added));
  }

  uint16_t call(const Call& arguments) {
    uint32_t size = 99;
    Handle list = reinterpret_cast<Handle>(this);
    const uint16_t result = SerchMidasiE(arguments.word, arguments.mode, arguments.withSize ? &size : nullptr,
                                         arguments.withList ? &list : nullptr, arguments.dic);
    EXPECT_TRUE(!arguments.withSize || size == 0);
    EXPECT_TRUE(!arguments.withList || list == nullptr);
    return result;
  }
};

TEST_F(SerchMidasiETest, ListsLinesThatBeginWithTheWord) {
  dic.addE("apple", entryE("apple", "名", "りんご"));
  dic.addE("application", entryE("application", "名", "応用"));
  dic.addE("apricot", entryE("apricot", "名", "あんず"));
  open();
  EXPECT_EQ((Lines{"apple [" + sjis("りんご") + "]", "application [" + sjis("応用") + "]"}), midasiE("appl"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{"apricot [" + sjis("あんず") + "]"}, midasiE("apricot"));
}

TEST_F(SerchMidasiETest, GivesRecordsOfLengthAndText) {
  addWords({"apple"});
  open();
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(1, SerchMidasiE("apple", 0, &size, &list, 1));
  EXPECT_EQ(std::string("\x06\x00"
                        "apple\x00",
                        8),
            std::string(static_cast<const char*>(GlobalLock(list)), size));
  GlobalUnlock(list);
  GlobalFree(list);
}

TEST_F(SerchMidasiETest, FindsNothingWithStatus1) {
  addWords({"apple"});
  open();
  for (const char* none : {"zebra", "apz", "applz", "apples", "b", "-", " ", "a"}) {
    EXPECT_EQ(Lines{}, midasiE(none)) << none;
    EXPECT_EQ(1, status) << none;
  }
}

TEST_F(SerchMidasiETest, FindsAWordHoweverItIsWritten) {
  addWords({"run-up", "R&B"});
  open();
  for (const char* word : {"run-up", "Run Up", "RUNUP", "r.u'n/u_p,"})
    EXPECT_EQ(Lines{"run-up"}, midasiE(word)) << word;
  EXPECT_EQ(Lines{"R&B"}, midasiE("randb"));
}

TEST_F(SerchMidasiETest, ListsForOneLetterOnlyWhatIsFiledUnderIt) {
  addWords({"a", "A", "ab", "abc", "abcd"});
  open();
  EXPECT_EQ((Lines{"A", "a"}), midasiE("a"));
  EXPECT_EQ((Lines{"ab"}), midasiE("ab")) << "two letters likewise";
}

TEST_F(SerchMidasiETest, ListsForThreeLettersTheWholeBlock) {
  addWords({"abc", "abcd", "abce", "abd"});
  open();
  EXPECT_EQ((Lines{"abc", "abcd", "abce"}), midasiE("abc"));
}

TEST_F(SerchMidasiETest, ListsAtMostFiftyLines) {
  for (int i = 0; i < 60; ++i) dic.addE(wordNo(i), head(wordNo(i)));
  open();
  const Lines lines = midasiE("abc");
  ASSERT_EQ(50u, lines.size());
  EXPECT_EQ("abcaa", lines.front());
  EXPECT_EQ("abcbx", lines.back()) << "number 49";
  EXPECT_EQ(26u, midasiE("abca").size());
  EXPECT_EQ(8u, midasiE("abcc").size()) << "those behind the fiftieth can be reached too";
}

TEST_F(SerchMidasiETest, ListsAtMostFiftyLinesOfASearchByBeginningToo) {
  for (int i = 0; i < 60; ++i) dic.addE("abc" + wordNo(i), head("abc" + wordNo(i)));
  open();
  EXPECT_EQ(50u, midasiE("abcabc").size());
}

TEST_F(SerchMidasiETest, ListsAtMostFiftyEntriesOfAShortWord) {
  for (int i = 0; i < 60; ++i) dic.addE("a", head("a" + std::string(static_cast<size_t>(i), '-')));
  open();
  EXPECT_EQ(50u, midasiE("a").size());
}

TEST_F(SerchMidasiETest, FiltersByStars) {
  dic.addE("abca", head("***abca"));
  dic.addE("abcb", head("**abcb"));
  dic.addE("abcc", head("*abcc"));
  dic.addE("abcd", head("abcd"));
  dic.addE("abce", head("***abce"));
  dic.addE("abcf", head("**"));
  open();
  EXPECT_EQ((Lines{"**", "***abca", "**abcb", "*abcc", "abcd", "***abce"}), midasiE("abc", 0));
  EXPECT_EQ((Lines{"***abca", "***abce"}), midasiE("abc", 1));
  EXPECT_EQ((Lines{"**", "**abcb"}), midasiE("abc", 2)) << "two stars and no third";
}

TEST_F(SerchMidasiETest, FiltersBehindTheFiftiethRow) {
  for (int i = 0; i < 60; ++i) dic.addE(wordNo(i), head((i == 55 ? "***" : "") + wordNo(i)));
  open();
  EXPECT_EQ(Lines{}, midasiE("abc", 1)) << "fifty rows are taken first";
}

TEST_F(SerchMidasiETest, ListsABasicLineOnce) {
  dic.addE("apple", entryE("apple", "名", "りんご"));
  dic.addE("apple", entryE("apple", "動", "りんご"));
  dic.addE("apple", entryE("apple", "名", "木"));
  open();
  EXPECT_EQ((Lines{"apple [" + sjis("りんご") + "]", "apple [" + sjis("木") + "]"}), midasiE("apple"));
}

TEST_F(SerchMidasiETest, SortsByLettersThenByGloss) {
  for (const char* word : {"abc-d", "Abcd", "abc", "abce"}) dic.addE(word, head(word));
  dic.addE("abc", head("abc") + line(0xF5D4, "x"));
  open();
  EXPECT_EQ((Lines{"abc", "abc [x]", "Abcd", "abc-d", "abce"}), midasiE("abc"));
}

TEST_F(SerchMidasiETest, SkipsRowsWhereNothingCanBeRead) {
  addWords({"abca", "abcc"});
  dic.aliasE("abcb", 5000);
  open();
  EXPECT_EQ((Lines{"abca", "abcc"}), midasiE("abc"));
  EXPECT_EQ(1, status);
}

TEST_F(SerchMidasiETest, RefusesBadArgumentsWith18) {
  addWords({"apple"});
  open();
  EXPECT_EQ(18, call({.word = nullptr}));
  EXPECT_EQ(18, call({.withSize = false}));
  EXPECT_EQ(18, call({.withList = false}));
  EXPECT_EQ(18, call({.dic = 0}));
  EXPECT_EQ(18, call({.dic = 4}));
  EXPECT_EQ(18, call({.mode = 3}));
  EXPECT_EQ(18, call({.mode = 255}));
  for (const char* word : {"", "app1", "app\x82\xA0", "a*", "a\tb"})
    EXPECT_EQ(18, call({.word = word})) << word;
  EXPECT_EQ(0, g_ProcessInfo->readersE);
}

TEST_F(SerchMidasiETest, TakesBothForBasicWithoutAUserSet) {
  addWords({"apple"});
  open();
  EXPECT_EQ(Lines{"apple"}, midasiE("apple", 0, kBoth));
  EXPECT_EQ(258, call({.dic = kUser}));
}

TEST_F(SerchMidasiETest, IsRefusedWith35BesideAWriter) {
  addWords({"apple"});
  open();
  g_ProcessInfo->stateE = 2;
  EXPECT_EQ(35, call({}));
  g_ProcessInfo->stateE = 0;
  EXPECT_EQ(Lines{"apple"}, midasiE("apple"));
}

TEST_F(SerchMidasiETest, ReportsAMissingFileWith257) {
  addWords({"apple"});
  open();
  std::filesystem::rename(path("ej.dic"), path("away"));
  EXPECT_EQ(Lines{}, midasiE("apple"));
  EXPECT_EQ(257, status);
  std::filesystem::rename(path("away"), path("ej.dic"));
  std::filesystem::remove(path("ej.ix3"));
  midasiE("apple");
  EXPECT_EQ(257, status);
}

TEST_F(SerchMidasiETest, AnEngineNeverOpenedIs20) {
  addWords({"apple"});
  open();
  processInfo* const table = g_ProcessInfo;
  g_ProcessInfo = nullptr;
  EXPECT_EQ(20, call({}));
  EXPECT_EQ(258, call({.dic = kUser})) << "a user set comes ahead of that";
  g_ProcessInfo = table;
}

TEST_F(SerchMidasiETest, AClosedEngineIs257) {
  addWords({"apple"});
  open();
  EXPECT_EQ(1, EndAPI());
  midasiE("apple");
  EXPECT_EQ(257, status);
  EXPECT_EQ(257, call({.word = "1"})) << "ahead of the word's check";
}

TEST_F(SerchMidasiETest, ReportsADamagedBlockWith20AndAShortOneWith21) {
  addWords({"apple"});
  open();
  writeFile(path("ej.ix3"), std::string("\xFF\xFF\x0F\x00", 4) + std::string(11, 'x'));
  midasiE("apple");
  EXPECT_EQ(20, status);
  writeFile(path("ej.ix3"), "x");
  midasiE("apple");
  EXPECT_EQ(21, status);
}

TEST_F(SerchMidasiETest, MergesTheUserSetByWord) {
  withUserE = true;
  addWords({"abca", "abcc"});
  userE.add("abcb", head("abcb"));
  userE.add("abca", head("abca"));
  userE.add("abcc", head("ABCC"));
  open();
  EXPECT_EQ((Lines{"abca", "abca", "abcb", "ABCC", "abcc"}), midasiE("abc", 0, kBoth))
      << "an equal word stands behind the basic one, capitals come ahead of small letters";
  EXPECT_EQ((Lines{"abca", "abcb", "ABCC"}), midasiE("abc", 0, kUser));
  EXPECT_EQ((Lines{"abca", "abcc"}), midasiE("abc", 0, kBasic));
}

TEST_F(SerchMidasiETest, SortsAndCleansTheUserLines) {
  withUserE = true;
  addWords({"zebra"});
  userE.add("abcd", head("abcd"));
  userE.add("abcb", head("abcz"));
  userE.add("abcc", head("abcd"));
  open();
  EXPECT_EQ((Lines{"abcd", "abcz"}), midasiE("abc", 0, kUser));
  EXPECT_EQ((Lines{"abcd", "abcz"}), midasiE("abc", 0, kBoth)) << "the basic side has no such word";
}

TEST_F(SerchMidasiETest, GivesTheBasicLinesWhereTheUserSetHasNone) {
  withUserE = true;
  addWords({"apple"});
  userE.add("zebra", head("zebra"));
  open();
  EXPECT_EQ(Lines{"apple"}, midasiE("apple", 0, kBoth));
  EXPECT_EQ(Lines{}, midasiE("apple", 0, kUser));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{}, midasiE("melon", 0, kBoth));
  EXPECT_EQ(1, status);
}

TEST_F(SerchMidasiETest, CapsEachSideAndTheMergedListAtFifty) {
  withUserE = true;
  for (int i = 0; i < 60; ++i) {
    dic.addE(wordNo(i), head(wordNo(i)));
    userE.add(wordNo(i), head(wordNo(i) + "-"));
  }
  open();
  EXPECT_EQ(50u, midasiE("abc", 0, kUser).size()) << "rows of a user block too";
  const Lines both = midasiE("abc", 0, kBoth);
  ASSERT_EQ(50u, both.size());
  EXPECT_EQ("abcaa", both[0]);
  EXPECT_EQ("abcaa-", both[1]);
  EXPECT_EQ("abcay-", both[49]);
}

TEST_F(SerchMidasiETest, NeverFiltersUserEntriesByStars) {
  withUserE = true;
  addWords({"abca"});
  dic.addE("abcb", head("***abcb"));
  userE.add("abcc", head("***abcc"));
  open();
  EXPECT_EQ(Lines{"***abcb"}, midasiE("abc", 1, kBoth)) << "narrowed to the basic side";
  EXPECT_EQ(18, call({.word = "abc", .mode = 1, .dic = kUser}));
  EXPECT_EQ((Lines{"***abcc"}), midasiE("abc", 0, kUser));
}

TEST_F(SerchMidasiETest, ReportsAMissingUserFileWith258) {
  withUserE = true;
  addWords({"apple"});
  userE.add("apple", head("apple"));
  open();
  std::filesystem::remove(path("ueej.dic"));
  midasiE("apple", 0, kBoth);
  EXPECT_EQ(258, status);
  EXPECT_EQ(Lines{"apple"}, midasiE("apple", 0, kBasic)) << "a basic search opens no user file";
}

TEST_F(SerchMidasiETest, SharesReadsAmongTheLinesOfAList) {
  for (int i = 0; i < 50; ++i)
    dic.addE(wordNo(i), entryE(wordNo(i), "名", "りんご") + line(0xF5D5, std::string(300, 'x')));
  open();
  FaultyStorage disk;
  EXPECT_EQ(50u, midasiE("abc").size());
  EXPECT_EQ(2, disk.count("open"));
  EXPECT_LE(disk.count("readAt"), 8) << "one for the block, the others for some 17,000 bytes of entries";
}

TEST_F(SerchMidasiETest, FailsCleanlyAtEveryOperation) {
  withUserE = true;
  addWords({"abca", "abcb"});
  userE.add("abcc", head("abcc"));
  open();
  FaultyStorage disk;
  for (long n = 1;; ++n) {
    disk.failAt(n);
    const Lines lines = midasiE("abc", 0, kBoth);
    if (disk.faults() == 0) break;
    const std::string failed = disk.history()[static_cast<size_t>(n - 1)];
    if (failed.starts_with("close")) continue;  // what was read is whole
    EXPECT_EQ(Lines{}, lines) << failed;
    EXPECT_TRUE(status == 21 || status == 257 || status == 258) << failed << " gave " << status;
    EXPECT_EQ(failed.starts_with("readAt"), status == 21) << failed;
  }
  disk.failAt(0);
  EXPECT_EQ((Lines{"abca", "abcb", "abcc"}), midasiE("abc", 0, kBoth));
}

class SerchMidasiJTest : public SearchTest {
 protected:
  void addWord(const char* kana, const char* kanji = "") { dic.addJ(kana, kanji, entryJ(kana, kanji, "x")); }
  uint16_t call(char* text, bool withSize, bool withList, uint8_t dicNo) {
    uint32_t size = 99;
    Handle list = nullptr;
    return SerchMidasiJ(text, withSize ? &size : nullptr, withList ? &list : nullptr, dicNo);
  }
};

// Low bytes of kana: the key of a kana index.
std::string kanaKey(const char* kanaUtf8) {
  const std::string text = sjis(kanaUtf8);
  std::string key;
  for (size_t at = 1; at < text.size(); at += 2) key.push_back(text[at]);
  return key;
}

TEST_F(SerchMidasiJTest, ListsReadingsWithTheirWrittenForms) {
  addWord("くだもの", "果物");
  addWord("くだる", "下る");
  addWord("くだり");
  open();
  EXPECT_EQ((Lines{sjis("くだもの [果物]"), sjis("くだり"), sjis("くだる [下る]")}), midasiJ(sjis("くだ")))
      << "two kana list their block";
  EXPECT_EQ(Lines{sjis("くだもの [果物]")}, midasiJ(sjis("くだも")));
  EXPECT_EQ(Lines{}, midasiJ(sjis("くだん")));
  EXPECT_EQ(1, status);
}

TEST_F(SerchMidasiJTest, ListsForOneKanaOnlyWhatIsFiledUnderIt) {
  addWord("く", "句");
  addWord("くだもの", "果物");
  open();
  EXPECT_EQ(Lines{sjis("く [句]")}, midasiJ(sjis("く")));
  EXPECT_EQ(Lines{}, midasiJ(sjis("だ")));
}

TEST_F(SerchMidasiJTest, SearchesByKanjiWhereTheWordHasOne) {
  addWord("くだもの", "果物");
  addWord("くだものや", "果物屋");
  addWord("か", "果");
  open();
  EXPECT_EQ((Lines{sjis("果物 [くだもの]"), sjis("果物屋 [くだものや]")}), midasiJ(sjis("果物")));
  EXPECT_EQ(Lines{sjis("果物屋 [くだものや]")}, midasiJ(sjis("果物屋")));
  EXPECT_EQ(Lines{sjis("果 [か]")}, midasiJ(sjis("果"))) << "one character finds its own block";
}

TEST_F(SerchMidasiJTest, TurnsKatakanaIntoHiraganaInTheCallersString) {
  addWord("かーど");
  open();
  EXPECT_EQ(Lines{sjis("かーど")}, midasiJ(sjis("カード")));
  EXPECT_EQ(sjis("かーど"), given);
  midasiJ(sjis("ヴァ"));
  EXPECT_EQ(sjis("ヴぁ"), given) << "three katakana have no hiragana";
  midasiJ(sjis("アx"));
  EXPECT_EQ(18, status);
  EXPECT_EQ(sjis("あx"), given) << "changed though refused";
}

TEST_F(SerchMidasiJTest, RefusesBadWordsWith18) {
  addWord("かーど");
  open();
  for (const char* bad : {"", "abc", "あa", "あ、", "果、", "Ａ"}) {
    midasiJ(sjis(bad));
    EXPECT_EQ(18, status) << bad;
  }
  midasiJ(sjis("あ") + "\x82");
  EXPECT_EQ(18, status) << "half a character";
  char text[] = "\x82\xA0";
  EXPECT_EQ(18, call(nullptr, true, true, 1));
  EXPECT_EQ(18, call(text, false, true, 1));
  EXPECT_EQ(18, call(text, true, false, 1));
  EXPECT_EQ(18, call(text, true, true, 0));
  EXPECT_EQ(18, call(text, true, true, 4));
  EXPECT_EQ(259, call(text, true, true, 2));
}

TEST_F(SerchMidasiJTest, FindsNothingForMarksAlone) {
  addWord("かーど");
  open();
  EXPECT_EQ(Lines{}, midasiJ(sjis("ー")));
  EXPECT_EQ(1, status);
}

TEST_F(SerchMidasiJTest, LeavesBasicLinesInKeyOrderWithDoubles) {
  addWord("かど");
  dic.addJ("かーと", "", entryJ("カート", "", "x"));
  addWord("かど");
  addWord("かとう");
  open();
  EXPECT_EQ((Lines{sjis("カート"), sjis("かとう")}), midasiJ(sjis("かと")));
  EXPECT_EQ((Lines{sjis("かど"), sjis("かど")}), midasiJ(sjis("かど")));
}

TEST_F(SerchMidasiJTest, ListsAtMostFiftyLines) {
  for (int i = 0; i < 60; ++i) dic.addJ("くだもの", "", entryJ("くだもの", "", "x"));
  open();
  EXPECT_EQ(50u, midasiJ(sjis("くだ")).size());
  EXPECT_EQ(50u, midasiJ(sjis("くだも")).size());
}

TEST_F(SerchMidasiJTest, TakesTheAngleSpanForTheWrittenForm) {
  dic.addJ("あう", "", entryJ("あう", "", "〈会う〉meet"));
  open();
  EXPECT_EQ(Lines{sjis("あう [会う]")}, midasiJ(sjis("あう")));
}

TEST_F(SerchMidasiJTest, TakesBothForBasicWithoutAUserSet) {
  addWord("くだもの");
  open();
  EXPECT_EQ(Lines{sjis("くだもの")}, midasiJ(sjis("くだもの"), kBoth));
}

TEST_F(SerchMidasiJTest, SortsUserLinesAndMergesThem) {
  withUserJ = true;
  addWord("くだもの", "果物");
  addWord("くだる", "下る");
  const auto add = [this](const char* key, const char* kana, const char* kanji) {
    userJ.add(kanaKey(key), entryJ(kana, kanji, "x"), sjis(kanji));
  };
  add("くだり", "クダリ", "");
  add("くだん", "くだもの", "果物");
  add("くだり", "クダリ", "");
  open();
  EXPECT_EQ((Lines{sjis("くだもの [果物]"), sjis("クダリ")}), midasiJ(sjis("くだ"), kUser))
      << "sorted, one of each";
  EXPECT_EQ((Lines{sjis("くだもの [果物]"), sjis("くだもの [果物]"), sjis("クダリ"), sjis("くだる [下る]")}),
            midasiJ(sjis("くだ"), kBoth));
  EXPECT_EQ((Lines{sjis("果物 [くだもの]"), sjis("果物 [くだもの]")}), midasiJ(sjis("果物"), kBoth))
      << "by kanji";
  EXPECT_EQ(Lines{sjis("果物 [くだもの]")}, midasiJ(sjis("果物"), kUser));
}

TEST_F(SerchMidasiJTest, CutsALongUserLineToWhatARecordCanCount) {
  withUserJ = true;
  addWord("くだもの");
  userJ.add(kanaKey("くだもの"), tag(0xF5D1) + std::string(140000, 'a') + "\n");
  open();
  const Lines lines = midasiJ(sjis("くだもの"), kUser);
  ASSERT_EQ(1u, lines.size());
  EXPECT_EQ(65534u, lines[0].size());
}

TEST_F(SerchMidasiJTest, IsRefusedWith35BesideAWriter) {
  addWord("くだもの");
  open();
  g_ProcessInfo->stateJ = 2;
  midasiJ(sjis("クダ"));
  EXPECT_EQ(35, status);
  EXPECT_EQ(sjis("クダ"), given) << "the word is not looked at";
  g_ProcessInfo->stateJ = 0;
  EXPECT_EQ(Lines{sjis("くだもの")}, midasiJ(sjis("くだ")));
}

TEST_F(SerchMidasiJTest, CapsEachSideAndTheMergedListAtFifty) {
  withUserJ = true;
  for (int i = 0; i < 60; ++i) {
    addWord("くだもの");
    userJ.add(kanaKey("くだもの"), entryJ("くだもの", "", "x") + std::to_string(i));
  }
  userJ.add(kanaKey("くだり"), entryJ("くだり", "", "x"));
  open();
  EXPECT_EQ(Lines{sjis("くだもの")}, midasiJ(sjis("くだ"), kUser)) << "sixty equal rows fill the fifty";
  EXPECT_EQ(50u, midasiJ(sjis("くだ"), kBoth).size()) << "fifty and one make fifty";
}

TEST_F(SerchMidasiJTest, ReportsMissingFilesWith257And259) {
  withUserJ = true;
  addWord("くだもの", "果物");
  userJ.add(kanaKey("くだもの"), entryJ("くだもの", "果物", "x"), sjis("果物"));
  open();
  std::filesystem::remove(path("ujkji.ix3"));
  midasiJ(sjis("くだもの"), kBoth);
  EXPECT_EQ(259, status);
  EXPECT_EQ(Lines{sjis("くだもの [果物]")}, midasiJ(sjis("くだもの")));
  std::filesystem::remove(path("ke.ix3"));
  midasiJ(sjis("果物"));
  EXPECT_EQ(257, status);
  EXPECT_EQ(1, EndAPI());
  midasiJ(sjis("果物"));
  EXPECT_EQ(257, status);
}

}  // namespace
}  // namespace zavel::test
