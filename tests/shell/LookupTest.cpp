// The road of one look-up: query, walk, bilingual dictionary, outcome. The helper tool is in ToolTest.cpp.
#include <filesystem>
#include <optional>
#include <utility>

#include "platform/TextEncoding.h"
#include "shell/ProcessObjects.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

// As the process begins with it, ahead of any test.
const size_t kLimitAtStart = referenceMaxCount;

const char* const kTakeShown = "take\r\r-[動]\r取る\n\r\r";

// The bilingual dictionary alone.
class Lookup : public ShellTest {
 protected:
  Lookup() {
    writeDictionary();
    writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "NO")});
  }
};

TEST_F(Lookup, AnEventWithAWordShowsTheEntryOfItsDictionaryForm) {
  Window window({"zfTransTab", "zfDictTab"});
  window.look("took");
  EXPECT_EQ(window.field(), "took");
  EXPECT_EQ(window.segment(), 1);
  EXPECT_EQ(window.tab(), "sTab");
  EXPECT_EQ(window.rows(), (Lines{"take [取る]", "taken [取られた]"}));
  EXPECT_EQ(window.sources(), (Lines{"StandardDictionary", "StandardDictionary"}));
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 0);
  EXPECT_EQ(window.detail(), kTakeShown);
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Lookup, AJapaneseWordIsLookedUpAsItStands) {
  Window window(kAllModes);
  window.look("みち");
  EXPECT_EQ(window.rows(), (Lines{"みち [道]", "みち [未知]", "みちのく"}));
  EXPECT_EQ(window.detail(), "みち 道\rroad\n\r\r");
}

TEST_F(Lookup, ANewLineInTheFieldLooksUp) {
  Window window(kAllModes);
  EXPECT_TRUE(window.type("match"));
  EXPECT_EQ(window.rows(), (Lines{"match [合う]", "match [試合]"}));
}

TEST_F(Lookup, WhiteSpaceAtBothEndsOfTheQueryGoes) {
  Window window(kAllModes);
  window.look(" \t\n\xE3\x80\x80take\xE3\x80\x80\x01 ");
  EXPECT_EQ(window.field(), "take");
  EXPECT_EQ(window.rows().size(), 2u);
}

TEST_F(Lookup, ControlCharactersInsideTheQueryBecomeBlanksThatTheFieldShows) {
  Window window(kAllModes);
  window.look("take\toff\nnow");
  EXPECT_EQ(window.field(), "take off now");
}

TEST_F(Lookup, AQueryOfBlanksAndControlCharactersClearsTheTabAndReportsNothing) {
  FieldHost host;
  host.look("take");
  Posts results("zfDictResultNotification");
  host.look(" \x02\t \x1F\n");
  EXPECT_EQ(host.rows(), Lines{});
  EXPECT_EQ(host.detail(), "");
  EXPECT_EQ(results.count(), 0u);
}

TEST_F(Lookup, CharactersThatShiftJisLacksShowAsQuestionMarks) {
  Window window(kAllModes);
  window.look("caf\xC3\xA9 1");
  EXPECT_EQ(window.field(), "caf? 1");
}

TEST_F(Lookup, TheFirstByteAloneDecidesTheLanguage) {
  Window window(kAllModes);
  window.look("t\xE3\x81\xBF\xE3\x81\xA1");  // tみち: English, and not there
  EXPECT_EQ(window.detail(), "No entries");
  window.look("\xEF\xBE\x90\xEF\xBE\x81");  // half-width katakana begin with no lead byte
  EXPECT_EQ(window.detail(), "No entries");
}

TEST_F(Lookup, TheRowOfTheEventIsSelectedAndBroughtIntoView) {
  Window window(kAllModes);
  window.look("match", 1);
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
  EXPECT_EQ(window.dictionary().hwListView().scrolledRow(), 1);
  EXPECT_EQ(window.detail(), "match\r\r-[名]\r試合\n\r\r");
}

