// Conjugation as its callers meet it: a dictionary is written, opened, and asked.
#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

#include "engine/DicFormat.h"
#include "engine/EngineAPI.h"
#include "engine/Globals.h"
#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::DicWriter;
using test::scramble;
using test::sjis;
using test::tag;
using test::TempFolder;

using Forms = std::vector<std::pair<int, std::string>>;

// An entry whose headword field is `field` (bytes), with part-of-speech lines in UTF-8, "-" included.
std::string Entry(const std::string& field, const std::vector<std::string>& lines) {
  std::string text = test::entryForKatuyo("1", field, sjis(lines[0].substr(1)), "意味");
  for (size_t i = 1; i < lines.size(); ++i) {
    text += tag(kTagHinsi) + sjis(lines[i]) + "\n" + tag(kTagImi) + sjis("意味") + "\n";
  }
  return text;
}

const Forms kWalk = {{6, "walk"}, {7, "walks"}, {8, "walked"}, {9, "walked"}, {10, "walking"}};
const Forms kGo = {{6, "go"}, {7, "gos"}, {8, "goed"}, {9, "goed"}, {10, "going"}};

class GetKatuyoTest : public testing::Test {
 protected:
  ~GetKatuyoTest() override { EndAPI(); }

  void Open() {
    dic_.write(folder_.path());
    ASSERT_EQ(InitAPI(folder_.prefix().c_str(), nullptr, nullptr), 1);
  }

  // The forms of a word; a single form of code -status on any status but 1.
  Forms Get(const char* word) {
    uint32_t size = 7;
    Handle list = reinterpret_cast<Handle>(&size);
    const uint16_t status = GetKatuyo(word, &size, &list);
    if (status == 1 && size != 0) return test::takeForms(list, size);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(list, nullptr);
    if (status == 1) return {};
    return {{-int{status}, ""}};
  }

  static Forms StatusOnly(int status) { return {{-status, ""}}; }

  void Replace(const std::string& name, const std::string& bytes) {
    test::writeFile(folder_.prefix() + name, bytes);
  }

  void Remove(const std::string& name) { std::remove((folder_.prefix() + name).c_str()); }

  void AddWalk() { dic_.addE("walk", Entry("walk", {"-[動][自]"})); }
  void AddGo() { dic_.addE("go", Entry("go", {"-[動]"})); }

  DicWriter dic_;
  TempFolder folder_;
};

// --- Regular words ---

TEST_F(GetKatuyoTest, GivesTheFormsOfAVerb) {
  AddWalk();
  Open();
  for (const char* word : {"walk", "walks", "walked", "walking"}) EXPECT_EQ(Get(word), kWalk) << word;
}

TEST_F(GetKatuyoTest, GivesTheFormsOfANoun) {
  dic_.addE("cat", Entry("cat", {"-[名][Ｃ]"}));
  dic_.addE("water", Entry("wa\xA5ter", {"-[名][Ｕ]"}));
  Open();
  EXPECT_EQ(Get("cat"), (Forms{{1, "cat"}, {2, "cats"}}));
  EXPECT_EQ(Get("cats"), (Forms{{1, "cat"}, {2, "cats"}}));
  EXPECT_EQ(Get("water"), (Forms{{1, "water"}}));
}

TEST_F(GetKatuyoTest, GivesTheFormsOfAnAdjective) {
  dic_.addE("long", Entry("long", {"-[形]"}));
  dic_.addE("happy", Entry("hap\xA5py", {"-[形]"}));
  dic_.addE("big", Entry("**big", {"-[形]"}));
  Open();
  EXPECT_EQ(Get("longest"), (Forms{{3, "long"}, {4, "longer"}, {5, "longest"}}));
  EXPECT_EQ(Get("happier"), (Forms{{3, "happy"}, {4, "more happy"}, {5, "most happy"}}));
  EXPECT_EQ(Get("big"), Forms());
}

TEST_F(GetKatuyoTest, ReadsThePronunciationForThePlural) {
  dic_.addE("bush", Entry("bush " + sjis("≦bu?") + "\xE9" + sjis("≧"), {"-[名][Ｃ]"}));
  Open();
  EXPECT_EQ(Get("bush"), (Forms{{1, "bush"}, {2, "bushes"}}));
  EXPECT_EQ(Get("bushes"), (Forms{{1, "bush"}, {2, "bushes"}}));
}

