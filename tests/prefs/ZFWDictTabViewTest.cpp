#include "prefs/ZFWDictTabView.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "config/ZFWPlistController.h"
#include "config/ZavelPath.h"
#include "platform/Folders.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/PropertyLists.h"
#include "prefs/ZFWPrefController.h"
#include "support/FakePlatform.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

class HomeFolders : public Folders {
 public:
  std::string root() override { return path; }
  std::string home() override { return path; }
  std::string path;
};

class HomePlatform : public FakePlatform {
 public:
  Folders& folders() override { return homeFolders; }
  HomeFolders homeFolders;
};

Value item(const char* type, const char* title, const char* status) {
  return Value::Dict{{"dictType", type}, {"dictTitle", title}, {"selectStatus", status}};
}

Value book(const char* name) {
  return Value::Dict{{"Name", name}};
}

class DictTab : public ::testing::Test {
 protected:
  DictTab() {
    platform.homeFolders.path = folder.path();
    std::filesystem::create_directories(folder.file("Library/Preferences"));
    useEdition("/nowhere/general");
  }
  ~DictTab() override {
    gZFWPlist.reset();
    zavelPathTerminate();
  }

  // An edition is told by the path of the table that was loaded, even of one that isn't there.
  static void useEdition(const char* table) {
    const LogSink sink = setLogSink([](const std::string&) {});
    zavelPathInitialize();
    zavelPathLoadDictAndHelper(table);
    setLogSink(sink);
    gZFWPlist = std::make_unique<ZFWPlistController>();
  }

  static void store(const Value::Array& items) {
    ASSERT_TRUE(gZFWPlist->setItem(items, "ZFWDictTabKey", "ZFWDictTabTWEDItem"));
  }
  static Lines stored() { return linesOf(gZFWPlist->itemForKey("ZFWDictTabKey", "ZFWDictTabTWEDItem")); }
  static Value storedApplet() { return gZFWPlist->itemForKey("ZFWDictTabKey", "ZFWDictTabAppletItem"); }

  // "type title status"
  static Lines linesOf(const Value& items) {
    Lines lines;
    for (const Value& entry : *items.asArray()) {
      lines.push_back(entry.find("dictType")->string() + " " + entry.find("dictTitle")->string() + " " +
                      entry.find("selectStatus")->string());
    }
    return lines;
  }
  static Lines linesOf(const ZFWDictTabView& tab) { return linesOf(Value(tab.dictListArray())); }

  TempFolder folder;
  HomePlatform platform;
};

// --- Building the list ---

TEST_F(DictTab, AFirstStartListsBothDictionariesAndTheBooks) {
  platform.ownBundle.texts["StandardDictionary"] = "Standard";
  platform.ownBundle.texts["TranslationDictionary"] = "Translation";
  ZFWDictTabView tab;
  tab.loadPreferences({book("B"), book("A")});
  const Lines expected = {"oType Standard YES", "tType Translation YES", "sType B NO", "sType A NO"};
  EXPECT_EQ(linesOf(tab), expected);
  EXPECT_EQ(stored(), expected);
  EXPECT_EQ(storedApplet(), Value(0));
  EXPECT_EQ(tab.selectedDict(), 5);
}

TEST_F(DictTab, TheMedicalEditionHasNoBilingualDictionary) {
  useEdition("/nowhere/Medical");
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(linesOf(tab), Lines{"tType TranslationDictionary YES"});
}

TEST_F(DictTab, WhatIsStoredKeepsItsOrderTitlesAndStatus) {
  store({item("tType", "Old title", "NO"), item("sType", "B", "YES"), item("oType", "Other", "MAYBE")});
  ZFWDictTabView tab;
  tab.loadPreferences({book("A"), book("B")});
  EXPECT_EQ(linesOf(tab), (Lines{"tType Old title NO", "sType B YES", "oType Other MAYBE", "sType A NO"}));
  EXPECT_EQ(stored(), linesOf(tab));
}

TEST_F(DictTab, ABookThatIsGoneLeavesTheList) {
  store({item("sType", "Gone", "YES"), item("oType", "O", "YES"), item("tType", "Gone", "YES")});
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(stored(), (Lines{"oType O YES", "tType Gone YES"}));
}

TEST_F(DictTab, WhereItIsNotKnownWhichBooksThereAreThoseOfTheListStay) {
  store({item("sType", "A", "YES"), item("oType", "O", "NO")});
  ZFWDictTabView tab;
  tab.loadPreferences();
  EXPECT_EQ(stored(), (Lines{"sType A YES", "oType O NO", "tType TranslationDictionary YES"}));
  EXPECT_EQ(linesOf(tab), stored());
}