TEST_F(Lookup, TheFirstRowIsShownWithoutScrolling) {
  Window window(kAllModes);
  window.look("match", 0);
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 0);
  EXPECT_EQ(window.dictionary().hwListView().scrolledRow(), -1);
}

TEST_F(Lookup, ARealNumberIsARowToo) {
  Window window(kAllModes);
  window.look("match", 1.0);
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
}

TEST_F(Lookup, ARowThatIsNotThereSelectsNone) {
  Window window(kAllModes);
  for (const Value& row : {Value(-1), Value(2), Value(int64_t{1} << 32), Value(-(int64_t{1} << 32))}) {
    window.look("match", row);
    EXPECT_EQ(window.rows().size(), 2u);
    EXPECT_EQ(window.dictionary().nowSelectedRow(), -1);
    EXPECT_EQ(window.detail(), "");
  }
}

TEST_F(Lookup, ARowThatIsNoNumberCountsAsTheFirst) {
  Window window(kAllModes);
  window.look("match", "1");
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 0);
}

TEST_F(Lookup, AWordThatIsNowhereShowsThatThereAreNoEntries) {
  platform.ownBundle.texts["No entries"] = "Nothing found";
  Window window({"zfTransTab", "zfDictTab"});
  window.look("zebra");
  EXPECT_EQ(window.rows(), Lines{});
  EXPECT_EQ(window.detail(), "Nothing found");
  EXPECT_EQ(window.tab(), "sTab");
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Lookup, AHostWithoutTabsIsToldTheOutcome) {
  FieldHost host;
  Posts results("zfDictResultNotification");
  host.look("take");
  host.look("zebra");
  EXPECT_EQ(results.numbers(), (std::vector<int64_t>{8, 9}));
  EXPECT_EQ(host.input.text(), "zebra");
}

TEST_F(Lookup, AHostWithTabsIsToldNothing) {
  Window window(kAllModes);
  Posts results("zfDictResultNotification");
  window.look("take");
  window.look("zebra");
  EXPECT_EQ(results.count(), 0u);
}

TEST_F(Lookup, WithoutAnyDictionaryChosenThereAreNoEntries) {
  writeDictList({item("oType", "StandardDictionary", "NO"), item("tType", "TranslationDictionary", "NO")});
  FieldHost host;
  Posts results("zfDictResultNotification");
  EXPECT_EQ(host.controller->zfwPrefController().dictTab().selectedDict(), 0);
  host.look("take");
  EXPECT_EQ(host.detail(), "No entries");
  EXPECT_EQ(results.numbers(), std::vector<int64_t>{9});
}

// A host may look up while another mode is up.
TEST_F(Lookup, AnyLookUpInTheDictionariesBringsUpTheirTab) {
  Window window({"zfTransTab", "zfDictTab"});
  for (const char* word : {"take", "zebra"}) {
    window.controller->tabView()->selectItem("tTab");
    window.controller->searchField()->setText(word);
    window.controller->lookupButton();
    EXPECT_EQ(window.tab(), "sTab") << word;
  }
}

TEST_F(Lookup, ALookUpWithoutAnyDictionaryChosenBringsUpTheTab) {
  writeDictList({item("oType", "StandardDictionary", "NO"), item("tType", "TranslationDictionary", "NO")});
  Window window({"zfTransTab", "zfDictTab"});
  window.controller->searchField()->setText("take");
  window.controller->lookupButton();
  EXPECT_EQ(window.detail(), "No entries");
  EXPECT_EQ(window.tab(), "sTab");
}

TEST_F(Lookup, ALookUpInTheOutsideBrowserBringsUpNoTab) {
  writeDictList({item("oType", "StandardDictionary", "YES")}, 3);
  Window window({"zfTransTab", "zfDictTab"});
  window.controller->searchField()->setText("take");
  window.controller->lookupButton();
  EXPECT_EQ(window.tab(), "tTab");
}

