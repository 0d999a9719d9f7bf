// What a host creates for each of its windows: up to eight modes, their tabs, one search field. Events come
// as notifications that carry the host's token, as commands from the search field, or as menu choices; the
// controller brings the mode to the front and hands the text to its tab. docs/hosting.md tells the whole.
#ifndef SHELL_ZAVELLEXCONTROLLER_H
#define SHELL_ZAVELLEXCONTROLLER_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "feed/R_Controller.h"
#include "foundation/Export.h"
#include "platform/NotificationCenter.h"
#include "prefs/ZFWPrefController.h"
#include "research/A_Controller.h"
#include "research/D_Controller.h"
#include "shell/S_Controller.h"
#include "translate/E_Controller.h"
#include "translate/Q_Controller.h"
#include "translate/T_Controller.h"
#include "translate/W_Controller.h"
#include "ui/BusyIndicator.h"
#include "ui/Button.h"
#include "ui/Menu.h"
#include "ui/SearchField.h"
#include "ui/SegmentedControl.h"
#include "ui/TabView.h"
#include "ui/ZEFView.h"
#include "ui/ZFNotifications.h"

namespace zavel {

// Identifiers of the modes, as hosts list them.
inline constexpr const char* ZFDictTab = "zfDictTab";
inline constexpr const char* ZFTransTab = "zfTransTab";
inline constexpr const char* ZFTexttransTab = "zfTexttransTab";
inline constexpr const char* ZFSearchTab = "zfSearchTab";
inline constexpr const char* ZFRssTab = "zfRssTab";
inline constexpr const char* ZFQuickTab = "zfQuickTab";
inline constexpr const char* ZFDocuTab = "zfDocuTab";
inline constexpr const char* ZFArchTab = "zfArchTab";

// Posted after each look-up by a controller without tabs: the number kDictFound or kDictNotFound.
inline constexpr const char* ZFDictResultNotification = "zfDictResultNotification";
inline constexpr int kDictFound = 8;
inline constexpr int kDictNotFound = 9;

// A mode's number: up to 99 a visible segment, from 100 on it works without one, -1 it is absent.
inline constexpr int kModeAbsent = -1;
inline constexpr int kFirstHiddenMode = 100;

class ZAVEL_API ZavelLexController : private ZFWPrefController::Owner {
 public:
  using Modes = std::vector<std::string>;  // identifiers; unknown ones are passed over

  // init
  ZavelLexController();
  ~ZavelLexController() override;
  ZavelLexController(const ZavelLexController&) = delete;
  ZavelLexController& operator=(const ZavelLexController&) = delete;

  // The set-up, in one of four forms; a second one does nothing. Before its end, events and commands do
  // nothing and there are no tabs to ask for. `target` is the host's token: any address of its own, compared
  // and never followed; null matches no event. `kenkyu` names the file in the cache folder that entries are
  // shown through; the first controller of the process decides for all.
  //
  // initController:target:segment:
  void initController(const Rect& frame, const void* target, const Modes& segment);
  // initController:target:segment:kenkyu:
  void initController(const Rect& frame, const void* target, const Modes& segment, const std::string& kenkyu);
  // initController:target:segment:unSegment:  The modes in `unSegment` work without a visible segment.
  void initController(const Rect& frame, const void* target, const Modes& segment, const Modes& unSegment);
  // initController:target:input:progress:kenkyu:  For a host with a field and a busy indicator of its own,
  // which outlive this controller; it has no mode switch and no tabs. Dictionary, translation, web search and
  // feeds. Takes over the field's text, its menu and its onInsertNewline, and hears of its edits; at its end
  // it clears menu and onInsertNewline, unless they are somebody else's by then.
  void initController(const Rect& frame, const void* target, SearchField& input, BusyIndicator& progress,
                      const std::string& kenkyu);

  // lookupButton:  Looks up what the search field holds. A number as `sender`, its fraction cut off, is the
  // row to select afterwards; a row that isn't there selects none. Anything else selects the first. Returns
  // when the look-up is over, and reports it as docs/hosting.md says; an observer of the report may destroy
  // this.
  void lookupButton(const Value& sender = Value());
  // searchButton:  Web search for the text in the search field, at the checked site; nothing for an empty
  // field.
  void searchButton();
  // selectMode:  Brings up the mode of the selected segment.
  void selectMode();
  // panelButton:  Opens the preference panel: the dictionary list where that stands on squareButton(), else
  // the feeds.
  void panelButton();
  // doTranslate:language:  Page translation of `text`, UTF-8: English to Japanese, else the other way.
  void doTranslate(const std::string& text, bool english);