TEST_F(DictTab, ABookOfOneNameIsListedOnceAndOneWithoutANameNever) {
  ZFWDictTabView tab;
  tab.loadPreferences({book("A"), book("A"), Value::Dict{}});
  EXPECT_EQ(tab.rowCount(), 3u);
}

TEST_F(DictTab, WhatIsNoItemInTheStoreIsPassedOver) {
  store({"text", item("oType", "O", "NO"), 7});
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(linesOf(tab), (Lines{"oType O NO", "tType TranslationDictionary YES"}));
}

TEST_F(DictTab, OtherSettingsOfTheAreaStay) {
  ASSERT_TRUE(gZFWPlist->setItem("kept", "ZFWDictTabKey", "SomethingElse"));
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(gZFWPlist->itemForKey("ZFWDictTabKey", "SomethingElse"), Value("kept"));
}

TEST_F(DictTab, WithoutAStoreTheListIsThatOfAFirstStart) {
  gZFWPlist.reset();
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(tab.selectedDict(), 5);
  EXPECT_FALSE(tab.saveTWED());
  EXPECT_FALSE(tab.saveApplet());
}

TEST_F(DictTab, AListThatIsStoredAlreadyIsNotWrittenAgain) {
  ZFWDictTabView first;
  first.loadPreferences({});
  const auto written = std::filesystem::last_write_time(gZFWPlist->path());
  ZFWDictTabView second;
  second.loadPreferences({});
  EXPECT_TRUE(second.saveTWED());
  EXPECT_EQ(std::filesystem::last_write_time(gZFWPlist->path()), written);
}

TEST_F(DictTab, AListThatCannotBeReadIsNotWrittenOver) {
  const Value items = Value::Array{item("tType", "T", "NO"), item("oType", "O", "YES")};
  ASSERT_TRUE(gZFWPlist->setItem(items, "ZFWDictTabKey", "ZFWDictTabTWEDItem"));
  ASSERT_TRUE(gZFWPlist->setItem(3, "ZFWDictTabKey", "ZFWDictTabAppletItem"));
  const Value before = gZFWPlist->objectForKey("ZFWDictTabKey");
  FaultyStorage disk;
  disk.failAt(1, FaultyStorage::kForEver);
  ZFWDictTabView tab;
  tab.loadPreferences({});
  disk.failAt(0);
  EXPECT_EQ(linesOf(tab), (Lines{"oType StandardDictionary YES", "tType TranslationDictionary YES"}));
  EXPECT_EQ(tab.getApplet(), 0);
  EXPECT_EQ(gZFWPlist->objectForKey("ZFWDictTabKey"), before);
  // Nor by what the user does to it, which holds for this tab.
  EXPECT_FALSE(tab.saveTWED());
  EXPECT_FALSE(tab.saveApplet());
  EXPECT_FALSE(tab.setSelected(0, false));
  EXPECT_EQ(tab.selectedDict(), 4);
  EXPECT_TRUE(tab.appletChoice().choose(0));
  EXPECT_EQ(gZFWPlist->objectForKey("ZFWDictTabKey"), before);

  tab.takeStored();
  EXPECT_EQ(linesOf(tab), (Lines{"tType T NO", "oType O YES"}));
  EXPECT_EQ(tab.getApplet(), 3);
  EXPECT_TRUE(tab.setSelected(0, true));
  EXPECT_EQ(stored(), (Lines{"tType T YES", "oType O YES"}));
  EXPECT_TRUE(tab.appletChoice().choose(0));
  EXPECT_EQ(storedApplet(), Value(0));
}

