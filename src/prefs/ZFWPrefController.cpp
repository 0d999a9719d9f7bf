// Tests: tests/prefs/ZFWDictTabViewTest.cpp
#include "prefs/ZFWPrefController.h"

#include "platform/Bundle.h"
#include "platform/Platform.h"

namespace zavel {

ZFWPrefController::ZFWPrefController() : selectedItem_(kDictPref) {
  Bundle& bundle = platform().bundle();
  for (const std::string identifier : {kDictPref, kTransPref, kSearchPref, kRssPref}) {
    items_.push_back(
        {identifier, bundle.localized(identifier + "Tool"), bundle.localized(identifier + "ToolTip")});
  }
  panel_.addChild(dictTab_.mainView());
}

void ZFWPrefController::initZavelLex(Owner& owner) {
  reload(owner);
}

void ZFWPrefController::show(const char* item) {
  selectedItem_ = item;
  panel_.show();
}

}  // namespace zavel
