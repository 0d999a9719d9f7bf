// Set-up in its four forms, what controllers share, and their end.
#include <filesystem>

#include "config/WorkPathTable.h"
#include "config/WorkPaths.h"
#include "config/ZFWPlistController.h"
#include "config/ZavelApplet.h"
#include "config/ZavelCommonModule.h"
#include "config/ZavelCommunication.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "feed/RSSSubscriber2.h"
#include "platform/PropertyLists.h"
#include "research/ZFWiPodController.h"
#include "shell/ProcessObjects.h"
#include "shell/ShellTesting.h"
#include "translate/TranslationController2.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

class Controller : public ShellTest {
 protected:
  static std::vector<int> numbers(const ZavelLexController& c) {
    return {c.segmentDict(), c.segmentTrans(), c.segmentTexttrans(), c.segmentSearch(),
            c.segmentRss(),  c.segmentQuick(), c.segmentDocu(),      c.segmentArch()};
  }
};

// --- Numbers of modes ---

TEST_F(Controller, BeforeTheSetUpFourModesAreAbsent) {
  ZavelLexController controller;
  EXPECT_EQ(numbers(controller), (std::vector<int>{-1, -1, -1, -1, 0, 0, 0, 0}));
}

TEST_F(Controller, ModesAreNumberedInTheHostsOrder) {
  Window window({"zfQuickTab", "zfDictTab", "zfArchTab"});
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{1, -1, -1, -1, -1, 0, -1, 2}));
  EXPECT_EQ(window.controller->modeControl()->segments().size(), 3u);
  EXPECT_EQ(window.tab(), "qTab");
}

TEST_F(Controller, SegmentsHaveTheirModesNames) {
  platform.ownBundle.texts["zfDictTab"] = "Dictionary";
  Window window({"zfRssTab", "zfDictTab"});
  EXPECT_EQ(window.controller->modeControl()->segments()[0].label, "zfRssTab");
  EXPECT_EQ(window.controller->modeControl()->segments()[1].label, "Dictionary");
}

TEST_F(Controller, AnUnknownModeTakesNoNumber) {
  Window window({"zfDictTab", "zfNoTab", "zfRssTab"});
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{0, -1, -1, -1, 1, -1, -1, 0}));
  EXPECT_EQ(window.controller->modeControl()->segments().size(), 2u);
}

TEST_F(Controller, HiddenModesAreNumberedFromAHundred) {
  Window window({"zfDictTab"}, {"zfRssTab", "unknown", "zfTransTab"});
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{0, 101, -1, -1, 100, -1, -1, 0}));
  EXPECT_EQ(window.controller->modeControl()->segments().size(), 1u);
}

TEST_F(Controller, OfTwoNumbersForAModeTheLastOneCounts) {
  Window window({"zfDictTab", "zfTransTab", "zfDictTab"}, {"zfTransTab"});
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{2, 100, -1, -1, -1, -1, -1, 0}));
}

TEST_F(Controller, AHostWithItsOwnFieldHasFourModes) {
  FieldHost host;
  EXPECT_EQ(numbers(*host.controller), (std::vector<int>{0, 1, -1, 2, 3, -1, -1, 0}));
  EXPECT_EQ(host.controller->modeControl(), nullptr);
  EXPECT_EQ(host.controller->tabView(), nullptr);
  EXPECT_EQ(host.controller->searchField(), &host.input);
  EXPECT_EQ(host.controller->progressSpinning(), &host.progress);
  EXPECT_EQ(host.input.menu(), host.controller->dMenu());
}

TEST_F(Controller, AHostWithoutModesGetsAnEmptyWindow) {
  Window window(Lines{});
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{-1, -1, -1, -1, -1, -1, -1, 0}));
  EXPECT_EQ(window.segment(), -1);
  window.look("take");
  EXPECT_EQ(window.field(), "");
}

TEST_F(Controller, ASecondSetUpDoesNothing) {
  Window window({"zfDictTab"});
  window.controller->initController(Rect(), &window.token, kAllModes);
  SearchField input;
  BusyIndicator progress;
  window.controller->initController(Rect(), &window.token, input, progress, "other");
  EXPECT_EQ(numbers(*window.controller), (std::vector<int>{0, -1, -1, -1, -1, -1, -1, 0}));
  EXPECT_EQ(window.controller->modeControl()->segments().size(), 1u);
  EXPECT_NE(window.controller->searchField(), &input);
}

