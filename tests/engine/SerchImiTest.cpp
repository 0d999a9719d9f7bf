// Meaning search through the exported functions.
#include <gtest/gtest.h>

#include <filesystem>

#include "engine/SearchFixture.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

const std::string kUS = sjis("《米》 =");
const std::string kUK = sjis("《英》 =");

// Low bytes of kana: the key of a kana index.
std::string kanaKey(const char* kanaUtf8) {
  const std::string text = sjis(kanaUtf8);
  std::string key;
  for (size_t at = 1; at < text.size(); at += 2) key.push_back(text[at]);
  return key;
}

class SerchImiETest : public SearchTest {
 protected:
  uint16_t call(char* word, uint8_t filter, uint8_t dicNo, bool withSize = true, bool withList = true) {
    uint32_t size = 99;
    Handle list = reinterpret_cast<Handle>(this);
    const uint16_t result =
        SerchImiE(word, nullptr, filter, withSize ? &size : nullptr, withList ? &list : nullptr, dicNo);
    EXPECT_TRUE(!withSize || size == 0);
    EXPECT_TRUE(!withList || list == nullptr);
    return result;
  }

  const std::string apple = entryE("apple", "名", "りんご");
};

TEST_F(SerchImiETest, GivesTheWholeEntryOfExactlyTheWord) {
  dic.addE("apple", apple);
  dic.addE("apples", entryE("apples", "名", "x"));
  open();
  EXPECT_EQ(Lines{apple}, imiE("apple"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{}, imiE("appl"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{}, imiE("zebra"));
  EXPECT_EQ(1, status);
}

TEST_F(SerchImiETest, GivesRecordsOfLengthAndText) {
  dic.addE("a", head("a"));
  open();
  uint32_t size = 0;
  Handle list = nullptr;
  char word[] = "a";
  ASSERT_EQ(1, SerchImiE(word, nullptr, 0, &size, &list, 1));
  EXPECT_EQ(std::string("\x04\x00\x00\x00\xF5\xD1"
                        "a\n",
                        8),
            std::string(static_cast<const char*>(GlobalLock(list)), size))
      << "no NUL behind it";
  GlobalUnlock(list);
  GlobalFree(list);
}

TEST_F(SerchImiETest, GivesEveryEntryOfTheKeyInRowOrder) {
  dic.addE("May", head("May"));
  dic.addE("may", head("may"));
  dic.addE("m-a-y", head("m-a-y"));
  open();
  EXPECT_EQ((Lines{head("May"), head("may"), head("m-a-y")}), imiE("MAY"));
}

TEST_F(SerchImiETest, TakesMoreThanFiftyEntriesOfOneKey) {
  for (int i = 0; i < 60; ++i) dic.addE("apple", apple);
  for (int i = 0; i < 60; ++i) dic.addE("ab", head("ab"));
  open();
  EXPECT_EQ(60u, imiE("apple").size());
  EXPECT_EQ(50u, imiE("ab").size()) << "but fifty of a block that a short word takes whole";
}

TEST_F(SerchImiETest, CutsTrailingBlanksInTheCallersString) {
  dic.addE("apple", apple);
  open();
  EXPECT_EQ(Lines{apple}, imiE("apple  "));
  EXPECT_EQ("apple", given);
  EXPECT_EQ(Lines{}, imiE("  "));
  EXPECT_EQ("", given);
  EXPECT_EQ(1, status);
  imiE("apple \t");
  EXPECT_EQ(18, status) << "a tab is no letter of a word";
  EXPECT_EQ("apple \t", given) << "a refused word stays";
}

TEST_F(SerchImiETest, RefusesBadArgumentsWith18) {
  dic.addE("apple", apple);
  open();
  char word[] = "apple", bad[] = "app1", empty[] = "", lead[] = "\x82\xA0";
  EXPECT_EQ(18, call(nullptr, 0, 1));
  EXPECT_EQ(18, call(word, 0, 1, false));
  EXPECT_EQ(18, call(word, 0, 1, true, false));
  EXPECT_EQ(18, call(word, 0, 0));
  EXPECT_EQ(18, call(word, 0, 4));
  EXPECT_EQ(18, call(bad, 0, 1));
  EXPECT_EQ(18, call(empty, 0, 1));
  EXPECT_EQ(18, call(lead, 0, 1));
  for (const int filter : {1, 2, 6, 7, 255})
    EXPECT_EQ(18, call(word, static_cast<uint8_t>(filter), 1)) << filter;
  EXPECT_EQ(258, call(word, 0, 2));
  EXPECT_EQ(0, g_ProcessInfo->readersE);
}

TEST_F(SerchImiETest, WantsTheLineOfTheHeadwordList) {
  const std::string noun = entryE("run", "名", "走り"), verb = entryE("run", "動", "走る");
  dic.addE("run", noun);
  dic.addE("run", verb);
  open();
  const Lines lines = midasiE("run");
  ASSERT_EQ(2u, lines.size());
  EXPECT_EQ(Lines{noun}, imiE("run", 0, 1, ("run [" + sjis("走り") + "]").c_str()));
  EXPECT_EQ(Lines{verb}, imiE("run", 0, 1, ("run [" + sjis("走る") + "]").c_str()));
  for (const std::string& shown : lines) EXPECT_EQ(1u, imiE("run", 0, 1, shown.c_str()).size());
  EXPECT_EQ(Lines{}, imiE("run", 0, 1, "run"));
  EXPECT_EQ(1, status) << "no entry yields this line";
}

TEST_F(SerchImiETest, FiltersEntriesAndDropsThoseLeftEmpty) {
  const std::string phrase = head("apple") + line(0xF5D6, "apple pie") + line(0xF5E4, "アップルパイ");
  dic.addE("apple", apple);
  dic.addE("apple", phrase);
  open();
  EXPECT_EQ((Lines{line(0xF5D3, "-[名]") + line(0xF5D4, "りんご")}), imiE("apple", 3));
  EXPECT_EQ((Lines{line(0xF5D6, "apple pie") + line(0xF5E4, "アップルパイ")}), imiE("apple", 4));
  EXPECT_EQ(Lines{}, imiE("apple", 5));
  EXPECT_EQ(1, status);
}

TEST_F(SerchImiETest, LooksForAMissingWordAmongDerivedOnes) {
  const std::string quick = head("quick");
  const uint32_t offset = dic.addE("quick", quick);
  dic.addE("quill", head("quill"));
  dic.addHase("quickly", offset);
  dic.addHase("quill", offset);
  dic.addHase("zig", offset);
  open();
  EXPECT_EQ(Lines{quick}, imiE("quickly")) << "its block has other words";
  EXPECT_EQ(Lines{quick}, imiE("zig")) << "it has no block";
  EXPECT_EQ(Lines{head("quill")}, imiE("quill")) << "a word of its own comes first";
  EXPECT_EQ(Lines{}, imiE("quickest"));
  EXPECT_EQ(Lines{quick}, imiE("quickly", 0, 1, "quick"));
}

TEST_F(SerchImiETest, FollowsAReferenceToAnotherSpelling) {
  const std::string colour = head("colour") + tag(0xF5D4) + kUS + "color\n",
                    color = head("color") + line(0xF5D4, "色");
  dic.addE("colour", colour);
  dic.addE("color", color);
  open();
  EXPECT_EQ((Lines{colour, color}), imiE("colour"));
  EXPECT_EQ(Lines{color}, imiE("color"));
  EXPECT_EQ((Lines{tag(0xF5D4) + kUS + "color\n", line(0xF5D4, "色")}), imiE("colour", 3))
      << "filtered as all entries are";
  EXPECT_EQ((Lines{colour, color}), imiE("colour", 0, 1, midasiE("colour")[0].c_str()))
      << "the entry referred to comes whatever its own line is";
  EXPECT_EQ(Lines{}, imiE("colour", 0, 1, "other"));
}

TEST_F(SerchImiETest, FollowsReferencesOneStepAndByNumber) {
  const std::string one = head("one") + tag(0xF5D4) + kUS + "two" + tag(0xF4B5) + "1" + tag(0xF4D0) + "\n";
  const std::string two =
      tag(0xF5D1) + tag(0xF4B5) + "1" + tag(0xF4D0) + "two\n" + tag(0xF5D4) + kUK + "three\n";
  dic.addE("one", one);
  dic.addE("two", two);
  dic.addE("two", head("two"));
  dic.addE("three", head("three"));
  open();
  EXPECT_EQ((Lines{one, two}), imiE("one"));
}

TEST_F(SerchImiETest, FollowsReferencesOfDerivedWords) {
  const std::string colour = head("colour") + tag(0xF5D4) + kUS + "color\n";
  dic.addHase("colourful", dic.addE("colour", colour));
  dic.addE("color", head("color"));
  open();
  EXPECT_EQ((Lines{colour, head("color")}), imiE("colourful"));
}

TEST_F(SerchImiETest, ListsUserEntriesBehindBasicOnes) {
  withUserE = true;
  dic.addE("apple", apple);
  const std::string mine = entryE("apple", "名", "林檎");
  userE.add("apple", mine);
  userE.add("melon", head("melon"));
  open();
  EXPECT_EQ((Lines{apple, mine}), imiE("apple", 0, kBoth)) << "nothing is hidden";
  EXPECT_EQ(Lines{mine}, imiE("apple", 0, kUser));
  EXPECT_EQ(Lines{apple}, imiE("apple", 0, kBasic));
  EXPECT_EQ(Lines{head("melon")}, imiE("melon", 0, kBoth));
  EXPECT_EQ(Lines{}, imiE("melon", 0, kBasic));
  EXPECT_EQ(Lines{}, imiE("zebra", 0, kBoth));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{mine}, imiE("apple", 0, kBoth, ("apple [" + sjis("林檎") + "]").c_str()));
}

TEST_F(SerchImiETest, NeverFollowsReferencesOfUserEntries) {
  withUserE = true;
  dic.addE("color", head("color"));
  const std::string mine = head("colour") + tag(0xF5D4) + kUS + "color\n";
  userE.add("colour", mine);
  open();
  EXPECT_EQ(Lines{mine}, imiE("colour", 0, kBoth));
}

TEST_F(SerchImiETest, TakesBothForBasicWithoutAUserSet) {
  dic.addE("apple", apple);
  open();
  EXPECT_EQ(Lines{apple}, imiE("apple", 0, kBoth));
}

TEST_F(SerchImiETest, SplitsTextAtEveryEntryTag) {
  dic.addE("apple", apple);
  dic.aliasE("melon", 2);  // in the middle of the entry: no tag follows
  dic.aliasE("pear", 3000);
  open();
  EXPECT_EQ(Lines{}, imiE("melon"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(Lines{}, imiE("pear"));
  EXPECT_EQ(1, status);
}

TEST_F(SerchImiETest, GivesALongEntryWhole) {
  const std::string entry = head("apple") + line(0xF5D4, std::string(65000, 'x'));
  dic.addE("apple", entry);
  dic.addE("melon", head("melon"));
  open();
  EXPECT_EQ(Lines{entry}, imiE("apple"));
}

TEST_F(SerchImiETest, EndsWith17WhereEntriesGrowWithoutEnd) {
  const uint32_t offset = dic.addE("apple", head("apple") + std::string(65000, 'x'));
  for (int i = 0; i < 200; ++i) dic.aliasE("apple", offset);
  open();
  EXPECT_EQ(Lines{}, imiE("apple"));
  EXPECT_EQ(17, status);
}

TEST_F(SerchImiETest, OpensTwoFilesAndReadsThemOnce) {
  dic.addE("apple", apple);
  for (int i = 0; i < 400; ++i)
    dic.addE("zebra", head("zebra" + std::string(40, 'x')));  // files longer than a look
  open();
  FaultyStorage disk;
  EXPECT_EQ(Lines{apple}, imiE("apple"));
  EXPECT_EQ(2, disk.count("open"));
  EXPECT_EQ(2, disk.count("readAt"));
  EXPECT_EQ(2, disk.count("close"));
  EXPECT_EQ(6, disk.operations());
}

TEST_F(SerchImiETest, ReportsMissingAndDamagedFiles) {
  dic.addE("apple", apple);
  open();
  const std::string block = readFile(path("ej.ix3"));
  writeFile(path("ej.ix3"), std::string("\xFF\xFF\x0F\x00", 4) + std::string(11, 'x'));
  imiE("apple");
  EXPECT_EQ(20, status);
  writeFile(path("ej.ix3"), block.substr(0, 14));
  imiE("apple");
  EXPECT_EQ(21, status);
  writeFile(path("ej.ix3"), block);
  std::filesystem::remove(path("ej.dic"));
  imiE("apple");
  EXPECT_EQ(257, status);
  std::filesystem::remove(path("hase.ix3"));
  EXPECT_EQ(Lines{}, imiE("zebra"));
  EXPECT_EQ(1, status) << "nothing there to be read";
  EXPECT_EQ(1, EndAPI());
  imiE("apple");
  EXPECT_EQ(257, status);
}

TEST_F(SerchImiETest, IsRefusedWith35BesideAWriter) {
  dic.addE("apple", apple);
  open();
  g_ProcessInfo->stateE = 2;
  imiE("apple");
  EXPECT_EQ(35, status);
  g_ProcessInfo->stateE = 0;
}

TEST_F(SerchImiETest, FailsCleanlyAtEveryOperation) {
  withUserE = true;
  dic.addHase("colourful", dic.addE("colour", head("colour") + tag(0xF5D4) + kUS + "color\n"));
  dic.addE("color", head("color"));
  userE.add("colourful", head("mine"));
  open();
  FaultyStorage disk;
  for (long n = 1;; ++n) {
    disk.failAt(n);
    const Lines entries = imiE("colourful", 0, kBoth);
    if (disk.faults() == 0) break;
    const std::string failed = disk.history()[static_cast<size_t>(n - 1)];
    if (failed.starts_with("close")) continue;  // what was read is whole
    EXPECT_EQ(Lines{}, entries) << failed;
    EXPECT_TRUE(status == 21 || status == 257 || status == 258) << failed << " gave " << status;
    EXPECT_EQ(failed.starts_with("readAt"), status == 21) << failed;
  }
  disk.failAt(0);
  EXPECT_EQ(3u, imiE("colourful", 0, kBoth).size());
}

class SerchImiJTest : public SearchTest {
 protected:
  std::string addWord(const char* kana, const char* kanji, const char* imi) {
    const std::string entry = entryJ(kana, kanji, imi);
    dic.addJ(kana, kanji, entry);
    return entry;
  }
};

TEST_F(SerchImiJTest, GivesEntriesByKanaAndByKanji) {
  const std::string fruit = addWord("くだもの", "果物", "fruit"),
                    shop = addWord("くだものや", "果物屋", "shop");
  open();
  EXPECT_EQ(Lines{fruit}, imiJ(sjis("くだもの")));
  EXPECT_EQ(Lines{fruit}, imiJ(sjis("果物")));
  EXPECT_EQ(Lines{shop}, imiJ(sjis("果物屋")));
  EXPECT_EQ(Lines{}, imiJ(sjis("くだも")));
  EXPECT_EQ(1, status);
}

TEST_F(SerchImiJTest, GivesEntriesOfShortWords) {
  const std::string ku = addWord("く", "句", "phrase"), kuda = addWord("くだ", "管", "tube");
  open();
  EXPECT_EQ(Lines{ku}, imiJ(sjis("く")));
  EXPECT_EQ(Lines{ku}, imiJ(sjis("句")));
  EXPECT_EQ(Lines{kuda}, imiJ(sjis("くだ")));
}

TEST_F(SerchImiJTest, CutsBlanksAndTurnsKatakanaInTheCallersString) {
  const std::string card = addWord("かーど", "", "card");
  open();
  EXPECT_EQ(Lines{card}, imiJ(sjis("カード \t ")));
  EXPECT_EQ(sjis("かーど"), given);
  EXPECT_EQ(1, status) << "the blank goes ahead of the check";
  imiJ(sjis("アx "));
  EXPECT_EQ(18, status);
  EXPECT_EQ(sjis("あx"), given);
}

TEST_F(SerchImiJTest, RefusesBadArgumentsWith18) {
  addWord("かーど", "", "card");
  open();
  for (const char* bad : {"", " ", "abc", "あa", "あ、", "果、", "あ い"}) {
    imiJ(sjis(bad));
    EXPECT_EQ(18, status) << bad;
  }
  for (const int filter : {1, 2, 6, 255}) {
    imiJ(sjis("かーど"), static_cast<uint8_t>(filter));
    EXPECT_EQ(18, status) << filter;
  }
  imiJ(sjis("かーど"), 0, 0);
  EXPECT_EQ(18, status);
  imiJ(sjis("かーど"), 0, 4);
  EXPECT_EQ(18, status);
  imiJ(sjis("かーど"), 0, kUser);
  EXPECT_EQ(259, status);
  EXPECT_EQ(Lines{}, imiJ(sjis("ー")));
  EXPECT_EQ(1, status) << "nothing is left of it as a key";
}

TEST_F(SerchImiJTest, WantsTheLineOfTheHeadwordList) {
  const std::string meet = addWord("あう", "会う", "meet"), fit = addWord("あう", "合う", "fit");
  const std::string angle = entryJ("あえ", "", "〈和え〉dressing");
  dic.addJ("あえ", "", angle);
  open();
  EXPECT_EQ(Lines{meet}, imiJ(sjis("あう"), 0, 1, sjis("あう [会う]").c_str()));
  EXPECT_EQ(Lines{fit}, imiJ(sjis("あう"), 0, 1, sjis("あう [合う]").c_str()));
  EXPECT_EQ(Lines{fit}, imiJ(sjis("合う"), 0, 1, sjis("合う [あう]").c_str()));
  EXPECT_EQ(Lines{}, imiJ(sjis("合う"), 0, 1, sjis("あう [合う]").c_str())) << "the line of the other index";
  EXPECT_EQ(Lines{angle}, imiJ(sjis("あえ"), 0, 1, midasiJ(sjis("あえ"))[0].c_str()));
}

TEST_F(SerchImiJTest, FiltersByItsOwnTables) {
  const std::string list =
      tag(0xF5D5) + "a" + tag(0xF5D8) + " b\n" + tag(0xF5D5) + "/c" + tag(0xF5D8) + " d\n";
  const std::string bunreis = tag(0xF5D6) + sjis("[文例]") +
                              "\x1B"
                              "e" +
                              tag(0xF5D8) + " f\n";
  dic.addJ("くだもの", "", entryJ("くだもの", "", "fruit") + list + bunreis);
  open();
  EXPECT_EQ(Lines{line(0xF5D4, "fruit")}, imiJ(sjis("くだもの"), 3));
  EXPECT_EQ(Lines{list}, imiJ(sjis("くだもの"), 4));
  EXPECT_EQ(Lines{bunreis}, imiJ(sjis("くだもの"), 5));
}

TEST_F(SerchImiJTest, FollowsNoReferences) {
  const std::string entry = entryJ("あか", "", "x") + tag(0xF5D4) + kUS + "color\n";
  dic.addE("color", head("color"));
  dic.addJ("あか", "", entry);
  open();
  EXPECT_EQ(Lines{entry}, imiJ(sjis("あか")));
}

TEST_F(SerchImiJTest, ListsUserEntriesBehindBasicOnes) {
  withUserJ = true;
  const std::string basic = addWord("くだもの", "果物", "fruit"), mine = entryJ("くだもの", "果物", "mine");
  userJ.add(kanaKey("くだもの"), mine, sjis("果物"));
  open();
  for (const char* word : {"くだもの", "果物"}) {
    EXPECT_EQ((Lines{basic, mine}), imiJ(sjis(word), 0, kBoth)) << word;
    EXPECT_EQ(Lines{mine}, imiJ(sjis(word), 0, kUser)) << word;
    EXPECT_EQ(Lines{basic}, imiJ(sjis(word), 0, kBasic)) << word;
  }
}

TEST_F(SerchImiJTest, IsRefusedWith35BesideAWriter) {
  const std::string fruit = addWord("くだもの", "果物", "fruit");
  open();
  g_ProcessInfo->stateJ = 2;
  imiJ(sjis("くだもの"));
  EXPECT_EQ(35, status);
  g_ProcessInfo->stateJ = 0;
  EXPECT_EQ(Lines{fruit}, imiJ(sjis("くだもの")));
}

TEST_F(SerchImiJTest, ReportsMissingFilesWith257And259) {
  withUserJ = true;
  addWord("くだもの", "果物", "fruit");
  userJ.add(kanaKey("くだもの"), entryJ("くだもの", "", "x"));
  open();
  std::filesystem::remove(path("ujje.dic"));
  imiJ(sjis("くだもの"), 0, kBoth);
  EXPECT_EQ(259, status);
  std::filesystem::remove(path("je.dic"));
  imiJ(sjis("くだもの"));
  EXPECT_EQ(257, status);
}

}  // namespace
}  // namespace zavel::test
