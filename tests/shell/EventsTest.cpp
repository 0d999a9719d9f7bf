// Events: which reach a window, which mode they bring up, what they do there.
#include "platform/TextEncoding.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

class Events : public ShellTest {
 protected:
  Events() { writeDictionary(); }
  static void postText(const std::string& text) {
    NotificationObject object;
    object.value = text;
    NotificationCenter::shared().post("zfDropNotification", object);
  }
};

// What an event leaves behind, as text.
struct Expected {
  const char* name;
  const char* tab;
  std::string (*seen)(Window&);
  const char* left;
};

std::string requestOf(Window& window) {
  const T_Controller::Request& request = window.controller->tController().request();
  return request.text + "|" + std::to_string(request.direction) + "|" + std::to_string(request.style) +
         (request.resultOnly ? "|result" : "");
}
std::string textTranslation(Window& window) {
  E_Controller& tab = window.controller->eController();
  return tab.srcView().text().text() + "|" + std::to_string(tab.direction());
}
std::string quickTranslation(Window& window) {
  Q_Controller& tab = window.controller->qController();
  return tab.srcView().text().text() + "|" + std::to_string(tab.direction());
}
std::string webSearch(Window& window) {
  return window.field() + "|" + window.controller->wController().query().bytes();
}
std::string feed(Window& window) {
  return window.field() + "|" + window.controller->rController().urlString();
}
std::string research(Window& window) {
  return window.controller->dController().queryField().text();
}
std::string archives(Window& window) {
  return window.controller->aController().queryField().text();
}
std::string dictionary(Window& window) {
  return window.field() + "|" + std::to_string(window.rows().size());
}

const Expected kExpected[] = {
    {"zfDictLookupNotification", "sTab", dictionary, "take|2"},
    {"ZFDropTranslationNotification", "tTab", requestOf, "take|5|-1"},
    {"zfAutoTranslationNotification", "tTab", requestOf, "take|6|-1"},
    {"zfEtoJTranslationNotification", "tTab", requestOf, "take|6|-1"},
    {"zfJtoETranslationNotification", "tTab", requestOf, "take|7|-1"},
    {"zfResultOnlyTranslationNotification", "tTab", requestOf, "take|5|0|result"},
    {"zfAutoTextTranslationNotification", "eTab", textTranslation, "take|1"},
    {"zfEtoJTextTranslationNotification", "eTab", textTranslation, "take|1"},
    {"zfJtoETextTranslationNotification", "eTab", textTranslation, "take|0"},
    {"zfTranslationSearchNotification", "wTab", webSearch, "take|take"},
    {"zfRssNotification", "rTab", feed, "take|take"},
    {"zfAutoQuickTranslationNotification", "qTab", quickTranslation, "take|1"},
    {"zfEtoJQuickTranslationNotification", "qTab", quickTranslation, "take|1"},
    {"zfJtoEQuickTranslationNotification", "qTab", quickTranslation, "take|0"},
    {"zfPubMedSearchNotification", "dTab", research, "take"},
    {"zfExampleArchivesNotification", "aTab", archives, "take"},
};

TEST_F(Events, EachBringsUpItsModeAndHandsTheTextToItsTab) {
  for (const Expected& event : kExpected) {
    // The first segment is another mode than the event's.
    Window window({event.tab == std::string("tTab") ? "zfDictTab" : "zfTransTab", "zfDictTab", "zfTransTab",
                   "zfTexttransTab", "zfSearchTab", "zfRssTab", "zfQuickTab", "zfDocuTab", "zfArchTab"});
    window.post(event.name, "take");
    EXPECT_EQ(window.tab(), event.tab) << event.name;
    EXPECT_EQ(event.seen(window), event.left) << event.name;
  }
}

