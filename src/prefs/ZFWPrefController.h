// The preference panel: one tab for each area of settings.
#ifndef PREFS_ZFWPREFCONTROLLER_H
#define PREFS_ZFWPREFCONTROLLER_H

#include <optional>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "prefs/ZFWDictTabView.h"
#include "ui/Panel.h"
#include "ui/TabView.h"

namespace zavel {

class ZAVEL_API ZFWPrefController {
 public:
  // Whoever makes the panel tells it what is installed.
  class Owner {
   public:
    virtual ~Owner() = default;
    // The known books, maps with at least "Name"; nothing where it can't be told which there are.
    virtual std::optional<Value::Array> twedDictList() = 0;
  };

  // A tab of the panel.
  struct Item {
    std::string identifier;
    std::string label;
    std::string tooltip;
  };

  ZFWPrefController();

  // initZavelLex:  Loads the preferences. `owner` is asked only here and in reload().
  void initZavelLex(Owner& owner);

  // Loads the preferences anew.
  void reload(Owner& owner);

  ZFWDictTabView& dictTab() { return dictTab_; }
  const ZFWDictTabView& dictTab() const { return dictTab_; }

  const Panel& panel() const { return panel_; }
  Panel& panel() { return panel_; }
  // In the panel's order: dictionaries, translation, web search, feeds.
  const std::vector<Item>& items() const { return items_; }
  // The panel's tabs, by the identifiers of the items. Controls of a tab that isn't up take no events.
  TabView& tabView() { return tabs_; }
  // Identifier of the tab that is up.
  const std::string& selectedItem() const { return tabs_.selectedIdentifier(); }

  void showDictPanel() { show(kDictPref); }
  void showRssPanel() { show(kRssPref); }
  void hide() { panel_.close(); }

  static constexpr const char* kDictPref = "ZFWDictPref";
  static constexpr const char* kTransPref = "ZFWTransPref";
  static constexpr const char* kSearchPref = "ZFWSearchPref";
  static constexpr const char* kRssPref = "ZFWRssPref";

 private:
  void addItem(const std::string& identifier, View& view);
  void show(const char* item);

  Panel panel_;
  TabView tabs_;
  ZFWDictTabView dictTab_;
  View transTab_;  // these three are the host's to fill
  View searchTab_;
  View rssTab_;
  std::vector<Item> items_;
};

}  // namespace zavel

#endif
