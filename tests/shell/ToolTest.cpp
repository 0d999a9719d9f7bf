// The translation dictionary: its helper tool's command line, its answers, and the ways in which it fails.
#include <signal.h>
#include <sys/time.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "config/WorkPaths.h"
#include "config/WorkStyles.h"
#include "config/ZavelApplet.h"
#include "platform/ForwardingPlatform.h"
#include "platform/PropertyLists.h"
#include "platform/TextEncoding.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

// The translation dictionary alone.
class Tool : public ShellTest {
 protected:
  Tool() {
    writeDictList({item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "NO")});
  }

  LookupStatus search(Window& window, const std::string& query) {
    window.dictionary().clear();
    return window.dictionary().lookup(TextEncoding::adoptSjis(query), item("tType", "", "YES"), true, 0);
  }

  std::string cache(const std::string& name) const { return at("cache/fq/" + name); }
};

// --- Command line ---

TEST_F(Tool, TheEnglishToolGetsItsSixOptionsInOrder) {
  writeEnglishTool(answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(platform.watched.runs,
            (std::vector<Lines>{{at("helpers/zavel-text-ej"), "-d", at("preferences/ZP.plist"), "-i",
                                 at("preferences/ZavelStyle.plist"), "-s", "0", "-e", cache("SourceFile.txt"),
                                 "-r", cache("ResultFile.plist"), "-w"}}));
  EXPECT_TRUE(std::filesystem::exists(at("preferences/ZP.plist")));
}

TEST_F(Tool, AJapaneseQueryGoesToTheJapaneseTool) {
  writeJapaneseTool(answering("<string>go</string>"));
  Window window(kAllModes);
  window.look("行く");
  ASSERT_EQ(platform.watched.runs.size(), 1u);
  EXPECT_EQ(platform.watched.runs[0],
            (Lines{at("helpers/zavel-text-je"), "-d", at("preferences/ZP.plist"), "-i",
                   at("preferences/ZavelStyle.plist"), "-s", "0", "-e", cache("SourceFile.txt"), "-r",
                   cache("ResultFile.plist"), "-w"}));
  EXPECT_TRUE(std::filesystem::exists(at("preferences/ZP.plist")));
  EXPECT_EQ(window.rows(), Lines{"行く"});
  EXPECT_EQ(readFile(cache("SourceFile.txt")), sjis("行く"));
}

TEST_F(Tool, TheMedicalEditionHasTheOptionMFirstAndNoParameterFile) {
  useMedicalEdition();
  writeEnglishTool(answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(
      platform.watched.runs,
      (std::vector<Lines>{{at("helpers/zavel-text-ej"), "-m", "-i", at("preferences/ZavelStyle.plist"), "-s",
                           "0", "-e", cache("SourceFile.txt"), "-r", cache("ResultFile.plist"), "-w"}}));
  EXPECT_FALSE(std::filesystem::exists(at("preferences/ZP.plist")));
  EXPECT_EQ(window.rows(), Lines{"take"});
}

TEST_F(Tool, TheToolGetsAllBytesOfTheQuery) {
  const std::string sixty(60, 'q');
  writeEnglishTool("cp '" + cache("SourceFile.txt") + "' '" + at("copy") + "'\n" +
                   answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look(sixty);
  EXPECT_EQ(readFile(at("copy")), sixty);
}

TEST_F(Tool, TheToolGetsTheQueryAsTheFieldShowsIt) {
  writeEnglishTool(answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take\toff");
  EXPECT_EQ(readFile(cache("SourceFile.txt")), "take off");
}

TEST_F(Tool, TheStyleStaysAsItWasAtTheStartInMostApplications) {
  for (const char* signature : {"zFQ8", "zOS8", "zVN8", "zGX8"}) {
    platform.watched.runs.clear();
    platform.ownBundle.signature = signature;
    writeEnglishTool("exit 1");
    Window window(kAllModes);
    window.controller->setDocStyle(3);
    window.look("take");
    EXPECT_EQ(platform.watched.runs.at(0).at(6), "0") << signature;
    EXPECT_EQ(window.dictionary().styleNumer(), "0") << signature;
  }
}

TEST_F(Tool, TheStyleOfTheStartIsTheApplicationsInTheStyleFile) {
  Value styles = defaultStyles(StyleLanguage::kEnglish);
  (*(*styles.asDict())["Selection"].asDict())["FQ"] = 3;
  ASSERT_TRUE(platform.propertyLists().writeFile(at("preferences/ZavelStyle.plist"), styles,
                                                 PropertyListFormat::kXml));
  writeEnglishTool("exit 1");
  Window window(kAllModes);
  EXPECT_EQ(window.dictionary().styleNumer(), "3");
  window.look("take");
  const Lines& run = platform.watched.runs.at(0);
  EXPECT_EQ(run.at(5), "-s");
  EXPECT_EQ(run.at(6), "3");
}

TEST_F(Tool, AStyleThatIsSetAheadOfTheSetUpCounts) {
  platform.ownBundle.signature = "zQN8";
  writeEnglishTool("exit 1");
  Window window;
  window.controller->setDocStyle(3);
  window.controller->initController(Rect(), &window.token, kAllModes);
  EXPECT_EQ(window.dictionary().docStyle(), 3);
  window.look("take");
  EXPECT_EQ(platform.watched.runs.at(0).at(6), "3");
}

TEST_F(Tool, TheTranslationEditorAndTheBrowserUseTheStyleOfTheDocument) {
  for (const char* signature : {"zQN8", "zVX8"}) {
    platform.watched.runs.clear();
    platform.ownBundle.signature = signature;
    writeEnglishTool("exit 1");
    Window window(kAllModes);
    window.controller->setDocStyle(3);
    window.look("take");
    EXPECT_EQ(platform.watched.runs.at(0).at(6), "3");
  }
}

// --- Answers ---

TEST_F(Tool, AnEnglishAnswerIsTheFirstElementAlone) {
  writeEnglishTool(answering("<string>first</string><string>second</string>"));
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.rows(), Lines{"take"});
  EXPECT_EQ(window.sources(), Lines{"TranslationDictionary"});
  EXPECT_EQ(window.detail(), "first");
  EXPECT_EQ(window.dictionary().resultType(), S_Controller::kTransRow);
}

TEST_F(Tool, AJapaneseAnswerIsGroupedByDictionary) {
  platform.ownBundle.texts["StarMark"] = "*";
  writeJapaneseTool(
      answering("<integer>2</integer><string>go</string><string>walk</string>"
                "<integer>11</integer><string>run</string>",
                "<key>2</key><string>/d/Standard.sdje</string>"
                "<key>11</key><string>/d/Computer.v2.sdje</string>"));
  Window window(kAllModes);
  window.look("行く");
  EXPECT_EQ(window.detail(), "*Standard\n    go\n    walk\n\n*Computer.v2\n    run\n");
}

TEST_F(Tool, AnAnswerWithoutTextAddsNoRow) {
  for (const std::string& answer :
       {answering(""), answering("<string></string>"), answering("<integer>5</integer>")}) {
    writeEnglishTool(answer);
    Window window(kAllModes);
    window.look("take");
    EXPECT_EQ(window.rows(), Lines{});
    EXPECT_EQ(window.detail(), "No entries");
  }
}

// --- Failures ---

TEST_F(Tool, AToolThatFailsGivesItsStatusOnlyBesideOtherRows) {
  writeDictionary();
  for (const char* script : {"exit 1", "kill -SEGV $$", "exit 255"}) {
    writeEnglishTool(script);
    Window window(kAllModes);
    EXPECT_EQ(search(window, "take"), LookupNotFound);  // nothing is listed
    window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("oType", "", "YES"), true, 0);
    EXPECT_EQ(window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("tType", "", "YES"), true, 0),
              LookupEngineFailed);
    EXPECT_EQ(window.rows().size(), 2u);
    EXPECT_FALSE(window.controller->progressSpinning()->running());
  }
}

TEST_F(Tool, AToolThatIsMissingIsAToolThatFailed) {
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.detail(), "No entries");
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Tool, AToolThatFailsLosesItsAnswer) {
  writeEnglishTool(answering("<string>an answer</string>") + "\nexit 3");
  Window window(kAllModes);
  EXPECT_EQ(search(window, "take"), LookupNotFound);
}