TEST_F(GetKatuyoTest, WritesARecordAsLengthFormCodeAndText) {
  dic_.addE("ox", Entry("ox", {"-[名]"}));
  Open();
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(GetKatuyo("ox", &size, &list), 1);
  ASSERT_EQ(size, 6u);
  EXPECT_EQ(std::string(static_cast<char*>(GlobalLock(list)), size), std::string("\x03\x00\x01ox\x00", 6));
  GlobalUnlock(list);
  GlobalFree(list);
}

TEST_F(GetKatuyoTest, TakesTheWordInAnyWriting) {
  AddWalk();
  Open();
  for (const char* word : {"Walk", "WALKED", "wal-king", "walk s", "walk."})
    EXPECT_EQ(Get(word), kWalk) << word;
}

TEST_F(GetKatuyoTest, FindsNothingForAnUnknownWord) {
  AddWalk();
  Open();
  EXPECT_EQ(Get("zebra"), Forms());
  EXPECT_EQ(Get("walker"), Forms());  // its base would be a verb
  EXPECT_EQ(Get("walke"), Forms());
  EXPECT_EQ(Get("s"), Forms());
}

TEST_F(GetKatuyoTest, FindsNothingForAWordWithoutKey) {
  AddWalk();
  Open();
  EXPECT_EQ(Get("-"), Forms());
  EXPECT_EQ(Get(" "), Forms());
}

// --- The conjugation dictionary ---

TEST_F(GetKatuyoTest, GivesIrregularFormsByFormCode) {
  dic_.addKatu("went", "{went:過,go:現,gone:分,going:進,goes:三}");
  Open();
  EXPECT_EQ(Get("went"), (Forms{{6, "go"}, {7, "goes"}, {8, "went"}, {9, "gone"}, {10, "going"}}));
}

TEST_F(GetKatuyoTest, FindsIrregularFormsOfExactlyThatWord) {
  dic_.addKatu("a", "{a:過}");
  dic_.addKatu("go", "{b:過}");
  dic_.addKatu("gone", "{c:過}");
  Open();
  EXPECT_EQ(Get("a"), (Forms{{8, "a"}}));
  EXPECT_EQ(Get("go"), (Forms{{8, "b"}}));
  EXPECT_EQ(Get("gone"), (Forms{{8, "c"}}));
  EXPECT_EQ(Get("gon"), Forms());
  EXPECT_EQ(Get("g"), Forms());
}

TEST_F(GetKatuyoTest, JoinsTheRecordsOfOneWord) {
  dic_.addKatu("found", "{found:現,founds:三,founded:過,found:過}");
  dic_.addKatu("found", "{find:現,finds:三,found:過,found:分}");
  dic_.addKatu("found", "{find:現}");
  Open();
  EXPECT_EQ(Get("found"), (Forms{{6, "find"},
                                 {6, "found"},
                                 {7, "finds"},
                                 {7, "founds"},
                                 {8, "found"},
                                 {8, "founded"},
                                 {9, "found"}}));
}

TEST_F(GetKatuyoTest, TakesAllFormsFromTheConjugationDictionaryWhenItServesAllThreeParts) {
  dic_.addKatu("lay", "{lay:単,lay:原,lay:現,laid:過}");
  dic_.addE("lay", Entry("lay up", {"-[名][Ｃ]"}));  // a base of several words isn't even looked at
  Open();
  EXPECT_EQ(Get("lay"), (Forms{{1, "lay"}, {3, "lay"}, {6, "lay"}, {8, "laid"}}));
}

TEST_F(GetKatuyoTest, PutsMadeFormsOfOtherPartsBehindIrregularOnes) {
  dic_.addKatu("run", "{run:現,runs:三,ran:過,run:分,running:進}");
  dic_.addE("run", Entry("run", {"-[動]", "-[名][Ｃ]", "-[形](more～, most～)"}));
  Open();
  EXPECT_EQ(Get("run"), (Forms{{6, "run"},
                               {7, "runs"},
                               {8, "ran"},
                               {9, "run"},
                               {10, "running"},
                               {1, "run"},
                               {2, "runs"},
                               {3, "run"},
                               {4, "more run"},
                               {5, "most run"}}));
}

TEST_F(GetKatuyoTest, CountsAPartAsServedByItsBaseFormOnly) {
  dic_.addKatu("run", "{ran:過}");
  dic_.addE("run", Entry("run", {"-[動]"}));
  Open();
  EXPECT_EQ(Get("run"),
            (Forms{{8, "ran"}, {6, "run"}, {7, "runs"}, {8, "runed"}, {9, "runed"}, {10, "runing"}}));
}

