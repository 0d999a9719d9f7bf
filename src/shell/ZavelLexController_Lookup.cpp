// The road of one look-up, from the search field to the rows. Tests: tests/shell/LookupTest.cpp
#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <variant>

#include "config/ZFWPlistKeys.h"
#include "config/ZavelCommonModule.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"
#include "shell/LookupRoute.h"
#include "shell/QueryText.h"
#include "shell/ZavelLexController.h"

namespace zavel {
namespace {

bool isNumber(const Value& value) {
  return std::holds_alternative<int64_t>(value.storage()) || std::holds_alternative<double>(value.storage());
}

int rowOf(const Value& sender) {
  if (!isNumber(sender)) return 0;
  constexpr int64_t kLastRow = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp<int64_t>(sender.integer(), -1, kLastRow));
}

// kept: any other status is searched, though it doesn't count in what is selected (docs/quirks.md)
bool isSkipped(const Value& item) {
  const Value* status = item.find(ZFWSelectStatusKey);
  return status && status->string() == ZFWNoStatus;
}

// Copies: the list may change while a search runs.
Value::Array searchedItems(const Value::Array& list) {
  Value::Array items;
  std::copy_if(list.begin(), list.end(), std::back_inserter(items), std::not_fn(isSkipped));
  return items;
}

}  // namespace

// A host may look something else up whenever it hears of a change. Each look-up has a number, and one that
// isn't the latest any more comes to nothing.
void ZavelLexController::lookupButton(const Value& sender) {
  if (!ready_) return;
  const std::string text = stripQuery(searchField_->text());
  const uint64_t lookup = sController_->clear();
  if (text.empty()) return;
  std::string query = platform().encoding().toSjisLossy(text).bytes();
  ZavelCommonModule::trimInsideCheck(&query);
  if (!sController_->isLatest(lookup)) return;
  searchField_->setText(platform().encoding().fromSjisLossy(query));
  if (sController_->isLatest(lookup)) search(lookup, query, sender);
}

void ZavelLexController::search(uint64_t lookup, const std::string& query, const Value& sender) {
  const int selected = zfwPrefController_->dictTab().selectedDict();
  switch (lookupRoute(selected)) {
    case LookupRoute::kDictionaries:
      return walkDictionaries(lookup, query, sender);
    case LookupRoute::kOutside:
      doOutsideApplet(selected, TextEncoding::adoptSjis(query), isEnglishQuery(query));
      return finishLookup(lookup, false, false);
    case LookupRoute::kNowhere:
      sController_->setUnfound();
      return finishLookup(lookup, false, true);
  }
}

void ZavelLexController::walkDictionaries(uint64_t lookup, const std::string& query, const Value& sender) {
  const SjisBytes bytes = TextEncoding::adoptSjis(query);
  const bool english = isEnglishQuery(query);
  size_t successes = 0;
  for (const Value& item : searchedItems(zfwPrefController_->dictTab().dictListArray())) {
    const LookupStatus status = sController_->lookup(bytes, item, english, directionHW());
    if (!sController_->isLatest(lookup)) return;
    if (status == LookupFound || status == LookupLimitReached) ++successes;
    if (status == LookupLimitReached) break;
  }
  if (successes > 0) {
    sController_->setNewSelectRow(rowOf(sender));
  } else {
    sController_->setUnfound();
  }
  finishLookup(lookup, successes > 0, true);
}

// Hands the query to the application that the user chose in place of this system. None can be reached yet.
void ZavelLexController::doOutsideApplet(int, const SjisBytes&, bool) {}

void ZavelLexController::finishLookup(uint64_t lookup, bool found, bool bringsUpTab) {
  if (!sController_->isLatest(lookup)) return;
  if (!tabView_) {
    NotificationObject result;
    result.value = found ? kDictFound : kDictNotFound;
    NotificationCenter::shared().post(ZFDictResultNotification, result, this);
  } else if (bringsUpTab && segmentDict_ < kFirstHiddenMode) {
    tabView_->selectItem("sTab");
  }
}

void ZavelLexController::searchButton() {
  if (!ready_ || searchField_->text().empty()) return;
  wController_->setSite(urlSearch());
  wController_->searchJ(platform().encoding().toSjisLossy(searchField_->text()));
}

void ZavelLexController::doTranslate(const std::string& text, bool english) {
  if (ready_) tController_->translation(text, english ? kEtoJTranslateTag : kJtoETranslateTag);
}

}  // namespace zavel
