// The search field's menus, and the mode switch that gives them.
#include "feed/RSSSubscriber2.h"
#include "platform/PropertyLists.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

const Value kBilingualOn = item("oType", "StandardDictionary", "YES");
const Value kBilingualOff = item("oType", "StandardDictionary", "NO");
const Value kTranslationOff = item("tType", "TranslationDictionary", "NO");
const Value kBookOn = item("sType", "A book", "YES");

class Menus : public ShellTest {
 protected:
  Menus() {
    writeDictionary();
    writeBrowserPreferences(Value::Dict{{"PreferencesGeneral", Value::Dict{{"FindMax", 400}}},
                                        {"DictList", Value::Array{Value::Dict{{"Name", "A book"}}}}});
  }
  static Lines dMenuOf(Window& window) { return linesOf(*window.controller->dMenu()); }
  static ZFWDictTabView& dictTab(Window& window) { return window.controller->zfwPrefController().dictTab(); }
};

// --- The mode switch ---

struct ModeCase {
  const char* identifier;
  const char* tab;
  bool fieldShown;
  const char* menu;  // null: none
  const char* square;
};

const ModeCase kModes[] = {
    {"zfDictTab", "sTab", true, "dMenu", "DictList"},    {"zfTransTab", "tTab", false, "tMenu", nullptr},
    {"zfTexttransTab", "eTab", false, nullptr, nullptr}, {"zfSearchTab", "wTab", true, "wMenu", nullptr},
    {"zfRssTab", "rTab", true, "rMenu", "RSSBookmaek"},  {"zfQuickTab", "qTab", false, "qMenu", nullptr},
    {"zfDocuTab", "dTab", false, nullptr, nullptr},      {"zfArchTab", "aTab", false, nullptr, nullptr},
};

TEST_F(Menus, EachModeSetsTabFieldMenuAndButton) {
  Window window(kAllModes);
  for (size_t i = 0; i < std::size(kModes); ++i) {
    const ModeCase& mode = kModes[i];
    SearchField& searchField = *window.controller->searchField();
    searchField.setText("text");
    EXPECT_TRUE(window.controller->modeControl()->choose(i));
    EXPECT_EQ(window.tab(), mode.tab);
    EXPECT_EQ(searchField.hidden(), !mode.fieldShown) << mode.identifier;
    EXPECT_EQ(searchField.text(), mode.fieldShown ? "text" : "") << mode.identifier;
    EXPECT_EQ(searchField.menu() ? searchField.menu()->title() : "(none)", mode.menu ? mode.menu : "(none)");
    EXPECT_EQ(window.controller->squareButton().hidden(), mode.square == nullptr) << mode.identifier;
    if (mode.square) {
      EXPECT_EQ(window.controller->squareButton().title(), mode.square);
    }
  }
}

TEST_F(Menus, ChoosingAModeHidesThePreferences) {
  Window window(kAllModes);
  window.controller->zfwPrefController().showDictPanel();
  window.controller->modeControl()->choose(0);
  EXPECT_TRUE(window.controller->zfwPrefController().panel().hidden());
}

TEST_F(Menus, TheSquareButtonOpensThePanelOfItsMode) {
  platform.ownBundle.texts["DictList"] = "Dictionaries";
  platform.ownBundle.texts["RSSBookmaek"] = "Feeds";
  Window window(kAllModes);
  EXPECT_TRUE(window.controller->squareButton().click());
  EXPECT_FALSE(window.controller->zfwPrefController().panel().hidden());
  EXPECT_EQ(window.controller->zfwPrefController().selectedItem(), "ZFWDictPref");
  window.controller->modeControl()->choose(4);
  EXPECT_TRUE(window.controller->squareButton().click());
  EXPECT_EQ(window.controller->zfwPrefController().selectedItem(), "ZFWRssPref");
}

TEST_F(Menus, AModeCanBeGivenItsMenuAlone) {
  Window window(kAllModes);
  const auto slide = [&](const char* identifier) {
    NotificationObject object;
    object.value = identifier;
    NotificationCenter::shared().post("zfSlideTabNotification", object);
    return window.controller->searchField()->menu()->title();
  };
  EXPECT_EQ(slide("zfTransTab"), "tMenu");
  EXPECT_EQ(slide("zfSearchTab"), "wMenu");
  EXPECT_EQ(slide("zfRssTab"), "rMenu");
  EXPECT_EQ(slide("zfQuickTab"), "qMenu");
  EXPECT_EQ(slide("zfDictTab"), "dMenu");
  for (const char* other : {"zfTexttransTab", "zfDocuTab", "zfArchTab", "unknown", ""}) {
    EXPECT_EQ(slide(other), "dMenu") << other;
  }
  EXPECT_EQ(window.tab(), "sTab");
}

// --- dMenu ---

