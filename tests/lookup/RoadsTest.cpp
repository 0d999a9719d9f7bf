// The manager on an open dictionary: the way of a word from the query to the result file.
#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

// What a text view would find for an entry of entryE and entryJ. The last four bytes of an entry are not
// translated, so its last line feed stays; the manager adds two CRs.
const char* const kTakeShown = "take\r\r-[動]\r取る\n\r\r";
const char* const kTakeLabelled =
    "【見出し】【ボールド】take【ローマン(標準書体)】\r【品詞】-[動]\r【訳語】取る\n\r\r";
const char* const kMichiShown = "みち 道\rroad\n\r\r";

class Roads : public testing::Test {
 protected:
  Roads() {
    DicWriter writer;
    writer.addE("take", entryE("take", "動", "取る"));
    writer.addE("taken", entryE("taken", "形", "取られた"));
    writer.addE("match", entryE("match", "名", "試合"));
    writer.addE("match", entryE("match", "動", "合う"));
    writer.addE("walk", entryForKatuyo("", "walk", sjis("[動]"), "歩く"));
    writer.addE("saw", entryE("saw", "名", "鋸"));
    writer.addE("idiom", tag(0xF5D1) + "idiom\n" + tag(0xF5D6) + "in idiom\n" + tag(0xF5E4) + "imi\n");
    writer.addKatu("took", "{take:現,took:過}");
    writer.addKatu("saw", "{see:現,saw:過}");
    writer.addKatu("worst", "{worse:比,worst:最}");
    writer.addKatu("gone", "{go:現,took:過,match:分,taken:進}");
    writer.addJ("みち", "道", entryJ("みち", "道", "road"));
    writer.addJ("みち", "未知", entryJ("みち", "未知", "unknown"));
    writer.addJ("みちのく", "", entryJ("みちのく", "", "north"));
    writer.write(folder_.path());
    platform_.forked = &files;
    const FileReference result("/result");
    opened = manager.InitializeDictionaries(folder_.prefix().c_str(), nullptr, nullptr, &result);
  }

  std::string file() { return files.files["/result"].text; }
  std::string styles() { return files.files["/result"].record; }

  TestPlatform platform_;
  TempFolder folder_;
  MemoryForkedFiles files;
  MirellDictionaryManager manager;
  bool opened = false;
};

// --- Start ---

TEST_F(Roads, InitializeDictionariesOpensTheEngine) {
  EXPECT_TRUE(opened);
  EXPECT_EQ(manager.initialized, 1);
  EXPECT_EQ(manager.outputSpec.path(), "/result");
}

TEST_F(Roads, ASecondManagerIsRefusedAndTheFirstGoesOn) {
  {
    MirellDictionaryManager second;
    testing::internal::CaptureStdout();
    EXPECT_FALSE(second.InitializeDictionaries(folder_.prefix().c_str(), nullptr, nullptr, nullptr));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "error: InitializeDictionaries\n");
    EXPECT_EQ(second.initialized, 0);
  }
  EXPECT_TRUE(manager.GetMidashiE("take"));
}

TEST_F(Roads, ARefusedSecondStartLeavesTheFlag) {
  testing::internal::CaptureStdout();
  EXPECT_FALSE(manager.InitializeDictionaries(folder_.prefix().c_str(), nullptr, nullptr, nullptr));
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(manager.initialized, 1);
  EXPECT_EQ(manager.outputSpec.path(), "/result");
  EXPECT_TRUE(manager.GetMidashiE("take"));
}

TEST(InitializeDictionaries, TellsOfAMissingDictionary) {
  const TempFolder empty;
  MirellDictionaryManager manager;
  testing::internal::CaptureStdout();
  const FileReference result("/result");
  EXPECT_FALSE(manager.InitializeDictionaries(empty.prefix().c_str(), nullptr, nullptr, &result));
  EXPECT_FALSE(manager.InitializeDictionaries(nullptr, nullptr, nullptr, nullptr));
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "error: InitializeDictionaries\nerror: InitializeDictionaries\n");
  EXPECT_EQ(manager.initialized, 0);
  EXPECT_EQ(manager.outputSpec.path(), "/result");
}