TEST_F(Lookup, WithTheOutsideBrowserChosenNothingIsSearchedAndNoTabComesUp) {
  writeDictList({item("oType", "StandardDictionary", "YES")}, 3);
  Window window({"zfTransTab"}, {"zfDictTab"});
  EXPECT_EQ(window.controller->zfwPrefController().dictTab().selectedDict(), 64);
  window.look("take");
  EXPECT_EQ(window.rows(), Lines{});
  EXPECT_EQ(window.detail(), "");
  EXPECT_EQ(window.tab(), "tTab");
  FieldHost host;
  Posts results("zfDictResultNotification");
  host.look("take");
  EXPECT_EQ(results.numbers(), std::vector<int64_t>{9});
}

TEST_F(Lookup, AnItemOfAnyOtherStatusIsSearchedButDoesNotCountAsChosen) {
  writeDictList({item("oType", "StandardDictionary", "MAYBE"), item("tType", "TranslationDictionary", "NO")});
  FieldHost host;
  host.look("take");  // nothing chosen: the walk does not start
  EXPECT_EQ(host.detail(), "No entries");
  host.controller.reset();

  writeDictList(
      {item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "MAYBE")});
  FieldHost other;
  other.look("take");  // the tool is missing; the walk goes on
  EXPECT_EQ(other.controller->zfwPrefController().dictTab().selectedDict(), 4);
  EXPECT_EQ(other.rows().size(), 2u);
}

TEST_F(Lookup, RowsComeInTheOrderOfTheList) {
  writeEnglishTool(answering("<string>an answer</string>"));
  writeDictList({item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "YES")});
  Window window(kAllModes);
  window.look("match");
  EXPECT_EQ(window.rows(), (Lines{"match", "match [合う]", "match [試合]"}));
  EXPECT_EQ(window.sources(), (Lines{"TranslationDictionary", "StandardDictionary", "StandardDictionary"}));
  EXPECT_EQ(window.detail(), "an answer");
}

TEST_F(Lookup, TheLimitEndsTheWalkAndCountsAsFound) {
  writeEnglishTool(answering("<string>an answer</string>"));
  writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "YES")});
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 2}}}});
  Window window(kAllModes);
  window.look("match");  // two rows: the limit
  EXPECT_EQ(window.rows().size(), 2u);
  EXPECT_TRUE(platform.watched.runs.empty());
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 0);
  window.look("taken");  // one row
  EXPECT_EQ(window.rows().size(), 2u);
  EXPECT_EQ(platform.watched.runs.size(), 1u);
}

TEST_F(Lookup, AllHeadwordsOfASearchArriveThoughTheyPassTheLimit) {
  DicWriter writer;
  for (char first = 'a'; first <= 'e'; ++first) {
    for (char last = 'a'; last <= 'j'; ++last) {
      const std::string word = std::string("word") + first + last;
      writer.addE(word, entryE(word, "名", "語"));
    }
  }
  writeDictionary(writer);
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 40}}}});
  Window window(kAllModes);
  const SjisBytes query = TextEncoding::adoptSjis("word");
  EXPECT_EQ(window.dictionary().lookup(query, item("oType", "", "YES"), true, 0), LookupLimitReached);
  EXPECT_EQ(window.dictionary().hwResultArray().size(), 50u);  // as many as the engine lists
}

TEST_F(Lookup, EachSearchCountsTheRowsOfTheWholeWalk) {
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 3}}}});
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  const Value mirell = item("oType", "", "YES");
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("take"), mirell, true, 0), LookupFound);
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("zebra"), mirell, true, 0), LookupFound);
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("walk"), mirell, true, 0), LookupLimitReached);
  tab.clear();
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("zebra"), mirell, true, 0), LookupNotFound);
}

TEST_F(Lookup, TheLimitIs400UntilTheBrowsersPreferencesTellAnother) {
  EXPECT_EQ(kLimitAtStart, 400u);
}

