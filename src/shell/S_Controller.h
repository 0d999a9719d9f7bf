// The dictionary tab: searches one dictionary at a time into the result list, and shows the row that is
// selected.
#ifndef SHELL_S_CONTROLLER_H
#define SHELL_S_CONTROLLER_H

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "config/ZavelColor.h"
#include "foundation/Export.h"
#include "lookup/MirellModule.h"
#include "platform/SjisBytes.h"
#include "platform/Value.h"
#include "shell/LookupStatus.h"
#include "shell/ResultRow.h"
#include "ui/BusyIndicator.h"
#include "ui/Button.h"
#include "ui/ImageView.h"
#include "ui/Label.h"
#include "ui/PopUpButton.h"
#include "ui/SplitView.h"
#include "ui/TableDataSource.h"
#include "ui/TableView.h"
#include "ui/TextView.h"

namespace zavel {

class ZAVEL_API S_Controller : public TableDataSource {
 public:
  // Kind of the row that is shown.
  enum ResultType { kNoRow = 0, kMirellRow = 1, kTransRow = 2, kWordRow = 3 };

  static constexpr const char* ZFChangeSizeNotification = "zfChangeSizeNotification";

  // Columns of the result list: the row's title as text (the row itself is in hwResultArray), and the
  // localized title of its dictionary.
  static constexpr const char* kItemColumn = "itemList";
  static constexpr const char* kTitleColumn = "titleList";

  // init  Begins with the application's current style in the style file; 0 where that can't be read.
  S_Controller();
  ~S_Controller() override;
  S_Controller(const S_Controller&) = delete;
  S_Controller& operator=(const S_Controller&) = delete;

  // initialize:parentWindow:progress:
  // Lays the widgets out, takes the manager from gMirellModule and reads the book browser's preferences.
  // `progress` is borrowed, null for none; `parentWindow` is compared and never followed.
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress);

  // lookup:dictItem:english:direction:
  // One search of one dictionary; rows are added to those of the same walk. The query goes as it is to the
  // helper tool of the translation dictionary, which is waited for without a limit; the bilingual dictionary
  // takes its first 50 bytes.
  //
  // `dictItem` is a map: "dictType" is "oType" for the bilingual dictionary and "tType" for the translation
  // dictionary, any other counts as a book; "dictTitle" is the "Name" of the book; "selectStatus" is the
  // caller's to heed. `direction` counts for books: 0 forward, 1 backward, 2 full.
  //
  // An empty list ends as LookupNotFound, whatever went wrong, but for the searches that end early:
  // LookupParameterFileFailed and LookupSourceWriteFailed, which also leave the busy indicator running until
  // the next search ends, and LookupEngineFailed of a book that isn't known. A search in whose course the tab
  // is cleared adds no more rows; it gives LookupEngineFailed.
  LookupStatus lookup(const SjisBytes& query, const Value& dictItem, bool english, int direction);

  // Empties list and detail: a new look-up begins, and any that still runs comes to nothing. Gives the new
  // one's number.
  uint64_t clear();
  // The number of the look-up that began last.
  uint64_t latestLookup() const { return lookups_; }
  // Whether the tab was not cleared again since that look-up began.
  bool isLatest(uint64_t lookup) const { return lookup == lookups_; }
  // Empties list and detail, and says that there are no entries.
  void setUnfound();
  // Shows a row, whose entry is fetched anew each time; one that can't be fetched leaves the detail empty.
  // Nothing happens for a row that isn't there.
  void displaySelectedRow(size_t row);
  int nowSelectedRow() const { return hwListView_.selectedRow(); }
  // Selects the row and shows it, also when it is selected already; brings it into view unless it is the
  // first. Nothing happens for a row that isn't there.
  void setNewSelectRow(int row);

  // The filter of the bilingual dictionary, one of the kFilter values; others show as kFilterExample.
  void changeHeadView(uint8_t filter);
  uint8_t hwHeadMode() const { return hwHeadMode_; }

  // The size pop-up, by tag, which is the size in points; an unknown one changes nothing.
  void setDefaultFontSize(int tag);
  int defaultFontSize() const;
  // changeSize:  Posts ZFChangeSizeNotification with the chosen size, a number. An observer may destroy this.
  void changeSize();

