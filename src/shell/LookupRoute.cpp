// Tests: tests/shell/LookupRouteTest.cpp
#include "shell/LookupRoute.h"

#include "prefs/ZFWDictTabView.h"

namespace zavel {

LookupRoute lookupRoute(int selectedDict) {
  constexpr int kSearchedHere = kSelectedMirell | kSelectedBook | kSelectedTrans;
  if ((selectedDict & kSearchedHere) != 0) return LookupRoute::kDictionaries;
  const bool outside = selectedDict == kSelectedOutside || selectedDict == kSelectedOutsideBrowser;
  return outside ? LookupRoute::kOutside : LookupRoute::kNowhere;
}

}  // namespace zavel