  // directionHW  The direction of book searches from the menu: 0 forward, 1 backward, 2 full.
  int directionHW() const;
  // modeMirell  The filter of the bilingual dictionary from the menu.
  uint8_t modeMirell() const;
  // urlSearch  The address of the web search site from the menu; empty for none.
  std::string urlSearch() const;

  // saveZP:  Writes the helper tool's dictionary parameter file, gDictPath, for the style at that place of
  // the style file's list. False, and logged, when there is no such style or the file can't be written. Needs
  // a controller that is alive.
  static bool saveZP(int32_t style);

  // control:textView:doCommandBySelector:  The user pressed return in the search field. True when the mode
  // that is up takes that.
  bool insertNewline();
  // controlTextDidChange:  The user edited the search field: an emptied one clears the mode that is up, if it
  // is the dictionary, the web search or the feeds.
  void controlTextDidChange();

  // --- Accessors. Widgets and tabs are this controller's; the field and the indicator may be the host's.
  // Tabs, field and preferences are there from the set-up on. ---

  ZEFView& mainView() { return *zavelLexView_; }
  SegmentedControl* modeControl() { return modeControl_.get(); }  // null without tabs
  TabView* tabView() { return tabView_.get(); }                   // null without tabs
  SearchField* searchField() { return searchField_; }
  BusyIndicator* progressSpinning() { return progressSpinning_; }
  Button& squareButton() { return squareButton_; }
  S_Controller& sController() { return *sController_; }
  T_Controller& tController() { return *tController_; }
  E_Controller& eController() { return *eController_; }
  W_Controller& wController() { return *wController_; }
  R_Controller& rController() { return *rController_; }
  Q_Controller& qController() { return *qController_; }
  D_Controller& dController() { return *dController_; }
  A_Controller& aController() { return *aController_; }
  ZFWPrefController& zfwPrefController() { return *zfwPrefController_; }
  TextView& QTSrcView() { return qController_->srcView(); }
  TextView& QTDstView() { return qController_->dstView(); }
  const std::shared_ptr<Menu>& dMenu() const { return dMenu_; }
  const std::shared_ptr<Menu>& tMenu() const { return tMenu_; }
  const std::shared_ptr<Menu>& wMenu() const { return wMenu_; }
  const std::shared_ptr<Menu>& rMenu() const { return rMenu_; }
  const std::shared_ptr<Menu>& qMenu() const { return qMenu_; }

  // The host's token from now on, for events to this controller; the tabs keep that of the set-up.
  void setTarget(const void* target) { zavelParent_ = target; }
  // These may also be called before the set-up, and then take effect with it.
  // The document's translation style, a place in the style file's list (S_Controller::setDocStyle).
  void setDocStyle(int32_t style);
  // Quick translation: its panes one above the other, else side by side; its transport button hidden. The
  // set-up with a field of the host's own, in the correspondence client, settles both anew.
  void setQuickTransLayoutUpDown(bool upDown);
  void setQuickTransTransportButtonHide(bool hide);

  // Mode numbers.
  int segmentDict() const { return segmentDict_; }
  int segmentTrans() const { return segmentTrans_; }
  int segmentTexttrans() const { return segmentTexttrans_; }
  int segmentSearch() const { return segmentSearch_; }
  int segmentRss() const { return segmentRss_; }
  int segmentQuick() const { return segmentQuick_; }
  int segmentDocu() const { return segmentDocu_; }
  int segmentArch() const { return segmentArch_; }

 private:
  using ModeNumber = int ZavelLexController::*;
  using MenuOf = std::shared_ptr<Menu> ZavelLexController::*;
  using Act = void (ZavelLexController::*)(const Notification&);
  struct ModeRow;
  struct EventRow;
  static const ModeRow kModes[8];
  static const EventRow kEvents[17];
  static const ModeRow* modeRow(const std::string& identifier);

  std::optional<Value::Array> twedDictList() override { return sController_->twedDictList(); }

  // Set-up.
  void subscribe();
  void resetModes();
  int numberModes(const Modes& identifiers, int first);
  void makeTabControllers(const Rect& frame);
  void makeWindow(const Rect& frame, const Modes& segment);
  void connectField();
  void leaveField();
  // A host's field may have been given to another controller meanwhile: tells whose handler it has.
  struct Newline {
    ZavelLexController* controller;
    bool operator()() const { return controller->insertNewline(); }
  };
  void makeMenus();
  void makePreferences();
  void updateFeedsOnce();