TEST_F(Tool, GarbageInTheResultFileAddsNoRow) {
  for (const char* script :
       {"printf 'garbage' >\"$result\"", "printf 'bplist00\\377\\377' >\"$result\"", ": >\"$result\"",
        "echo '<plist version=\"1.0\"><array/></plist>' >\"$result\""}) {
    writeEnglishTool(script);
    Window window(kAllModes);
    EXPECT_EQ(search(window, "take"), LookupNotFound);
  }
}

TEST_F(Tool, ASilentToolWithoutAResultFileAddsNoRow) {
  writeEnglishTool("exit 0");
  Window window(kAllModes);
  EXPECT_EQ(search(window, "take"), LookupNotFound);
}

// The result file isn't removed ahead of a run.
TEST_F(Tool, ASilentToolLeavesTheAnswerBeforeToBeReadAgain) {
  writeEnglishTool(answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  writeEnglishTool("exit 0");
  window.look("walk");
  EXPECT_EQ(window.rows(), Lines{"walk"});
  EXPECT_EQ(window.detail(), "an answer");
}

TEST_F(Tool, ASlowToolIsWaitedFor) {
  writeEnglishTool("sleep 0.3\n" + answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.detail(), "an answer");
}

TEST_F(Tool, AToolThatHangsCanBeInterruptedAndTheOtherRowsStay) {
  writeDictionary();
  writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "YES")});
  Window window(kAllModes);
  writeEnglishTool(answering("<string>an answer of before</string>"));
  window.look("walk");
  platform.watched.runs.clear();
  writeEnglishTool("trap 'kill $!; exit 0' TERM\nsleep 60 & wait");  // says that all is well
  ::signal(SIGALRM, [](int) { defaultPlatform().tools().interrupt(); });
  const itimerval soon{{0, 0}, {0, 200000}};
  ::setitimer(ITIMER_REAL, &soon, nullptr);
  window.look("take");
  ::signal(SIGALRM, SIG_DFL);
  EXPECT_EQ(platform.watched.runs.size(), 1u);
  EXPECT_EQ(window.rows(), (Lines{"take [取る]", "taken [取られた]"}));
  EXPECT_EQ(window.detail(), "take\r\r-[動]\r取る\n\r\r");
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