// The first segment of a mode named twice, or hidden as well, stays in the switch and is nobody's.
TEST_F(Controller, ASegmentThatItsModeLeftShowsTheArchives) {
  Window twice({"zfDictTab", "zfTransTab", "zfDictTab"});
  EXPECT_EQ(twice.controller->modeControl()->segments().size(), 3u);
  EXPECT_EQ(twice.segment(), 0);
  EXPECT_EQ(twice.tab(), "aTab");
  Window both({"zfDictTab", "zfTransTab"}, {"zfDictTab"});
  EXPECT_EQ(both.tab(), "sTab");  // it was hidden behind the first choice
  both.controller->modeControl()->choose(1);
  both.controller->modeControl()->choose(0);
  EXPECT_EQ(both.segment(), 0);
  EXPECT_EQ(both.tab(), "aTab");
}

TEST_F(Controller, ASegmentBehindAHundredWorksAsAHiddenMode) {
  std::vector<std::string> modes(100, "zfTransTab");
  modes.push_back("zfDictTab");
  Window window(modes);
  EXPECT_EQ(window.controller->modeControl()->segments().size(), 101u);
  EXPECT_EQ(window.controller->segmentDict(), 100);
  window.look("take");
  EXPECT_EQ(window.field(), "take");
  EXPECT_EQ(window.segment(), 0);
}

// --- Inside the set-up ---

// A host that answers each change of a view with all that may be asked of a controller, until its menus are
// there: the set-up's last piece.
class Impatient {
 public:
  Impatient(ZavelLexController& controller, const void* token, View& view)
      : heard_(view.changed.connect([&controller, token, this](View&) {
          if (controller.rMenu()) return;
          ++times;
          askAll(controller, token);
        })) {}
  int times = 0;

 private:
  static void askAll(ZavelLexController& controller, const void* token) {
    NotificationObject object;
    object.value = Value::Dict{{"zfModeKey", 6}, {"zfTextKey", "match"}};
    object.identities["zfParentKey"] = token;
    object.identities["zfViewPointerKey"] = controller.mainView().identity();
    NotificationCenter& center = NotificationCenter::shared();
    for (const char* name :
         {"zfSetDirectionNotification", "zfDictLookupNotification", "zfRssNotification",
          "zfEtoJTranslationNotification", "zfTranslationSearchNotification", "zfPubMedSearchNotification",
          "zfExampleArchivesNotification", "zfDropNotification", "zfChangeSizeNotification"}) {
      center.post(name, object);
    }
    object.value = "zfTransTab";
    center.post("zfSlideTabNotification", object);
    controller.lookupButton();
    controller.searchButton();
    controller.selectMode();
    controller.panelButton();
    controller.doTranslate("match", true);
    controller.controlTextDidChange();
    EXPECT_FALSE(controller.insertNewline());
    EXPECT_EQ(controller.urlSearch(), "");
    controller.initController(Rect(), token, {"zfArchTab"});
  }

  Connection heard_;
};

TEST_F(Controller, EventsAndCommandsInsideTheSetUpOfAFieldDoNothing) {
  SearchField input;
  BusyIndicator progress;
  int token = 0;
  ZavelLexController controller;
  input.setText("take");
  const Impatient impatient(controller, &token, input);
  controller.initController(Rect(), &token, input, progress, "result");
  EXPECT_EQ(impatient.times, 1);  // the field got its menu
  EXPECT_EQ(numbers(controller), (std::vector<int>{0, 1, -1, 2, 3, -1, -1, 0}));
  EXPECT_EQ(input.text(), "take");
  EXPECT_EQ(input.menu(), controller.dMenu());
  EXPECT_EQ(controller.tController().direction(), 5);
  EXPECT_EQ(controller.tController().request(), T_Controller::Request());
  EXPECT_EQ(linesOf(*controller.tMenu()), (Lines{"5 AutoTranslate", "6 EtoJTranslate", "7 JtoETranslate"}));
  EXPECT_EQ(controller.wController().query().bytes(), "");
  EXPECT_TRUE(controller.zfwPrefController().panel().hidden());
  EXPECT_EQ(controller.zfwPrefController().selectedItem(), "ZFWDictPref");
  EXPECT_TRUE(input.insertNewline());  // and now it works
}