  // jumpURL:  Opens the address of a link; an alert says so when it can't be opened.
  void jumpURL(const std::string& url);

  // Enables the notes button if `available` is true and the row shown has a title for a note; disables it
  // otherwise. In the medical edition the button never changes.
  void updateTool(bool available);
  // Reads the book browser's preferences anew and gives its books: maps with at least "Name". Without those
  // preferences there are no books; nullopt when there are such preferences but they can't be read.
  std::optional<Value::Array> twedDictList();
  // The document's translation style: a place in the style file's list, 0 until it is set. Look-ups of the
  // translation dictionary take the technical dictionaries of that style.
  void setDocStyle(int32_t style) { docStyle_ = style; }
  int32_t docStyle() const { return docStyle_; }

  // --- State for hosts ---

  View& mainView() { return myView_; }
  const std::vector<ResultRow>& hwResultArray() const { return hwResultArray_; }
  TableView& hwListView() { return hwListView_; }
  TextView& hwResultView() { return hwResultView_; }
  View& hwHeadView() { return hwHeadView_; }
  Label& hwHeadTitle() { return hwHeadTitle_; }
  ImageView& hwHeadImage() { return hwHeadImage_; }
  PopUpButton& hwHeadSize() { return hwHeadSize_; }
  Button& iPodOut() { return iPodOut_; }
  ResultType resultType() const { return resultType_; }
  const std::string& iPodOutTitle() const { return iPodOutTitle_; }
  bool iPodOutEnglish() const { return iPodOutEnglish_ != 0; }
  // The style that the helper tool is told, as text: that of the start; in the translation editor and the
  // browser docStyle, from the first look-up of the translation dictionary on.
  const std::string& styleNumer() const { return styleNumer_; }

  size_t rowCount() const override { return hwResultArray_.size(); }
  Value cell(size_t row, const std::string& column) const override;

 private:
  LookupStatus lookupMirell(const SjisBytes& query, bool english);
  LookupStatus lookupTrans(const SjisBytes& query, bool english, bool* finishes);
  LookupStatus lookupBook(const Value& dictItem, bool* finishes);
  LookupStatus finish(LookupStatus status);
  LookupStatus giveUp();
  bool empty();
  bool inTurn(std::initializer_list<std::function<void()>> steps);
  LookupStatus limitStatus() const;
  std::vector<std::string> toolArguments() const;

  void display(const MirellData& row);
  bool loadEntry(const MirellData& row);
  void display(const TransData& row);
  TextView::Font detailFont() const;

  void buildSizeMenu();
  void readTWEDplist();

  View myView_;
  Button iPodOut_;
  Label iPodTitle_;
  SplitView hwSplit_;
  TableView hwListView_;
  View hwDetailView_;
  View hwHeadView_;
  Label hwHeadTitle_;
  ImageView hwHeadImage_;
  PopUpButton hwHeadSize_;
  TextView hwResultView_;
  Connection selectionChanged_, sizeChosen_;

  uint8_t hwHeadMode_ = kFilterAll;
  BusyIndicator* progressSpinning_ = nullptr;  // borrowed
  Value::Array twedDictionaryArray_;
  bool twedUnread_ = false;  // the book browser's preferences are there and can't be read
  std::vector<ResultRow> hwResultArray_;
  uint64_t lookups_ = 0;                              // how often the tab was cleared
  const void* parentWindow_ = nullptr;                // compared, never followed
  MirellDictionaryManager* mirellManager_ = nullptr;  // borrowed
  std::string iPodOutTitle_;                          // empty: the shown row has none
  uint8_t iPodOutEnglish_ = 0;
  ResultType resultType_ = kNoRow;
  int32_t docStyle_ = 0;
  std::string styleNumer_;
};

// Rows that the result list may hold; 400 until the book browser's preferences say otherwise.
ZAVEL_API extern size_t referenceMaxCount;
// Tabs of this kind that are alive.
ZAVEL_API extern int gS_CallCount;
// Colours of book entries, from the book browser's preferences; nullopt for one that isn't valid there.
ZAVEL_API extern std::optional<ZavelColor> headColor, textColor, refColor;

}  // namespace zavel

#endif
