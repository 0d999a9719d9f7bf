// Headword search: the block that the first characters lead to, the rows in it that begin with the word,
// a line for each. English lines are sorted and rid of doubles, basic Japanese lines stay in key order.
// Tests: tests/engine/SerchMidasiTest.cpp
#include <algorithm>
#include <functional>

#include "engine/ChangeMidasi.h"
#include "engine/Entry.h"
#include "engine/LineStore.h"
#include "engine/MidasiCheck.h"
#include "engine/MidasiOrder.h"
#include "engine/SerchFrame.h"
#include "engine/Workers.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// The `mode` argument of SerchMidasiE.
constexpr uint8_t kModeAll = 0;
constexpr uint8_t kModeThreeStars = 1;
constexpr uint8_t kModeTwoStars = 2;

bool PassesMode(std::string_view line, uint8_t mode) {
  const bool three = line.starts_with("***");
  return mode == kModeThreeStars ? three : line.starts_with("**") && !three;
}

// The lines of one side in row order, of at most fifty rows; none when the side has no such word.
Status ListSide(uint16_t type, uint16_t set, const std::string& key, uint8_t mode, LineStore* store,
                MidasiLines* lines) {
  uint32_t offset = 0;
  bool found = false;
  Status status = FindBlock(type, set, key, &offset, &found);
  if (status != kOk || !found) return status;
  Ix3Rows rows;
  status = GetIndex3(type, set, key, offset, &rows);
  if (status != kOk) return status;
  rows.offsets.resize(std::min<size_t>(rows.offsets.size(), kMaxRows));
  status = GetIndexWords(type, rows.offsets, set, store, lines);
  if (mode != kModeAll)
    std::erase_if(*lines, [mode](std::string_view line) { return !PassesMode(line, mode); });
  return status;
}

std::string ToRecords(const MidasiLines& lines) {
  size_t size = 0;
  for (const std::string_view line : lines) size += line.size() + 3;
  std::string records(size, '\0');
  char* next = records.data();
  for (const std::string_view line : lines) {
    writeLE16(reinterpret_cast<uint8_t*>(next), static_cast<uint16_t>(line.size() + 1));
    line.copy(next + 2, line.size());
    next += line.size() + 3;
  }
  return records;
}

Status ListMidasiE(const char* word, uint8_t mode, SerchSides sides, std::string* records) {
  if (ChkMidasiStrE(word) != kOk || mode > kModeTwoStars) return kBadArgument;
  if (mode != kModeAll && !sides.kihon) return kBadArgument;
  sides.user = sides.user && mode == kModeAll;  // stars are marks of the basic dictionary
  const std::string key = ChangeMidasiStrE(word);
  LineStore store;
  MidasiLines kihon;
  MidasiLines user;
  Status status = sides.kihon ? ListSide(kTypeE, kSetKihon, key, mode, &store, &kihon) : kOk;
  if (status == kOk && sides.user) status = ListSide(kTypeE, kSetUser, key, mode, &store, &user);
  SortMidasiE(&kihon);
  SortMidasiE(&user);
  *records = ToRecords(user.empty() ? kihon : IncludingUser(kihon, user));
  return status;
}

Status ListMidasiJ(char* word, SerchSides sides, std::string* records) {
  // kept: changed before the check, so also with kBadArgument (docs/quirks.md)
  const uint16_t type = ToHiragana(word);
  if ((type == kTypeKji ? ChkMidasiStrK(word) : ChkMidasiStrJ(word)) != kOk) return kBadArgument;
  std::string key;
  Status status = ChangeMidasi(word, type, &key);
  LineStore store;
  MidasiLines kihon;
  MidasiLines user;
  if (status == kOk && sides.kihon) status = ListSide(type, kSetKihon, key, kModeAll, &store, &kihon);
  if (status == kOk && sides.user) status = ListSide(type, kSetUser, key, kModeAll, &store, &user);
  SortMidasiJ(&user);
  *records = ToRecords(user.empty() ? kihon : IncludingUserJ(kihon, user));
  return status;
}

}  // namespace

Status _SerchMidasiE(const char* word, uint8_t mode, uint32_t* size, Handle* list, uint8_t dic) {
  const auto work = [&](SerchSides sides, std::string* records) {
    return ListMidasiE(word, mode, sides, records);
  };
  return RunSerch({kCodeSerchMidasiE, word, size, list, dic}, std::cref(work));
}

Status _SerchMidasiJ(char* word, uint32_t* size, Handle* list, uint8_t dic) {
  const auto work = [&](SerchSides sides, std::string* records) { return ListMidasiJ(word, sides, records); };
  return RunSerch({kCodeSerchMidasiJ, word, size, list, dic}, std::cref(work));
}

}  // namespace zavel::engine