TEST_F(Events, OneOfAnotherHostChangesNothing) {
  for (const Expected& event : kExpected) {
    Window window(kAllModes);
    const std::string before = event.seen(window);
    int stranger = 0;
    NotificationObject object;
    object.value = Value::Dict{{"zfTextKey", "take"}};
    object.identities["zfParentKey"] = &stranger;
    NotificationCenter::shared().post(event.name, object);
    object.identities.clear();
    NotificationCenter::shared().post(event.name, object);
    EXPECT_EQ(event.seen(window), before) << event.name;
    EXPECT_EQ(window.tab(), "sTab") << event.name;
  }
}

TEST_F(Events, ThoseOfAnAbsentModeDoNothing) {
  for (const Expected& event : kExpected) {
    if (event.tab == std::string("aTab")) continue;
    Window window({"zfArchTab"});
    const std::string before = event.seen(window);
    window.post(event.name, "take");
    EXPECT_EQ(event.seen(window), before) << event.name;
    EXPECT_EQ(window.tab(), "aTab") << event.name;
  }
}

TEST_F(Events, AHiddenModeTakesItsEventsWithoutComingUp) {
  for (const Expected& event : kExpected) {
    const std::string other = event.tab == std::string("tTab") ? "zfQuickTab" : "zfTransTab";
    Window window({other}, kAllModes);  // all hidden, the visible one too: the later list wins
    const std::string tab = window.tab();
    window.post(event.name, "take");
    EXPECT_EQ(event.seen(window), event.left) << event.name;
    EXPECT_EQ(window.tab(), tab) << event.name;
    EXPECT_EQ(window.segment(), 0) << event.name;
  }
}

TEST_F(Events, OneThatBringsUpItsModeHidesThePreferences) {
  for (const char* name :
       {"zfDictLookupNotification", "zfEtoJTranslationNotification", "zfRssNotification"}) {
    Window window(kAllModes);
    window.controller->zfwPrefController().showDictPanel();
    window.post(name, "take");
    EXPECT_TRUE(window.controller->zfwPrefController().panel().hidden()) << name;
  }
}

TEST_F(Events, AHiddenModeDisturbsNothingThatIsUp) {
  Window window({"zfDictTab"}, {"zfTransTab"});
  window.look("take");
  window.controller->zfwPrefController().showDictPanel();
  window.post("zfEtoJTranslationNotification", "t");
  EXPECT_EQ(requestOf(window), "t|6|-1");
  EXPECT_FALSE(window.controller->zfwPrefController().panel().hidden());
  EXPECT_EQ(window.controller->searchField()->menu(), window.controller->dMenu());
  EXPECT_FALSE(window.controller->searchField()->hidden());
  EXPECT_EQ(dictionary(window), "take|2");
  EXPECT_EQ(window.tab(), "sTab");
  window.controller->tabView()->selectItem("wTab");  // by hand; the mode switch stays
  window.post("zfEtoJTranslationNotification", "u");
  EXPECT_EQ(requestOf(window), "u|6|-1");
  EXPECT_EQ(window.tab(), "wTab");
}

TEST_F(Events, TheArchiveModeGetsItsEventsThoughItIsNotListed) {
  Window window({"zfTransTab", "zfDictTab"});
  window.controller->modeControl()->choose(1);
  EXPECT_EQ(window.tab(), "sTab");
  window.post("zfExampleArchivesNotification", "memory");
  EXPECT_EQ(archives(window), "memory");
  EXPECT_EQ(window.segment(), 0);
  EXPECT_EQ(window.tab(), "tTab");  // the first mode whose number is 0
}

TEST_F(Events, TheLanguageOfAJapaneseTextIsFound) {
  Window window(kAllModes);
  window.post("zfAutoTranslationNotification", "これは日本語です");
  EXPECT_EQ(requestOf(window), "これは日本語です|7|-1");
  window.post("zfAutoTextTranslationNotification", "これは日本語です");
  EXPECT_EQ(textTranslation(window), "これは日本語です|0");
  window.post("zfAutoQuickTranslationNotification", "これは日本語です");
  EXPECT_EQ(quickTranslation(window), "これは日本語です|0");
}

