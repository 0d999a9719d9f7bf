// Tests: tests/engine/AddUserDicTest.cpp
#include "engine/WordParam.h"

#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "engine/Sikibetu.h"

namespace zavel::engine {
namespace {

Status CheckKind(const add_dic_e& entry) {
  if (entry.kind == kKindPhrase) return Chk1ByteStr(entry.phrase);
  const bool meaning = entry.kind == kKindMeaning && entry.hinsi >= 1 && entry.hinsi <= kLastHinsi;
  return meaning ? kOk : kBadArgument;
}

Status CheckTextsE(const add_dic_e& entry) {
  Status status = ChkMidasiStrE(entry.word);
  if (status == kOk) status = ChkMixStr(entry.imi);
  if (status == kOk) status = CheckKind(entry);
  return status == kOk ? ChkYurei(entry.youreiCount, entry.youreis) : status;
}

Status CheckTextsJ(const add_dic_j& entry) {
  Status status = ChkMidasiStrJ(entry.kana);
  if (status == kOk) status = ChkMidasiStrK(entry.kanji);
  if (status == kOk) status = Chk1ByteStr(entry.imi);
  if (status == kOk) status = ChkKurei(entry.kureiCount, entry.kureis);
  return status == kOk ? ChkBunrei(entry.bunreiCount, entry.bunreis) : status;
}

// Both identifications or none; the second says "no kanji" exactly for an entry without one.
Status CheckSikibetusJ(const add_dic_j& entry) {
  if (entry.sikibetuKana == nullptr && entry.sikibetuKanji == nullptr) return kOk;
  if (entry.sikibetuKana == nullptr || entry.sikibetuKanji == nullptr) return kBadArgument;
  const bool hadKanji = entry.sikibetuKanji->pos1 != kNoPosition;
  if (hadKanji != (entry.kanji != nullptr)) return kBadArgument;
  return CheckOverwirteSikibetu(entry.sikibetuKana, entry.sikibetuKanji, kTypeKana);
}

// Where `word` stands, and what is to be done there.
Status FindPlace(const char* word, uint16_t type, const sikibetu_data* sikibetu, index_info* info, Way* way) {
  info->word = word;
  const Status status = GetIdxInfo(info, type);
  if (status != kOk) return status;
  if (sikibetu != nullptr) {
    *way = kWayChange;
    return ChkSikibetu(*sikibetu, *info, type) ? kOk : kBadArgument;
  }
  *way = info->ix3Offset == kNoBlockUser ? kWayNew : kWayRemake;
  return kOk;
}

}  // namespace

Status CheckWordParamE(const add_dic_e& entry, index_info* info, add_dic_size_e* sizes, Way* way) {
  Status status = CheckTextsE(entry);
  if (status != kOk) return status;
  GetWordInfoSizeE(entry, sizes);
  if (entry.sikibetu != nullptr) status = CheckOverwirteSikibetu(entry.sikibetu, nullptr, kTypeE);
  return status == kOk ? FindPlace(entry.word, kTypeE, entry.sikibetu, info, way) : status;
}

Status CheckWordParamJ(const add_dic_j& entry, index_info* infoKana, index_info* infoKanji,
                       add_dic_size_j* sizes, Way* wayKana, Way* wayKanji) {
  Status status = CheckTextsJ(entry);
  if (status != kOk) return status;
  GetWordInfoSizeJ(entry, sizes);
  status = CheckSikibetusJ(entry);
  if (status == kOk) status = FindPlace(entry.kana, kTypeKana, entry.sikibetuKana, infoKana, wayKana);
  if (status != kOk || entry.kanji == nullptr) return status;
  return FindPlace(entry.kanji, kTypeKji, entry.sikibetuKanji, infoKanji, wayKanji);
}

}  // namespace zavel::engine
