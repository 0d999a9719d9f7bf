// Searching user entries for an editor: structured, each with its identification.
// Tests: tests/engine/SerchUserDicTest.cpp
#include <functional>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/MidasiCheck.h"
#include "engine/Shim.h"
#include "engine/UserEntry.h"
#include "engine/UserFrame.h"
#include "engine/UserImi.h"
#include "engine/Workers.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// One search as its exported function was given it.
struct UserSerch {
  const char* word;
  const char* midasi;
  uint16_t* count;
  Handle* list;
};

// True when the line that a list shows for the entry at `dicOffset` is the one asked for.
Status IsAskedFor(const char* midasi, uint16_t type, uint32_t dicOffset, bool* asked) {
  *asked = true;
  if (midasi == nullptr) return kOk;
  std::string line;
  bool readable = false;
  const Status status = GetIndexWord(type, dicOffset, kSetUser, &line, &readable);
  *asked = readable && line == midasi;
  return status;
}

Status AppendE(std::string_view text, const index_info& info, uint16_t row, const char* midasi,
               std::string* list, uint16_t* count) {
  UserEntryE entry;
  bool asked = false;
  Status status = GetOutputDataE(text, info, row, &entry);
  if (status == kOk) status = IsAskedFor(midasi, kTypeE, entry.sikibetu.dicOffset, &asked);
  if (status != kOk || !asked) return status;
  OutputDataE(entry, list);
  ++*count;
  return kOk;
}

Status AppendJ(std::string_view text, const index_info& info, uint16_t row, const char* midasi,
               std::string* list, uint16_t* count) {
  UserEntryJ entry;
  bool asked = false;
  Status status = GetOutputDataJ(text, info, row, &entry);
  if (status == kOk) status = IsAskedFor(midasi, kTypeKana, entry.sikibetuKana.dicOffset, &asked);
  if (status != kOk || !asked) return status;
  OutputDataJ(entry, list);
  ++*count;
  return kOk;
}

using AppendEntry = Status (*)(std::string_view text, const index_info& info, uint16_t row,
                               const char* midasi, std::string* list, uint16_t* count);

// Takes entry after entry from a block of u32 lengths and texts. kInternal for one that runs over its end.
Status AppendEach(std::string_view block, uint16_t entries, const index_info& info, const char* midasi,
                  AppendEntry append, std::string* list, uint16_t* count) {
  for (uint16_t row = 0; row < entries; ++row) {
    if (block.size() < 4) return kInternal;
    const uint32_t length = readLE32(reinterpret_cast<const uint8_t*>(block.data()));
    block.remove_prefix(4);
    if (length > block.size()) return kInternal;
    const Status status = append(block.substr(0, length), info, row, midasi, list, count);
    if (status != kOk) return status;
    block.remove_prefix(length);
  }
  return kOk;
}

Status SearchKey(const UserSerch& serch, uint16_t type, AppendEntry append) {
  std::string key;
  std::string block;
  std::string list;
  index_info info;
  uint16_t entries = 0;
  uint16_t count = 0;
  uint32_t size = 0;
  Status status = ChangeMidasi(serch.word, type, &key);
  if (status == kOk) status = SrchUserImi(type, key, &info, &block, &entries);
  if (status == kOk) status = AppendEach(block, entries, info, serch.midasi, append, &list, &count);
  if (status == kOk) status = MakeBlockList(list, &size, serch.list);
  if (status == kOk) *serch.count = count;
  return status;
}

// Clears the result; false when it, or the word, is not there.
bool Begin(const UserSerch& serch) {
  if (serch.count != nullptr) *serch.count = 0;
  if (serch.list != nullptr) *serch.list = nullptr;
  return serch.word != nullptr && serch.count != nullptr && serch.list != nullptr;
}

}  // namespace

Status _SerchUserDicE(const char* word, const char* midasi, uint16_t* count, Handle* list) {
  const UserSerch serch{word, midasi, count, list};
  const auto work = [&serch] {
    const Status status = ChkMidasiStrE(serch.word);
    return status == kOk ? SearchKey(serch, kTypeE, AppendE) : status;
  };
  return RunUserReader(kCodeSerchUserDicE, Begin(serch), std::cref(work));
}

Status _SerchUserDicJ(const char* word, const char* midasi, uint16_t* count, Handle* list) {
  const UserSerch serch{word, midasi, count, list};
  const auto work = [&serch] {
    const Status status = ChkMidasiStrJ(serch.word);
    return status == kOk ? SearchKey(serch, kTypeKana, AppendJ) : status;
  };
  return RunUserReader(kCodeSerchUserDicJ, Begin(serch), std::cref(work));
}

}  // namespace zavel::engine