TEST_F(Events, TheStyleOfAnEventIsHandedOn) {
  Window window(kAllModes);
  window.post("ZFDropTranslationNotification", {{"zfTextKey", "t"}, {"zfStyleKey", 4}});
  EXPECT_EQ(requestOf(window), "t|5|4");
  window.post("zfResultOnlyTranslationNotification", {{"zfTextKey", "t"}, {"zfStyleKey", 4}});
  EXPECT_EQ(requestOf(window), "t|5|4|result");
}

TEST_F(Events, SettingTheDirectionBringsNothingUp) {
  Window window(kAllModes);
  window.post("zfSetDirectionNotification", {{"zfModeKey", 7}});
  EXPECT_EQ(window.tab(), "sTab");
  EXPECT_EQ(window.controller->tController().direction(), 7);
  EXPECT_EQ(linesOf(*window.controller->tMenu()),
            (Lines{"5 AutoTranslate", "6 EtoJTranslate", "*7 JtoETranslate"}));
  Window without({"zfDictTab"});
  without.post("zfSetDirectionNotification", {{"zfModeKey", 6}});
  EXPECT_EQ(without.controller->tController().direction(), 5);
}

const Lines kNoDirection = {"5 AutoTranslate", "6 EtoJTranslate", "7 JtoETranslate"};

TEST_F(Events, ADirectionFromAnotherHostIsNotSet) {
  Window window(kAllModes);
  int stranger = 0;
  NotificationObject object;
  object.value = Value::Dict{{"zfModeKey", 7}};
  object.identities["zfParentKey"] = &stranger;
  NotificationCenter::shared().post("zfSetDirectionNotification", object);
  object.identities.clear();
  NotificationCenter::shared().post("zfSetDirectionNotification", object);
  EXPECT_EQ(window.controller->tController().direction(), 5);
  EXPECT_EQ(linesOf(*window.controller->tMenu()), kNoDirection);
}

TEST_F(Events, AHiddenModeTakesItsDirection) {
  Window window({"zfDictTab"}, {"zfTransTab"});
  window.post("zfSetDirectionNotification", {{"zfModeKey", 7}});
  EXPECT_EQ(window.controller->tController().direction(), 7);
  EXPECT_EQ(linesOf(*window.controller->tMenu())[2], "*7 JtoETranslate");
}

TEST_F(Events, ADirectionThatIsMissingReadsAsNone) {
  Window window(kAllModes);
  window.post("zfSetDirectionNotification", {{"zfModeKey", 7}});
  window.post("zfSetDirectionNotification", Value::Dict());
  EXPECT_EQ(window.controller->tController().direction(), 0);
  EXPECT_EQ(linesOf(*window.controller->tMenu()), kNoDirection);
}

TEST_F(Events, ATranslationInOneDirectionLeavesTheMenuAlone) {
  Window window(kAllModes);
  window.post("zfEtoJTranslationNotification", "take");
  EXPECT_EQ(requestOf(window), "take|6|-1");
  EXPECT_EQ(window.controller->tController().direction(), 5);
  EXPECT_EQ(linesOf(*window.controller->tMenu()), kNoDirection);
}

TEST_F(Events, ASearchOfTheWebTakesTheTextAsItStands) {
  Window window(kAllModes);
  window.post("zfTranslationSearchNotification", " a\tb ");
  EXPECT_EQ(webSearch(window), " a\tb | a\tb ");
  window.post("zfTranslationSearchNotification", "");
  EXPECT_EQ(window.controller->wController().query().bytes(), " a\tb ");  // nothing is searched
  window.post("zfTranslationSearchNotification", "日本é");
  EXPECT_EQ(window.controller->wController().query().bytes(), "\x93\xFA\x96\x7B?");
  EXPECT_EQ(window.field(), "日本é");
}