// --- Refusals ---

// The word is refused in all operations, with the results of the last one kept.
void expectRefused(MirellDictionaryManager& manager, const std::string& word) {
  manager.searchKeys = {"key"};
  manager.meaningList = {"meaning"};
  manager.midashiList = {"midashi"};
  manager.inflectionList = {{1, "form", "label"}};
  manager.resultText = "result";
  std::string out = "out";
  EXPECT_FALSE(manager.GetInflection(word));
  EXPECT_EQ(manager.GetOrigin(word), word);
  EXPECT_FALSE(manager.GetMidashiE(word));
  EXPECT_FALSE(manager.GetMidashiJ(word));
  EXPECT_FALSE(manager.GetImiE(word, 0, ""));
  EXPECT_FALSE(manager.NewGetImiE(word, 0, ""));
  EXPECT_FALSE(manager.GetImiJ(word, 0, ""));
  EXPECT_FALSE(manager.NewGetImiJ(word, 0, ""));
  EXPECT_FALSE(manager.GetImiE2(word, 0, out));
  EXPECT_FALSE(manager.GetImiJ2(word, 0, out));
  EXPECT_EQ(manager.TryAllInflection(word, 0), "");
  EXPECT_EQ(out, "out");
  EXPECT_EQ(manager.searchKeys, (Lines{"key"}));
  EXPECT_EQ(manager.meaningList, (Lines{"meaning"}));
  EXPECT_EQ(manager.midashiList, (Lines{"midashi"}));
  EXPECT_EQ(manager.inflectionList.size(), 1u);
  EXPECT_EQ(manager.resultText, "result");
}

TEST_F(Roads, AWordOf256BytesIsRefused) {
  expectRefused(manager, std::string(256, 'a'));
  EXPECT_EQ(files.written, 0);
}

TEST_F(Roads, AWordOf255BytesIsSearched) {
  manager.midashiList = {"old"};
  EXPECT_FALSE(manager.GetMidashiE(std::string(255, 'a')));
  EXPECT_TRUE(manager.midashiList.empty());  // the engine answered with nothing
}

TEST(ClosedManager, RefusesEveryWord) {
  MirellDictionaryManager manager;
  expectRefused(manager, "take");
}

// --- Inflection and origin ---

TEST_F(Roads, GetInflectionListsTheFormsOfAWord) {
  EXPECT_TRUE(manager.GetInflection("took"));
  ASSERT_EQ(manager.CountInflectionData(), 2u);
  uint32_t code = 0;
  EXPECT_EQ(manager.GetInflectionData(0, &code), sjis("take [動　詞：現在分詞]\r"));
  EXPECT_EQ(code, 6u);
  EXPECT_EQ(manager.GetInflectionData(1, &code), sjis("took [動　詞：過去形]\r"));
  EXPECT_EQ(code, 8u);
}

TEST_F(Roads, GetInflectionOfAnUnknownWordEmptiesTheList) {
  manager.GetInflection("took");
  EXPECT_FALSE(manager.GetInflection("zebra"));
  EXPECT_EQ(manager.CountInflectionData(), 0u);
}

TEST_F(Roads, GetInflectionOfAWordTheEngineRefusesLeavesTheList) {
  manager.GetInflection("took");
  EXPECT_FALSE(manager.GetInflection("t4"));
  EXPECT_EQ(manager.CountInflectionData(), 2u);
}

TEST_F(Roads, GetOriginOfAnInflectedFormIsItsDictionaryForm) {
  EXPECT_EQ(manager.GetOrigin("took"), "take");
  EXPECT_EQ(manager.GetOrigin("walked"), "walk");
}

TEST_F(Roads, GetOriginOfAHeadwordIsTheHeadwordThoughItIsAFormOfAnother) {
  EXPECT_EQ(manager.GetOrigin("take"), "take");
  EXPECT_EQ(manager.GetOrigin("saw"), "saw");
}

