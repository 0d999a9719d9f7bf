// Showing a row: the detail view, the head over it, the notes button.
#include <filesystem>

#include "lookup/MirellModule.h"
#include "platform/FontMetrics.h"
#include "platform/ForwardingPlatform.h"
#include "platform/TextEncoding.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

const char* const kTakeShown = "take\r\r-[動]\r取る\n\r\r";

class Detail : public ShellTest {
 protected:
  Detail() {
    writeDictionary();
    writeEnglishTool(answering("<string>an answer</string>"));
    platform.ownBundle.texts["OiPodTitle"] = "word %@";
    platform.ownBundle.texts["TiPodTitle"] = "[%@] %@";
  }
  static constexpr Color kYellow{1.0, 1.0, 0.9, 1.0};
  static constexpr Color kWhite{1, 1, 1, 1};
};

TEST_F(Detail, ABilingualRow) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take");
  EXPECT_EQ(window.detail(), kTakeShown);
  EXPECT_EQ(tab.resultType(), S_Controller::kMirellRow);
  EXPECT_EQ(tab.hwResultView().backgroundColor(), kYellow);
  EXPECT_EQ(tab.hwResultView().font(), (TextView::Font{"HiraKakuPro-W3", 12}));
  EXPECT_FALSE(tab.hwHeadView().hidden());
  EXPECT_EQ(tab.iPodOutTitle(), "word take");
  EXPECT_TRUE(tab.iPodOutEnglish());
  EXPECT_TRUE(tab.iPodOut().enabled());
  // The headword is red, by the styles of the result file.
  ASSERT_FALSE(tab.hwResultView().text().runs().empty());
  EXPECT_EQ(tab.hwResultView().text().runs()[0].style.color, (Color{1, 0, 0, 1}));
}

TEST_F(Detail, ARowOfTheTranslationDictionary) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take", 2);
  EXPECT_EQ(window.detail(), "an answer");
  EXPECT_TRUE(tab.iPodOutEnglish());
  EXPECT_EQ(tab.resultType(), S_Controller::kTransRow);
  EXPECT_EQ(tab.hwResultView().backgroundColor(), kWhite);
  EXPECT_EQ(tab.hwResultView().font(), (TextView::Font{"HiraKakuPro-W3", 12}));
  EXPECT_TRUE(tab.hwHeadView().hidden());
  EXPECT_EQ(tab.iPodOutTitle(), "[EJ] take");
  EXPECT_TRUE(tab.iPodOut().enabled());
  EXPECT_TRUE(tab.hwListView().choose(0));  // and back
  EXPECT_FALSE(tab.hwHeadView().hidden());
  EXPECT_EQ(window.detail(), kTakeShown);
}

TEST_F(Detail, AJapaneseRowOfTheTranslationDictionary) {
  writeJapaneseTool(answering("<string>to go</string>"));
  Window window(kAllModes);
  window.look("行く");
  EXPECT_EQ(window.detail(), "    to go\n");
  EXPECT_EQ(window.dictionary().iPodOutTitle(), "[JE] 行く");
  EXPECT_FALSE(window.dictionary().iPodOutEnglish());
}

TEST_F(Detail, TheFilterInForceWhenTheRowIsSelectedCounts) {
  Window window(kAllModes);
  window.look("take");
  window.dictionary().changeHeadView(3);
  EXPECT_EQ(window.detail(), kTakeShown);
  window.dictionary().displaySelectedRow(0);
  EXPECT_EQ(window.detail(), "\r-[動]\r取る\n\r\r");
}

TEST_F(Detail, ARowIsMadeAnewEachTime) {
  Window window(kAllModes);
  window.look("take");
  const std::string result = gMirellModule->cachePath();
  for (int way = 0; way < 2; ++way) {
    ASSERT_TRUE(std::filesystem::remove(result));
    if (way == 0) window.dictionary().displaySelectedRow(0);
    if (way == 1) window.dictionary().setNewSelectRow(0);
    EXPECT_TRUE(std::filesystem::exists(result));
    EXPECT_EQ(window.detail(), kTakeShown);
  }
}

TEST_F(Detail, AnEntryThatCannotBeHadLeavesTheDetailEmpty) {
  Window window(kAllModes);
  window.look("take");
  window.dictionary().changeHeadView(4);  // no phrases
  window.dictionary().displaySelectedRow(0);
  EXPECT_EQ(window.detail(), "");
  EXPECT_EQ(window.dictionary().iPodOutTitle(), "");
  EXPECT_FALSE(window.dictionary().iPodOut().enabled());
}

