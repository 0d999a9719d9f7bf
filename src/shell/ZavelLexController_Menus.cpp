// The search field's menus. Tests: tests/shell/MenusTest.cpp
#include <utility>

#include "feed/RSSSubscriber2.h"
#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "shell/ZavelLexController.h"

namespace zavel {
namespace {

// Tags of dMenu: display modes from 1, the heading of the directions, directions from 11. In the menu of the
// outside browser the directions have the display modes' tags.
constexpr int kHeadingTag = 0;
constexpr int kFirstDisplayTag = 1;
constexpr int kDirectionHeadingTag = 10;
constexpr int kFirstDirectionTag = 11;
constexpr uint8_t kFilters[] = {kFilterAll, kFilterTranslation, kFilterPhrase, kFilterExample};

MenuItem itemOf(const std::string& title, int tag, MenuItem::Action action = nullptr) {
  MenuItem item;
  item.title = title;
  item.tag = tag;
  item.action = std::move(action);
  return item;
}

std::string localized(const char* key) {
  return platform().bundle().localized(key);
}

// Checks `chosen` alone among the items with tags from `first` up to `end`, exclusive.
void checkAmong(Menu* menu, int first, int end, int chosen) {
  for (size_t i = 0; i < menu->count(); ++i) {
    const MenuItem& item = menu->items()[i];
    if (!item.separator && item.tag >= first && item.tag < end) menu->setChecked(i, item.tag == chosen);
  }
}

// The resource's list of sites; empty when there is none.
Value::Array searchSites() {
  Value resource;
  const std::optional<std::string> path = platform().bundle().resourcePath("SearchSite", "plist");
  if (!path || !platform().propertyLists().readFile(*path, &resource)) return {};
  const Value* sites = resource.find("SearchSite");
  return sites && sites->asArray() ? *sites->asArray() : Value::Array();
}

std::string stringAt(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

}  // namespace

// The first checked tag of dMenu from `first` up to `end`, exclusive; 0 when none is.
int ZavelLexController::checkedTag(int first, int end) const {
  for (int tag = first; dMenu_ && tag < end; ++tag) {
    const MenuItem* item = dMenu_->itemWithTag(tag);
    if (item && item->checked) return tag;
  }
  return 0;
}

int ZavelLexController::directionHW() const {
  const int tag = checkedTag(kFirstDirectionTag, sMenuNumber_);
  return tag == 0 ? 0 : tag - kFirstDirectionTag;
}

uint8_t ZavelLexController::modeMirell() const {
  const int tag = checkedTag(kFirstDisplayTag, kFirstDisplayTag + static_cast<int>(std::size(kFilters)));
  return tag == 0 ? kFilterAll : kFilters[tag - kFirstDisplayTag];
}

std::string ZavelLexController::urlSearch() const {
  if (!wMenu_ || wMenu_->count() < 2) return std::string();
  for (int tag = 1;; ++tag) {
    const MenuItem* item = wMenu_->itemWithTag(tag);
    if (!item) return std::string();
    if (item->checked) return item->representedText;
  }
}

// Menus are shared with hosts, and may outlive this.
MenuItem::Action ZavelLexController::whileAlive(MenuItem::Action action) const {
  return [alive = std::weak_ptr<const bool>(alive_), act = std::move(action)](const MenuItem& item) {
    if (!alive.expired()) act(item);
  };
}

void ZavelLexController::giveMenu(const std::shared_ptr<Menu>& menu) {
  givenMenu_ = menu;
  searchField_->setMenu(menu);
}

bool ZavelLexController::isOwn(const std::shared_ptr<Menu>& menu) const {
  return menu && (menu == givenMenu_.lock() || menu == dMenu_ || menu == tMenu_ || menu == wMenu_ ||
                  menu == rMenu_ || menu == qMenu_);
}

// Another window's list, or a host's, is in the store.
void ZavelLexController::handleChangeDict(const Notification& notification) {
  if (!zfwPrefController_) return;
  ZFWDictTabView& tab = zfwPrefController_->dictTab();
  if (notification.sender != tab.identity()) tab.takeStored();
  changeDict();
}

void ZavelLexController::changeDict() {
  if (!zfwPrefController_) return;
  const int display = checkedTag(kFirstDisplayTag, oMenuNumber_);
  const int direction = checkedTag(kFirstDirectionTag, sMenuNumber_);
  const int selected = zfwPrefController_->dictTab().selectedDict();
  dMenu_ = selected == kSelectedOutside ? nullptr : std::make_shared<Menu>("dMenu");
  if (selected == kSelectedOutsideBrowser) {
    addOutsideDirections();
  } else if (dMenu_) {
    if (selected & kSelectedMirell) addDisplayModes(display);
    if (selected & kSelectedBook) addDirections(direction, (selected & kSelectedMirell) != 0);
  }
  if (isUp(segmentDict_)) giveMenu(dMenu_);
}

void ZavelLexController::addDisplayModes(int kept) {
  const char* const titles[] = {"DisplayAll", "PartOfSpeechAndTranslation", "DisplayPhrase",
                                "DisplayExample"};
  dMenu_->addItem(itemOf(localized("StandardDictionary"), kHeadingTag));
  oMenuNumber_ = kFirstDisplayTag;
  for (const char* title : titles) {
    dMenu_->addItem(itemOf(localized(title), oMenuNumber_++,
                           whileAlive([this](const MenuItem& item) { selectDictModeMenu(item.tag); })));
  }
  checkAmong(dMenu_.get(), kFirstDisplayTag, oMenuNumber_, kept == 0 ? kFirstDisplayTag : kept);
}

void ZavelLexController::addDirections(int kept, bool separated) {
  const char* const titles[] = {"ForwardSearch", "BackwardSearch", "FullSearch"};
  if (separated) dMenu_->addItem(MenuItem::separatorItem());
  dMenu_->addItem(itemOf(localized("TarnwickDictionary"), kDirectionHeadingTag));
  sMenuNumber_ = kFirstDirectionTag;
  for (const char* title : titles) {
    dMenu_->addItem(itemOf(localized(title), sMenuNumber_++,
                           whileAlive([this](const MenuItem& item) { selectDictModeMenu(item.tag); })));
  }
  checkAmong(dMenu_.get(), kFirstDirectionTag, sMenuNumber_, kept == 0 ? kFirstDirectionTag : kept);
}

void ZavelLexController::addOutsideDirections() {
  const char* const titles[] = {"ForwardSearch", "BackwardSearch", "FullSearch"};
  dMenu_->addItem(itemOf(localized("TWEDbrowser"), kHeadingTag));
  oMenuNumber_ = kFirstDisplayTag;
  for (const char* title : titles) {
    dMenu_->addItem(itemOf(localized(title), oMenuNumber_++,
                           whileAlive([this](const MenuItem& item) { selectDictModeMenu(item.tag); })));
  }
  checkAmong(dMenu_.get(), kFirstDisplayTag, oMenuNumber_, kFirstDisplayTag);
}

void ZavelLexController::selectDictModeMenu(int tag) {
  if (!dMenu_) return;  // chosen in the menu of a list that is no more
  const bool direction = tag >= kDirectionHeadingTag;
  if (direction) {
    checkAmong(dMenu_.get(), kFirstDirectionTag, sMenuNumber_, tag);
  } else {
    checkAmong(dMenu_.get(), kFirstDisplayTag, oMenuNumber_, tag);
  }
  // From here on a look-up that a host makes when it hears of the change is made in the chosen way already.
  const uint64_t lookup = sController_->latestLookup();
  if (!direction) sController_->changeHeadView(modeMirell());
  giveMenu(dMenu_);
  if (sController_->isLatest(lookup)) lookupButton();
}

void ZavelLexController::makeTransMenu() {
  tMenu_ = std::make_shared<Menu>("tMenu");
  const auto chosen = whileAlive([this](const MenuItem& item) { selectTransModeMenu(item.tag); });
  tMenu_->addItem(itemOf(localized("AutoTranslate"), kAutoTranslateTag, chosen));
  tMenu_->addItem(itemOf(localized("EtoJTranslate"), kEtoJTranslateTag, chosen));
  tMenu_->addItem(itemOf(localized("JtoETranslate"), kJtoETranslateTag, chosen));
}

void ZavelLexController::selectTransModeMenu(int tag) {
  tMenu_->checkOnly(tag);
  tController_->setDirection(tag);
}

void ZavelLexController::makeSearchMenu() {
  wMenu_ = std::make_shared<Menu>("wMenu");
  int tag = 0;
  for (const Value& site : searchSites()) {
    const std::string title = stringAt(site, "SearchItemTitle");
    if (title == "-") {
      wMenu_->addItem(MenuItem::separatorItem());
    } else if (title.starts_with(">>")) {
      wMenu_->addItem(itemOf(title.substr(2), kHeadingTag));
    } else {
      MenuItem item =
          itemOf(title, ++tag, whileAlive([this](const MenuItem& i) { selectSearchModeMenu(i.tag); }));
      item.representedText = stringAt(site, "SearchItemURL");
      item.checked = tag == 1;
      wMenu_->addItem(item);
    }
  }
}

void ZavelLexController::selectSearchModeMenu(int tag) {
  wMenu_->checkOnly(tag);
  searchButton();
}

void ZavelLexController::changeRss() {
  if (!gRSSSubscriber2 || !searchField_) return;
  rMenu_ = std::make_shared<Menu>("rMenu");
  int tag = 0;
  for (const RSSSubscriber2::Site& site : gRSSSubscriber2->sites()) {
    const std::string unread = site.rssUnRead >= 1 ? "(" + std::to_string(site.rssUnRead) + ")" : "";
    MenuItem item = itemOf(unread + site.rssSiteName, tag++,
                           whileAlive([this](const MenuItem& i) { selectRssModeMenu(i.representedText); }));
    item.representedText = site.rssURL;
    rMenu_->addItem(item);
  }
  if (isUp(segmentRss_)) giveMenu(rMenu_);
}

void ZavelLexController::selectRssModeMenu(const std::string& url) {
  searchField_->setText(url);
  rController_->connectURLString(url);
}

}  // namespace zavel
