// Events: which are for this window, which mode they bring up, what they do.
// Tests: tests/shell/EventsTest.cpp
#include "config/ZavelCommonModule.h"
#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "shell/ModeTable.h"
#include "ui/ZFNotifications.h"

namespace zavel {

using Self = ZavelLexController;

const Self::EventRow Self::kEvents[17] = {
    {"zfDictLookupNotification", &Self::segmentDict_, true, &Self::handleDictLookup},
    {"ZFDropTranslationNotification", &Self::segmentTrans_, true, &Self::handleDropTranslation},
    {"zfAutoTranslationNotification", &Self::segmentTrans_, true, &Self::handleAutoTranslation},
    {"zfEtoJTranslationNotification", &Self::segmentTrans_, true, &Self::handleEtoJTranslation},
    {"zfJtoETranslationNotification", &Self::segmentTrans_, true, &Self::handleJtoETranslation},
    {"zfResultOnlyTranslationNotification", &Self::segmentTrans_, true, &Self::handleResultOnlyTranslation},
    {"zfSetDirectionNotification", &Self::segmentTrans_, false, &Self::handleSetDirection},
    {"zfAutoTextTranslationNotification", &Self::segmentTexttrans_, true, &Self::handleAutoTextTranslation},
    {"zfEtoJTextTranslationNotification", &Self::segmentTexttrans_, true, &Self::handleEtoJTextTranslation},
    {"zfJtoETextTranslationNotification", &Self::segmentTexttrans_, true, &Self::handleJtoETextTranslation},
    {"zfTranslationSearchNotification", &Self::segmentSearch_, true, &Self::handleTranslationSearch},
    {"zfRssNotification", &Self::segmentRss_, true, &Self::handleRss},
    {"zfAutoQuickTranslationNotification", &Self::segmentQuick_, true, &Self::handleAutoQuickTranslation},
    {"zfEtoJQuickTranslationNotification", &Self::segmentQuick_, true, &Self::handleEtoJQuickTranslation},
    {"zfJtoEQuickTranslationNotification", &Self::segmentQuick_, true, &Self::handleJtoEQuickTranslation},
    {"zfPubMedSearchNotification", &Self::segmentDocu_, true, &Self::handleDocuSearch},
    {"zfExampleArchivesNotification", &Self::segmentArch_, true, &Self::handleExampleArchives},
};

namespace {

const Value* memberOf(const Notification& notification, const char* key) {
  return notification.object.value.find(key);
}

std::string textOf(const Notification& notification) {
  const Value* text = memberOf(notification, ZFTextKey);
  return text ? text->string() : std::string();
}

int numberOf(const Notification& notification, const char* key, int fallback) {
  const Value* number = memberOf(notification, key);
  return number ? static_cast<int>(number->integer(fallback)) : fallback;
}

bool isEnglish(const std::string& text) {
  return ZavelCommonModule::judgeTextStringEorJ(text) == ZavelCommonModule::kEnglish;
}

}  // namespace

void ZavelLexController::subscribe() {
  NotificationCenter& center = NotificationCenter::shared();
  for (const EventRow& event : kEvents) {
    subscriptions_.push_back(center.subscribe(
        event.name, [this, &event](const Notification& notification) { handle(event, notification); }));
  }
  const auto add = [&](const char* name, Act act) {
    subscriptions_.push_back(center.subscribe(
        name, [this, act](const Notification& notification) { (this->*act)(notification); }));
  };
  add(ZFDropNotification, &Self::handleDropOperation);
  add("TWDropReferenceNote", &Self::handleDropOperation);
  add("zfSlideTabNotification", &Self::slideTabForMenu);
  add(ZFWDictTabView::ZFChangeDictNotification, &Self::handleChangeDict);
  subscriptions_.push_back(
      center.subscribe("zfChangeRssNotification", [this](const Notification&) { changeRss(); }));
}

// A window without a mode switch has its first mode up.
int ZavelLexController::selectedSegment() const {
  return modeControl_ ? modeControl_->selectedSegment() : 0;
}

void ZavelLexController::selectMode() {
  if (!ready_) return;
  zfwPrefController_->hide();
  for (const ModeRow& mode : kModes) {
    if (isUp(this->*mode.number)) return show(mode);
  }
}

void ZavelLexController::show(const ModeRow& mode) {
  if (modeControl_) modeControl_->setSelectedSegment(this->*mode.number);
  if (tabView_) tabView_->selectItem(mode.tabIdentifier);
  if (!mode.showsField) searchField_->setText("");
  searchField_->setHidden(!mode.showsField);
  giveMenu(mode.menu ? this->*mode.menu : nullptr);
  squareButton_.setHidden(mode.squareButton == nullptr);
  if (mode.squareButton) squareButton_.setTitle(platform().bundle().localized(mode.squareButton));
}

bool ZavelLexController::isForThisHost(const Notification& notification) const {
  const void* parent = notification.object.identity(ZFParentKey);
  return parent != nullptr && parent == zavelParent_;
}

void ZavelLexController::handle(const EventRow& event, const Notification& notification) {
  const int number = this->*event.mode;
  if (!ready_ || number == kModeAbsent || !isForThisHost(notification)) return;
  const uint64_t lookup = sController_->latestLookup();
  if (event.selects && number < kFirstHiddenMode) {
    if (modeControl_) modeControl_->setSelectedSegment(number);
    selectMode();
  }
  const bool overtaken = event.mode == &Self::segmentDict_ && !sController_->isLatest(lookup);
  if (!overtaken) (this->*event.act)(notification);
}

// A host that hears of the changed field may look something else up; that is the newer look-up then.
void ZavelLexController::lookUp(const std::string& text, const Value& row) {
  const uint64_t lookup = sController_->latestLookup();
  searchField_->setText(text);
  if (sController_->isLatest(lookup)) lookupButton(row);
}

void ZavelLexController::handleDictLookup(const Notification& notification) {
  const Value* row = memberOf(notification, ZFRowKey);
  lookUp(textOf(notification), row ? *row : Value());
}

void ZavelLexController::handleDropTranslation(const Notification& notification) {
  tController_->translation(textOf(notification), numberOf(notification, ZFStyleKey, -1), false);
}

void ZavelLexController::handleAutoTranslation(const Notification& notification) {
  const std::string text = textOf(notification);
  doTranslate(text, isEnglish(text));
}

void ZavelLexController::handleEtoJTranslation(const Notification& notification) {
  doTranslate(textOf(notification), true);
}

void ZavelLexController::handleJtoETranslation(const Notification& notification) {
  doTranslate(textOf(notification), false);
}

void ZavelLexController::handleResultOnlyTranslation(const Notification& notification) {
  tController_->translation(textOf(notification), numberOf(notification, ZFStyleKey, 0), true);
}

void ZavelLexController::handleSetDirection(const Notification& notification) {
  selectTransModeMenu(numberOf(notification, ZFModeKey, 0));
}

void ZavelLexController::handleAutoTextTranslation(const Notification& notification) {
  const std::string text = textOf(notification);
  eController_->setSource(text, isEnglish(text) ? E_Controller::kEtoJ : E_Controller::kJtoE);
}

void ZavelLexController::handleEtoJTextTranslation(const Notification& notification) {
  eController_->setSource(textOf(notification), E_Controller::kEtoJ);
}

void ZavelLexController::handleJtoETextTranslation(const Notification& notification) {
  eController_->setSource(textOf(notification), E_Controller::kJtoE);
}

void ZavelLexController::handleTranslationSearch(const Notification& notification) {
  searchField_->setText(textOf(notification));
  searchButton();
}

void ZavelLexController::handleRss(const Notification& notification) {
  searchField_->setText(textOf(notification));
  rController_->connectURLString(searchField_->text());
}

void ZavelLexController::handleAutoQuickTranslation(const Notification& notification) {
  const std::string text = textOf(notification);
  qController_->setSource(text, isEnglish(text) ? Q_Controller::kEtoJ : Q_Controller::kJtoE);
}

void ZavelLexController::handleEtoJQuickTranslation(const Notification& notification) {
  qController_->setSource(textOf(notification), Q_Controller::kEtoJ);
}

void ZavelLexController::handleJtoEQuickTranslation(const Notification& notification) {
  qController_->setSource(textOf(notification), Q_Controller::kJtoE);
}

void ZavelLexController::handleDocuSearch(const Notification& notification) {
  dController_->setQuery(textOf(notification));
}

void ZavelLexController::handleExampleArchives(const Notification& notification) {
  aController_->setQuery(textOf(notification));
}

void ZavelLexController::handleDropOperation(const Notification& notification) {
  if (!ready_) return;
  const Value& dropped = notification.object.value;
  if (dropped.isString()) return dropText(dropped.string());
  if (!dropped.isDict()) return;
  const void* view = notification.object.identity(ZFViewPointerKey);
  if (view == tController_->webView().identity()) {
    tController_->dropTranslation(textOf(notification));
  } else if (view == zavelLexView_->identity()) {
    dropText(textOf(notification));
  }
}

void ZavelLexController::dropText(const std::string& text) {
  if (isUp(segmentDict_)) {
    lookUp(text, Value());
  } else if (isUp(segmentTrans_)) {
    tController_->dropTranslation(text);
  } else if (isUp(segmentSearch_)) {
    searchField_->setText(text);
    searchButton();
  }
}

void ZavelLexController::handleChangedFontSize(const Notification&) {
  const bool dictionaryUp = isUp(segmentDict_) && tabView_->selectedIdentifier() == "sTab";
  lookupButton(dictionaryUp ? sController_->nowSelectedRow() : -1);
}

void ZavelLexController::slideTabForMenu(const Notification& notification) {
  const ModeRow* mode = modeRow(notification.object.value.string());
  if (ready_ && mode && mode->menu) giveMenu(this->*mode->menu);
}

bool ZavelLexController::insertNewline() {
  if (!ready_) return false;
  const std::string text = searchField_->text();
  if (isUp(segmentDict_)) {
    lookupButton();
  } else if (isUp(segmentTrans_)) {
    doTranslate(text, isEnglish(text));
  } else if (isUp(segmentSearch_)) {
    searchButton();
  } else if (isUp(segmentRss_)) {
    rController_->connectURLString(text);
  } else {
    return false;
  }
  return true;
}

void ZavelLexController::controlTextDidChange() {
  if (!ready_ || !searchField_->text().empty()) return;
  if (isUp(segmentDict_)) {
    sController_->clear();
  } else if (isUp(segmentSearch_)) {
    wController_->clear();
  } else if (isUp(segmentRss_)) {
    rController_->clear();
  }
}

void ZavelLexController::panelButton() {
  if (!ready_) return;
  if (squareButton_.title() == platform().bundle().localized("DictList")) {
    zfwPrefController_->showDictPanel();
  } else {
    zfwPrefController_->showRssPanel();
  }
}

}  // namespace zavel