TEST_F(Events, AnEventWithoutAMapOrBeforeTheSetUpIsHarmless) {
  Window window;  // not set up
  for (const Expected& event : kExpected) window.post(event.name, "take");
  postText("take");
  NotificationCenter::shared().post("zfSlideTabNotification");
  NotificationCenter::shared().post("zfChangeDictNotification");
  NotificationCenter::shared().post("zfChangeRssNotification");
  NotificationCenter::shared().post("zfChangeSizeNotification");
  window.controller->lookupButton();
  window.controller->searchButton();
  window.controller->panelButton();
  window.controller->doTranslate("t", true);
  window.controller->setDocStyle(1);
  window.controller->selectMode();
  window.controller->controlTextDidChange();
  EXPECT_FALSE(window.controller->insertNewline());
  EXPECT_EQ(window.controller->directionHW(), 0);
  EXPECT_EQ(window.controller->modeMirell(), 0);
  EXPECT_EQ(window.controller->urlSearch(), "");

  for (const Expected& event : kExpected) {
    Window ready(kAllModes);
    NotificationObject object;
    object.identities["zfParentKey"] = &ready.token;
    NotificationCenter::shared().post(event.name, object);
    EXPECT_EQ(ready.tab(), event.tab) << event.name;  // the token was there
    object.value = Value::Dict{{"zfTextKey", 5}, {"zfRowKey", "x"}, {"zfStyleKey", "y"}};
    NotificationCenter::shared().post(event.name, object);
    // All that is no text reads as an empty one.
    std::string left = event.left;
    while (left.find("take") != std::string::npos) left.replace(left.find("take"), 4, "");
    if (event.tab == std::string("sTab")) left = "|0";
    EXPECT_EQ(event.seen(ready), left) << event.name;
  }
}

TEST_F(Events, AControllerWithoutATokenMatchesNoEvent) {
  ZavelLexController controller;
  controller.initController(Rect(), nullptr, kAllModes);
  NotificationObject object;
  object.value = Value::Dict{{"zfTextKey", "take"}};
  object.identities["zfParentKey"] = nullptr;
  NotificationCenter::shared().post("zfDictLookupNotification", object);
  EXPECT_EQ(controller.searchField()->text(), "");
  int token = 0;
  controller.setTarget(&token);
  object.identities["zfParentKey"] = &token;
  NotificationCenter::shared().post("zfDictLookupNotification", object);
  EXPECT_EQ(controller.searchField()->text(), "take");
}

// --- Drops ---

TEST_F(Events, ADropOnTheWindowGoesToTheModeThatIsUp) {
  Window window(kAllModes);
  ZEFView& root = window.controller->mainView();
  EXPECT_TRUE(root.dragEntered("take"));
  EXPECT_TRUE(root.drop());
  EXPECT_EQ(dictionary(window), "take|2");
  window.controller->modeControl()->choose(1);
  root.dragEntered("a text");
  root.drop();
  EXPECT_EQ(requestOf(window), "a text|5|-1");
  window.controller->modeControl()->choose(3);
  root.dragEntered("a query");
  root.drop();
  EXPECT_EQ(webSearch(window), "a query|a query");
}

TEST_F(Events, ADropOnAnotherWindowIsIgnored) {
  Window window(kAllModes), other(kAllModes);
  other.controller->mainView().dragEntered("take");
  other.controller->mainView().drop();
  EXPECT_EQ(dictionary(window), "|0");
  EXPECT_EQ(dictionary(other), "take|2");
}

TEST_F(Events, ADropOnThePageOfTheTranslationIsTranslated) {
  Window window(kAllModes), other(kAllModes);
  window.controller->modeControl()->choose(1);
  window.controller->tController().webView().dragEntered("a text");
  window.controller->tController().webView().drop();
  EXPECT_EQ(requestOf(window), "a text|5|-1");
  EXPECT_EQ(requestOf(other), "|5|-1");
}

TEST_F(Events, ADropOfAViewThatNobodyNamedIsIgnored) {
  Window window(kAllModes);
  NotificationObject object;
  object.value = Value::Dict{{"zfTextKey", "take"}};
  NotificationCenter::shared().post("zfDropNotification", object);
  EXPECT_EQ(dictionary(window), "|0");
}

