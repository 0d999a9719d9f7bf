// Tests: tests/engine/SerchMidasiTest.cpp, tests/engine/SerchImiTest.cpp
#include "engine/SerchFrame.h"

#include <cstring>
#include <new>

#include "engine/Index1.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

bool IsJapanese(FunctionCode code) {
  return code == kCodeSerchMidasiJ || code == kCodeSerchImiJ;
}

// Clears the result, checks the arguments and settles the sides.
Status CheckSet(const SerchCall& call, SerchSides* sides) {
  if (call.size != nullptr) *call.size = 0;
  if (call.list != nullptr) *call.list = nullptr;
  if (call.word == nullptr || call.size == nullptr || call.list == nullptr) return kBadArgument;
  if (call.dic < kSerchKihon || call.dic > kSerchBoth) return kBadArgument;
  const bool japanese = IsJapanese(call.code);
  const bool hasUser = (g_dicType & (japanese ? kDicUserJ : kDicUserE)) != 0;
  if (call.dic == kSerchUser && !hasUser) return japanese ? kNoUserJ : kNoUserE;
  sides->kihon = call.dic != kSerchUser;
  sides->user = call.dic != kSerchKihon && hasUser;
  return kOk;
}

Status OpenSet(bool japanese, SerchSides sides) try {
  const FsObj* kihon = japanese ? g_fs_Je_Dic_Kihon : g_fs_Ej_Dic_Kihon;
  if (kihon == nullptr) return kNoKihonFile;  // the engine was closed
  if (!sides.user) return kOk;
  if (!japanese) return OpenFsObjsUserE(false, true) ? kOk : kNoUserE;
  return OpenFsObjsUserJ(false, true) == kOk ? kOk : kNoUserJ;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

Status DoWork(const SerchCall& call, SerchSides sides, const SerchWork& work) try {
  std::string records;
  const Status status = work(sides, &records);
  return status == kOk ? MakeBlockList(records, call.size, call.list) : status;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

void CloseSet(bool japanese, SerchSides sides) {
  japanese ? CloseFsObjsKihonJ() : CloseFsObjsKihonE();
  if (sides.user) japanese ? CloseFsObjsUserJ() : CloseFsObjsUserE();
}

}  // namespace

Status RunSerch(const SerchCall& call, const SerchWork& work) {
  SerchSides sides;
  Status status = CheckSet(call, &sides);
  if (status != kOk) return status;
  status = CheckInMP(call.code);
  if (status != kOk) return status;
  const bool japanese = IsJapanese(call.code);
  status = OpenSet(japanese, sides);
  if (status == kOk) status = DoWork(call, sides, work);
  CloseSet(japanese, sides);
  CheckOutMP(call.code);
  return status;
}

Status FindBlock(uint16_t type, uint16_t set, const std::string& key, uint32_t* offset, bool* found) {
  const bool kihon = set == kSetKihon;
  const Status status = kihon ? GetIdxKihon(type, key, offset) : GetIdxUser(type, key, offset);
  *found = status == kOk && *offset != (kihon ? kNoBlockKihon : kNoBlockUser);
  return status;
}

uint16_t ToHiragana(char* word) {
  uint16_t type = kTypeKana;
  while (*word != '\0') {
    const uint8_t lead = static_cast<uint8_t>(*word);
    if (!_ismbblead(lead)) {
      ++word;
      continue;
    }
    if (word[1] == '\0') break;
    const unsigned code = lead * 256u + static_cast<uint8_t>(word[1]);
    if (_ismbcl1(code) || _ismbcl2(code)) type = kTypeKji;
    const unsigned kana = _mbctohira(code);
    *word++ = static_cast<char>(HIBYTE(kana));
    *word++ = static_cast<char>(LOBYTE(kana));
  }
  return type;
}

void CutTrailingBlanks(char* word) {
  size_t length = std::strlen(word);
  while (length > 0 && (word[length - 1] == ' ' || word[length - 1] == '\t')) --length;
  word[length] = '\0';
}

}  // namespace zavel::engine