TEST_F(Menus, TheBilingualDictionaryHasItsDisplayModes) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes);
  EXPECT_EQ(window.controller->dMenu()->title(), "dMenu");
  EXPECT_EQ(dMenuOf(window), (Lines{"0 StandardDictionary", "*1 DisplayAll", "2 PartOfSpeechAndTranslation",
                                    "3 DisplayPhrase", "4 DisplayExample"}));
  EXPECT_FALSE(window.choose(0));  // a heading
}

TEST_F(Menus, BooksHaveTheirDirections) {
  writeDictList({kBilingualOff, kTranslationOff, kBookOn});
  Window window(kAllModes);
  EXPECT_EQ(dMenuOf(window),
            (Lines{"10 TarnwickDictionary", "*11 ForwardSearch", "12 BackwardSearch", "13 FullSearch"}));
  EXPECT_FALSE(window.choose(10));
}

TEST_F(Menus, BothStandWithALineBetween) {
  writeDictList({kBilingualOn, kTranslationOff, kBookOn});
  Window window(kAllModes);
  EXPECT_EQ(dMenuOf(window), (Lines{"0 StandardDictionary", "*1 DisplayAll", "2 PartOfSpeechAndTranslation",
                                    "3 DisplayPhrase", "4 DisplayExample", "-", "10 TarnwickDictionary",
                                    "*11 ForwardSearch", "12 BackwardSearch", "13 FullSearch"}));
}

TEST_F(Menus, TheTranslationDictionaryHasNoItems) {
  writeDictList({kBilingualOff, item("tType", "TranslationDictionary", "YES")});
  Window window(kAllModes);
  EXPECT_EQ(dMenuOf(window), Lines{});
}

TEST_F(Menus, TheOutsideBrowserHasDirectionsInThePlaceOfDisplayModes) {
  writeDictList({kBilingualOn}, 3);
  Window window(kAllModes);
  EXPECT_EQ(dMenuOf(window),
            (Lines{"0 TWEDbrowser", "*1 ForwardSearch", "2 BackwardSearch", "3 FullSearch"}));
  EXPECT_TRUE(window.choose(3));
  EXPECT_EQ(dMenuOf(window)[3], "*3 FullSearch");
  EXPECT_EQ(window.controller->directionHW(), 0);  // sees none of them
}

TEST_F(Menus, TheFilterIsThatOfTheCheckedDisplayMode) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes);
  const uint8_t filters[] = {0, 3, 4, 5};
  const char* const titles[] = {"DisplayAll", "PartOfSpeechAndTranslation", "DisplayPhrase",
                                "DisplayExample"};
  const char* const images[] = {"ZDAll", "ZDPOS", "ZDIdiom", "ZDExample"};
  for (int tag = 1; tag <= 4; ++tag) {
    EXPECT_TRUE(window.choose(tag));
    EXPECT_EQ(window.controller->modeMirell(), filters[tag - 1]);
    EXPECT_EQ(window.dictionary().hwHeadMode(), filters[tag - 1]);
    EXPECT_EQ(window.dictionary().hwHeadTitle().text(), titles[tag - 1]);
    EXPECT_EQ(window.dictionary().hwHeadImage().imageName(), images[tag - 1]);
  }
  EXPECT_EQ(dMenuOf(window)[4], "*4 DisplayExample");
  EXPECT_EQ(dMenuOf(window)[1], "1 DisplayAll");
}

TEST_F(Menus, ChoosingADisplayModeLooksUpAnewFromTheFirstRow) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes);
  window.look("match", 1);
  EXPECT_TRUE(window.choose(2));
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 0);
  EXPECT_EQ(window.detail(), "\r-[動]\r合う\n\r\r");
}

TEST_F(Menus, ALookUpThatAHostMakesWhenItHearsOfTheDisplayModeIsTheNewerOne) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes);
  window.look("take");
  const Connection heard =
      window.dictionary().hwHeadTitle().changed.connect([&](View&) { window.look("match", 1); });
  EXPECT_TRUE(window.choose(2));
  EXPECT_EQ(window.field(), "match");
  EXPECT_EQ(window.dictionary().nowSelectedRow(), 1);
  EXPECT_EQ(window.detail(), "\r-[名]\r試合\n\r\r");  // shown as the menu says
}

TEST_F(Menus, TheDirectionIsThatOfTheCheckedItem) {
  writeDictList({kBilingualOn, kTranslationOff, kBookOn});
  Window window(kAllModes);
  EXPECT_EQ(window.controller->directionHW(), 0);
  EXPECT_TRUE(window.choose(13));
  EXPECT_EQ(window.controller->directionHW(), 2);
  EXPECT_TRUE(window.choose(12));
  EXPECT_EQ(window.controller->directionHW(), 1);
  EXPECT_EQ(window.controller->modeMirell(), 0);
  EXPECT_EQ(dMenuOf(window)[1], "*1 DisplayAll");
}