TEST_F(DictTab, AFaultWhileLoadingLosesNothing) {
  const Lines old = {"tType T NO", "sType A YES", "oType O YES"};
  const Lines grown = {"tType T NO", "sType A YES", "oType O YES", "sType B NO"};
  FaultyStorage disk;
  for (const bool grows : {false, true}) {
    const Value::Array books = grows ? Value::Array{book("A"), book("B")} : Value::Array{book("A")};
    const Value area = Value::Dict{
        {"ZFWDictTabTWEDItem",
         Value::Array{item("tType", "T", "NO"), item("sType", "A", "YES"), item("oType", "O", "YES")}},
        {"ZFWDictTabAppletItem", 3},
        {"Other", "kept"}};
    for (long n = 1;; ++n) {
      ASSERT_TRUE(gZFWPlist->setObject(area, "ZFWDictTabKey"));
      disk.failAt(n);
      ZFWDictTabView tab;
      tab.loadPreferences(books);
      const long faults = disk.faults();
      disk.failAt(0);
      const Lines found = stored();
      EXPECT_TRUE(found == old || (grows && found == grown)) << n;
      EXPECT_EQ(storedApplet(), Value(3)) << n;
      EXPECT_EQ(gZFWPlist->itemForKey("ZFWDictTabKey", "Other"), Value("kept")) << n;
      if (faults > 0) continue;
      EXPECT_EQ(found, grows ? grown : old);
      EXPECT_GT(n, grows ? 15 : 8);
      break;
    }
  }
}

// --- What is searched ---

TEST_F(DictTab, SelectedDictGathersTheKindsThatAreOn) {
  struct Case {
    Value::Array items;
    int expected;
  };
  const Value bilingual = item("oType", "O", "YES"), aBook = item("sType", "B", "YES"),
              translation = item("tType", "T", "YES"), off = item("oType", "O", "NO");
  const Case cases[] = {
      {{}, 0},
      {{off}, 0},
      {{bilingual}, 1},
      {{aBook}, 2},
      {{translation}, 4},
      {{translation, aBook, bilingual}, 7},
      {{off, translation}, 4},
      {{aBook, aBook}, 2},
      {{item("oType", "O", "MAYBE")}, 0},
      {{item("xType", "X", "YES")}, 0},
  };
  for (const Case& each : cases) {
    store(each.items);
    ZFWDictTabView tab;
    tab.loadTWED();
    EXPECT_EQ(tab.selectedDict(), each.expected);
  }
}

TEST_F(DictTab, TheAppletChoiceDecidesWhoSearches) {
  ZFWDictTabView tab;
  tab.loadPreferences({});
  tab.setApplet(3);
  EXPECT_EQ(tab.selectedDict(), 64);
  EXPECT_EQ(tab.appletChoice().selectedCell()->tag, 3);
  tab.setApplet(1);  // neither radio is on
  EXPECT_EQ(tab.selectedDict(), 0);
  EXPECT_EQ(tab.appletChoice().selectedCell(), nullptr);
  EXPECT_EQ(tab.getApplet(), 1);
  tab.setApplet(0);
  EXPECT_EQ(tab.selectedDict(), 5);
}

TEST_F(DictTab, AStoredChoiceIsLoadedAndAnUnknownOneKept) {
  ASSERT_TRUE(gZFWPlist->setItem(9, "ZFWDictTabKey", "ZFWDictTabAppletItem"));
  ZFWDictTabView tab;
  tab.loadPreferences({});
  EXPECT_EQ(tab.selectedDict(), 0);
  EXPECT_EQ(storedApplet(), Value(9));
  // Cut to 32 bits this one would be 0, which is known.
  ASSERT_TRUE(gZFWPlist->setItem(4294967296, "ZFWDictTabKey", "ZFWDictTabAppletItem"));
  tab.loadPreferences({});
  EXPECT_EQ(tab.selectedDict(), 0);
  EXPECT_EQ(tab.getApplet(), 4294967296);
  EXPECT_EQ(tab.appletChoice().selectedCell(), nullptr);
  EXPECT_EQ(storedApplet(), Value(4294967296));
}

TEST_F(DictTab, ShowsTitlesAndStatusUnderItsOwnHeading) {
  platform.ownBundle.texts["DictList"] = "Dictionaries";
  platform.ownBundle.texts["StandardDictionary"] = "Common words";
  platform.ownBundle.texts["TWEDbrowser"] = "Book browser";
  ZFWDictTabView tab;
  tab.loadPreferences({book("A")});
  const std::vector<TableView::Column> columns = {{"selectStatus", "", true}, {"dictTitle", "Dictionaries"}};
  EXPECT_EQ(tab.dictListView().columns(), columns);
  EXPECT_EQ(tab.dictListView().cell(0, "dictTitle"), Value("Common words"));
  EXPECT_EQ(tab.dictListView().cell(0, "selectStatus"), Value(true));
  EXPECT_EQ(tab.dictListView().cell(2, "dictTitle"), Value("A"));
  EXPECT_EQ(tab.dictListView().cell(2, "selectStatus"), Value(false));
  const std::vector<RadioGroup::Cell> cells = {{"Common words", 0}, {"Book browser", 3}};
  EXPECT_EQ(tab.appletChoice().cells(), cells);
}

