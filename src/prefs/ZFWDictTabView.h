// The dictionary tab of the preferences: the list of dictionaries in the order of the search, which of them
// are searched, and whether this system searches them at all.
#ifndef PREFS_ZFWDICTTABVIEW_H
#define PREFS_ZFWDICTTABVIEW_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "config/ZFWPlistKeys.h"
#include "platform/Value.h"
#include "ui/RadioGroup.h"
#include "ui/TableDataSource.h"
#include "ui/TableView.h"

namespace zavel {

// The applet choice: who searches.
inline constexpr int64_t kAppletSystem = 0;          // this system, its list
inline constexpr int64_t kAppletOutsideBrowser = 3;  // the outside book browser

// Bits of selectedDict, and the values that stand for another route.
inline constexpr int kSelectedMirell = 1;
inline constexpr int kSelectedBook = 2;
inline constexpr int kSelectedTrans = 4;
inline constexpr int kSelectedOutside = 16;  // the dispatcher knows it; the list never gives it
inline constexpr int kSelectedOutsideBrowser = 64;

// A dictionary item is a map of three strings: ZFWDictTypeKey, ZFWDictTitleKey, ZFWSelectStatusKey. Changes
// by the user are stored at once and posted as ZFChangeDictNotification.
class ZAVEL_API ZFWDictTabView : public TableDataSource {
 public:
  static constexpr const char* ZFChangeDictNotification = "zfChangeDictNotification";

  // Columns of the list: the title, and whether the dictionary is searched (a boolean).
  static constexpr const char* kTitleColumn = ZFWDictTitleKey;
  static constexpr const char* kStatusColumn = ZFWSelectStatusKey;

  // The type under which a host drags a row of the list; what it lets go goes to the list's moveRow.
  static constexpr const char* dictDDPboardType = "dictDDPboardType";

  ZFWDictTabView();
  ~ZFWDictTabView() override;
  ZFWDictTabView(const ZFWDictTabView&) = delete;
  ZFWDictTabView& operator=(const ZFWDictTabView&) = delete;

  // Stands for this tab as the sender of its notifications.
  const void* identity() const { return this; }

  View& mainView() { return view_; }
  TableView& dictListView() { return table_; }
  RadioGroup& appletChoice() { return choice_; }

  // loadPreferences:  Reads what is stored, adds the dictionaries that are there and not listed yet, takes
  // away listed books that are gone, and stores the outcome. `books`: maps with at least a "Name". Where the
  // store can't be read the tab begins as at a first start, and stores nothing over what it could not read.
  void loadPreferences(const Value::Array& books);
  // The same where it isn't known which books there are: those that are listed stay.
  void loadPreferences();

  // Takes list and choice from the store, where somebody else changed them; keeps its own where that can't be
  // read.
  void takeStored();

  // The items, in the order of the search.
  const Value::Array& dictListArray() const { return dictListArray_; }

  // What is searched: kSelectedOutsideBrowser; 0 when nobody searches; else bits over the items whose status
  // is "YES". An item with a status of neither kind adds nothing.
  int selectedDict() const;

  void setApplet(int64_t applet);
  int64_t getApplet() const { return applet_; }

  // Steps of loadPreferences, also for themselves. The store is gZFWPlist; without one nothing is read or
  // stored. A save is false when nothing was stored, as always between a load that could not read its item
  // and the next one, or takeStored, that can.
  void loadTWED();
  bool saveTWED() const;
  void loadApplet();
  bool saveApplet() const;
  void appendMirellDict();
  void appendTransDict();
  void appendTWEDplist(const Value::Array& books);

  // The user's changes, for hosts that don't go through the table. False for an item that isn't there, or
  // when it could not be stored; the list has changed nevertheless.
  bool setSelected(size_t item, bool selected);
  bool moveItem(size_t from, size_t to);

  size_t rowCount() const override { return dictListArray_.size(); }
  Value cell(size_t row, const std::string& column) const override;
  bool setCell(size_t row, const std::string& column, const Value& value) override;
  bool moveRow(size_t from, size_t to) override;

 private:
  // False when the store can't be read. What isn't there leaves `value` null, and so does a missing store.
  static bool readStored(const char* item, Value* value);
  static bool save(const char* item, const Value& value, bool unread);
  void loadAll();
  void saveAll();
  void takeItems(const Value& items);
  bool hasType(const char* type) const;
  void append(const char* type, const std::string& title, const char* status);
  bool userChanged();
  void chooseApplet();

  View view_;
  TableView table_;
  RadioGroup choice_;
  Connection chosen_;
  Value::Array dictListArray_;
  int64_t applet_ = kAppletSystem;
  bool listUnread_ = false;  // what is stored could not be read at the load, and is not written over
  bool appletUnread_ = false;
  std::shared_ptr<const bool> alive_ =
      std::make_shared<const bool>(true);  // watched by what may destroy this
};

}  // namespace zavel

#endif
