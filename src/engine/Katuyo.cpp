// The inflection table of a word from two sources: irregular forms from katu.dic, and forms made by rule
// from the entry of the word's base form in ej.dic, which serve only the parts of speech that the irregular
// ones leave open.
// Tests: tests/engine/KatuyoTest.cpp.
#include <new>
#include <string>
#include <vector>

#include "engine/ChangeMidasi.h"
#include "engine/Frame.h"
#include "engine/KatuyoDic.h"
#include "engine/KatuyoForms.h"
#include "engine/KatuyoGenkei.h"
#include "engine/KatuyoKatati.h"
#include "engine/KatuyoMidasi.h"
#include "engine/MidasiCheck.h"
#include "engine/Shim.h"
#include "engine/Workers.h"

namespace zavel::engine {
namespace {

// The files are opened when they are read first; streams that aren't there can't be opened at all.
bool HasStreams() {
  return g_fs_Ej_Dic_Kihon != nullptr && g_fs_Ej_Ix3_Kihon != nullptr && g_fs_Ka_Dic_Kihon != nullptr &&
         g_fs_Ka_Ix3_Kihon != nullptr;
}

// The irregular records of `key`, sorted, and the parts of speech they serve.
Status MakeIrregular(const std::string& key, std::string* records, uint8_t* SetIrregularFlg) {
  std::string text;
  Status status = SrchKatuyo(key, &text);
  if (status != kOk) return status;
  *SetIrregularFlg = HinsiOfKatuyo(text);
  status = ProcessKatuyo(text, records);
  if (status != kOk) return status;
  *records = SortKatuyo(*records);
  return kOk;
}

// The forms that the rules make of the base's entries `text` go behind the irregular `records`.
void AppendRegular(const std::string& text, uint8_t SetIrregularFlg, std::string* records) {
  DicOneMidasiInfo info;
  GetOneMidasiInfo(text, &info);
  // kept: a headword of several words gives nothing, irregular forms included, see docs/quirks.md.
  if (info.syllables.find(' ') != std::string::npos) return records->clear();
  std::vector<KatuyoForm> forms;
  SetConjugeteInfo(info, SetIrregularFlg, &forms);
  OutputKatuyo(forms, SetIrregularFlg, records);
}

Status MakeKatuyo(const char* word, std::string* records) {
  if (!HasStreams()) return kNoKihonFile;
  if (ChkMidasiStrE(word) != kOk) return kBadArgument;
  const std::string key = ChangeMidasiStrE(word);
  uint8_t SetIrregularFlg = 0;
  Status status = MakeIrregular(key, records, &SetIrregularFlg);
  if (status != kOk || SetIrregularFlg == kHinsiAll) return status;
  Genkei genkei = Genkei::kNone;
  std::string text;
  status = SerchGenkei(key, !records->empty(), &genkei, &text);
  if (status != kOk) return status;
  if (genkei == Genkei::kFound) AppendRegular(text, SetIrregularFlg, records);
  // kept: a headword without anything to inflect takes the irregular forms with it, see docs/quirks.md.
  if (genkei == Genkei::kNothing) records->clear();
  return kOk;
}

Status MakeKatuyoList(const char* word, uint32_t* size, Handle* list) try {
  std::string records;
  const Status status = MakeKatuyo(word, &records);
  return status == kOk ? MakeBlockList(records, size, list) : status;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

}  // namespace

Status _GetKatuyo(const char* word, uint32_t* size, Handle* list) {
  if (size == nullptr || list == nullptr) return kBadArgument;
  *size = 0;
  *list = nullptr;
  Status status = CheckInMP(kCodeGetKatuyo);
  if (status != kOk) return status;
  status = MakeKatuyoList(word, size, list);
  CloseFsObjsKihonE();
  CheckOutMP(kCodeGetKatuyo);
  return status;
}

}  // namespace zavel::engine