TEST_F(Events, APlainTextGoesToEveryWindowsModeThatIsUp) {
  Window window(kAllModes), other(kAllModes);
  postText("take");
  EXPECT_EQ(dictionary(window), "take|2");
  EXPECT_EQ(dictionary(other), "take|2");
  NotificationObject object;
  object.value = "match";
  NotificationCenter::shared().post("TWDropReferenceNote", object);
  EXPECT_EQ(dictionary(window), "match|2");
}

TEST_F(Events, ADropOfNoTextChangesNothing) {
  Window window(kAllModes);
  window.look("take");
  for (const char* name : {"zfDropNotification", "TWDropReferenceNote"}) {
    NotificationCenter::shared().post(name);
    NotificationObject object;
    object.value = 5;
    NotificationCenter::shared().post(name, object);
    EXPECT_EQ(dictionary(window), "take|2") << name;
  }
}

TEST_F(Events, APlainTextDoesNothingInTheOtherModes) {
  Window window(kAllModes);
  for (const int segment : {2, 4, 5, 6, 7}) {
    window.controller->modeControl()->choose(static_cast<size_t>(segment));
    postText("take");
    EXPECT_EQ(window.field(), "");
    EXPECT_EQ(requestOf(window), "|5|-1");
    EXPECT_EQ(quickTranslation(window), "|1");
  }
}

// --- The search field ---

TEST_F(Events, ANewLineInTheFieldIsForFourModes) {
  Window window(kAllModes);
  SegmentedControl& modes = *window.controller->modeControl();
  EXPECT_TRUE(window.type("take"));
  EXPECT_EQ(dictionary(window), "take|2");
  modes.choose(3);
  EXPECT_TRUE(window.type("query"));
  EXPECT_EQ(webSearch(window), "query|query");
  modes.choose(4);
  EXPECT_TRUE(window.type("http://x/"));
  EXPECT_EQ(feed(window), "http://x/|http://x/");
  modes.choose(1);  // the field is hidden there; the command still works
  window.controller->searchField()->setText("take");
  EXPECT_TRUE(window.controller->insertNewline());
  EXPECT_EQ(requestOf(window), "take|6|-1");
  window.controller->searchField()->setText("これは日本語です");
  EXPECT_TRUE(window.controller->insertNewline());
  EXPECT_EQ(requestOf(window), "これは日本語です|7|-1");
  for (const size_t segment : {size_t{2}, size_t{5}, size_t{6}, size_t{7}}) {
    modes.choose(segment);
    EXPECT_FALSE(window.controller->insertNewline());
  }
}

TEST_F(Events, EmptyingTheFieldClearsTheModeThatIsUp) {
  Window window(kAllModes);
  SegmentedControl& modes = *window.controller->modeControl();
  window.type("take");
  window.controller->searchField()->type("tak");
  EXPECT_EQ(window.rows().size(), 2u);
  window.controller->searchField()->type("");
  EXPECT_EQ(window.rows().size(), 0u);
  modes.choose(3);
  window.type("query");
  window.controller->searchField()->type("");
  EXPECT_EQ(window.controller->wController().query().bytes(), "");
  modes.choose(4);
  window.type("http://x/");
  window.controller->searchField()->type("");
  EXPECT_EQ(window.controller->rController().urlString(), "");
}

// --- Font size ---

TEST_F(Events, AnotherFontSizeLooksUpAnewWithTheSameRow) {
  Window window(kAllModes);
  Posts sizes("zfChangeSizeNotification");
  window.look("match", 1);
  EXPECT_TRUE(window.dictionary().hwHeadSize().choose(5));  // 24pt
  EXPECT_EQ(sizes.numbers(), std::vector<int64_t>{24});
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
  EXPECT_EQ(window.detail(), "match\r\r-[名]\r試合\n\r\r");
  EXPECT_EQ(window.dictionary().hwResultView().font().size, 24);
}