TEST_F(Menus, AChangedListKeepsTheChecks) {
  writeDictList({kBilingualOn, kTranslationOff, kBookOn});
  Window window(kAllModes);
  window.choose(3);
  window.choose(12);
  EXPECT_TRUE(dictTab(window).setSelected(1, true));
  EXPECT_EQ(dMenuOf(window)[3], "*3 DisplayPhrase");
  EXPECT_EQ(dMenuOf(window)[8], "*12 BackwardSearch");
  EXPECT_EQ(window.controller->searchField()->menu(), window.controller->dMenu());
}

TEST_F(Menus, AGroupThatWasAwayForOneChangeIsForgotten) {
  writeDictList({kBilingualOn, kTranslationOff, kBookOn});
  Window window(kAllModes);
  window.choose(3);
  dictTab(window).setSelected(0, false);
  EXPECT_EQ(window.controller->modeMirell(), 0);
  dictTab(window).setSelected(0, true);
  EXPECT_EQ(dMenuOf(window)[1], "*1 DisplayAll");
}

TEST_F(Menus, ADirectionOfTheOutsideBrowserComesBackAsADisplayMode) {
  writeDictList({kBilingualOn}, 3);
  Window window(kAllModes);
  window.choose(2);
  dictTab(window).appletChoice().selectTag(0);
  window.controller->zfwPrefController().showDictPanel();
  EXPECT_TRUE(dictTab(window).appletChoice().choose(0));
  EXPECT_EQ(dMenuOf(window)[2], "*2 PartOfSpeechAndTranslation");
}

TEST_F(Menus, ADisplayModeIsNotCarriedToTheDirectionsOfTheOutsideBrowser) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes);
  window.choose(2);
  window.controller->zfwPrefController().showDictPanel();
  EXPECT_TRUE(dictTab(window).appletChoice().choose(3));
  EXPECT_EQ(dMenuOf(window),
            (Lines{"0 TWEDbrowser", "*1 ForwardSearch", "2 BackwardSearch", "3 FullSearch"}));
}

TEST_F(Menus, ADirectionOfTheOutsideBrowserIsADisplayModeOfTheHeadToo) {
  writeDictList({kBilingualOn}, 3);
  Window window(kAllModes);
  const uint8_t filters[] = {0, 3, 4};
  for (const int tag : {3, 2, 1}) {
    EXPECT_TRUE(window.choose(tag));
    EXPECT_EQ(window.dictionary().hwHeadMode(), filters[tag - 1]);
  }
}

TEST_F(Menus, ADirectionThatWasAwayForOneChangeIsForgotten) {
  writeDictList({kBilingualOn, kTranslationOff, kBookOn});
  Window window(kAllModes);
  window.choose(12);
  dictTab(window).setSelected(2, false);
  EXPECT_EQ(window.controller->directionHW(), 0);
  dictTab(window).setSelected(2, true);
  EXPECT_EQ(dMenuOf(window)[7], "*11 ForwardSearch");
  EXPECT_EQ(dMenuOf(window)[8], "12 BackwardSearch");
}

TEST_F(Menus, AFieldOfAnotherModeKeepsItsMenuWhenTheListChanges) {
  Window window(kAllModes);
  window.controller->modeControl()->choose(1);
  dictTab(window).setSelected(0, false);
  EXPECT_EQ(window.controller->searchField()->menu(), window.controller->tMenu());
}

TEST_F(Menus, TheFieldGetsTheNewListOfFeedsWhileTheyAreUp) {
  Window window(kAllModes), other({"zfDictTab", "zfRssTab"});
  other.controller->modeControl()->choose(1);
  gRSSSubscriber2->setSites({{"News", "http://n/", 3}});
  NotificationCenter::shared().post("zfChangeRssNotification");
  EXPECT_EQ(window.controller->searchField()->menu(), window.controller->dMenu());
  EXPECT_EQ(other.controller->searchField()->menu(), other.controller->rMenu());
  EXPECT_EQ(linesOf(*other.controller->searchField()->menu()), Lines{"0 (3)News"});
}

TEST_F(Menus, AListThatOneWindowChangedHoldsForAll) {
  writeDictList({kBilingualOn, kTranslationOff});
  Window window(kAllModes), other(kAllModes);
  dictTab(window).setSelected(0, false);
  EXPECT_EQ(dMenuOf(other), Lines{});
  EXPECT_EQ(dictTab(other).selectedDict(), 0);
  dictTab(other).setSelected(1, true);  // doesn't bring back what the first one changed
  EXPECT_EQ(dictTab(window).selectedDict(), 4);
}

// --- tMenu, wMenu, rMenu ---