// --- The user's changes ---

TEST_F(DictTab, SwitchingADictionaryStoresItAndTellsEveryWindow) {
  ZFWDictTabView tab;
  tab.loadPreferences({});
  int posts = 0;
  const auto heard = NotificationCenter::shared().subscribe(
      "zfChangeDictNotification",
      [&](const Notification& notification) {
        ++posts;
        EXPECT_TRUE(notification.object.value.isNull());
      },
      tab.identity());
  EXPECT_TRUE(tab.dictListView().edit(0, ZFWDictTabView::kStatusColumn, false));
  EXPECT_EQ(posts, 1);
  EXPECT_EQ(stored()[0], "oType StandardDictionary NO");
  EXPECT_EQ(tab.dictListView().cell(0, ZFWDictTabView::kStatusColumn), Value(false));
  EXPECT_TRUE(tab.setSelected(0, true));
  EXPECT_EQ(posts, 2);
  EXPECT_EQ(stored()[0], "oType StandardDictionary YES");
  EXPECT_FALSE(tab.setSelected(2, true));
  EXPECT_FALSE(tab.dictListView().edit(0, ZFWDictTabView::kTitleColumn, "x"));
  EXPECT_EQ(posts, 2);
}

TEST_F(DictTab, DraggingARowChangesTheOrderOfTheSearch) {
  EXPECT_STREQ(ZFWDictTabView::dictDDPboardType, "dictDDPboardType");
  ZFWDictTabView tab;
  tab.loadPreferences({book("A"), book("B")});
  EXPECT_TRUE(tab.dictListView().moveRow(0, 2));
  EXPECT_EQ(stored(), (Lines{"tType TranslationDictionary YES", "sType A NO", "oType StandardDictionary YES",
                             "sType B NO"}));
  EXPECT_TRUE(tab.moveItem(3, 0));
  EXPECT_EQ(stored(), (Lines{"sType B NO", "tType TranslationDictionary YES", "sType A NO",
                             "oType StandardDictionary YES"}));
  EXPECT_FALSE(tab.moveItem(0, 4));
  EXPECT_FALSE(tab.moveItem(4, 0));
}

TEST_F(DictTab, ChoosingWhoSearchesIsStoredAndTold) {
  ZFWDictTabView tab;
  tab.loadPreferences({});
  int posts = 0;
  const auto heard = NotificationCenter::shared().subscribe("zfChangeDictNotification",
                                                            [&](const Notification&) { ++posts; });
  EXPECT_TRUE(tab.appletChoice().choose(3));
  EXPECT_EQ(storedApplet(), Value(3));
  EXPECT_EQ(posts, 1);
  EXPECT_EQ(tab.selectedDict(), 64);
}

TEST_F(DictTab, AChangeThatCannotBeStoredIsToldAndHoldsForThisProcess) {
  ZFWDictTabView tab;
  tab.loadPreferences({});
  std::filesystem::remove(gZFWPlist->path());
  EXPECT_FALSE(tab.setSelected(0, false));
  EXPECT_EQ(tab.selectedDict(), 4);
  EXPECT_FALSE(std::filesystem::exists(gZFWPlist->path()));
}

TEST_F(DictTab, AnObserverOfAChangeMayEndTheTab) {
  for (int way = 0; way < 3; ++way) {
    auto tab = std::make_unique<ZFWDictTabView>();
    tab->loadPreferences({});
    const auto end = NotificationCenter::shared().subscribe("zfChangeDictNotification",
                                                            [&](const Notification&) { tab.reset(); });
    if (way == 0) tab->dictListView().edit(0, ZFWDictTabView::kStatusColumn, false);
    if (way == 1) tab->dictListView().moveRow(0, 1);
    if (way == 2) tab->appletChoice().choose(0);
    EXPECT_EQ(tab, nullptr);
  }
}