TEST_F(GetKatuyoTest, GivesIrregularFormsAloneWhenTheRulesMakeNone) {
  dic_.addKatu("went", "{go:現,went:過}");
  dic_.addE("went", Entry("went", {"-[動]"}));
  dic_.addKatu("dead", "{deads:複}");
  dic_.addE("dead", Entry("dead", {"-[形](比較なし)"}));
  Open();
  EXPECT_EQ(Get("went"), (Forms{{6, "go"}, {8, "went"}}));
  EXPECT_EQ(Get("dead"), (Forms{{2, "deads"}}));
}

TEST_F(GetKatuyoTest, ReadsARecordOf512BytesAndNoMore) {
  const std::string longest(507, 'a');  // with "{", ":", a label and "}" it is 512 bytes long
  dic_.addKatu("a", "{" + longest + ":過}");
  dic_.addKatu("b", "{" + longest + "a:過}");
  Open();
  EXPECT_EQ(Get("a"), (Forms{{8, longest}}));
  EXPECT_EQ(Get("b"), StatusOnly(19));
}

TEST_F(GetKatuyoTest, GivesARecordWithoutItsBracesAStatus) {
  dic_.addKatu("x", "{a:過}");
  Open();
  const std::string list = sjis("a:過");
  const std::pair<std::string, int> rows[] = {
      {scramble("{" + list + "}"), 0}, {scramble(list + "}"), 19},        {scramble("{" + list), 19},
      {scramble("}{" + list), 19},     {scramble("}{" + list + "}"), 19}, {"", 19},
  };
  for (const auto& [bytes, status] : rows) {
    Replace("katu.dic", bytes);
    EXPECT_EQ(Get("x"), status == 0 ? (Forms{{8, "a"}}) : StatusOnly(status)) << bytes;
  }
}

TEST_F(GetKatuyoTest, SkipsWhatStandsAheadOfARecord) {
  dic_.addKatu("x", "{a:過}");
  Open();
  Replace("katu.dic", "xyz" + scramble(sjis("{a:過}")));
  EXPECT_EQ(Get("x"), (Forms{{8, "a"}}));
}

TEST_F(GetKatuyoTest, GivesAnUnknownLabelAStatus) {
  dic_.addKatu("x", "{a:過,b:名}");
  Open();
  EXPECT_EQ(Get("x"), StatusOnly(257));
}

// --- Base forms ---

TEST_F(GetKatuyoTest, TriesAWordInIesAsAVerbAndThenAsANoun) {
  dic_.addE("try", Entry("try", {"-[動]"}));
  dic_.addE("city", Entry("city", {"-[名][Ｃ]"}));
  Open();
  EXPECT_EQ(Get("tries"), (Forms{{6, "try"}, {7, "tries"}, {8, "tried"}, {9, "tried"}, {10, "trying"}}));
  EXPECT_EQ(Get("cities"), (Forms{{1, "city"}, {2, "cities"}}));
}

TEST_F(GetKatuyoTest, GoesOnBehindAGuessOfAnotherPartOfSpeech) {
  dic_.addE("longe", Entry("longe", {"-[名]"}));
  dic_.addE("long", Entry("long", {"-[形]"}));
  Open();
  EXPECT_EQ(Get("longer"), (Forms{{3, "long"}, {4, "longer"}, {5, "longest"}}));
}

TEST_F(GetKatuyoTest, AsksForThePartOfSpeechOfTheSuffixOnly) {
  dic_.addE("long", Entry("long", {"-[名]", "-[形]"}));
  Open();
  // Once it is the base, all its parts of speech make forms.
  EXPECT_EQ(Get("longer"), (Forms{{1, "long"}, {3, "long"}, {4, "longer"}, {5, "longest"}}));
}

TEST_F(GetKatuyoTest, TakesTheWordItselfWhateverItsPartOfSpeech) {
  dic_.addE("going", Entry("going", {"-[名]"}));
  AddGo();
  Open();
  EXPECT_EQ(Get("going"), (Forms{{1, "going"}}));
  EXPECT_EQ(Get("goes"), kGo);
}

TEST_F(GetKatuyoTest, GivesNothingForAHeadwordWithoutAnythingToInflect) {
  dic_.addE("well", Entry("well", {"-[副]"}));
  dic_.addKatu("well", "{better:比,best:最}");
  Open();
  EXPECT_EQ(Get("well"), Forms());  // the irregular forms are lost as well
}

TEST_F(GetKatuyoTest, GivesNothingWhenTheLastGuessHasNothingToInflect) {
  dic_.addE("fly", Entry("fly", {"-[副]"}));
  dic_.addE("flyer", Entry("flyer", {"-[名]"}));
  dic_.addKatu("flies", "{flew:過}");
  Open();
  EXPECT_EQ(Get("flies"), Forms());
}

