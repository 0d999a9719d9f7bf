// Tests: tests/engine/SikibetuTest.cpp
#include "engine/Sikibetu.h"

#include <algorithm>

#include "engine/ChangeMidasi.h"
#include "engine/Entry.h"
#include "engine/EntryFields.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// The row of table C that `sikibetu` names holds its block's offset.
bool NamesItsRow(const sikibetu_data& sikibetu, uint16_t type) {
  const uint8_t* const offset = BlockOffsetOf(IndexInfo(type, kSetUser, 0), type, sikibetu.pos3);
  return offset != nullptr && sikibetu.ix3Offset != kNoBlockUser && readLE32(offset) == sikibetu.ix3Offset;
}

// The block that `sikibetu` names is as it says.
Status CheckBlock(const sikibetu_data& sikibetu, uint16_t type) {
  Ix3Block block;
  const Status status = GetIdx3Data(sikibetu.ix3Offset, type, &block);
  if (status != kOk) return status;
  const bool same = sikibetu.ix3Count == block.count && sikibetu.ix3Size == block.size &&
                    sikibetu.ix3Index < block.count &&
                    block.view().entryOffset(sikibetu.ix3Index) == sikibetu.dicOffset;
  return same ? kOk : kBadArgument;
}

bool SameRow(const sikibetu_data& a, const sikibetu_data& b) {
  return a.fileNo == b.fileNo && a.pos1 == b.pos1 && a.pos3 == b.pos3 && a.ix3Offset == b.ix3Offset &&
         a.ix3Size == b.ix3Size && a.ix3Count == b.ix3Count && a.ix3Index == b.ix3Index &&
         a.dicOffset == b.dicOffset;
}

// `kanji` names the kanji row that the entry has, or none if it has none.
Status CheckKanji(uint32_t dicOffset, const sikibetu_data& kanji) {
  std::string text;
  index_info info;
  Status status = GetDicData(nullptr, kTypeKana, kSetUser, dicOffset, &text);
  if (status == kOk) status = GetMidasiWordK(text, &info.word);
  if (status != kOk) return status;
  sikibetu_data stored = NoSikibetu();
  if (!info.word.empty()) {
    status = FindKanjiRow(&info, dicOffset, &stored);
    if (status != kOk) return status;
    if (info.pos1 == kNoPosition || info.ix3Offset == kNoBlockUser) return kInternal;
  }
  if (stored.pos1 == kNoPosition) return kanji.pos1 == kNoPosition ? kOk : kBadArgument;
  return SameRow(kanji, stored) ? kOk : kBadArgument;
}

// The two parts of a headword field: ahead of the separator and behind it.
bool SplitMidasi(std::string_view text, std::string* kana, std::string* kanji) {
  EntryFields fields(text);
  EntryField field;
  while (fields.next(&field) && field.tag != kTagEntry) {
  }
  if (field.tag != kTagEntry) return false;
  const size_t separator = FindSeparator(field.text);
  *kana = field.text.substr(0, separator);
  *kanji = separator == std::string::npos ? std::string() : field.text.substr(separator + 1);
  return true;
}

}  // namespace

std::string PackSikibetu(const sikibetu_data& sikibetu) {
  std::string bytes;
  appendLE32(bytes, sikibetu.reserved);
  for (const uint16_t field : {sikibetu.fileNo, sikibetu.pos1, sikibetu.pos2, sikibetu.pos3}) {
    appendLE16(bytes, field);
  }
  appendLE32(bytes, sikibetu.ix3Offset);
  for (const uint16_t field : {sikibetu.ix3Size, sikibetu.ix3Count, sikibetu.ix3Index}) {
    appendLE16(bytes, field);
  }
  appendLE16(bytes, 0);
  appendLE32(bytes, sikibetu.dicOffset);
  return bytes;
}