TEST_F(Lookup, AMissingLimitReadsAsNoneAndEverySearchReachesIt) {
  writeEnglishTool(answering("<string>an answer</string>"));
  writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "YES")});
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{}}});
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.rows().size(), 2u);  // found, but the walk ended
  window.look("zebra");                 // an empty list is not found, whatever the limit: the walk goes on
  EXPECT_EQ(window.rows(), Lines{"zebra"});
}

TEST_F(Lookup, TheBilingualDictionaryGetsFiftyBytesOfTheQuery) {
  const std::string fifty(50, 'a');
  DicWriter writer;
  writer.addE(fifty, entryE(fifty, "名", "語"));
  writeDictionary(writer);
  Window window(kAllModes);
  window.look(fifty + "bcdef");
  EXPECT_EQ(window.rows(), Lines{fifty + " [語]"});
}

TEST_F(Lookup, HalfACharacterAtTheCutGoesOnAndFindsNothing) {
  DicWriter writer;
  std::string kana;
  for (int i = 0; i < 24; ++i) kana += "み";
  writer.addJ(kana, "", entryJ(kana, "", "long"));
  writeDictionary(writer);
  Window window(kAllModes);
  window.look(kana);  // 48 bytes
  EXPECT_EQ(window.rows().size(), 1u);
  S_Controller& tab = window.dictionary();
  tab.clear();
  const SjisBytes half = TextEncoding::adoptSjis(sjis(kana) + "a" + sjis("み"));  // byte 50 is a lead byte
  EXPECT_EQ(tab.lookup(half, item("oType", "", "YES"), false, 0), LookupNotFound);
}

TEST_F(Lookup, ABookThatIsNotKnownIsLoggedAndTheWalkGoesOn) {
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 100}}},
                                      {"DictList", Value::Array{Value::Dict{{"Name", "A book"}}}}});
  writeDictList({item("sType", "A book", "YES"), item("oType", "StandardDictionary", "YES")});
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.rows().size(), 2u);
  logLines.clear();
  window.dictionary().clear();
  EXPECT_EQ(
      window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("sType", "Gone", "YES"), true, 0),
      LookupEngineFailed);
  EXPECT_EQ(
      window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("xType", "Gone", "YES"), true, 0),
      LookupEngineFailed);
  EXPECT_EQ(logLines, (Lines{"Dict title match error.", "Dict title match error."}));
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Lookup, WithoutADictionaryTheRestIsSearched) {
  std::filesystem::remove_all(at("data/dictionaries/basic"));
  writeEnglishTool(answering("<string>an answer</string>"));
  writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "YES")});
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.rows(), Lines{"take"});
}

TEST_F(Lookup, AResultOfALookUpMayAskForTheNext) {
  FieldHost host;
  Lines seen;
  const auto next =
      NotificationCenter::shared().subscribe("zfDictResultNotification", [&](const Notification&) {
        seen.push_back(host.detail());
        if (seen.size() == 1) host.look("match", 1);
      });
  host.look("take");
  EXPECT_EQ(seen, (Lines{kTakeShown, "match\r\r-[名]\r試合\n\r\r"}));
  EXPECT_EQ(host.rows(), (Lines{"match [合う]", "match [試合]"}));
}

TEST_F(Lookup, AChangeThatAHostHearsOfMayLeadToAnotherLookUp) {
  FieldHost host;
  for (View* view :
       {static_cast<View*>(&host.progress), static_cast<View*>(&host.dictionary().hwResultView())}) {
    host.look("walk");
    Posts results("zfDictResultNotification");
    bool again = false;
    const Connection heard = view->changed.connect([&](View&) {
      if (!std::exchange(again, true)) host.look("match");
    });
    host.look("take");
    EXPECT_TRUE(again);
    EXPECT_EQ(host.field(), "match");
    EXPECT_EQ(host.rows(), (Lines{"match [合う]", "match [試合]"}));
    EXPECT_EQ(host.detail(), "match\r\r-[動]\r合う\n\r\r");
    EXPECT_EQ(results.numbers(), std::vector<int64_t>{8});
    EXPECT_FALSE(host.progress.running());
  }
}