TEST_F(GetKatuyoTest, EndsAtAGuessWithoutAnythingToInflectThatIsAloneInItsBlock) {
  dic_.addE("goe", Entry("goe", {"-[副]"}));
  AddGo();
  Open();
  EXPECT_EQ(Get("goes"), Forms());
}

TEST_F(GetKatuyoTest, GoesOnBehindSuchAGuessThatIsNotAloneInItsBlock) {
  dic_.addE("goe", Entry("goe", {"-[副]"}));
  dic_.addE("goer", Entry("goer", {"-[名]"}));
  AddGo();
  Open();
  EXPECT_EQ(Get("goes"), kGo);
}

TEST_F(GetKatuyoTest, GoesOnBehindSuchAGuessWhenThereAreIrregularForms) {
  dic_.addE("goe", Entry("goe", {"-[副]"}));
  AddGo();
  dic_.addKatu("goes", "{went:過}");
  Open();
  EXPECT_EQ(Get("goes"),
            (Forms{{8, "went"}, {6, "go"}, {7, "gos"}, {8, "goed"}, {9, "goed"}, {10, "going"}}));
}

// --- Headwords ---

TEST_F(GetKatuyoTest, MakesNoFormsOfAHeadwordOfSeveralWords) {
  dic_.addE("pickup", Entry("pick up", {"-[動]"}));
  dic_.addKatu("pickup", "{picked:過}");
  dic_.addE("run", Entry("run ", {"-[名]"}));  // a blank at the end is no second word
  Open();
  EXPECT_EQ(Get("pick up"), Forms());
  EXPECT_EQ(Get("run"), (Forms{{1, "run"}}));
}

TEST_F(GetKatuyoTest, MakesNoFormsOfAnEntryWithoutHeadwordTag) {
  const std::string body = "bow\n" + tag(kTagHinsi) + sjis("-[動]\n-[名][Ｃ]\n-[形]\n");
  dic_.addE("bow", tag(kTagEntry) + body);
  dic_.addE("low", tag(kTagEntry) + body);
  dic_.addKatu("low", "{lows:複}");
  Open();
  EXPECT_EQ(Get("bow"), Forms());
  EXPECT_EQ(Get("low"), (Forms{{2, "lows"}}));
}

TEST_F(GetKatuyoTest, TakesHomographsTogetherUnderTheFirstHeadword) {
  dic_.addE("bow", Entry("Bow", {"-[動]"}));
  dic_.addE("bow", Entry("bow", {"-[名][Ｃ]", "-[動]《古》"}));
  Open();
  EXPECT_EQ(
      Get("bow"),
      (Forms{{6, "Bow"}, {7, "Bows"}, {8, "Bowed"}, {9, "Bowed"}, {10, "Bowing"}, {1, "Bow"}, {2, "Bows"}}));
}

TEST_F(GetKatuyoTest, PassesOverHomographsWithoutAnythingToInflect) {
  dic_.addE("bow", Entry("Bow", {"-[副]"}));
  dic_.addE("bow", Entry("bow", {"-[名][Ｃ]"}));
  Open();
  EXPECT_EQ(Get("bows"), (Forms{{1, "bow"}, {2, "bows"}}));
}

// Homographs are read as long as what was read is below 1,048,576 bytes: the rows of a damaged block may all
// point at one long entry.
TEST_F(GetKatuyoTest, TakesHomographsUpToALimitThatNoWordComesNear) {
  const std::string verb = Entry("walk", {"-[動][自]"}) + std::string(60000, 'x');
  for (const auto& [word, count] : {std::pair{"walk", 16}, std::pair{"wend", 20}}) {
    const uint32_t offset = dic_.addE(word, verb);
    for (int i = 1; i < count; ++i) dic_.aliasE(word, offset);
    dic_.addE(word, Entry("walk", {"-[名]"}));
  }
  Open();
  Forms both = kWalk;
  both.emplace_back(1, "walk");
  EXPECT_EQ(Get("walked"), both);
  EXPECT_EQ(Get("wended"), kWalk);
}

TEST_F(GetKatuyoTest, ReadsHomographsWithoutAnythingToInflectUpToThatLimitToo) {
  const std::string adverb = Entry("well", {"-[副]"}) + std::string(60000, 'x');
  for (const auto& [word, count] : {std::pair{"well", 16}, std::pair{"welt", 20}}) {
    const uint32_t offset = dic_.addE(word, adverb);
    for (int i = 1; i < count; ++i) dic_.aliasE(word, offset);
    dic_.addE(word, Entry("well", {"-[名]"}));
  }
  Open();
  EXPECT_EQ(Get("well"), (Forms{{1, "well"}}));
  EXPECT_EQ(Get("welt"), Forms());
}