TEST_F(Detail, AResultFileThatCannotBeWrittenLeavesTheDetailEmpty) {
  Window window(kAllModes);
  std::filesystem::remove_all(at("cache"));
  window.look("take");
  EXPECT_EQ(window.rows().size(), 2u);
  EXPECT_EQ(window.detail(), "");
  EXPECT_FALSE(window.dictionary().iPodOut().enabled());
}

TEST_F(Detail, TheNotesButtonNeedsARowWithATitle) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take");
  tab.updateTool(false);
  EXPECT_FALSE(tab.iPodOut().enabled());
  tab.updateTool(true);
  EXPECT_TRUE(tab.iPodOut().enabled());
  tab.hwListView().deselect();
  tab.updateTool(true);
  EXPECT_FALSE(tab.iPodOut().enabled());
  tab.changeHeadView(4);  // no phrases
  tab.setNewSelectRow(0);
  tab.updateTool(true);
  EXPECT_EQ(tab.nowSelectedRow(), 0);
  EXPECT_FALSE(tab.iPodOut().enabled());
}

TEST_F(Detail, NoEntriesAreShownInAClearedTab) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take", 2);
  tab.setUnfound();
  EXPECT_EQ(window.rows(), Lines{});
  EXPECT_EQ(window.detail(), "No entries");
  EXPECT_EQ(tab.hwResultView().backgroundColor(), kYellow);
  EXPECT_EQ(tab.iPodOutTitle(), "");
  EXPECT_FALSE(tab.iPodOut().enabled());
  EXPECT_EQ(tab.resultType(), S_Controller::kNoRow);
}

TEST_F(Detail, TheWidgetsAtTheStart) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  EXPECT_EQ(tab.iPodOut().imageName(), "iPodIcon");
  EXPECT_FALSE(tab.iPodOut().enabled());
  EXPECT_EQ(tab.hwHeadImage().imageName(), "ZDAll");
  EXPECT_EQ(tab.hwHeadTitle().text(), "DisplayAll");
}

TEST_F(Detail, ARowThatIsNotThereShowsNothingNew) {
  Window window(kAllModes);
  window.look("take");
  window.dictionary().displaySelectedRow(99);
  EXPECT_EQ(window.detail(), kTakeShown);
}

TEST_F(Detail, ClearingEmptiesListAndDetailAndLeavesTheHead) {
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take", 2);
  tab.clear();
  EXPECT_EQ(window.rows(), Lines{});
  EXPECT_EQ(window.detail(), "");
  EXPECT_EQ(tab.hwResultView().backgroundColor(), kYellow);
  EXPECT_EQ(tab.iPodOutTitle(), "");
  EXPECT_FALSE(tab.iPodOut().enabled());
  EXPECT_TRUE(tab.hwHeadView().hidden());
  EXPECT_EQ(tab.nowSelectedRow(), -1);
  EXPECT_EQ(tab.resultType(), S_Controller::kNoRow);
}

TEST_F(Detail, InTheMedicalEditionTheNotesButtonNeverChanges) {
  useMedicalEdition();
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  window.look("take");
  EXPECT_EQ(window.detail(), "an answer");
  EXPECT_EQ(tab.iPodOutTitle(), "");
  EXPECT_FALSE(tab.iPodOut().enabled());
  tab.iPodOut().setEnabled(true);
  tab.clear();
  EXPECT_TRUE(tab.iPodOut().enabled());
  EXPECT_EQ(tab.hwResultView().backgroundColor(), kWhite);  // not set by clearing
}

// --- Sizes ---

TEST_F(Detail, TheSizesOfTheFont) {
  Window window(kAllModes);
  Lines sizes;
  for (const MenuItem& size : window.dictionary().hwHeadSize().items())
    sizes.push_back(size.title + " " + std::to_string(size.tag));
  EXPECT_EQ(sizes, (Lines{"9pt 9", "10pt 10", "12pt 12", "14pt 14", "18pt 18", "24pt 24", "36pt 36",
                          "48pt 48", "64pt 64", "72pt 72"}));
  EXPECT_EQ(window.dictionary().hwHeadSize().selectedIndex(), 2);
}

TEST_F(Detail, TheSizeCanBeChosenForARowWithoutAHead) {
  Window window(kAllModes);
  window.look("take", 2);
  EXPECT_TRUE(window.dictionary().hwHeadView().hidden());
  EXPECT_TRUE(window.dictionary().hwHeadSize().choose(5));
  EXPECT_EQ(window.detail(), "an answer");
  EXPECT_EQ(window.dictionary().hwResultView().font(), (TextView::Font{"HiraKakuPro-W3", 24}));
}