// A platform whose tool runner is the test's.
class OtherRunner : public ForwardingPlatform, public ToolRunner {
 public:
  explicit OtherRunner(std::function<ToolResult()> act)
      : ForwardingPlatform(&zavel::platform()), act_(std::move(act)), before_(setPlatform(this)) {}
  ~OtherRunner() override { setPlatform(before_); }
  ToolRunner& tools() override { return *this; }
  ToolResult run(const std::string&, const std::vector<std::string>&) override { return act_(); }

 private:
  std::function<ToolResult()> act_;
  Platform* before_;
};

TEST_F(Tool, AToolThatWasEndedLosesItsAnswerWhateverItsStatus) {
  writeEnglishTool(answering("<string>an answer of before</string>"));
  Window window(kAllModes);
  window.look("take");
  ToolResult result;
  result.started = true;
  result.exitStatus = 0;
  const OtherRunner runner([&] { return result; });
  EXPECT_EQ(search(window, "take"), LookupFound);
  result.stopped = true;
  EXPECT_EQ(search(window, "take"), LookupNotFound);
  result.stopped = false;
  result.interrupted = true;
  EXPECT_EQ(search(window, "take"), LookupNotFound);
}

TEST_F(Tool, AnAnswerIsLostWhereTheTabIsClearedWhileTheToolRuns) {
  writeEnglishTool(answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  const OtherRunner runner([&] {
    window.dictionary().clear();
    return ToolResult{true, 0, "", false, false};
  });
  EXPECT_EQ(search(window, "take"), LookupEngineFailed);
  EXPECT_EQ(window.dictionary().hwResultArray().size(), 0u);
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Tool, ALookUpWhileTheToolRunsTakesThePlaceOfTheFirst) {
  writeDictionary();
  writeDictList({item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "YES")});
  writeEnglishTool(answering("<string>an answer</string>"));
  FieldHost host;
  Posts results("zfDictResultNotification");
  bool again = false;
  const OtherRunner runner([&] {
    const bool first = !std::exchange(again, true);
    if (first) host.look("match");
    return platform.watched.run(first ? "/bin/true" : at("helpers/zavel-text-ej"), {});
  });
  host.look("take");
  EXPECT_EQ(host.rows(), (Lines{"match", "match [合う]", "match [試合]"}));
  EXPECT_EQ(host.field(), "match");
  EXPECT_EQ(results.numbers(), std::vector<int64_t>{8});
  EXPECT_FALSE(host.progress.running());
}

TEST_F(Tool, AToolThatWritesMuchToItsOutputIsNotHeldUpByIt) {
  writeEnglishTool("head -c 300000 /dev/zero\n" + answering("<string>an answer</string>"));
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.detail(), "an answer");
}

