// The road of one look-up, from the search field to the rows. Tests: tests/shell/LookupTest.cpp
#include <algorithm>
#include <limits>
#include <variant>

#include "config/ZFWPlistKeys.h"
#include "config/ZavelCommonModule.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"
#include "shell/QueryText.h"
#include "shell/ZavelLexController.h"

namespace zavel {
namespace {

constexpr int kSearchedHere = kSelectedMirell | kSelectedBook | kSelectedTrans;

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

}  // namespace

// The query as Shift_JIS bytes, control characters as blanks; the field shows what is searched. Empty:
// nothing is.
std::string ZavelLexController::queryInField() {
  const std::string text = stripQuery(searchField_->text());
  if (text.empty()) return std::string();
  std::string bytes = platform().encoding().toSjisLossy(text).bytes();
  ZavelCommonModule::trimInsideCheck(&bytes);
  searchField_->setText(platform().encoding().fromSjisLossy(bytes));
  return bytes;
}

void ZavelLexController::lookupButton(const Value& sender) {
  if (!ready_) return;
  sController_->clear();
  const std::string query = queryInField();
  if (query.empty()) return;
  const int selected = zfwPrefController_->dictTab().selectedDict();
  if ((selected & kSearchedHere) != 0) {
    walkDictionaries(query, sender);
  } else if (selected == kSelectedOutside || selected == kSelectedOutsideBrowser) {
    doOutsideApplet(selected, TextEncoding::adoptSjis(query), isEnglishQuery(query));
    finishLookup(false, false);
  } else {
    sController_->setUnfound();
    finishLookup(false, true);
  }
}

void ZavelLexController::walkDictionaries(const std::string& query, const Value& sender) {
  const SjisBytes bytes = TextEncoding::adoptSjis(query);
  const bool english = isEnglishQuery(query);
  // A copy: the list may change while a search runs.
  const Value::Array dictionaries = zfwPrefController_->dictTab().dictListArray();
  size_t successes = 0;
  for (const Value& item : dictionaries) {
    if (isSkipped(item)) continue;
    const LookupStatus status = sController_->lookup(bytes, item, english, directionHW());
    if (status == LookupFound || status == LookupLimitReached) ++successes;
    if (status == LookupLimitReached) break;
  }
  if (successes > 0) {
    sController_->setNewSelectRow(rowOf(sender));
  } else {
    sController_->setUnfound();
  }
  finishLookup(successes > 0, true);
}

// Hands the query to the application that the user chose in place of this system. None is within reach yet.
void ZavelLexController::doOutsideApplet(int, const SjisBytes&, bool) {}

void ZavelLexController::finishLookup(bool found, bool bringsUpTab) {
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