// Heights that are no whole numbers.
class OddFonts : public ForwardingPlatform, public FontMetrics {
 public:
  OddFonts() : ForwardingPlatform(&zavel::platform()), before_(setPlatform(this)) {}
  ~OddFonts() override { setPlatform(before_); }
  FontMetrics& fonts() override { return *this; }
  FontHeights heights(const std::string& name, double size) override {
    asked.push_back(name + " " + std::to_string(static_cast<int>(size)));
    return {21.9, -3.2};
  }

  Lines asked;

 private:
  Platform* before_;
};

TEST_F(Detail, AnEntryIsLaidOutForTheFontOfItsSize) {
  OddFonts fonts;
  Window window(kAllModes);
  window.dictionary().setDefaultFontSize(24);
  window.look("take");
  EXPECT_EQ(fonts.asked, Lines{"HiraKakuPro-W3 24"});
  const MirellDictionaryManager& manager = *gMirellModule->objectODM();
  EXPECT_EQ(manager.fontName, "HiraKakuPro-W3");
  ASSERT_FALSE(manager.styleRuns.empty());
  for (const ScrpSTElement& run : manager.styleRuns) {
    EXPECT_EQ(run.scrpSize, 24);
    EXPECT_EQ(run.scrpAscent, 21);
    EXPECT_EQ(run.scrpHeight, 18);  // 21 and -3
  }
  for (const AttributedText::Run& run : window.dictionary().hwResultView().text().runs()) {
    EXPECT_EQ(run.style.fontSize, 24);
  }
}

TEST_F(Detail, ASizeIsSetByItsTagAndAnUnknownOneChangesNothing) {
  Window window(kAllModes);
  Posts sizes("zfChangeSizeNotification");
  window.dictionary().setDefaultFontSize(48);
  EXPECT_EQ(window.dictionary().defaultFontSize(), 48);
  window.dictionary().setDefaultFontSize(11);
  EXPECT_EQ(window.dictionary().defaultFontSize(), 48);
  EXPECT_EQ(sizes.count(), 0u);
}

TEST_F(Detail, TheHeadFallsBackForOtherFilters) {
  Window window(kAllModes);
  window.dictionary().changeHeadView(9);
  EXPECT_EQ(window.dictionary().hwHeadMode(), 9);
  EXPECT_EQ(window.dictionary().hwHeadImage().imageName(), "ZDExample");
  EXPECT_EQ(window.dictionary().hwHeadTitle().text(), "DisplayExample");
}

// --- The book browser's preferences ---

TEST_F(Detail, WithoutTheFileColoursAndLimitStay) {
  referenceMaxCount = 7;
  Window window(kAllModes);
  EXPECT_EQ(referenceMaxCount, 7u);
  EXPECT_EQ(headColor, std::nullopt);
  EXPECT_EQ(window.dictionary().twedDictList(), Value::Array());
  EXPECT_TRUE(logLines.empty() || logLines[0].find("TWEDBrowser") == std::string::npos);
}

TEST_F(Detail, TheFileGivesBooksColoursAndLimit) {
  writeBrowserPreferences(
      Value::Dict{{"DictList", Value::Array{Value::Dict{{"Name", "A book"}}}},
                  {"PreferencesAppearance", Value::Dict{{"HeadColor", "0.5 0.25 1 0.75"},
                                                        {"TextColor", "1 1 1"},  // one too few
                                                        {"RefColor", "0 1 0 1 9"}}},
                  {"PreferencesGeneral", Value::Dict{{"FindMax", 12}}}});
  Window window(kAllModes);
  EXPECT_EQ(headColor, (ZavelColor{0.5, 0.25, 1, 0.75}));
  EXPECT_EQ(textColor, std::nullopt);
  EXPECT_EQ(refColor, (ZavelColor{0, 1, 0, 1}));
  EXPECT_EQ(referenceMaxCount, 12u);
  EXPECT_EQ(window.dictionary().twedDictList(), Value::Array{Value(Value::Dict{{"Name", "A book"}})});
}

TEST_F(Detail, WithoutColoursTheyAreBlueBlackAndGreen) {
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 400}}}});
  Window window(kAllModes);
  EXPECT_EQ(headColor, (ZavelColor{0, 0, 1, 1}));
  EXPECT_EQ(textColor, (ZavelColor{0, 0, 0, 1}));
  EXPECT_EQ(refColor, (ZavelColor{0, 1, 0, 1}));
}