// --- The frame ---

TEST_F(GetKatuyoTest, RefusesBadArguments) {
  AddWalk();
  Open();
  uint32_t size = 7;
  Handle list = reinterpret_cast<Handle>(&size);
  EXPECT_EQ(GetKatuyo("walk", nullptr, &list), 18);
  EXPECT_EQ(GetKatuyo("walk", &size, nullptr), 18);
  for (const char* word : {static_cast<const char*>(nullptr), "", "a1", "a\x82\xA0", "a!"}) {
    EXPECT_EQ(Get(word), StatusOnly(18));
  }
}

TEST_F(GetKatuyoTest, IsRefusedWhileAWriterIsAtWork) {
  AddWalk();
  Open();
  g_ProcessInfo->stateE = 2;
  EXPECT_EQ(Get("walk"), StatusOnly(35));
  g_ProcessInfo->stateE = 0;
  EXPECT_EQ(Get("walk"), kWalk);
}

TEST_F(GetKatuyoTest, NeedsAnOpenEngine) {
  AddWalk();
  Open();
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(Get("walk"), StatusOnly(257));
}

TEST_F(GetKatuyoTest, LeavesWithNothingOpenAndNobodyInside) {
  AddWalk();
  dic_.addKatu("x", "{a:名}");
  Open();
  for (const char* word : {"walked", "x", "a1", "zebra"}) {
    Get(word);
    EXPECT_EQ(g_ProcessInfo->readersE, 0) << word;
    EXPECT_EQ(g_ProcessInfo->stateE, 0) << word;
    for (const FsObj* stream : {g_fs_Ej_Dic_Kihon, g_fs_Ej_Ix3_Kihon, g_fs_Ka_Dic_Kihon, g_fs_Ka_Ix3_Kihon}) {
      EXPECT_FALSE(stream->IsOpen()) << word;
    }
  }
}

TEST_F(GetKatuyoTest, OpensTheFilesItReadsOnly) {
  AddWalk();
  dic_.addKatu("went", "{a:過}");
  dic_.addKatu("worn", "{b:過}");
  Open();
  Remove("katu.dic");
  EXPECT_EQ(Get("walk"), kWalk);
  EXPECT_EQ(Get("went"), StatusOnly(257));
  Remove("katu.ix3");
  EXPECT_EQ(Get("walk"), StatusOnly(257));  // w has a block of conjugated forms
  EXPECT_EQ(Get("zebra"), Forms());
  Remove("ej.ix3");
  EXPECT_EQ(Get("zebra"), Forms());
}

TEST_F(GetKatuyoTest, ReportsAMissingDictionary) {
  AddWalk();
  Open();
  Remove("ej.dic");
  EXPECT_EQ(Get("walk"), StatusOnly(257));
  Remove("ej.ix3");
  EXPECT_EQ(Get("walk"), StatusOnly(257));
}

TEST_F(GetKatuyoTest, ReportsAnIndexThatIsNotLoaded) {
  AddWalk();
  Open();
  const idx_info_ptr loaded = g_sKihonKatu;
  g_sKihonKatu = idx_info_ptr();
  EXPECT_EQ(Get("walk"), StatusOnly(20));
  g_sKihonKatu = loaded;
  EXPECT_EQ(Get("walk"), kWalk);
}

TEST_F(GetKatuyoTest, ReportsAFileOperationThatFails) {
  AddWalk();
  dic_.addKatu("walked", "{went:過}");
  Open();
  const Forms whole = Get("walked");
  EXPECT_EQ(whole.size(), 6u);
  test::FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    disk.failAt(n);
    const Forms forms = Get("walked");
    if (disk.faults() == 0) break;
    const std::string& failed = disk.history()[static_cast<size_t>(n - 1)];
    const bool afterwards = failed.starts_with("close");  // all was read by then
    EXPECT_EQ(forms, afterwards ? whole : StatusOnly(failed.starts_with("open") ? 257 : 21)) << failed;
  }
  EXPECT_GE(n, 9);  // four files are opened and read
}

TEST_F(GetKatuyoTest, ReportsABlockThatIsCutShort) {
  AddWalk();
  dic_.addKatu("went", "{a:過}");
  Open();
  Replace("ej.ix3", "\x01");
  EXPECT_EQ(Get("walk"), StatusOnly(21));
  Replace("katu.ix3", "\x01");
  EXPECT_EQ(Get("went"), StatusOnly(21));
}

}  // namespace
}  // namespace zavel::engine