// What is left once a look-up has led to one for another word at its change number `at`, counted over field,
// busy indicator and tab; nothing when there are fewer changes.
struct Outcome {
  std::string field;
  Lines rows;
  int row = 0;
  std::string detail, note;
  S_Controller::ResultType shown = S_Controller::kNoRow;
  std::vector<int64_t> reports;

  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << outcome.field << " | " << ::testing::PrintToString(outcome.rows) << " | " << outcome.row << " | "
       << outcome.detail << " | " << outcome.note << " | " << outcome.shown << " | "
       << ::testing::PrintToString(outcome.reports);
}

struct Overtaken {
  std::string query;
  Value row;
  bool posted = false;  // by an event; else the text stands in the field and the command is given
};

void begin(FieldHost& host, const Overtaken& first) {
  if (!first.posted) return host.controller->lookupButton(first.row);
  first.row.isNull() ? host.look(first.query) : host.look(first.query, first.row);
}

std::optional<Outcome> overtake(FieldHost& host, const Overtaken& first, int at, const std::string& word,
                                int row) {
  host.look("walk");
  if (!first.posted) host.input.setText(" " + first.query);
  Posts results("zfDictResultNotification");
  S_Controller& tab = host.dictionary();
  int changes = 0;
  std::vector<Connection> heard;
  for (View* view : {static_cast<View*>(&host.input), static_cast<View*>(&host.progress), &tab.mainView()}) {
    heard.push_back(view->changed.connect([&](View&) {
      if (++changes == at) host.look(word, row);
    }));
  }
  begin(host, first);
  if (changes < at) return std::nullopt;
  EXPECT_EQ(tab.hwResultArray().size(), tab.hwListView().rowCount()) << at;
  EXPECT_FALSE(host.progress.running()) << at;
  return Outcome{host.field(),       host.rows(),      tab.nowSelectedRow(), host.detail(),
                 tab.iPodOutTitle(), tab.resultType(), results.numbers()};
}

// Tries it at every change; how many there are.
int overtakeAtEach(FieldHost& host, const Overtaken& first, const std::string& word, const Outcome& expected,
                   int row = 0) {
  int at = 0;
  while (const std::optional<Outcome> outcome = overtake(host, first, ++at, word, row)) {
    EXPECT_EQ(*outcome, expected) << first.query << " at " << at;
  }
  return at - 1;
}

TEST_F(Lookup, ALaterLookUpIsNeverSpoiltByTheOneThatLedToIt) {
  writeEnglishTool("case $(cat '" + at("cache/fq/SourceFile.txt") + "') in\nzebra) exit 1 ;;\nesac\n" +
                   answering("<string>an answer</string>"));
  writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "YES")});
  platform.ownBundle.texts["OiPodTitle"] = "word %@";
  FieldHost host;
  const Outcome found{"match",
                      {"match [合う]", "match [試合]", "match"},
                      0,
                      "match\r\r-[動]\r合う\n\r\r",
                      "word match",
                      S_Controller::kMirellRow,
                      {8}};
  // One whose first row is shown, one that shows its last row, of the other dictionary, and one for nothing.
  for (const Overtaken& first : {Overtaken{"take", {}}, Overtaken{"take", 2}, Overtaken{"zebra", {}}}) {
    EXPECT_GT(overtakeAtEach(host, first, "match", found), 9) << first.query;
  }
}

TEST_F(Lookup, ALaterLookUpThatFindsNothingIsNotSpoiltEither) {
  FieldHost host;
  const Outcome nothing{"zebra", {}, -1, "No entries", "", S_Controller::kNoRow, {9}};
  EXPECT_GT(overtakeAtEach(host, {"take", {}}, "zebra", nothing), 9);
  // One for nothing clears the tab, and that is all.
  const Outcome cleared{" ", {}, -1, "", "", S_Controller::kNoRow, {}};
  EXPECT_GT(overtakeAtEach(host, {"take", {}}, " ", cleared), 9);
}