TEST_F(Detail, AFileThatCannotBeReadIsLoggedAndKeepsColoursAndLimit) {
  writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 12}}}});
  Window window(kAllModes);
  for (const char* garbage : {"garbage", "<plist version=\"1.0\"><array/></plist>"}) {
    writeFile(at("home/Library/Preferences/local.tarnwick.TWEDBrowser.plist"), garbage);
    logLines.clear();
    EXPECT_EQ(window.dictionary().twedDictList(), std::nullopt);
    EXPECT_EQ(logLines, Lines{"Access error local.tarnwick.TWEDBrowser.plist"});
    EXPECT_EQ(headColor, (ZavelColor{0, 0, 1, 1}));
    EXPECT_EQ(referenceMaxCount, 12u);
  }
}

TEST_F(Detail, WithoutGeneralSettingsTheLimitIs0) {
  writeBrowserPreferences(Value::Dict{{"DictList", Value::Array()}});
  Window window(kAllModes);
  EXPECT_EQ(referenceMaxCount, 0u);
}

// However they are gone, the tab doesn't know them any more.
TEST_F(Detail, BooksThatTheFileDoesNotTellOfAreForgotten) {
  const std::string file = at("home/Library/Preferences/local.tarnwick.TWEDBrowser.plist");
  const Value::Dict limit = {{"FindMax", 400}};
  for (const char* way : {"kept", "removed", "garbage", "without"}) {
    writeBrowserPreferences(Value::Dict{{"DictList", Value::Array{Value::Dict{{"Name", "A book"}}}},
                                        {"PreferencesGeneral", limit}});
    Window window(kAllModes);
    if (way == std::string("removed")) std::filesystem::remove(file);
    if (way == std::string("garbage")) writeFile(file, "garbage");
    if (way == std::string("without")) writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", limit}});
    window.dictionary().twedDictList();
    logLines.clear();
    window.dictionary().lookup(TextEncoding::adoptSjis("take"), item("sType", "A book", "YES"), true, 0);
    const bool known = way == std::string("kept");
    EXPECT_EQ(logLines, known ? Lines{} : Lines{"Dict title match error."}) << way;
  }
}

TEST_F(Detail, ADamagedFileTakesNoBookOutOfTheStoredList) {
  const Value books = Value::Array{item("sType", "A book", "YES"), item("oType", "StandardDictionary", "YES"),
                                   item("tType", "TranslationDictionary", "NO")};
  for (const char* damage :
       {"garbage", "", "<plist version=\"1.0\"><dict><key>DictList</key><string>x</string></dict></plist>"}) {
    writeDictList(*books.asArray());
    writeFile(at("home/Library/Preferences/local.tarnwick.TWEDBrowser.plist"), damage);
    Window window(kAllModes);
    EXPECT_EQ(Value(window.controller->zfwPrefController().dictTab().dictListArray()), books) << damage;
    EXPECT_EQ(*readStore().find("ZFWDictTabKey")->find("ZFWDictTabTWEDItem"), books) << damage;
  }
}

TEST_F(Detail, TheTextColourIsThatOfTranslatedRows) {
  writeBrowserPreferences(Value::Dict{{"PreferencesAppearance", Value::Dict{{"TextColor", "0.5 0 0 1"}}},
                                      {"PreferencesGeneral", Value::Dict{{"FindMax", 400}}}});
  Window window(kAllModes);
  window.look("take", 2);
  EXPECT_EQ(window.dictionary().hwResultView().textColor(), (Color{0.5, 0, 0, 1}));
}

// --- Links ---

TEST_F(Detail, ALinkIsHandedOnAndAnAlertTellsOfAFailure) {
  platform.ownBundle.texts["ErrorLinkQuestionPage"] = "No page";
  platform.ownBundle.texts["OK"] = "Very well";  // the button has one text in all languages
  Window window(kAllModes);
  window.dictionary().jumpURL("http://x/");
  EXPECT_EQ(platform.user.urls, Lines{"http://x/"});
  EXPECT_TRUE(platform.user.alerts.empty());
  platform.user.takesUrls = false;
  window.dictionary().jumpURL("http://y/");
  ASSERT_EQ(platform.user.alerts.size(), 1u);
  EXPECT_EQ(platform.user.alerts[0].title, "Error");
  EXPECT_EQ(platform.user.alerts[0].message, "No page");
  EXPECT_EQ(platform.user.alerts[0].buttons, Lines{"OK"});
}

}  // namespace
}  // namespace zavel::test
