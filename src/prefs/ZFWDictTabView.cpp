// Tests: tests/prefs/ZFWDictTabViewTest.cpp
#include "prefs/ZFWDictTabView.h"

#include <algorithm>

#include "config/ZFWPlistController.h"
#include "config/ZavelPath.h"
#include "platform/Bundle.h"
#include "platform/NotificationCenter.h"
#include "platform/Platform.h"

namespace zavel {
namespace {

constexpr const char* kBookName = "Name";

std::string member(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

bool isSelected(const Value& item) {
  return member(item, ZFWSelectStatusKey) == ZFWYesStatus;
}

int bitOf(const Value& item) {
  const std::string type = member(item, ZFWDictTypeKey);
  if (type == ZFWMirellType) return kSelectedMirell;
  if (type == ZFWHwType) return kSelectedBook;
  return type == ZFWTransType ? kSelectedTrans : 0;
}

bool namesBook(const Value::Array& books, const std::string& title) {
  return std::any_of(books.begin(), books.end(),
                     [&](const Value& book) { return member(book, kBookName) == title; });
}

}  // namespace

ZFWDictTabView::ZFWDictTabView() {
  table_.setColumns({{kStatusColumn, "", true}, {kTitleColumn, platform().bundle().localized("DictList")}});
  table_.setDataSource(this);
  choice_.setCells({{platform().bundle().localized("StandardDictionary"), static_cast<int>(kAppletSystem)},
                    {platform().bundle().localized("TWEDbrowser"), static_cast<int>(kAppletOutsideBrowser)}});
  chosen_ = choice_.chosen.connect([this] { chooseApplet(); });
  view_.addChild(table_);
  view_.addChild(choice_);
}

ZFWDictTabView::~ZFWDictTabView() {
  table_.setDataSource(nullptr);
}

void ZFWDictTabView::loadPreferences(const Value::Array& books) {
  loadAll();
  appendTWEDplist(books);
  saveAll();
}

void ZFWDictTabView::loadPreferences() {
  loadAll();
  saveAll();
}

void ZFWDictTabView::loadAll() {
  loadTWED();
  loadApplet();
  if (zavelType() == ZAVEL_TYPE_GENERAL) appendMirellDict();
  appendTransDict();
}

void ZFWDictTabView::saveAll() {
  saveTWED();
  saveApplet();
  table_.reloadData();
}

int ZFWDictTabView::selectedDict() const {
  if (applet_ == kAppletOutsideBrowser) return kSelectedOutsideBrowser;
  if (applet_ != kAppletSystem) return 0;
  int bits = 0;
  for (const Value& item : dictListArray_) {
    if (isSelected(item)) bits |= bitOf(item);
  }
  return bits;
}

void ZFWDictTabView::setApplet(int64_t applet) {
  applet_ = applet;
  const bool known = applet == kAppletSystem || applet == kAppletOutsideBrowser;
  if (!known || !choice_.selectTag(static_cast<int>(applet))) choice_.deselect();
}

void ZFWDictTabView::takeStored() {
  Value items, applet;
  if (readStored(ZFWDictTabTWEDItem, &items)) listUnread_ = false;
  if (items.isArray()) takeItems(items);
  if (readStored(ZFWDictTabAppletItem, &applet)) appletUnread_ = false;
  if (!applet.isNull()) setApplet(applet.integer(applet_));
  table_.reloadData();
}

bool ZFWDictTabView::readStored(const char* item, Value* value) {
  return !gZFWPlist || gZFWPlist->readItem(ZFWDictTabKey, item, value);
}

// What stands there already isn't written again: each window saves its list at its start.
bool ZFWDictTabView::save(const char* item, const Value& value, bool unread) {
  if (!gZFWPlist || unread) return false;
  return gZFWPlist->itemForKey(ZFWDictTabKey, item) == value ||
         gZFWPlist->setItem(value, ZFWDictTabKey, item);
}

void ZFWDictTabView::takeItems(const Value& items) {
  dictListArray_ = items.isArray() ? *items.asArray() : Value::Array();
  std::erase_if(dictListArray_, [](const Value& item) { return !item.isDict(); });
}

void ZFWDictTabView::loadTWED() {
  Value items;
  listUnread_ = !readStored(ZFWDictTabTWEDItem, &items);
  takeItems(items);
}

bool ZFWDictTabView::saveTWED() const {
  return save(ZFWDictTabTWEDItem, dictListArray_, listUnread_);
}

void ZFWDictTabView::loadApplet() {
  Value applet;
  appletUnread_ = !readStored(ZFWDictTabAppletItem, &applet);
  setApplet(applet.integer(kAppletSystem));
}

bool ZFWDictTabView::saveApplet() const {
  return save(ZFWDictTabAppletItem, applet_, appletUnread_);
}

void ZFWDictTabView::appendMirellDict() {
  if (hasType(ZFWMirellType)) return;
  append(ZFWMirellType, platform().bundle().localized("StandardDictionary"), ZFWYesStatus);
}

void ZFWDictTabView::appendTransDict() {
  if (hasType(ZFWTransType)) return;
  append(ZFWTransType, platform().bundle().localized("TranslationDictionary"), ZFWYesStatus);
}

void ZFWDictTabView::appendTWEDplist(const Value::Array& books) {
  std::erase_if(dictListArray_, [&](const Value& item) {
    return member(item, ZFWDictTypeKey) == ZFWHwType && !namesBook(books, member(item, ZFWDictTitleKey));
  });
  for (const Value& book : books) {
    const std::string name = member(book, kBookName);
    const bool listed = std::any_of(dictListArray_.begin(), dictListArray_.end(), [&](const Value& item) {
      return member(item, ZFWDictTypeKey) == ZFWHwType && member(item, ZFWDictTitleKey) == name;
    });
    if (!listed && book.find(kBookName)) append(ZFWHwType, name, ZFWNoStatus);
  }
}

bool ZFWDictTabView::setSelected(size_t item, bool selected) {
  if (item >= dictListArray_.size()) return false;
  (*dictListArray_[item].asDict())[ZFWSelectStatusKey] = selected ? ZFWYesStatus : ZFWNoStatus;
  return userChanged();
}

bool ZFWDictTabView::moveItem(size_t from, size_t to) {
  if (from >= dictListArray_.size() || to >= dictListArray_.size()) return false;
  const auto first = dictListArray_.begin();
  const auto source = first + static_cast<ptrdiff_t>(from);
  const auto target = first + static_cast<ptrdiff_t>(to);
  if (from < to) {
    std::rotate(source, source + 1, target + 1);
  } else {
    std::rotate(target, source, source + 1);
  }
  return userChanged();
}

Value ZFWDictTabView::cell(size_t row, const std::string& column) const {
  const Value& item = dictListArray_[row];
  if (column == kStatusColumn) return isSelected(item);
  return member(item, ZFWDictTitleKey);
}

// An observer may have destroyed this, the table that asked included: false makes it leave itself alone.
bool ZFWDictTabView::setCell(size_t row, const std::string& column, const Value& value) {
  const std::weak_ptr<const bool> alive = alive_;
  return column == kStatusColumn && setSelected(row, value.boolean()) && !alive.expired();
}

bool ZFWDictTabView::moveRow(size_t from, size_t to) {
  const std::weak_ptr<const bool> alive = alive_;
  return moveItem(from, to) && !alive.expired();
}

bool ZFWDictTabView::hasType(const char* type) const {
  return std::any_of(dictListArray_.begin(), dictListArray_.end(),
                     [&](const Value& item) { return member(item, ZFWDictTypeKey) == type; });
}

void ZFWDictTabView::append(const char* type, const std::string& title, const char* status) {
  dictListArray_.push_back(
      Value::Dict{{ZFWDictTypeKey, type}, {ZFWDictTitleKey, title}, {ZFWSelectStatusKey, status}});
}

bool ZFWDictTabView::userChanged() {
  const bool isStored = saveTWED();
  table_.reloadData();
  NotificationCenter::shared().post(ZFChangeDictNotification, {}, identity());
  return isStored;
}

void ZFWDictTabView::chooseApplet() {
  const RadioGroup::Cell* cell = choice_.selectedCell();
  if (!cell) return;
  applet_ = cell->tag;
  saveApplet();
  NotificationCenter::shared().post(ZFChangeDictNotification, {}, identity());
}

}  // namespace zavel