TEST_F(Controller, EventsAndCommandsInsideTheSetUpOfAWindowDoNothing) {
  int token = 0;
  ZavelLexController controller;
  const Impatient impatient(controller, &token, controller.mainView());
  controller.initController(Rect(), &token, kAllModes);
  EXPECT_GT(impatient.times, 8);  // for each tab at least
  EXPECT_EQ(numbers(controller), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(controller.searchField()->text(), "");
  EXPECT_EQ(controller.searchField()->menu(), controller.dMenu());
  EXPECT_EQ(controller.tabView()->selectedIdentifier(), "sTab");
  EXPECT_EQ(controller.tController().request(), T_Controller::Request());
  EXPECT_EQ(controller.dController().queryField().text(), "");
  EXPECT_EQ(controller.aController().queryField().text(), "");
  EXPECT_TRUE(controller.zfwPrefController().panel().hidden());
  EXPECT_EQ(controller.zfwPrefController().selectedItem(), "ZFWDictPref");
}

// --- The window ---

TEST_F(Controller, TheTabsStandInTheOrderOfTheModes) {
  Window window({"zfRssTab"});
  Lines identifiers;
  for (const TabView::Item& tab : window.controller->tabView()->items())
    identifiers.push_back(tab.identifier);
  EXPECT_EQ(identifiers, (Lines{"sTab", "tTab", "eTab", "wTab", "rTab", "qTab", "dTab", "aTab"}));
}

TEST_F(Controller, TheRootViewHasTheHostsFrame) {
  Window window;
  window.controller->initController(Rect{1, 2, 800, 600}, &window.token, kAllModes);
  EXPECT_EQ(window.controller->mainView().frame(), (Rect{1, 2, 800, 600}));
}

TEST_F(Controller, AllIsBelowTheRootViewWhichHearsOfItsChanges) {
  Window window(kAllModes);
  size_t changes = 0;
  const Connection heard = window.controller->mainView().changed.connect([&](View&) { ++changes; });
  window.look("zebra");
  EXPECT_GT(changes, 0u);
  changes = 0;
  window.controller.reset();
  EXPECT_EQ(changes, 0u);  // nothing is told of the end
}

TEST_F(Controller, EachSetUpHasTheNextViewNumber) {
  const auto numbersOfTabs = [](ZavelLexController& controller) {
    return std::vector<int>{controller.tController().viewID(), controller.wController().viewID(),
                            controller.rController().viewID(), controller.dController().viewID()};
  };
  viewID = 41;
  Window window(kAllModes);
  EXPECT_EQ(viewID, 42);
  FieldHost host;
  EXPECT_EQ(viewID, 43);
  EXPECT_EQ(numbersOfTabs(*window.controller), (std::vector<int>{41, 41, 41, 41}));
  EXPECT_EQ(numbersOfTabs(*host.controller), (std::vector<int>{42, 42, 42, 42}));
}

TEST_F(Controller, TheQuickTabIsLaidOutAsTheHostAsked) {
  Window window;
  window.controller->setQuickTransLayoutUpDown(false);
  window.controller->initController(Rect(), &window.token, kAllModes);
  EXPECT_EQ(window.controller->qController().layout(), (Q_Controller::Layout{false, false, false}));
  window.controller->setQuickTransTransportButtonHide(true);
  window.controller->setQuickTransLayoutUpDown(true);
  EXPECT_EQ(window.controller->qController().layout(), (Q_Controller::Layout{true, true, false}));
  EXPECT_EQ(&window.controller->QTSrcView(), &window.controller->qController().srcView());
  EXPECT_EQ(&window.controller->QTDstView(), &window.controller->qController().dstView());
}

TEST_F(Controller, TheQuickTabKnowsTheBrowser) {
  platform.ownBundle.signature = "yVX8";
  Window window(kAllModes);
  EXPECT_EQ(window.controller->qController().layout(), (Q_Controller::Layout{true, false, true}));
}

TEST_F(Controller, TheCorrespondenceClientsFieldHasTheStoredLayout) {
  struct Case {
    Value stored;
    const char* signature;
    Q_Controller::Layout expected;
  };
  for (const Case& each :
       {Case{Value(0), "zFQ8", {true, true, false}}, Case{Value(1), "zFQ8", {false, true, false}},
        Case{Value(2), "zFQ8", {false, true, false}}, Case{Value(), "zFQ8", {true, true, false}},
        Case{Value(1), "zQN8", {true, false, false}}}) {
    platform.ownBundle.signature = each.signature;
    writeStore(Value::Dict{{"ZFWTransTabKey", Value::Dict{{"ZFWTransTabModeItem", each.stored}}}});
    FieldHost host;
    EXPECT_EQ(host.controller->qController().layout(), each.expected);
    Window window(kAllModes);
    EXPECT_EQ(window.controller->qController().layout(), (Q_Controller::Layout{true, false, false}));
  }
}

// --- A host's own field ---

TEST_F(Controller, TheEndOfAControllerLeavesTheHostsFieldToTheNextOne) {
  SearchField input;
  BusyIndicator progress;
  int token = 0;
  auto controller = std::make_unique<ZavelLexController>();
  controller->initController(Rect(), &token, input, progress, "result");
  auto next = std::make_unique<ZavelLexController>();
  next->initController(Rect(), &token, input, progress, "result");
  controller = std::move(next);
  ASSERT_NE(input.menu(), nullptr);
  EXPECT_EQ(input.menu(), controller->dMenu());
  input.type("take");
  EXPECT_TRUE(input.insertNewline());
  EXPECT_EQ(input.text(), "take");
}

TEST_F(Controller, TheEndOfAControllerLeavesTheHostsOwnMenuAndHandler) {
  SearchField input;
  BusyIndicator progress;
  int token = 0;
  auto controller = std::make_unique<ZavelLexController>();
  controller->initController(Rect(), &token, input, progress, "result");
  const auto menu = std::make_shared<Menu>("host");
  input.setMenu(menu);
  input.onInsertNewline = [] { return true; };
  controller.reset();
  EXPECT_EQ(input.menu(), menu);
  EXPECT_TRUE(input.insertNewline());
}

TEST_F(Controller, TheEndOfAControllerTakesItsMenuAndHandlerOffTheHostsField) {
  for (const char* shown : {"the dictionary's", "feeds from before a change", "chosen by the host"}) {
    SearchField input;
    BusyIndicator progress;
    int token = 0;
    auto controller = std::make_unique<ZavelLexController>();
    controller->initController(Rect(), &token, input, progress, "result");
    if (shown == std::string("feeds from before a change")) {
      NotificationObject feeds;
      feeds.value = "zfRssTab";
      NotificationCenter::shared().post("zfSlideTabNotification", feeds);
      NotificationCenter::shared().post("zfChangeRssNotification");
      ASSERT_NE(input.menu(), controller->rMenu());
    } else if (shown == std::string("chosen by the host")) {
      input.setMenu(controller->wMenu());
    }
    int changes = 0;
    const Connection heard = input.changed.connect([&](View&) { ++changes; });
    controller.reset();
    EXPECT_EQ(input.menu(), nullptr);
    EXPECT_FALSE(input.onInsertNewline);
    EXPECT_FALSE(input.insertNewline());
    EXPECT_EQ(changes, 1);  // the menu went
    EXPECT_EQ(input.textEdited.count(), 0u);
  }
}

// --- What is shared ---

TEST_F(Controller, TheFirstControllerMakesWhatIsSharedAndTheLastTakesItAway) {
  EXPECT_EQ(gCallCount, 0);
  EXPECT_EQ(gZavelCommonModule, nullptr);
  {
    Window first(kAllModes);
    Window second(kAllModes);
    EXPECT_EQ(gCallCount, 2);
    EXPECT_EQ(gS_CallCount, 2);
    first.controller.reset();
    EXPECT_EQ(gCallCount, 1);
    EXPECT_EQ(gS_CallCount, 1);
    EXPECT_NE(gZavelCommonModule, nullptr);
    EXPECT_NE(gZavelCommunication, nullptr);
    EXPECT_TRUE(gZavelCommunication->cDic().isNull());
    EXPECT_NE(gZFWPlist, nullptr);
    EXPECT_NE(gTranslationController2, nullptr);
    EXPECT_NE(gRSSSubscriber2, nullptr);
    EXPECT_NE(gMirellModule, nullptr);
    EXPECT_NE(zavelPathCacheFolderURL(), nullptr);
  }
  EXPECT_EQ(gCallCount, 0);
  EXPECT_EQ(gZavelCommonModule, nullptr);
  EXPECT_EQ(gZavelCommunication, nullptr);
  EXPECT_EQ(gZFWPlist, nullptr);
  EXPECT_EQ(gTranslationController2, nullptr);
  EXPECT_EQ(gRSSSubscriber2, nullptr);
  EXPECT_EQ(gMirellModule, nullptr);
  EXPECT_EQ(zavelPathCacheFolderURL(), nullptr);
  EXPECT_EQ(zavelStyleBaseURL(), nullptr);
  EXPECT_NE(gZFWiPod, nullptr);  // stays
}

class WatchedSubscriber : public RSSSubscriber2 {
 public:
  explicit WatchedSubscriber(Lines* told) : told_(told) {}
  ~WatchedSubscriber() override { told_->push_back("gone"); }
  void terminateProcess() override { told_->push_back("terminated"); }

 private:
  Lines* told_;
};

TEST_F(Controller, TheLastControllerEndsTheFeedsWorkOnce) {
  Lines told;
  gRSSSubscriber2 = std::make_unique<WatchedSubscriber>(&told);
  {
    Window window({"zfRssTab"});
    { FieldHost host; }
    EXPECT_EQ(told, Lines{});
  }
  EXPECT_EQ(told, (Lines{"terminated", "gone"}));
}

TEST_F(Controller, WithTheLastControllerNobodyListensAnyMore) {
  const size_t before = NotificationCenter::shared().count();
  {
    Window window(kAllModes);
    FieldHost host;
  }
  EXPECT_EQ(NotificationCenter::shared().count(), before);
}

TEST_F(Controller, ASecondControllerSharesTheDictionaryAndItsResultFile) {
  writeDictionary();
  FieldHost first("first-result");
  MirellModule* const module = gMirellModule;
  MirellDictionaryManager* const manager = module->objectODM();
  FieldHost second("second-result");
  EXPECT_EQ(gMirellModule, module);
  EXPECT_EQ(module->objectODM(), manager);
  EXPECT_EQ(module->cachePath(), at("cache/first-result"));
  EXPECT_FALSE(std::filesystem::exists(at("cache/second-result")));
  first.controller.reset();  // the second goes on
  second.look("take");
  EXPECT_EQ(second.rows().size(), 2u);
}

TEST_F(Controller, TheShortFormNamesTheResultFile) {
  Window window(kAllModes);
  EXPECT_EQ(gMirellModule->cachePath(), at("cache/ZEFWresultO2008"));
}

TEST_F(Controller, TheLongFormNamesTheResultFileAsTheHostDoes) {
  Window window;
  window.controller->initController(Rect(), &window.token, kAllModes, "own");
  EXPECT_EQ(gMirellModule->cachePath(), at("cache/own"));
}

TEST_F(Controller, TwoWindowsLookUpSideBySide) {
  writeDictionary();
  Window one(kAllModes), other({"zfDictTab"});
  one.look("take");
  other.look("みち");
  EXPECT_EQ(one.rows().size(), 2u);
  EXPECT_EQ(other.rows().size(), 3u);
  EXPECT_TRUE(one.dictionary().hwListView().choose(1));
  EXPECT_EQ(one.detail(), "taken\r\r-[形]\r取られた\n\r\r");
  EXPECT_EQ(other.detail(), "みち 道\rroad\n\r\r");
}

TEST_F(Controller, AProcessMayBeginAnew) {
  writeDictionary();
  for (int i = 0; i < 3; ++i) {
    Window window(kAllModes);
    window.look("take");
    EXPECT_EQ(window.rows().size(), 2u);
  }
}

TEST_F(Controller, TheFeedsAreFetchedOncePerProcess) {
  {
    Window without({"zfDictTab"});
    EXPECT_EQ(gRSSSubscriber2->updates(), 0u);
    Window first({"zfDictTab", "zfRssTab"});
    EXPECT_EQ(gRSSSubscriber2->updates(), 1u);
    EXPECT_TRUE(first.controller->rController().alertSkip());
    Window second({"zfRssTab"});
    EXPECT_EQ(gRSSSubscriber2->updates(), 1u);
    EXPECT_FALSE(second.controller->rController().alertSkip());
  }
  rssTimerFlag = false;
  {
    Window hidden({"zfDictTab"}, {"zfRssTab"});
    EXPECT_EQ(gRSSSubscriber2->updates(), 1u);
  }
  rssTimerFlag = false;
  FieldHost host;
  EXPECT_EQ(gRSSSubscriber2->updates(), 1u);
}

TEST_F(Controller, TheFeedsAreNotFetchedAgainWhenTheProcessBeginsAnew) {
  { Window window({"zfRssTab"}); }
  Window window({"zfRssTab"});
  EXPECT_EQ(gRSSSubscriber2->updates(), 0u);
  EXPECT_TRUE(rssTimerFlag);
}

TEST_F(Controller, HiddenModesWithoutTheFeedsFetchNone) {
  Window window({"zfDictTab"}, {"zfTransTab"});
  EXPECT_EQ(gRSSSubscriber2->updates(), 0u);
  EXPECT_FALSE(rssTimerFlag);
  EXPECT_FALSE(window.controller->rController().alertSkip());
}

TEST_F(Controller, FeedsThatAreFetchedUnaskedGiveNoAlert) {
  {
    Window hidden({"zfDictTab"}, {"zfRssTab"});
    EXPECT_TRUE(hidden.controller->rController().alertSkip());
    FieldHost second;
    EXPECT_FALSE(second.controller->rController().alertSkip());
  }
  rssTimerFlag = false;
  FieldHost first;
  EXPECT_TRUE(first.controller->rController().alertSkip());
}

TEST_F(Controller, TheWorkPathsAreSettled) {
  Window window(kAllModes);
  EXPECT_EQ(ownedApplet, 6);
  EXPECT_EQ(gSourcePath, at("cache/fq/SourceFile.txt"));
  EXPECT_EQ(gResultPath, at("cache/fq/ResultFile.plist"));
  EXPECT_EQ(gDictPath, at("preferences/ZP.plist"));
  EXPECT_EQ(gStylePath, at("preferences/ZavelStyle.plist"));
  EXPECT_EQ(gEJEnginePath, at("helpers/zavel-text-ej"));
  EXPECT_EQ(gJEEnginePath, at("helpers/zavel-text-je"));
}

TEST_F(Controller, WithoutAPathTableItWorksInTheCommonTemporaryFolder) {
  setHostPathTable(at("no-table"));
  FieldHost host;
  EXPECT_EQ(gSourcePath, "/tmp/SourceFile.txt");
  host.look("take");  // no dictionary, no tool
  EXPECT_EQ(host.detail(), "No entries");
}

struct CacheCase {
  const char* signature;
  int applet;
  const char* folder;  // below the cache; "" for the cache itself
  bool emptied;
};

TEST_F(Controller, TheTranslationControllerHasTheApplicationsFolderEmptied) {
  for (const CacheCase& each : {CacheCase{"zQN8", 1, "/qn", true}, CacheCase{"yOS8", 3, "/other", true},
                                CacheCase{"zVN8", 4, "", false}, CacheCase{"zGX8", 5, "", false},
                                CacheCase{"zFQ8", 6, "/fq", true}, CacheCase{"yVX8", 17, "/vx", true}}) {
    platform.ownBundle.signature = each.signature;
    const std::string cacheFolder = at("cache") + each.folder;
    std::filesystem::create_directories(cacheFolder + "/below");
    writeFile(cacheFolder + "/old", "x");
    writeFile(cacheFolder + "/below/old", "x");
    Window window(kAllModes);
    EXPECT_EQ(ownedApplet, each.applet);
    EXPECT_EQ(gTranslationController2->cacheFolder(), cacheFolder);
    EXPECT_EQ(gTranslationController2->rssCacheFolder(), at("cache/rss"));
    EXPECT_EQ(std::filesystem::exists(cacheFolder + "/old"), !each.emptied) << each.signature;
    EXPECT_TRUE(std::filesystem::exists(cacheFolder + "/below/old"));
    writeFile(cacheFolder + "/old", "x");
    Window second(kAllModes);
    EXPECT_TRUE(std::filesystem::exists(cacheFolder + "/old"));
  }
}

TEST_F(Controller, TheTranslationControllerKnowsItsApplication) {
  const std::pair<const char*, const char*> cases[] = {
      {"zQN8", "zavel-translation-editor"},     {"zOS8", "zavel-memory-browser"},
      {"zVN8", "zavel-user-dictionary-editor"}, {"zGX8", "zavel-tool-gx"},
      {"zFQ8", "zavel-correspondence"},         {"zVX8", "zavel-browser"}};
  for (const auto& [signature, program] : cases) {
    platform.ownBundle.signature = signature;
    Window window(kAllModes);
    EXPECT_EQ(gTranslationController2->ownserPath(), at("helpers/") + program);
  }
}

TEST_F(Controller, AHostCanAskWhatTheTablesGave) {
  EXPECT_EQ(processStatus().pathTable, 1);
  EXPECT_FALSE(processStatus().mirellLoaded);
  {
    Window window(kAllModes);
    EXPECT_EQ(processStatus().pathTable, 0);
    EXPECT_TRUE(processStatus().mirellLoaded);
    Value table;
    ASSERT_TRUE(platform.propertyLists().readFile(at("table.plist"), &table));
    table.asDict()->erase("ModulePath");
    ASSERT_TRUE(platform.propertyLists().writeFile(at("table.plist"), table, PropertyListFormat::kXml));
    ZavelLexController second;
    EXPECT_EQ(processStatus().pathTable, 1);
  }
  EXPECT_FALSE(processStatus().mirellLoaded);
  setHostPathTable(at("no-table"));
  FieldHost host;
  EXPECT_EQ(processStatus().pathTable, 1);
  EXPECT_FALSE(processStatus().mirellLoaded);
}

TEST_F(Controller, StylesAndEntitiesAreThereFromTheStart) {
  const std::string entities = at("Entity.plist");
  const Value row = Value::Dict{{"entity", "&road;"}, {"character", "道"}};
  ASSERT_TRUE(platform.propertyLists().writeFile(entities, Value::Dict{{"Entity", Value::Array{row}}},
                                                 PropertyListFormat::kXml));
  platform.ownBundle.resources["Entity.plist"] = entities;
  ZavelLexController controller;
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(ownedApplet, nullptr));  // false without the user's style file
  EXPECT_EQ(gZavelCommonModule->convertEntities("a &road; b"), "a 道 b");
}