// It may be overtaken while its text is put into the field, before it has begun.
TEST_F(Lookup, ALaterLookUpIsNotSpoiltByTheEventThatLedToIt) {
  FieldHost host;
  const Outcome found{"match",      {"match [合う]", "match [試合]"}, 1,  "match\r\r-[名]\r試合\n\r\r",
                      "OiPodTitle", S_Controller::kMirellRow,         {8}};
  EXPECT_GT(overtakeAtEach(host, {"take", {}, true}, "match", found, 1), 9);
  EXPECT_GT(overtakeAtEach(host, {"zebra", 3, true}, "match", found, 1), 5);
}

// With a window the mode comes up ahead of the look-up, and hosts hear of that.
TEST_F(Lookup, AnEventIsOvertakenWhileItsModeComesUp) {
  Window window({"zfDictTab", "zfQuickTab"});
  window.look("walk");
  for (View* view : {static_cast<View*>(window.controller->modeControl()),
                     static_cast<View*>(window.controller->tabView()),
                     static_cast<View*>(window.controller->searchField())}) {
    window.controller->modeControl()->choose(1);
    bool again = false;
    const Connection heard = view->changed.connect([&](View&) {
      if (!std::exchange(again, true)) window.look("match", 1);
    });
    window.look("take");
    EXPECT_TRUE(again);
    EXPECT_EQ(window.field(), "match");
    EXPECT_EQ(window.rows(), (Lines{"match [合う]", "match [試合]"}));
    EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
    EXPECT_EQ(window.tab(), "sTab");
  }
}

TEST_F(Lookup, ADropIsOvertakenWhileItsTextIsPutIntoTheField) {
  Window window(kAllModes);
  bool again = false;
  const Connection heard = window.controller->searchField()->changed.connect([&](View&) {
    if (!std::exchange(again, true)) window.look("match", 1);
  });
  window.controller->mainView().dragEntered("take");
  window.controller->mainView().drop();
  EXPECT_EQ(window.field(), "match");
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
}

TEST_F(Lookup, ASearchInWhoseCourseTheTabIsClearedAddsNothing) {
  FieldHost host;
  S_Controller& tab = host.dictionary();
  for (View* view : {static_cast<View*>(&host.progress), static_cast<View*>(&tab.hwListView())}) {
    bool again = false;
    const Connection heard = view->changed.connect([&](View&) {
      if (!std::exchange(again, true)) tab.clear();
    });
    EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("take"), item("oType", "", "YES"), true, 0),
              LookupEngineFailed);
    EXPECT_TRUE(again);
    EXPECT_EQ(tab.hwResultArray().size(), 0u);
    EXPECT_FALSE(host.progress.running());
  }
}

TEST_F(Lookup, AResultOfALookUpMayEndTheController) {
  FieldHost host;
  const auto end = NotificationCenter::shared().subscribe(
      "zfDictResultNotification", [&](const Notification&) { host.controller.reset(); });
  host.look("take");
  EXPECT_EQ(host.controller, nullptr);
  EXPECT_EQ(gCallCount, 0);
  host.look("take");  // nobody listens
  EXPECT_FALSE(host.input.insertNewline());
}

TEST_F(Lookup, AResultOfALookUpMayMakeAController) {
  FieldHost host;
  std::unique_ptr<Window> second;
  const auto make =
      NotificationCenter::shared().subscribe("zfDictResultNotification", [&](const Notification&) {
        if (!second) second = std::make_unique<Window>(kAllModes);
      });
  host.look("take");
  ASSERT_NE(second, nullptr);
  second->look("match");
  EXPECT_EQ(second->rows().size(), 2u);
  EXPECT_EQ(host.rows(), (Lines{"take [取る]", "taken [取られた]"}));
}

}  // namespace
}  // namespace zavel::test