  // Look-up.
  void lookUp(const std::string& text, const Value& row);
  void search(uint64_t lookup, const std::string& query, const Value& sender);
  void walkDictionaries(uint64_t lookup, const std::string& query, const Value& sender);
  void finishLookup(uint64_t lookup, bool found, bool bringsUpTab);
  void doOutsideApplet(int route, const SjisBytes& query, bool english);

  // Modes and events.
  int selectedSegment() const;
  bool isUp(int mode) const { return mode >= 0 && selectedSegment() == mode; }
  void show(const ModeRow& mode);
  void handle(const EventRow& event, const Notification& notification);
  bool isForThisHost(const Notification& notification) const;
  void handleDictLookup(const Notification& notification);
  void handleDropTranslation(const Notification& notification);
  void handleAutoTranslation(const Notification& notification);
  void handleEtoJTranslation(const Notification& notification);
  void handleJtoETranslation(const Notification& notification);
  void handleResultOnlyTranslation(const Notification& notification);
  void handleAutoTextTranslation(const Notification& notification);
  void handleEtoJTextTranslation(const Notification& notification);
  void handleJtoETextTranslation(const Notification& notification);
  void handleTranslationSearch(const Notification& notification);
  void handleRss(const Notification& notification);
  void handleAutoQuickTranslation(const Notification& notification);
  void handleEtoJQuickTranslation(const Notification& notification);
  void handleJtoEQuickTranslation(const Notification& notification);
  void handleDocuSearch(const Notification& notification);
  void handleExampleArchives(const Notification& notification);
  void handleSetDirection(const Notification& notification);
  void handleDropOperation(const Notification& notification);
  void handleChangedFontSize(const Notification& notification);
  void slideTabForMenu(const Notification& notification);
  void dropText(const std::string& text);

  // Menus.
  void handleChangeDict(const Notification& notification);
  void changeDict();
  void addDisplayModes(int kept);
  void addDirections(int kept, bool separated);
  void addOutsideDirections();
  void selectDictModeMenu(int tag);
  void makeTransMenu();
  void selectTransModeMenu(int tag);
  void makeSearchMenu();
  void selectSearchModeMenu(int tag);
  void changeRss();
  void selectRssModeMenu(const std::string& url);
  void giveMenu(const std::shared_ptr<Menu>& menu);
  bool isOwn(const std::shared_ptr<Menu>& menu) const;
  MenuItem::Action whileAlive(MenuItem::Action action) const;
  int checkedTag(int first, int end) const;

  const void* zavelParent_ = nullptr;
  bool begun_ = false;                     // a set-up form has been called
  bool ready_ = false;                     // it has made all that events and commands use
  std::unique_ptr<ZEFView> zavelLexView_;  // goes first, so that a host hears nothing of the end
  std::unique_ptr<SegmentedControl> modeControl_;
  std::unique_ptr<SearchField> ownField_;
  std::unique_ptr<BusyIndicator> ownProgress_;
  SearchField* searchField_ = nullptr;         // this controller's or the host's
  BusyIndicator* progressSpinning_ = nullptr;  // likewise
  Button squareButton_;
  std::unique_ptr<TabView> tabView_;
  std::shared_ptr<Menu> dMenu_, tMenu_, wMenu_, rMenu_, qMenu_;
  std::weak_ptr<Menu> givenMenu_;  // what the field was given last, one of an earlier list perhaps
  int oMenuNumber_ = 0;            // one past the last display mode tag of dMenu
  int sMenuNumber_ = 0;            // one past its last direction tag
  int segmentDict_ = 0, segmentTrans_ = 0, segmentTexttrans_ = 0, segmentSearch_ = 0;
  int segmentRss_ = 0, segmentQuick_ = 0, segmentDocu_ = 0, segmentArch_ = 0;
  int32_t docStyle_ = 0;
  bool quickTransUpDown_ = true;
  bool quickTransButtonHide_ = false;

  std::unique_ptr<ZFWPrefController> zfwPrefController_;
  std::unique_ptr<S_Controller> sController_;
  std::unique_ptr<T_Controller> tController_;
  std::unique_ptr<E_Controller> eController_;
  std::unique_ptr<W_Controller> wController_;
  std::unique_ptr<R_Controller> rController_;
  std::unique_ptr<Q_Controller> qController_;
  std::unique_ptr<D_Controller> dController_;
  std::unique_ptr<A_Controller> aController_;

  std::vector<NotificationCenter::Subscription> subscriptions_;
  std::vector<Connection> connections_;
  std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace zavel

#endif
