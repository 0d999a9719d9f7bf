// Adding and overwriting user entries. The entry's text goes to the end of the .dic file, a new block to the
// end of the .ix3 file, and the index in memory is pointed at that block.
// Tests: tests/engine/AddUserDicTest.cpp
#include <functional>

#include "engine/KjiIdxGrowth.h"
#include "engine/RenewIndex.h"
#include "engine/Sikibetu.h"
#include "engine/UserFrame.h"
#include "engine/WordInfo.h"
#include "engine/WordParam.h"
#include "engine/Workers.h"

namespace zavel::engine {
namespace {

uint16_t RowOf(const sikibetu_data* sikibetu) {
  return sikibetu == nullptr ? 0 : sikibetu->ix3Index;
}

Status AddE(const add_dic_e* entry) {
  if (entry == nullptr) return kBadArgument;
  index_info info;
  add_dic_size_e sizes;
  Way way = kWayNew;
  uint32_t offset = 0;
  Status status = CheckWordParamE(*entry, &info, &sizes, &way);
  if (status == kOk) status = AddWordInfoE(*entry, sizes, &offset);
  return status == kOk ? RenewIndexE(&info, offset, way, RowOf(entry->sikibetu)) : status;
}

// Both rows or none: the kana row goes back when the kanji row can't be had.
Status RenewBoth(const add_dic_j& entry, index_info* kana, index_info* kanji, Way wayKana, Way wayKanji,
                 uint32_t offset) {
  index_info before = *kana;
  Status status = RenewIndexJ(kana, offset, wayKana, RowOf(entry.sikibetuKana));
  if (status != kOk || entry.kanji == nullptr) return status;
  status = NoMemoryAsStatus([&] { return RenewIndexK(kanji, offset, wayKanji, RowOf(entry.sikibetuKanji)); });
  if (status != kOk) RenewIdx1(&before, kTypeKana);
  return status;
}

Status AddJ(const add_dic_j* entry) {
  if (entry == nullptr) return kBadArgument;
  index_info kana;
  index_info kanji;
  add_dic_size_j sizes;
  Way wayKana = kWayNew;
  Way wayKanji = kWayNew;
  uint32_t offset = 0;
  Status status = CheckWordParamJ(*entry, &kana, &kanji, &sizes, &wayKana, &wayKanji);
  // A full kanji index is moved aside, and saved with the kana index, while neither knows of the entry: a
  // crash then finds it in both or in none.
  const bool newRow = entry->kanji != nullptr && kanji.pos1 == kNoPosition;
  if (status == kOk && newRow) status = MakeRoomForKji();
  if (status == kOk) status = AddWordInfoJ(*entry, sizes, &offset);
  return status == kOk ? RenewBoth(*entry, &kana, &kanji, wayKana, wayKanji, offset) : status;
}

}  // namespace

Status _AddUserDicE(const add_dic_e* entry) {
  const auto work = [entry] { return AddE(entry); };
  return RunUserWriter(kCodeAddUserDicE, true, std::cref(work));
}

Status _AddUserDicJ(const add_dic_j* entry) {
  const auto work = [entry] { return AddJ(entry); };
  return RunUserWriter(kCodeAddUserDicJ, true, std::cref(work));
}

}  // namespace zavel::engine