TEST_F(Roads, GetOriginOfAWordWithoutAnOriginIsTheWord) {
  EXPECT_EQ(manager.GetOrigin("zebra"), "zebra");
  EXPECT_EQ(manager.GetOrigin("worst"), "worst");
  EXPECT_EQ(manager.GetOrigin("t4"), "t4");
  EXPECT_EQ(manager.GetOrigin(""), "");
}

TEST_F(Roads, AWordGoesToTheEngineUpToItsZeroByte) {
  EXPECT_EQ(manager.GetOrigin(raw("took\0ing")), "take");
  EXPECT_TRUE(manager.GetMidashiE(raw("take\0x")));
}

// --- Headwords ---

TEST_F(Roads, GetMidashiEListsTheHeadwordsThatBeginWithTheWord) {
  EXPECT_TRUE(manager.GetMidashiE("take"));
  ASSERT_EQ(manager.CountMidashiData(), 2u);
  EXPECT_EQ(manager.GetMidashiData(0), sjis("take [取る]") + raw("\0"));
  EXPECT_EQ(manager.GetMidashiData(1), sjis("taken [取られた]") + raw("\0"));
}

TEST_F(Roads, GetMidashiJListsByReadingAndByWrittenForm) {
  EXPECT_TRUE(manager.GetMidashiJ(sjis("ミチ")));
  ASSERT_EQ(manager.CountMidashiData(), 3u);
  EXPECT_EQ(manager.GetMidashiData(0), sjis("みち [道]") + raw("\0"));
  EXPECT_EQ(manager.GetMidashiData(1), sjis("みち [未知]") + raw("\0"));
  EXPECT_EQ(manager.GetMidashiData(2), sjis("みちのく") + raw("\0"));
  EXPECT_TRUE(manager.GetMidashiJ(sjis("未知")));
  ASSERT_EQ(manager.CountMidashiData(), 1u);
  EXPECT_EQ(manager.GetMidashiData(0), sjis("未知 [みち]") + raw("\0"));
}

TEST_F(Roads, AHeadwordSearchWithoutAHitEmptiesTheListAndOneRefusedLeavesIt) {
  manager.GetMidashiE("take");
  EXPECT_FALSE(manager.GetMidashiE("take4"));
  EXPECT_EQ(manager.CountMidashiData(), 2u);
  EXPECT_FALSE(manager.GetMidashiE("zebra"));
  EXPECT_EQ(manager.CountMidashiData(), 0u);
}

