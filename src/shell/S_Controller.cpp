// The tab itself: its widgets, its settings, the list. Searching and showing stand beside it.
// Tests: tests/shell/DetailTest.cpp
#include "shell/S_Controller.h"

#include <algorithm>

#include "config/WorkPaths.h"
#include "config/ZavelCommonModule.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "foundation/Storage.h"
#include "platform/Bundle.h"
#include "platform/Folders.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "platform/UserServices.h"

namespace zavel {

size_t referenceMaxCount = 400;
int gS_CallCount = 0;
std::optional<ZavelColor> headColor;
std::optional<ZavelColor> textColor;
std::optional<ZavelColor> refColor;

namespace {

constexpr Color kMirellBackColor{1.0, 1.0, 0.9, 1.0};

constexpr int kSizes[] = {9, 10, 12, 14, 18, 24, 36, 48, 64, 72};
constexpr int kSizeAtStart = 12;

constexpr const char* kBrowserPreferences = "/Library/Preferences/local.tarnwick.TWEDBrowser.plist";

std::optional<ZavelColor> colorOf(const Value& appearance, const char* key) {
  const Value* text = appearance.find(key);
  if (!text || !gZavelCommonModule) return std::nullopt;
  return gZavelCommonModule->stringToNSColor(text->string());
}

void setColors(const Value* appearance) {
  headColor = appearance ? colorOf(*appearance, "HeadColor") : ZavelColor{0, 0, 1, 1};
  textColor = appearance ? colorOf(*appearance, "TextColor") : ZavelColor{0, 0, 0, 1};
  refColor = appearance ? colorOf(*appearance, "RefColor") : ZavelColor{0, 1, 0, 1};
}

// kept: a limit that is missing reads as 0, and every search reaches it (docs/quirks.md)
size_t findMaxOf(const Value& preferences) {
  const Value* general = preferences.find("PreferencesGeneral");
  const Value* findMax = general ? general->find("FindMax") : nullptr;
  return static_cast<size_t>(std::max<int64_t>(findMax ? findMax->integer() : 0, 0));
}

}  // namespace

S_Controller::S_Controller() {
  ++gS_CallCount;
  int style = 0;
  zavelStyleLoadTitleAndCurrentID(ownedApplet, &style);
  styleNumer_ = std::to_string(style);
}

S_Controller::~S_Controller() {
  hwListView_.setDataSource(nullptr);
  --gS_CallCount;
}

void S_Controller::initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress) {
  parentWindow_ = parentWindow;
  progressSpinning_ = progress;
  myView_.setFrame(frame);
  hwListView_.setColumns({{kItemColumn, ""}, {kTitleColumn, ""}});
  hwListView_.setDataSource(this);
  selectionChanged_ = hwListView_.selectionChanged.connect([this] {
    if (nowSelectedRow() >= 0) displaySelectedRow(static_cast<size_t>(nowSelectedRow()));
  });
  buildSizeMenu();
  hwHeadView_.addChild(hwHeadImage_);
  hwHeadView_.addChild(hwHeadTitle_);
  hwDetailView_.addChild(hwHeadView_);
  hwDetailView_.addChild(hwHeadSize_);  // the size counts for rows without a head, too
  hwDetailView_.addChild(hwResultView_);
  hwSplit_.addChild(hwListView_);
  hwSplit_.addChild(hwDetailView_);
  iPodOut_.setImageName("iPodIcon");
  iPodOut_.setEnabled(false);
  myView_.addChild(hwSplit_);
  myView_.addChild(iPodOut_);
  myView_.addChild(iPodTitle_);
  mirellManager_ = gMirellModule ? gMirellModule->objectODM() : nullptr;
  changeHeadView(hwHeadMode_);
  readTWEDplist();
}

void S_Controller::buildSizeMenu() {
  for (const int size : kSizes) {
    MenuItem item;
    item.title = std::to_string(size) + "pt";
    item.tag = size;
    hwHeadSize_.addItem(item);
  }
  hwHeadSize_.selectTag(kSizeAtStart);
  sizeChosen_ = hwHeadSize_.chosen.connect([this] { changeSize(); });
}

void S_Controller::setDefaultFontSize(int tag) {
  hwHeadSize_.selectTag(tag);
}

int S_Controller::defaultFontSize() const {
  const MenuItem* item = hwHeadSize_.selectedItem();
  return item ? item->tag : kSizeAtStart;
}

