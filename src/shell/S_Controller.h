// The dictionary tab: searches one dictionary at a time into the result list, and shows the row that is
// selected.
#ifndef SHELL_S_CONTROLLER_H
#define SHELL_S_CONTROLLER_H

#include <cstdint>
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

  // Columns of the result list: the row's title, and the title of its dictionary.
  static constexpr const char* kItemColumn = "itemList";
  static constexpr const char* kTitleColumn = "titleList";

  // init  Reads the current style number of the application.
  S_Controller();
  ~S_Controller() override;
  S_Controller(const S_Controller&) = delete;
  S_Controller& operator=(const S_Controller&) = delete;

  // initialize:parentWindow:progress:
  // Lays the widgets out, takes the manager from gMirellModule and reads the book browser's preferences.
  // `progress` is borrowed, null for none; `parentWindow` is compared and never followed.
  void initialize(const Rect& frame, const void* parentWindow, BusyIndicator* progress);

  // lookup:dictItem:english:direction:
  // One search of one dictionary; rows are added to those of the same walk. `direction` counts for books: 0
  // forward, 1 backward, 2 full.
  LookupStatus lookup(const SjisBytes& query, const Value& dictItem, bool english, int direction);

  // Empties list and detail.
  void clear();
  // The same, and says that there are no entries.
  void setUnfound();
  // Shows a row, made anew each time; nothing happens for one that isn't there. An entry that can't be had
  // leaves the detail empty.
  void displaySelectedRow(size_t row);
  int nowSelectedRow() const { return hwListView_.selectedRow(); }
  // Selects the row, and shows it, where there is one, be it the selected one; brings it into view unless it
  // is the first.
  void setNewSelectRow(int row);

  // The filter of the bilingual dictionary, one of the kFilter values; others show as kFilterExample.
  void changeHeadView(uint8_t filter);
  uint8_t hwHeadMode() const { return hwHeadMode_; }

  // The size pop-up, by tag, which is the size in points; an unknown one changes nothing.
  void setDefaultFontSize(int tag);
  int defaultFontSize() const;
  void changeSize();

  // jumpURL:  Has the address of a link opened; says so in an alert when nothing would open it.
  void jumpURL(const std::string& url);

  // Makes the notes button usable, with `available`, where the row shown has a title for a note; unusable
  // otherwise. In the medical edition the button never changes.
  void updateTool(bool available);
  // Reads the book browser's preferences anew and gives its books: maps with at least "Name".
  Value::Array twedDictList();
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
  const std::string& styleNumer() const { return styleNumer_; }

  size_t rowCount() const override { return hwResultArray_.size(); }
  Value cell(size_t row, const std::string& column) const override;

 private:
  LookupStatus lookupMirell(const SjisBytes& query, bool english);
  LookupStatus lookupTrans(const SjisBytes& query, bool english, bool* finishes);
  LookupStatus lookupBook(const Value& dictItem, bool* finishes);
  LookupStatus finish(LookupStatus status);
  LookupStatus limitStatus() const;
  std::vector<std::string> toolArguments() const;

  void display(const MirellData& row);
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
  std::vector<ResultRow> hwResultArray_;
  const void* parentWindow_ = nullptr;                // compared, never followed
  MirellDictionaryManager* mirellManager_ = nullptr;  // borrowed
  std::string iPodOutTitle_;                          // empty: the shown row has none
  uint8_t iPodOutEnglish_ = 0;
  ResultType resultType_ = kNoRow;
  int32_t docStyle_ = 0;
  std::string styleNumer_;  // docStyle as text
};

// Rows that the result list may hold; 400 until the book browser's preferences say otherwise.
ZAVEL_API extern size_t referenceMaxCount;
// Tabs of this kind that are alive.
ZAVEL_API extern int gS_CallCount;
// Colours of book entries, from the book browser's preferences; none for one that those give wrongly.
ZAVEL_API extern std::optional<ZavelColor> headColor, textColor, refColor;

}  // namespace zavel

#endif
