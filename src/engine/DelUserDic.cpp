// Deleting user entries: their rows go, their text stays in the .dic file until the set is arranged.
// Tests: tests/engine/DelUserDicTest.cpp
#include <functional>

#include "engine/DicFormat.h"
#include "engine/RenewIndex.h"
#include "engine/Sikibetu.h"
#include "engine/UserFrame.h"
#include "engine/Workers.h"

namespace zavel::engine {
namespace {

Status DeleteE(const sikibetu_data* sikibetu) {
  const Status status = CheckOverwirteSikibetu(sikibetu, nullptr, kTypeE);
  return status == kOk ? DeleteIdx3(kTypeE, *sikibetu) : status;
}

Status DeleteJ(const sikibetu_data* kana, const sikibetu_data* kanji) {
  Status status = CheckOverwirteSikibetu(kana, kanji, kTypeKana);
  if (status == kOk) status = DeleteIdx3(kTypeKana, *kana);
  if (status != kOk || kanji->pos1 == kNoPosition) return status;
  status = NoMemoryAsStatus([&] { return DeleteIdx3(kTypeKji, *kanji); });
  if (status == kOk) return kOk;
  index_info before = PlaceOf(*kana);
  RenewIdx1(&before, kTypeKana);
  return status;
}

}  // namespace

Status _DelUserDicE(const sikibetu_data* sikibetu) {
  const auto work = [sikibetu] { return DeleteE(sikibetu); };
  return RunUserWriter(kCodeDelUserDicE, sikibetu != nullptr, std::cref(work));
}

Status _DelUserDicJ(const sikibetu_data* kana, const sikibetu_data* kanji) {
  const auto work = [kana, kanji] { return DeleteJ(kana, kanji); };
  return RunUserWriter(kCodeDelUserDicJ, kana != nullptr && kanji != nullptr, std::cref(work));
}

}  // namespace zavel::engine