TEST_F(Roads, UserDictionariesAreNotSearched) {
  EndAPI();
  const std::string english = folder_.prefix() + "ue", japanese = folder_.prefix() + "uj";
  writeFile(english + "ej.dic", entryE("gnu", "名", "ヌー"));
  const IndexFiles words = writeIndex(1, {{"gnu", 0}}, true);
  writeFile(english + "ej.idx", words.idx);
  writeFile(english + "ej.ix3", words.ix3);
  ASSERT_EQ(InitAPI(folder_.prefix().c_str(), english.c_str(), japanese.c_str()), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(SerchMidasiE("gnu", 0, &size, &list, 2), 1);
  GlobalFree(list);
  ASSERT_GT(size, 0u);  // the user dictionary has it

  EXPECT_FALSE(manager.GetMidashiE("gnu"));
  EXPECT_FALSE(manager.GetImiE("gnu", kFilterAll, ""));
  EXPECT_FALSE(manager.NewGetImiE("gnu", kFilterAll, ""));
  std::string out;
  EXPECT_FALSE(manager.GetImiE2("gnu", kFilterAll, out));
  EXPECT_TRUE(manager.GetMidashiE("take"));
}

TEST_F(Roads, HalfACharacterIsRefusedByTheEngine) {
  EXPECT_FALSE(manager.GetMidashiJ(sjis("みち") + "\x82"));
}

// --- The list road ---

TEST_F(Roads, NewGetImiEWritesTheEntryOfALine) {
  EXPECT_TRUE(manager.NewGetImiE("take", kFilterAll, sjis("take [取る]")));
  EXPECT_EQ(manager.resultText, sjis(kTakeShown));
  EXPECT_EQ(manager.outputText, sjis(kTakeShown));
  EXPECT_EQ(manager.GetImiData(), sjis(kTakeShown));
  EXPECT_EQ(manager.GetDebugResult(), sjis(kTakeLabelled));
  EXPECT_EQ(manager.searchKeys, (Lines{"take", sjis("取る")}));
  EXPECT_EQ(file(), sjis(kTakeShown));
  // The line's, the headword's and its bold run at 0, its end at 4, and lines at 5, 6 and 12.
  EXPECT_EQ(styles().substr(0, 2), raw("\0\x07"));
}

TEST_F(Roads, GetImiEDoesTheSame) {
  EXPECT_TRUE(manager.GetImiE("take", kFilterAll, sjis("take [取る]")));
  EXPECT_EQ(file(), sjis(kTakeShown));
}

TEST_F(Roads, ALineNamesOneOfSeveralEntries) {
  EXPECT_TRUE(manager.NewGetImiE("match", kFilterAll, sjis("match [合う]")));
  EXPECT_EQ(file(), sjis("match\r\r-[動]\r合う\n\r\r"));
}

TEST_F(Roads, WithoutALineAllEntriesAreShown) {
  EXPECT_TRUE(manager.NewGetImiE("match", kFilterAll, ""));
  EXPECT_EQ(file(), sjis("match\r\r-[名]\r試合\n\r\rmatch\r\r-[動]\r合う\n\r\r"));
}

TEST_F(Roads, AFilterShowsPartsOfAnEntry) {
  EXPECT_TRUE(manager.NewGetImiE("take", kFilterTranslation, ""));
  EXPECT_EQ(file(), sjis("\r-[動]\r取る\n\r\r"));
  EXPECT_TRUE(manager.NewGetImiE("idiom", kFilterPhrase, ""));
  EXPECT_EQ(file(), "\r        in idiom\r              imi\n\r\r");
}

TEST_F(Roads, GetImiJTakesTheListRoadForJapanese) {
  EXPECT_TRUE(manager.GetImiJ(sjis("みち"), kFilterAll, sjis("みち [道]")));
  EXPECT_EQ(file(), sjis(kMichiShown));
  EXPECT_EQ(manager.searchKeys, (Lines{sjis("みち"), sjis("道")}));
  EXPECT_EQ(manager.meaningList.size(), 1u);
}

TEST_F(Roads, AWordTheEngineRefusesChangesTheSearchKeysAlone) {
  manager.NewGetImiE("take", kFilterAll, "");
  EXPECT_FALSE(manager.NewGetImiE("t4", kFilterAll, "key"));
  EXPECT_EQ(manager.searchKeys, (Lines{"key"}));
  EXPECT_EQ(manager.meaningList.size(), 1u);
  EXPECT_EQ(manager.resultText, sjis(kTakeShown));
  EXPECT_EQ(files.written, 1);
  EXPECT_FALSE(manager.NewGetImiE("take", 1, ""));  // no such filter
  EXPECT_EQ(files.written, 1);
}

TEST_F(Roads, AnEmptyAnswerRunsTheEntriesBeforeThroughTheStagesWithTheNewKeys) {
  manager.NewGetImiE("match", kFilterAll, "");
  EXPECT_FALSE(manager.NewGetImiE("zebra", kFilterAll, sjis("match [合う]")));
  EXPECT_EQ(files.written, 2);
  EXPECT_EQ(file(), sjis("match\r\r-[動]\r合う\n\r\r"));
}

TEST_F(Roads, AnEmptyAnswerBehindAJoinedLookUpWritesAnEmptyTextWithTheRunsBefore) {
  ASSERT_TRUE(manager.NewGetImiJ(sjis("みち"), kFilterAll, sjis("みち [道]")));
  const std::string runs = styles();
  EXPECT_FALSE(manager.NewGetImiE("zebra", kFilterAll, ""));
  EXPECT_EQ(file(), "");
  EXPECT_EQ(styles(), runs);
  EXPECT_EQ(manager.outputText, sjis(kMichiShown));
  EXPECT_EQ(manager.debugResult, "");
}

// --- The joined road ---

TEST_F(Roads, NewGetImiJWritesTheEntryOfALine) {
  EXPECT_TRUE(manager.NewGetImiJ(sjis("みち"), kFilterAll, sjis("みち [道]")));
  EXPECT_EQ(manager.resultText, sjis(kMichiShown));
  EXPECT_EQ(manager.debugResult, sjis("【見出し】みち 道\r【訳語】road\n\r\r"));
  EXPECT_EQ(file(), sjis(kMichiShown));
  EXPECT_TRUE(manager.searchKeys.empty());
}

TEST_F(Roads, NewGetImiJJoinsTheEntriesOfAWord) {
  EXPECT_TRUE(manager.NewGetImiJ(sjis("みち"), kFilterAll, ""));
  EXPECT_EQ(file(), sjis("みち 道\rroad\n\r\rみち 未知\runknown\n\r\r"));
}

TEST_F(Roads, NewGetImiJAfterAFailedSearchWritesTheTextBeforeAgainWithoutItsColours) {
  manager.NewGetImiJ(sjis("みち"), kFilterAll, sjis("みち [道]"));
  files.files.clear();
  EXPECT_FALSE(manager.NewGetImiJ("A", kFilterAll, ""));
  EXPECT_EQ(file(), sjis(kMichiShown));
  EXPECT_EQ(manager.debugResult, sjis(kMichiShown));
  for (const ScrpSTElement& run : manager.styleRuns) EXPECT_EQ(run.scrpColor, kBlack);
}

TEST_F(Roads, NewGetImiJWithAnEmptyAnswerEmptiesTheTextAndWritesNothing) {
  manager.NewGetImiJ(sjis("みち"), kFilterAll, sjis("みち [道]"));
  EXPECT_FALSE(manager.NewGetImiJ(sjis("やま"), kFilterAll, ""));
  EXPECT_EQ(manager.resultText, "");
  EXPECT_EQ(files.written, 1);
  EXPECT_FALSE(manager.NewGetImiJ("A", kFilterAll, ""));
  EXPECT_EQ(files.written, 1);  // there is no text to write again
}

TEST_F(Roads, GetImiJ2GivesTheTextOut) {
  std::string out = "old";
  EXPECT_TRUE(manager.GetImiJ2(sjis("みち"), kFilterAll, out));
  EXPECT_EQ(out, sjis("みち 道\rroad\n\r\rみち 未知\runknown\n\r\r"));
  EXPECT_EQ(file(), out);
  EXPECT_FALSE(manager.GetImiJ2("A", kFilterAll, out));  // the text before once more
  EXPECT_EQ(out, sjis("みち 道\rroad\n\r\rみち 未知\runknown\n\r\r"));
  EXPECT_EQ(files.written, 2);
  EXPECT_FALSE(manager.GetImiJ2(sjis("やま"), kFilterAll, out));
  EXPECT_EQ(out, "");
}

TEST_F(Roads, GetImiE2GivesTheTextOut) {
  std::string out = "old";
  EXPECT_TRUE(manager.GetImiE2("take", kFilterAll, out));
  EXPECT_EQ(out, sjis(kTakeShown));
  EXPECT_EQ(file(), out);
  EXPECT_EQ(manager.debugResult, sjis(kTakeLabelled));
}

TEST_F(Roads, GetImiE2OfAFormGivesTheFirstFormThatHasAnEntry) {
  std::string out;
  EXPECT_TRUE(manager.GetImiE2("took", kFilterAll, out));
  EXPECT_EQ(out, sjis(kTakeShown));
  EXPECT_EQ(manager.CountInflectionData(), 2u);
}

TEST_F(Roads, GetImiE2PassesOverFormsWithoutAnEntry) {
  std::string out;
  EXPECT_TRUE(manager.GetImiE2("gone", kFilterAll, out));  // neither "go" nor "took" is a headword
  EXPECT_EQ(out, sjis("match\r\r-[名]\r試合\n\r\rmatch\r\r-[動]\r合う\n\r\r"));
}

TEST_F(Roads, ALineGoesToTheEngineUpToItsZeroByte) {
  EXPECT_TRUE(manager.NewGetImiE("match", kFilterAll, sjis("match [合う]") + raw("\0")));
  EXPECT_EQ(file(), sjis("match\r\r-[動]\r合う\n\r\r"));
}

TEST_F(Roads, GetImiE2WithoutAnEntryAnywhereIsFalseAndEmpty) {
  std::string out = "old";
  manager.GetImiE2("take", kFilterAll, out);
  EXPECT_FALSE(manager.GetImiE2("zebra", kFilterAll, out));
  EXPECT_EQ(out, "");
  EXPECT_EQ(manager.resultText, "");
  EXPECT_FALSE(manager.GetImiE2("worst", kFilterAll, out));  // forms, but none with an entry
  EXPECT_EQ(files.written, 1);
}

TEST_F(Roads, GetImiE2OfAWordTheEngineRefusesClearsTheTexts) {
  std::string out = "old";
  manager.GetImiE2("take", kFilterAll, out);
  EXPECT_FALSE(manager.GetImiE2("t4", kFilterAll, out));
  EXPECT_EQ(out, "");
  EXPECT_EQ(manager.resultText, "");
  EXPECT_EQ(files.written, 1);
}

TEST_F(Roads, TryAllInflectionGivesTheTaggedText) {
  const std::string tagged = tag(0xF5D1) + tag(0xF5B1) + "take" + tag(0xF5C1) + "\r" + tag(0xF5D3) +
                             sjis("-[動]\r") + tag(0xF5D4) + sjis("取る\n\r\r");
  EXPECT_EQ(manager.TryAllInflection("took", kFilterAll), tagged);
  EXPECT_EQ(manager.resultText, tagged);
  EXPECT_EQ(manager.TryAllInflection("zebra", kFilterAll), "");
  EXPECT_EQ(manager.resultText, "");
  EXPECT_EQ(files.written, 0);
}

TEST_F(Roads, AMarkedStretchOfAnEntryReachesNoOutput) {
  DicWriter writer;
  writer.addE("tune", tag(0xF5D1) + sjis("tune ≦tju:n≧\n") + tag(0xF5D4) + sjis("曲\n"));
  const TempFolder folder;
  writer.write(folder.path());
  EndAPI();
  manager.InitializeDictionaries(folder.prefix().c_str(), nullptr, nullptr, nullptr);
  EXPECT_TRUE(manager.NewGetImiE("tune", kFilterAll, ""));
  EXPECT_EQ(file(), sjis("tune \r曲\n\r\r"));
  EXPECT_EQ(manager.debugResult, sjis("【見出し】tune \r【訳語】曲\n\r\r"));
}

// --- A look-up from the query to the shown row ---

TEST_F(Roads, AnInflectedWordIsLookedUpAndItsRowShown) {
  const std::string word = manager.GetOrigin("took");
  ASSERT_TRUE(manager.GetMidashiE(word));
  const std::string line = manager.GetMidashiData(0);
  const std::string keyword = manager.ExtractKeywordFromMidashiData(line);
  EXPECT_EQ(keyword, "take");
  EXPECT_TRUE(manager.NewGetImiE(keyword, kFilterAll, line.substr(0, line.find('\0'))));
  EXPECT_EQ(file(), sjis(kTakeShown));
}

TEST_F(Roads, AJapaneseWordIsLookedUpAndItsRowShown) {
  ASSERT_TRUE(manager.GetMidashiJ(sjis("みち")));
  const std::string line = manager.GetMidashiData(1);
  const std::string keyword = manager.ExtractKeywordFromMidashiData(line);
  EXPECT_EQ(keyword, sjis("みち"));
  EXPECT_TRUE(manager.NewGetImiJ(keyword, kFilterAll, line.substr(0, line.find('\0'))));
  EXPECT_EQ(file(), sjis("みち 未知\runknown\n\r\r"));
}

}  // namespace
}  // namespace zavel::test