TEST_F(DictTab, WhatAnotherTabStoredCanBeTaken) {
  ZFWDictTabView one, other;
  one.loadPreferences({});
  other.loadPreferences({});
  one.setSelected(0, false);
  EXPECT_EQ(other.selectedDict(), 5);
  other.takeStored();
  EXPECT_EQ(other.selectedDict(), 4);
  EXPECT_EQ(other.dictListView().cell(0, ZFWDictTabView::kStatusColumn), Value(false));
  one.appletChoice().choose(3);
  EXPECT_EQ(other.selectedDict(), 4);
  other.takeStored();
  EXPECT_EQ(other.selectedDict(), 64);
  EXPECT_EQ(other.appletChoice().selectedCell()->tag, 3);
  std::filesystem::remove(gZFWPlist->path());
  other.takeStored();  // nothing to take
  EXPECT_EQ(other.selectedDict(), 64);
  EXPECT_EQ(other.rowCount(), 2u);
}

// --- The panel ---

TEST_F(DictTab, ThePanelHasItsFourItems) {
  platform.ownBundle.texts = {
      {"ZFWDictPrefTool", "Dictionaries"}, {"ZFWDictPrefToolTip", "Which are searched"},
      {"ZFWTransPrefTool", "Translation"}, {"ZFWTransPrefToolTip", "Who translates"},
      {"ZFWSearchPrefTool", "Web search"}, {"ZFWSearchPrefToolTip", "The colour of matches"},
      {"ZFWRssPrefTool", "Feeds"},         {"ZFWRssPrefToolTip", "How often they are read"},
  };
  const ZFWPrefController panel;
  Lines lines;
  for (const ZFWPrefController::Item& each : panel.items())
    lines.push_back(each.identifier + " " + each.label + ": " + each.tooltip);
  EXPECT_EQ(lines,
            (Lines{"ZFWDictPref Dictionaries: Which are searched", "ZFWTransPref Translation: Who translates",
                   "ZFWSearchPref Web search: The colour of matches",
                   "ZFWRssPref Feeds: How often they are read"}));
  platform.ownBundle.texts.clear();
  EXPECT_EQ(ZFWPrefController().items()[1].label, "ZFWTransPrefTool");
  EXPECT_EQ(ZFWPrefController().items()[2].tooltip, "ZFWSearchPrefToolTip");
}

TEST_F(DictTab, ThePanelShowsTheTabThatWasAskedFor) {
  ZFWPrefController panel;
  EXPECT_TRUE(panel.panel().hidden());
  EXPECT_EQ(panel.selectedItem(), "ZFWDictPref");
  panel.showRssPanel();
  EXPECT_FALSE(panel.panel().hidden());
  EXPECT_EQ(panel.selectedItem(), "ZFWRssPref");
  panel.showDictPanel();
  EXPECT_EQ(panel.selectedItem(), "ZFWDictPref");
  panel.hide();
  EXPECT_TRUE(panel.panel().hidden());
}

TEST_F(DictTab, ThePanelHasATabForEachItem) {
  ZFWPrefController panel;
  ASSERT_EQ(panel.panel().children(), std::vector<View*>{&panel.tabView()});
  Lines identifiers;
  for (const TabView::Item& each : panel.tabView().items()) identifiers.push_back(each.identifier);
  EXPECT_EQ(identifiers, (Lines{"ZFWDictPref", "ZFWTransPref", "ZFWSearchPref", "ZFWRssPref"}));
  EXPECT_EQ(panel.tabView().items()[0].view, &panel.dictTab().mainView());
}

TEST_F(DictTab, AHostHearsThatAnotherTabIsUpAndOnlyThatOneTakesEvents) {
  ZFWPrefController panel;
  panel.dictTab().loadPreferences({});
  int changes = 0;
  const Connection heard = panel.panel().changed.connect([&](View&) { ++changes; });
  panel.showDictPanel();
  EXPECT_EQ(changes, 1);  // the panel came up
  EXPECT_TRUE(panel.dictTab().dictListView().takesEvents());
  panel.showRssPanel();
  EXPECT_EQ(changes, 2);
  EXPECT_FALSE(panel.dictTab().dictListView().takesEvents());
  EXPECT_FALSE(panel.dictTab().dictListView().edit(0, ZFWDictTabView::kStatusColumn, false));
  EXPECT_FALSE(panel.dictTab().appletChoice().choose(3));
  EXPECT_EQ(panel.dictTab().selectedDict(), 5);
  EXPECT_TRUE(panel.tabView().selectItem("ZFWDictPref"));  // as by the user
  EXPECT_EQ(panel.selectedItem(), "ZFWDictPref");
  EXPECT_TRUE(panel.dictTab().dictListView().edit(0, ZFWDictTabView::kStatusColumn, false));
  EXPECT_EQ(panel.dictTab().selectedDict(), 4);
}

}  // namespace
}  // namespace zavel::test