TEST_F(Events, AnotherFontSizeLooksUpInEveryWindowAndWithoutARowWhereTheDictionaryIsNotUp) {
  Window window(kAllModes), other(kAllModes), empty(kAllModes);
  other.look("take");
  other.controller->modeControl()->choose(3);
  window.look("match");
  window.dictionary().hwHeadSize().choose(0);
  EXPECT_EQ(other.dictionary().nowSelectedRow(), -1);
  EXPECT_EQ(other.rows().size(), 2u);
  EXPECT_EQ(other.tab(), "sTab");  // the end of a look-up brings the tab up
  EXPECT_EQ(other.segment(), 3);
  EXPECT_EQ(empty.rows().size(), 0u);
}

// The row is kept only where both the mode and its tab are up.
TEST_F(Events, AnotherFontSizeKeepsNoRowBehindAnotherTab) {
  Window window(kAllModes);
  window.look("match", 1);
  window.controller->tabView()->selectItem("wTab");
  NotificationCenter::shared().post("zfChangeSizeNotification");
  EXPECT_EQ(window.segment(), 0);
  EXPECT_EQ(window.dictionary().nowSelectedRow(), -1);
  EXPECT_EQ(window.rows().size(), 2u);
}

TEST_F(Events, AnotherFontSizeKeepsNoRowInAnotherMode) {
  Window window(kAllModes);
  window.look("match");
  window.controller->modeControl()->choose(3);
  NotificationCenter::shared().post("zfChangeSizeNotification");
  EXPECT_EQ(window.tab(), "sTab");
  EXPECT_TRUE(window.dictionary().hwListView().choose(1));
  NotificationCenter::shared().post("zfChangeSizeNotification");
  EXPECT_EQ(window.segment(), 3);
  EXPECT_EQ(window.dictionary().nowSelectedRow(), -1);
  EXPECT_EQ(window.rows().size(), 2u);
}

TEST_F(Events, AnotherFontSizeBringsTheDictionaryUpEvenWhereItIsNoMode) {
  Window window({"zfSearchTab"}), other(kAllModes);
  window.controller->searchField()->type("take");
  other.dictionary().hwHeadSize().choose(0);
  EXPECT_EQ(window.controller->segmentDict(), -1);
  EXPECT_EQ(window.tab(), "sTab");
  EXPECT_EQ(window.segment(), 0);
  EXPECT_EQ(dictionary(window), "take|2");
  EXPECT_EQ(window.dictionary().nowSelectedRow(), -1);
}

TEST_F(Events, AHostWithoutTabsDoesNotFollowTheFontSize) {
  FieldHost host;
  host.look("match", 1);
  Posts results("zfDictResultNotification");
  NotificationCenter::shared().post("zfChangeSizeNotification");
  EXPECT_EQ(results.count(), 0u);
}

// --- Hosts without tabs ---

TEST_F(Events, AHostWithoutTabsHasItsFixedModes) {
  FieldHost host;
  host.post("zfEtoJTranslationNotification", "t");
  EXPECT_EQ(requestOf(host), "t|6|-1");
  host.post("zfTranslationSearchNotification", "query");
  EXPECT_EQ(webSearch(host), "query|query");
  host.post("zfRssNotification", "http://x/");
  EXPECT_EQ(feed(host), "http://x/|http://x/");
  for (const char* absent : {"zfEtoJTextTranslationNotification", "zfEtoJQuickTranslationNotification"}) {
    host.post(absent, "t");
  }
  EXPECT_EQ(textTranslation(host), "|1");
  EXPECT_EQ(quickTranslation(host), "|1");
  host.input.type("take");
  EXPECT_TRUE(host.input.insertNewline());
  EXPECT_EQ(host.rows().size(), 2u);
}