TEST_F(Tool, TheBusyIndicatorRunsWhileTheToolDoes) {
  writeEnglishTool(answering("<string>an answer</string>"));
  FieldHost host;
  Lines states;
  const Connection heard = host.progress.changed.connect(
      [&](View&) { states.push_back(host.progress.running() ? "runs" : "stands"); });
  host.look("take");
  EXPECT_EQ(states, (Lines{"runs", "stands"}));
}

TEST_F(Tool, AQueryThatCannotBeWrittenIsLoggedAndLeavesTheBusyIndicatorOn) {
  writeDictionary();
  Window window(kAllModes);
  std::filesystem::remove_all(at("cache/fq"));
  writeFile(at("cache/fq"), "no folder");
  logLines.clear();
  EXPECT_EQ(search(window, "take"), LookupSourceWriteFailed);
  EXPECT_EQ(logLines, Lines{"Source write error"});
  EXPECT_TRUE(window.controller->progressSpinning()->running());
  EXPECT_TRUE(platform.watched.runs.empty());
  // The next search's end stops it.
  window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("oType", "", "YES"), true, 0);
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

TEST_F(Tool, AStyleFileThatCannotBeReadIsLoggedAndLeavesTheBusyIndicatorOn) {
  Window window(kAllModes);
  writeFile(at("preferences/ZavelStyle.plist"), "garbage");
  logLines.clear();
  EXPECT_EQ(search(window, "take"), LookupParameterFileFailed);
  EXPECT_EQ(logLines, Lines{"Error [" + at("preferences/ZavelStyle.plist") + "]"});
  EXPECT_TRUE(window.controller->progressSpinning()->running());
  EXPECT_EQ(readFile(cache("SourceFile.txt")), "take");  // written before
  EXPECT_TRUE(platform.watched.runs.empty());
}

// The parameter file is made for the document's style, whatever the tool is told.
TEST_F(Tool, AStyleThatIsNotThereFailsTheParameterFile) {
  Window window(kAllModes);
  window.controller->setDocStyle(10);
  EXPECT_EQ(search(window, "take"), LookupParameterFileFailed);
  EXPECT_EQ(window.dictionary().styleNumer(), "0");
}

TEST_F(Tool, TheStyleIsTakenEvenWhereTheParameterFileFails) {
  platform.ownBundle.signature = "zQN8";
  Window window(kAllModes);
  window.controller->setDocStyle(10);
  EXPECT_EQ(search(window, "take"), LookupParameterFileFailed);
  EXPECT_EQ(window.dictionary().styleNumer(), "10");
}

TEST_F(Tool, TheLimitEndsTheWalkAndCountsAsFound) {
  writeDictionary();
  writeEnglishTool(answering("<string>an answer</string>"));
  writeDictList({item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "YES")});
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 1}}}});
  Window window(kAllModes);
  window.look("take");
  EXPECT_EQ(window.rows(), Lines{"take"});  // the second dictionary has two more
  EXPECT_EQ(window.detail(), "an answer");
  EXPECT_EQ(search(window, "take"), LookupLimitReached);
}

TEST_F(Tool, AFailingDictionaryStopsNoOther) {
  writeDictionary();
  writeDictList({item("tType", "TranslationDictionary", "YES"), item("oType", "StandardDictionary", "YES")});
  Window window(kAllModes);
  writeFile(at("preferences/ZavelStyle.plist"), "garbage");
  window.look("take");
  EXPECT_EQ(window.rows(), (Lines{"take [取る]", "taken [取られた]"}));
  EXPECT_FALSE(window.controller->progressSpinning()->running());
}

// Rows of before make the list not empty: the search that adds nothing counts as found.
TEST_F(Tool, AnEmptyAnswerBehindOtherRowsCountsAsFound) {
  writeDictionary();
  writeEnglishTool(answering(""));
  Window window(kAllModes);
  window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("oType", "", "YES"), true, 0);
  EXPECT_EQ(window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("tType", "", "YES"), true, 0),
            LookupFound);
}

TEST_F(Tool, SaveZPWritesTheParameterFileOfAStyle) {
  Window window(kAllModes);
  EXPECT_TRUE(ZavelLexController::saveZP(0));
  Value parameters;
  ASSERT_TRUE(platform.propertyLists().readFile(gDictPath, &parameters));
  EXPECT_EQ(parameters.asDict()->size(), 5u);
  EXPECT_FALSE(ZavelLexController::saveZP(10));
}

}  // namespace
}  // namespace zavel::test
