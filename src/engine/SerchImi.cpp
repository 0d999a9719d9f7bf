// Meaning search: the entries whose key is exactly the word's. English words missing in the main index are
// looked for among the derived words, and what entries say about another spelling is followed.
// Tests: tests/engine/SerchImiTest.cpp
#include <algorithm>
#include <functional>

#include "engine/Beiei.h"
#include "engine/ChangeMidasi.h"
#include "engine/Entry.h"
#include "engine/ImiFilter.h"
#include "engine/MidasiCheck.h"
#include "engine/SerchFrame.h"
#include "engine/Workers.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr size_t kRecordHead = 4;  // u32 length

// The entry offsets of exactly `key` in one set.
Status FindEntries(uint16_t type, uint16_t set, const std::string& key, std::vector<uint32_t>* offsets) {
  uint32_t block = 0;
  bool found = false;
  Status status = FindBlock(type, set, key, &block, &found);
  if (status != kOk || !found) return status;
  Ix3Rows rows;
  status = GetDicOffImi(type, set, key, block, &rows);
  *offsets = std::move(rows.offsets);
  return status;
}

// Appends the entries at `offsets`; with a `midasi` only those that yield exactly this line.
Status GatherEntries(const char* midasi, uint16_t type, uint16_t set, const std::vector<uint32_t>& offsets,
                     std::string* text) {
  for (const uint32_t offset : offsets) {
    const Status status = GetDicData(midasi, type, set, offset, text);
    if (status != kOk && status != kOtherMidasi) return status;
    if (text->size() > kMaxGathered) return kNoMemory;
  }
  return kOk;
}

// One side of a search without derived words and other spellings.
Status GatherSide(const char* midasi, uint16_t type, uint16_t set, const std::string& key,
                  std::string* text) {
  std::vector<uint32_t> offsets;
  const Status status = FindEntries(type, set, key, &offsets);
  return status == kOk ? GatherEntries(midasi, type, set, offsets, text) : status;
}

Status GatherKihonE(const char* midasi, const std::string& key, std::string* text) {
  std::vector<uint32_t> offsets;
  Status status = FindEntries(kTypeE, kSetKihon, key, &offsets);
  if (status == kOk && offsets.empty()) status = SrchHasei(key, &offsets);
  if (status == kOk) status = GatherEntries(midasi, kTypeE, kSetKihon, offsets, text);
  if (status != kOk) return status;
  return SrchBeieiImi(FindBeiei(*text), text);
}

using Filter = void (*)(uint8_t filter, std::string* block);

// Appends one entry as a record. What the filter leaves empty is dropped.
void AppendRecord(std::string_view entry, uint8_t filter, Filter reduce, std::string* records) {
  std::string reduced;
  if (filter != kFilterNone) {
    reduced = entry;
    reduce(filter, &reduced);
    entry = reduced;
  }
  if (entry.empty()) return;
  appendLE32(*records, static_cast<uint32_t>(entry.size()));
  records->append(entry);
}

// Splits gathered text by entry into records of the block list.
std::string ToRecords(std::string_view text, uint8_t filter, Filter reduce) {
  std::string records;
  records.reserve(text.size() + kRecordHead);  // enough for the usual single entry
  for (size_t start = FindEntryTag(text, 0); start < text.size();) {
    const size_t end = std::min(FindEntryTag(text, start + 2), text.size());
    AppendRecord(text.substr(start, end - start), filter, reduce, &records);
    start = end;
  }
  return records;
}

Status LookUpImiE(char* word, const char* midasi, uint8_t filter, SerchSides sides, std::string* records) {
  if (ChkMidasiStrE(word) != kOk || !IsImiFilter(filter)) return kBadArgument;
  const std::string key = ChangeMidasiStrE(word);
  CutTrailingBlanks(word);
  std::string text;
  Status status = sides.kihon ? GatherKihonE(midasi, key, &text) : kOk;
  if (status == kOk && sides.user) status = GatherSide(midasi, kTypeE, kSetUser, key, &text);
  *records = ToRecords(text, filter, ImiFilter);
  return status;
}

Status LookUpImiJ(char* word, const char* midasi, uint8_t filter, SerchSides sides, std::string* records) {
  CutTrailingBlanks(word);  // ahead of the check, which knows no blanks
  const uint16_t type = ToHiragana(word);
  if ((type == kTypeKji ? ChkMidasiStrK(word) : ChkMidasiStrJ(word)) != kOk) return kBadArgument;
  if (!IsImiFilter(filter)) return kBadArgument;
  std::string key;
  std::string text;
  Status status = ChangeMidasi(word, type, &key);
  if (status == kOk && sides.kihon) status = GatherSide(midasi, type, kSetKihon, key, &text);
  if (status == kOk && sides.user) status = GatherSide(midasi, type, kSetUser, key, &text);
  *records = ToRecords(text, filter, ImiFilterJ);
  return status;
}

}  // namespace

Status _SerchImiE(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list, uint8_t dic) {
  const auto work = [&](SerchSides sides, std::string* records) {
    return LookUpImiE(word, midasi, filter, sides, records);
  };
  return RunSerch({kCodeSerchImiE, word, size, list, dic}, std::cref(work));
}

Status _SerchImiJ(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list, uint8_t dic) {
  const auto work = [&](SerchSides sides, std::string* records) {
    return LookUpImiJ(word, midasi, filter, sides, records);
  };
  return RunSerch({kCodeSerchImiJ, word, size, list, dic}, std::cref(work));
}

}  // namespace zavel::engine