// Its first mode, the dictionary, is up for good.
TEST_F(Events, AHostWithoutTabsLooksUpWhatIsDropped) {
  FieldHost host;
  Posts results("zfDictResultNotification");
  postText("take");
  EXPECT_EQ(dictionary(host), "take|2");
  host.post("zfRssNotification", "http://x/");
  postText("match");
  EXPECT_EQ(dictionary(host), "match|2");
  EXPECT_EQ(results.numbers(), (std::vector<int64_t>{8, 8}));
}

TEST_F(Events, AHostWithoutTabsClearsTheDictionaryWithItsField) {
  FieldHost host;
  host.look("take");
  host.input.type("tak");
  EXPECT_EQ(host.rows().size(), 2u);
  host.input.type("");
  EXPECT_EQ(host.rows().size(), 0u);
  EXPECT_EQ(host.detail(), "");
}

TEST_F(Events, AHostWithoutTabsIsGivenTheMenusOfItsModes) {
  FieldHost host;
  NotificationObject mode;
  mode.value = "zfTransTab";
  NotificationCenter::shared().post("zfSlideTabNotification", mode);
  EXPECT_EQ(host.input.menu(), host.controller->tMenu());
  host.look("take");  // brings the dictionary's back
  EXPECT_EQ(host.input.menu(), host.controller->dMenu());
}

TEST_F(Events, AReportOfALookUpNamesItsController) {
  FieldHost host, other;
  std::vector<const void*> senders;
  const auto heard = NotificationCenter::shared().subscribe(
      "zfDictResultNotification", [&](const Notification& report) { senders.push_back(report.sender); });
  host.look("take");
  other.look("zebra");
  EXPECT_EQ(senders, (std::vector<const void*>{host.controller.get(), other.controller.get()}));
}

// --- Ends and beginnings inside an event ---

TEST_F(Events, AnObserverAheadOfTheWindowMayEndIt) {
  std::unique_ptr<Window> window;
  const auto end = NotificationCenter::shared().subscribe(
      "zfDictLookupNotification", [&](const Notification&) { window->controller.reset(); });
  window = std::make_unique<Window>(kAllModes);
  window->look("take");
  EXPECT_EQ(window->controller, nullptr);
}

TEST_F(Events, AnObserverBehindTheWindowMayEndIt) {
  Window window(kAllModes);
  const auto end = NotificationCenter::shared().subscribe(
      "zfChangeSizeNotification", [&](const Notification&) { window.controller.reset(); });
  window.look("take");
  window.dictionary().hwHeadSize().choose(3);
  EXPECT_EQ(window.controller, nullptr);
}

TEST_F(Events, AnObserverOfAChangedListMayEndTheWindow) {
  for (const bool menu : {false, true}) {
    Window window(kAllModes);
    const auto end = NotificationCenter::shared().subscribe(
        "zfChangeDictNotification", [&](const Notification&) { window.controller.reset(); });
    ZFWPrefController& preferences = window.controller->zfwPrefController();
    preferences.showDictPanel();
    if (menu) {
      preferences.dictTab().appletChoice().choose(0);
    } else {
      preferences.dictTab().dictListView().edit(0, "selectStatus", true);
    }
    EXPECT_EQ(window.controller, nullptr);
  }
}

TEST_F(Events, ADropMayEndTheWindow) {
  Window window(kAllModes);
  const auto end = NotificationCenter::shared().subscribe(
      "zfDropNotification", [&](const Notification&) { window.controller.reset(); });
  window.controller->mainView().dragEntered("take");
  window.controller->mainView().drop();
  EXPECT_EQ(window.controller, nullptr);
}

TEST_F(Events, AWindowThatIsMadeInsideAnEventGetsTheNextOne) {
  Window window(kAllModes);
  std::unique_ptr<Window> second;
  const auto make = NotificationCenter::shared().subscribe("zfDropNotification", [&](const Notification&) {
    if (!second) second = std::make_unique<Window>(kAllModes);
  });
  postText("take");
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(dictionary(*second), "|0");
  postText("match");
  EXPECT_EQ(dictionary(*second), "match|2");
}

}  // namespace
}  // namespace zavel::test
