// Tests: tests/prefs/ZFWDictTabViewTest.cpp
#include "prefs/ZFWPrefController.h"

#include "platform/Bundle.h"
#include "platform/Platform.h"

namespace zavel {

ZFWPrefController::ZFWPrefController() {
  addItem(kDictPref, dictTab_.mainView());
  addItem(kTransPref, transTab_);
  addItem(kSearchPref, searchTab_);
  addItem(kRssPref, rssTab_);
  panel_.addChild(tabs_);
}

void ZFWPrefController::addItem(const std::string& identifier, View& view) {
  Bundle& bundle = platform().bundle();
  items_.push_back(
      {identifier, bundle.localized(identifier + "Tool"), bundle.localized(identifier + "ToolTip")});
  tabs_.addItem(identifier, view);
}

void ZFWPrefController::initZavelLex(Owner& owner) {
  reload(owner);
}

void ZFWPrefController::reload(Owner& owner) {
  const std::optional<Value::Array> books = owner.twedDictList();
  if (books) {
    dictTab_.loadPreferences(*books);
  } else {
    dictTab_.loadPreferences();
  }
}

void ZFWPrefController::show(const char* item) {
  tabs_.selectItem(item);
  panel_.show();
}

}  // namespace zavel