sikibetu_data MakeSikibetu(const index_info& info, uint16_t row, uint32_t dicOffset) {
  sikibetu_data sikibetu{};
  sikibetu.fileNo = info.fileNo;
  sikibetu.pos1 = info.pos1;
  sikibetu.pos2 = info.pos2;
  sikibetu.pos3 = info.pos3;
  sikibetu.ix3Offset = info.ix3Offset;
  sikibetu.ix3Size = info.ix3Size;
  sikibetu.ix3Count = info.ix3Count;
  sikibetu.ix3Index = row;
  sikibetu.dicOffset = dicOffset;
  return sikibetu;
}

sikibetu_data NoSikibetu() {
  sikibetu_data sikibetu{};
  sikibetu.pos1 = kNoPosition;
  return sikibetu;
}

bool ChkSikibetu(const sikibetu_data& sikibetu, const index_info& info, uint16_t type) {
  if (type == kTypeKji && sikibetu.fileNo != info.fileNo) return false;
  if (type == kTypeE && sikibetu.pos2 != info.pos2) return false;
  return sikibetu.pos1 == info.pos1 && sikibetu.pos3 == info.pos3 && sikibetu.ix3Offset == info.ix3Offset &&
         sikibetu.ix3Size == info.ix3Size && sikibetu.ix3Count == info.ix3Count &&
         sikibetu.ix3Index >= info.ix3First && sikibetu.ix3Index - info.ix3First < info.ix3Matches;
}

Status CheckOverwirteSikibetu(const sikibetu_data* kana, const sikibetu_data* kanji, uint16_t type) {
  if (type != kTypeE && type != kTypeKana) return kBadArgument;
  if (kana == nullptr || kana->pos1 == kNoPosition) return kBadArgument;
  if (type == kTypeKana && kanji == nullptr) return kBadArgument;
  if (!NamesItsRow(*kana, type)) return kBadArgument;
  const Status status = CheckBlock(*kana, type);
  if (status != kOk || type == kTypeE) return status;
  return CheckKanji(kana->dicOffset, *kanji);
}

Status GetCompleteDicOfset(const std::string& key, uint32_t offset, std::vector<uint32_t>* offsets) {
  offsets->clear();
  Ix3Block block;
  const Status status = GetIdx3Data(offset, kTypeKji, &block);
  if (status != kOk) return status;
  uint16_t first = 0;
  uint16_t matches = 0;
  const Ix3View view = block.view();
  GetIdx3(view, KeyRemainder(key, kTypeKji), &first, &matches);
  for (uint16_t row = 0; row < matches; ++row) offsets->push_back(view.entryOffset(first + row));
  return kOk;
}

Status FindKanjiRow(index_info* info, uint32_t dicOffset, sikibetu_data* sikibetu) {
  *sikibetu = NoSikibetu();
  Status status = GetIdxInfo(info, kTypeKji);
  if (status != kOk || info->pos1 == kNoPosition || info->ix3Offset == kNoBlockUser) return status;
  std::vector<uint32_t> offsets;
  status = GetCompleteDicOfset(info->word, info->ix3Offset, &offsets);
  const auto found = std::find(offsets.begin(), offsets.end(), dicOffset);
  if (status != kOk || found == offsets.end()) return status;
  const auto row = static_cast<uint16_t>(info->ix3First + (found - offsets.begin()));
  *sikibetu = MakeSikibetu(*info, row, dicOffset);
  return kOk;
}

bool GetMidasiWord(std::string_view text, std::string* word, size_t* size) {
  std::string kanji;
  if (!SplitMidasi(text, word, &kanji)) return false;
  *size = word->size() + 1;
  return true;
}

Status GetMidasiWordK(std::string_view text, std::string* key) {
  key->clear();
  std::string kana;
  std::string kanji;
  if (!SplitMidasi(text, &kana, &kanji) || kanji.empty()) return kOk;
  return ChangeMidasiStrJ(kanji, true, key);
}

}  // namespace zavel::engine
