// Set-up and end. Look-ups, events and menus stand beside it. Tests: tests/shell/ControllerTest.cpp
#include "shell/ZavelLexController.h"

#include <utility>

#include "config/WorkPaths.h"
#include "config/ZFWPlistController.h"
#include "config/ZPFile.h"
#include "config/ZavelApplet.h"
#include "feed/RSSSubscriber2.h"
#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "shell/ModeTable.h"
#include "shell/ProcessObjects.h"

namespace zavel {

using Self = ZavelLexController;

const Self::ModeRow Self::kModes[8] = {
    {ZFDictTab, &Self::segmentDict_, "sTab", true, &Self::dMenu_, "DictList"},
    {ZFTransTab, &Self::segmentTrans_, "tTab", false, &Self::tMenu_, nullptr},
    {ZFTexttransTab, &Self::segmentTexttrans_, "eTab", false, nullptr, nullptr},
    {ZFSearchTab, &Self::segmentSearch_, "wTab", true, &Self::wMenu_, nullptr},
    {ZFRssTab, &Self::segmentRss_, "rTab", true, &Self::rMenu_, "RSSBookmaek"},
    {ZFQuickTab, &Self::segmentQuick_, "qTab", false, &Self::qMenu_, nullptr},
    {ZFDocuTab, &Self::segmentDocu_, "dTab", false, nullptr, nullptr},
    {ZFArchTab, &Self::segmentArch_, "aTab", false, nullptr, nullptr},
};

namespace {
constexpr const char* kResultName = "ZEFWresultO2008";
}

const Self::ModeRow* Self::modeRow(const std::string& identifier) {
  for (const ModeRow& mode : kModes) {
    if (identifier == mode.identifier) return &mode;
  }
  return nullptr;
}

ZavelLexController::ZavelLexController() : zavelLexView_(std::make_unique<ZEFView>()) {
  qMenu_ = std::make_shared<Menu>("qMenu");
  retainProcessObjects();
  subscribe();
  segmentDict_ = segmentTrans_ = segmentTexttrans_ = segmentSearch_ = kModeAbsent;
}

ZavelLexController::~ZavelLexController() {
  ready_ = false;
  subscriptions_.clear();
  connections_.clear();
  zavelLexView_.reset();
  tabView_.reset();
  leaveField();
  // The tabs use what all controllers share, so they go before it.
  zfwPrefController_.reset();
  sController_.reset();
  tController_.reset();
  eController_.reset();
  wController_.reset();
  rController_.reset();
  qController_.reset();
  dController_.reset();
  aController_.reset();
  releaseProcessObjects();
}

void ZavelLexController::initController(const Rect& frame, const void* target, const Modes& segment) {
  initController(frame, target, segment, std::string(kResultName));
}

void ZavelLexController::initController(const Rect& frame, const void* target, const Modes& segment,
                                        const std::string& kenkyu) {
  if (std::exchange(begun_, true)) return;
  zavelParent_ = target;
  resetModes();
  makeMirellModule(kenkyu);
  makeWindow(frame, segment);
  makeTabControllers(frame);
  View* const views[8] = {&sController_->mainView(), &tController_->mainView(), &eController_->mainView(),
                          &wController_->mainView(), &rController_->mainView(), &qController_->mainView(),
                          &dController_->mainView(), &aController_->mainView()};
  for (size_t i = 0; i < std::size(kModes); ++i) tabView_->addItem(kModes[i].tabIdentifier, *views[i]);
  ++viewID;
  makePreferences();
  makeMenus();
  ready_ = true;
  subscriptions_.push_back(NotificationCenter::shared().subscribe(
      S_Controller::ZFChangeSizeNotification,
      [this](const Notification& notification) { handleChangedFontSize(notification); }));
  modeControl_->setSelectedSegment(0);
  selectMode();
  if (segmentRss_ != kModeAbsent) updateFeedsOnce();
}

void ZavelLexController::initController(const Rect& frame, const void* target, const Modes& segment,
                                        const Modes& unSegment) {
  if (begun_) return;
  initController(frame, target, segment);
  numberModes(unSegment, kFirstHiddenMode);
  if (segmentRss_ >= kFirstHiddenMode) updateFeedsOnce();
}

void ZavelLexController::initController(const Rect& frame, const void* target, SearchField& input,
                                        BusyIndicator& progress, const std::string& kenkyu) {
  if (std::exchange(begun_, true)) return;
  zavelParent_ = target;
  resetModes();
  numberModes({ZFDictTab, ZFTransTab, ZFSearchTab, ZFRssTab}, 0);
  makeMirellModule(kenkyu);
  searchField_ = &input;
  progressSpinning_ = &progress;
  connectField();
  if (ownedApplet == ZAVEL_APPLET_CORRESPONDENCE) {
    const Value mode = gZFWPlist->itemForKey(ZFWTransTabKey, ZFWTransTabModeItem);
    quickTransUpDown_ = mode.integer() == 0;
    quickTransButtonHide_ = true;
  }
  makeTabControllers(frame);
  ++viewID;
  makePreferences();
  makeMenus();
  ready_ = true;
  selectMode();
  updateFeedsOnce();
}

// kept: the archive mode is not among the absent ones, so that its events get through even where no host
// asked for it (docs/quirks.md)
void ZavelLexController::resetModes() {
  for (const ModeRow& mode : kModes) this->*mode.number = kModeAbsent;
  segmentArch_ = 0;
}

// Numbers the known modes from `first` on; the number behind the last.
int ZavelLexController::numberModes(const Modes& identifiers, int first) {
  for (const std::string& identifier : identifiers) {
    if (const ModeRow* mode = modeRow(identifier)) this->*mode->number = first++;
  }
  return first;
}

void ZavelLexController::makeWindow(const Rect& frame, const Modes& segment) {
  zavelLexView_->setFrame(frame);
  const int count = numberModes(segment, 0);
  modeControl_ = std::make_unique<SegmentedControl>();
  std::vector<SegmentedControl::Segment> segments(static_cast<size_t>(count));
  for (const ModeRow& mode : kModes) {
    const int number = this->*mode.number;
    const bool listed = modeRow(mode.identifier) && number >= 0 && number < count;
    if (listed && segments[static_cast<size_t>(number)].label.empty()) {
      segments[static_cast<size_t>(number)].label = platform().bundle().localized(mode.identifier);
    }
  }
  modeControl_->setSegments(std::move(segments));
  ownField_ = std::make_unique<SearchField>();
  searchField_ = ownField_.get();
  ownProgress_ = std::make_unique<BusyIndicator>();
  progressSpinning_ = ownProgress_.get();
  tabView_ = std::make_unique<TabView>();
  for (View* part : {static_cast<View*>(modeControl_.get()), static_cast<View*>(searchField_),
                     static_cast<View*>(&squareButton_), static_cast<View*>(progressSpinning_),
                     static_cast<View*>(tabView_.get())}) {
    zavelLexView_->addChild(*part);
  }
  connections_.push_back(modeControl_->chosen.connect([this] { selectMode(); }));
  connections_.push_back(squareButton_.clicked.connect([this] { panelButton(); }));
  connectField();
}

void ZavelLexController::connectField() {
  searchField_->onInsertNewline = Newline{this};
  connections_.push_back(searchField_->textEdited.connect([this] { controlTextDidChange(); }));
}

// A host's field goes on; a controller that came later may have it by now.
void ZavelLexController::leaveField() {
  if (!searchField_) return;
  const Newline* const handler = searchField_->onInsertNewline.target<Newline>();
  if (handler && handler->controller == this) searchField_->onInsertNewline = nullptr;
  if (isOwn(searchField_->menu())) searchField_->setMenu(nullptr);
}

void ZavelLexController::makeTabControllers(const Rect& frame) {
  sController_ = std::make_unique<S_Controller>();
  tController_ = std::make_unique<T_Controller>();
  eController_ = std::make_unique<E_Controller>();
  wController_ = std::make_unique<W_Controller>();
  rController_ = std::make_unique<R_Controller>();
  qController_ = std::make_unique<Q_Controller>();
  dController_ = std::make_unique<D_Controller>();
  aController_ = std::make_unique<A_Controller>();
  sController_->setDocStyle(docStyle_);
  sController_->initialize(frame, zavelParent_, progressSpinning_);
  tController_->initialize(frame, zavelParent_, progressSpinning_, viewID);
  eController_->initialize(frame, zavelParent_, progressSpinning_);
  wController_->initialize(frame, zavelParent_, progressSpinning_, viewID);
  rController_->initialize(frame, zavelParent_, progressSpinning_, viewID);
  qController_->initialize(frame, zavelParent_, progressSpinning_,
                           {quickTransUpDown_, quickTransButtonHide_, ownedApplet == ZAVEL_APPLET_BROWSER});
  dController_->initialize(frame, viewID);
  aController_->initialize(frame);
}

void ZavelLexController::makePreferences() {
  if (zfwPrefController_) return;
  zfwPrefController_ = std::make_unique<ZFWPrefController>();
  zfwPrefController_->initZavelLex(*this);
}

void ZavelLexController::makeMenus() {
  changeDict();
  makeTransMenu();
  makeSearchMenu();
  changeRss();
}

void ZavelLexController::updateFeedsOnce() {
  if (rssTimerFlag) return;
  rssTimerFlag = true;
  rController_->setAlertSkip(true);
  gRSSSubscriber2->updateSite();
}

bool ZavelLexController::saveZP(int32_t style) {
  return zavel::saveZP(style);
}

void ZavelLexController::setDocStyle(int32_t style) {
  docStyle_ = style;
  if (sController_) sController_->setDocStyle(style);
}

void ZavelLexController::setQuickTransLayoutUpDown(bool upDown) {
  quickTransUpDown_ = upDown;
  if (qController_) qController_->setLayoutUpDown(upDown);
}

void ZavelLexController::setQuickTransTransportButtonHide(bool hide) {
  quickTransButtonHide_ = hide;
  if (qController_) qController_->setTransportButtonHide(hide);
}

}  // namespace zavel