// It stays with the table that it began with.
TEST_F(Controller, ALaterControllerTakesNoOtherPathTable) {
  const ZavelLexController first;
  EXPECT_TRUE(writePathTableIfMissing(
      at("other"), {at("data"), at("elsewhere"), at("preferences"), at("documents"), at("helpers"), "", ""}));
  setHostPathTable(at("other"));
  const ZavelLexController second;
  EXPECT_STREQ(zavelPathDictAndHelper(), at("table").c_str());
  EXPECT_STREQ(zavelPathCacheFolderURL(), at("cache").c_str());
}

TEST_F(Controller, ALaterControllerReadsThePathTableAgain) {
  Window first(kAllModes);
  Value table;
  ASSERT_TRUE(platform.propertyLists().readFile(at("table.plist"), &table));
  (*(*table.asDict())["ModulePath"].asDict())["PathTEModule"] = "/elsewhere/engine";
  ASSERT_TRUE(platform.propertyLists().writeFile(at("table.plist"), table, PropertyListFormat::kXml));
  Window second(kAllModes);
  EXPECT_EQ(gEJEnginePath, "/elsewhere/engine");
}

// The host that docs/hosting.md shows.
TEST_F(Controller, TheHostOfTheGuideFindsItsWord) {
  writeDictionary();
  int token = 0;
  ZavelLexController controller;
  controller.initController({0, 0, 800, 600}, &token, {ZFDictTab, ZFSearchTab});
  NotificationObject look;
  look.value = Value::Dict{{ZFTextKey, "took"}};
  look.identities[ZFParentKey] = &token;
  NotificationCenter::shared().post("zfDictLookupNotification", look);
  S_Controller& tab = controller.sController();
  EXPECT_EQ(tab.hwListView().cell(0, S_Controller::kItemColumn).string(), "take [取る]");
  EXPECT_EQ(tab.hwResultView().text().text(), "take\r\r-[動]\r取る\n\r\r");
}

// --- Preferences at the start ---

TEST_F(Controller, ADamagedStoreIsKeptAsideAndTheListIsThatOfAFirstStart) {
  writeFile(storePath(), "garbage");
  Window window(kAllModes);
  EXPECT_EQ(readFile(storePath() + ".damaged"), "garbage");
  EXPECT_EQ(window.controller->zfwPrefController().dictTab().selectedDict(), 5);
}

TEST_F(Controller, TheListIsStoredAtTheFirstStart) {
  Window window(kAllModes);
  const Value all = readStore();
  const Value* items = all.find("ZFWDictTabKey")->find("ZFWDictTabTWEDItem");
  ASSERT_NE(items, nullptr);
  EXPECT_EQ(*items, Value(Value::Array{item("oType", "StandardDictionary", "YES"),
                                       item("tType", "TranslationDictionary", "YES")}));
}

}  // namespace
}  // namespace zavel::test