void S_Controller::changeSize() {
  NotificationObject size;
  size.value = defaultFontSize();
  NotificationCenter::shared().post(ZFChangeSizeNotification, size, this);
}

uint64_t S_Controller::clear() {
  const uint64_t lookup = ++lookups_;
  empty();
  return lookup;
}

// False when a newer look-up came in its course.
bool S_Controller::empty() {
  hwResultArray_.clear();
  iPodOutTitle_.clear();
  resultType_ = kNoRow;
  return inTurn({[this] { hwListView_.reloadData(); },
                 [this] {
                   if (zavelType() == ZAVEL_TYPE_GENERAL) hwResultView_.setBackgroundColor(kMirellBackColor);
                 },
                 [this] { hwResultView_.setText(""); }, [this] { updateTool(false); }});
}

// A host that hears of a step's change may look something up; then the later steps would spoil what that
// found, so they are left out, and false is given.
bool S_Controller::inTurn(std::initializer_list<std::function<void()>> steps) {
  const uint64_t lookup = lookups_;
  for (const std::function<void()>& step : steps) {
    step();
    if (!isLatest(lookup)) return false;
  }
  return true;
}

void S_Controller::setUnfound() {
  if (empty()) hwResultView_.setText(platform().bundle().localized("No entries"));
}

void S_Controller::setNewSelectRow(int row) {
  if (row < 0 || static_cast<size_t>(row) >= hwResultArray_.size()) return;
  if (row != 0 && !inTurn({[&] { hwListView_.scrollRowToVisible(row); }})) return;
  if (row == nowSelectedRow()) return displaySelectedRow(static_cast<size_t>(row));
  hwListView_.selectRow(row);
}

void S_Controller::changeHeadView(uint8_t filter) {
  struct Mode {
    const char* image;
    const char* title;
  };
  const Mode mode = filter == kFilterTranslation ? Mode{"ZDPOS", "PartOfSpeechAndTranslation"}
                    : filter == kFilterPhrase    ? Mode{"ZDIdiom", "DisplayPhrase"}
                    : filter == kFilterAll       ? Mode{"ZDAll", "DisplayAll"}
                                                 : Mode{"ZDExample", "DisplayExample"};
  hwHeadMode_ = filter;
  hwHeadImage_.setImageName(mode.image);
  hwHeadTitle_.setText(platform().bundle().localized(mode.title));
}

void S_Controller::updateTool(bool available) {
  if (zavelType() != ZAVEL_TYPE_GENERAL) return;
  iPodOut_.setEnabled(available && nowSelectedRow() >= 0 && !iPodOutTitle_.empty());
}

Value S_Controller::cell(size_t row, const std::string& column) const {
  const ResultRow& result = hwResultArray_[row];
  const bool mirell = std::holds_alternative<MirellData>(result);
  if (column == kTitleColumn) {
    return platform().bundle().localized(mirell ? "StandardDictionary" : "TranslationDictionary");
  }
  return mirell ? std::get<MirellData>(result).indexTitle() : std::get<TransData>(result).indexTitle();
}

void S_Controller::jumpURL(const std::string& url) {
  if (platform().userServices().openUrl(url)) return;
  Bundle& bundle = platform().bundle();
  platform().userServices().showAlert(
      {bundle.localized("Error"), bundle.localized("ErrorLinkQuestionPage"), {"OK"}});
}

std::optional<Value::Array> S_Controller::twedDictList() {
  readTWEDplist();
  if (twedUnread_) return std::nullopt;
  return twedDictionaryArray_;
}

void S_Controller::readTWEDplist() {
  twedDictionaryArray_.clear();
  twedUnread_ = false;
  const std::string home = platform().folders().home();
  const std::string path = home + kBrowserPreferences;
  if (home.empty() || !storage().exists(path)) return;
  Value preferences;
  if (!platform().propertyLists().readFile(path, &preferences) || !preferences.isDict()) {
    twedUnread_ = true;
    logLine("Access error local.tarnwick.TWEDBrowser.plist");
    return;
  }
  const Value* books = preferences.find("DictList");
  if (books && books->asArray()) twedDictionaryArray_ = *books->asArray();
  twedUnread_ = books && !books->isArray();
  setColors(preferences.find("PreferencesAppearance"));
  referenceMaxCount = findMaxOf(preferences);
}

}  // namespace zavel
