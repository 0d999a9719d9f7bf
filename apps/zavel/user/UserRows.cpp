// Tests: tests/zavel/user/UserStoreTest.cpp
#include "user/UserRows.h"

#include <algorithm>
#include <functional>
#include <set>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/IdxInfo.h"
#include "engine/Index3.h"
#include "engine/Sikibetu.h"
#include "engine/UserEntry.h"
#include "engine/UserFrame.h"
#include "user/FiledWord.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

using namespace engine;

// The rows of one key, as their block has them.
struct Rows {
  index_info place;
  std::vector<uint32_t> entries;  // offsets
};

Status readRows(uint16_t type, const std::string& word, Rows* rows) {
  rows->place.word = word;
  Status status = GetIdxInfo(&rows->place, type);
  if (status != kOk || rows->place.ix3Offset == kNoBlockUser) return status;
  std::vector<uint32_t> all;
  status = GetDicOfset(type, kSetUser, rows->place.ix3Offset, &all);
  const size_t first = rows->place.ix3First, end = first + rows->place.ix3Matches;
  if (status != kOk || rows->place.ix3Matches == 0) return status;
  if (end > all.size()) return kInternal;
  rows->entries.assign(all.begin() + first, all.begin() + end);
  return kOk;
}

uint16_t typeOf(UserLanguage language) {
  return language == UserLanguage::kEnglish ? kTypeE : kTypeKana;
}

// One engine call.
template <typename Work>
uint16_t runReader(UserLanguage language, const Work& work) {
  const bool english = language == UserLanguage::kEnglish;
  return RunUserReader(english ? kCodeSerchUserDicE : kCodeSerchUserDicJ, true, std::cref(work));
}

Status appendEntry(UserLanguage language, const Rows& rows, uint16_t row, std::string* list) {
  std::string text;
  Status status = GetDicData(nullptr, typeOf(language), kSetUser, rows.entries[row], &text);
  if (status != kOk) return status;
  if (language == UserLanguage::kEnglish) {
    UserEntryE entry;
    status = GetOutputDataE(text, rows.place, row, &entry);
    if (status == kOk) OutputDataE(entry, list);
    return status;
  }
  UserEntryJ entry;
  status = GetOutputDataJ(text, rows.place, row, &entry);
  if (status == kOk) OutputDataJ(entry, list);
  return status;
}

// Entries of one key are found together: one reading is enough.
Status takeReading(uint32_t entry, std::set<std::string>* keys, std::vector<std::string>* readings) {
  std::string text, reading, key;
  size_t size = 0;
  Status status = GetDicData(nullptr, kTypeKana, kSetUser, entry, &text);
  if (status == kOk && !GetMidasiWord(text, &reading, &size)) status = kInternal;
  if (status == kOk) status = ChangeMidasi(reading, kTypeKana, &key);
  if (status == kOk && keys->insert(key).second) readings->push_back(reading);
  return status;
}

}  // namespace

uint16_t serialEntriesOf(UserLanguage language, const std::string& word, std::string* list, uint16_t* count) {
  list->clear();
  *count = 0;
  return runReader(language, [&] {
    Rows rows;
    Status status = readRows(typeOf(language), word, &rows);
    for (; status == kOk && *count < rows.entries.size(); ++*count)
      status = appendEntry(language, rows, *count, list);
    return status;
  });
}

uint16_t readingsOf(const std::string& written, std::vector<std::string>* readings) {
  readings->clear();
  return runReader(UserLanguage::kJapanese, [&] {
    Rows rows;
    std::set<std::string> keys;
    Status status = readRows(kTypeKji, written, &rows);
    for (size_t i = 0; status == kOk && i < rows.entries.size(); ++i)
      status = takeReading(rows.entries[i], &keys, readings);
    std::sort(readings->begin(), readings->end());
    return status;
  });
}

uint16_t findPlace(StoredEntry* stored) {
  const UserEntry filed = asFiled(stored->entry);
  const uint16_t type = typeOf(filed.language);
  return runReader(filed.language, [&]() -> Status {
    Rows rows;
    Status status = readRows(type, storedText(filed.word), &rows);
    if (status != kOk) return status;
    const auto row = std::find(rows.entries.begin(), rows.entries.end(), stored->place.dicOffset);
    if (row == rows.entries.end()) return kBadArgument;
    const auto number = static_cast<uint16_t>(rows.place.ix3First + (row - rows.entries.begin()));
    stored->place = MakeSikibetu(rows.place, number, *row);
    if (filed.kanji.empty()) return kOk;
    index_info kanji;
    kanji.word = storedText(filed.kanji);
    return FindKanjiRow(&kanji, *row, &stored->kanji);
  });
}

}  // namespace zavel::host