TEST_F(Menus, TheDirectionsOfTranslation) {
  Window window({"zfTransTab"});
  EXPECT_EQ(window.controller->tMenu()->title(), "tMenu");
  EXPECT_EQ(linesOf(*window.controller->tMenu()),
            (Lines{"5 AutoTranslate", "6 EtoJTranslate", "7 JtoETranslate"}));
  EXPECT_TRUE(window.choose(6));
  EXPECT_TRUE(window.choose(7));
  EXPECT_EQ(linesOf(*window.controller->tMenu())[1], "6 EtoJTranslate");
  EXPECT_EQ(linesOf(*window.controller->tMenu())[2], "*7 JtoETranslate");
  EXPECT_EQ(window.controller->tController().direction(), 7);
}

Value site(const char* title, const char* url = "") {
  return Value::Dict{{"SearchItemTitle", title}, {"SearchItemURL", url}};
}

TEST_F(Menus, TheSitesOfTheWebSearch) {
  writeSearchSites({site(">>English"), site("One", "http://1/"), site("-"), site(">> Two"),
                    site("Two", "http://2/"), site(">"), site("")});
  Window window({"zfSearchTab"});
  EXPECT_EQ(window.controller->wMenu()->title(), "wMenu");
  EXPECT_EQ(linesOf(*window.controller->wMenu()),
            (Lines{"0 English", "*1 One", "-", "0  Two", "2 Two", "3 >", "4 "}));
  EXPECT_EQ(window.controller->urlSearch(), "http://1/");
  window.controller->searchField()->type("query");
  EXPECT_TRUE(window.choose(2));
  EXPECT_EQ(window.controller->urlSearch(), "http://2/");
  EXPECT_EQ(linesOf(*window.controller->wMenu())[1], "1 One");
  EXPECT_EQ(window.controller->wController().site(), "http://2/");
  EXPECT_EQ(window.controller->wController().query().bytes(), "query");
}

TEST_F(Menus, ASingleSiteIsNoChoice) {
  writeSearchSites({site("One", "http://1/")});
  Window window({"zfSearchTab"});
  EXPECT_EQ(linesOf(*window.controller->wMenu()), Lines{"*1 One"});
  EXPECT_EQ(window.controller->urlSearch(), "");
}

TEST_F(Menus, ASiteBelowAHeadingIsOne) {
  writeSearchSites({site(">>English"), site("One", "http://1/")});
  Window window({"zfSearchTab"});
  EXPECT_EQ(linesOf(*window.controller->wMenu()), (Lines{"0 English", "*1 One"}));
  EXPECT_EQ(window.controller->urlSearch(), "http://1/");
}

TEST_F(Menus, WithoutTheResourceThereAreNoSites) {
  Window window({"zfSearchTab"});
  EXPECT_EQ(linesOf(*window.controller->wMenu()), Lines{});
  EXPECT_EQ(window.controller->urlSearch(), "");
  writeFile(at("bad.plist"), "garbage");
  platform.ownBundle.resources["SearchSite.plist"] = at("bad.plist");
  Window other({"zfSearchTab"});
  EXPECT_EQ(linesOf(*other.controller->wMenu()), Lines{});
}

TEST_F(Menus, TheFeedsWithTheirUnreadNews) {
  Window window({"zfRssTab"});
  EXPECT_EQ(window.controller->rMenu()->title(), "rMenu");
  EXPECT_EQ(linesOf(*window.controller->rMenu()), Lines{});
  gRSSSubscriber2->setSites({{"News", "http://n/", 3}, {"Blog", "http://b/", 0}, {"One", "http://o/", 1}});
  NotificationCenter::shared().post("zfChangeRssNotification");
  EXPECT_EQ(linesOf(*window.controller->rMenu()), (Lines{"0 (3)News", "1 Blog", "2 (1)One"}));
  EXPECT_TRUE(window.choose(1));
  EXPECT_EQ(window.field(), "http://b/");
  EXPECT_EQ(window.controller->rController().urlString(), "http://b/");
}

TEST_F(Menus, MenusThatOutliveTheirWindowDoNothing) {
  writeSearchSites({site("One"), site("Two")});
  std::vector<std::shared_ptr<Menu>> menus;
  {
    Window window(kAllModes);
    gRSSSubscriber2->setSites({{"News", "http://n/", 3}});
    NotificationCenter::shared().post("zfChangeRssNotification");
    menus = {window.controller->dMenu(), window.controller->tMenu(), window.controller->wMenu(),
             window.controller->rMenu()};
    dictTab(window).setSelected(1, false);
    EXPECT_NE(window.controller->dMenu(), menus[0]);  // a new one
  }
  for (const std::shared_ptr<Menu>& menu : menus) {
    for (size_t i = 0; i < menu->count(); ++i) menu->choose(i);
  }
}

}  // namespace
}  // namespace zavel::test
