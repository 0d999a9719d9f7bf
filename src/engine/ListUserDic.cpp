// Tests: tests/engine/ListUserDicTest.cpp
#include "engine/ListUserDic.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/EntryBound.h"
#include "engine/Globals.h"
#include "engine/Index1.h"
#include "engine/Index3.h"
#include "engine/Shim.h"
#include "engine/Sikibetu.h"
#include "engine/UserFrame.h"
#include "engine/Workers.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr unsigned kCaseBit = 0x20;

// What compNewStr compares: letters as capitals, kana as hiragana.
std::string OrderKey(std::string_view word) {
  std::string key;
  for (size_t at = 0; at < word.size(); ++at) {
    const uint8_t lead = static_cast<uint8_t>(word[at]);
    if (_isalpha(lead)) {
      key.push_back(static_cast<char>(lead & kCaseBit ? o_toupper(lead) : lead));
    } else if (_ismbblead(lead) && at + 1 < word.size()) {
      const unsigned code = lead * 256u + static_cast<uint8_t>(word[++at]);
      if (!_ismbchira(code) && !_ismbckata(code)) continue;
      const unsigned kana = _mbctohira(code);
      key.push_back(static_cast<char>(HIBYTE(kana)));
      key.push_back(static_cast<char>(LOBYTE(kana)));
    }
  }
  return key;
}

// Each word once, in the order of bytes.
std::vector<std::string_view> SplitList(std::string_view list) {
  std::vector<std::string_view> words;
  while (!list.empty()) {
    words.push_back(list.substr(0, list.find('\0')));
    list.remove_prefix(words.back().size() + 1);
  }
  std::sort(words.begin(), words.end(), [](auto a, auto b) { return compStr(a, b) < 0; });
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

// Appends the headwords of the entries of one block.
Status AppendBlock(uint16_t type, uint32_t block, EntryBound* bound, std::string* list) {
  std::vector<uint32_t> offsets;
  Status status = GetDicOfset(type, kSetUser, block, &offsets);
  if (status == kOk) status = bound->take(offsets.size());
  for (size_t i = 0; i < offsets.size() && status == kOk; ++i) {
    std::string text;
    std::string word;
    size_t size = 0;
    status = GetDicData(nullptr, type, kSetUser, offsets[i], &text);
    if (status == kOk && !GetMidasiWord(text, &word, &size)) status = kInternal;
    list->append(word.c_str(), size);
  }
  return status;
}

// The headwords of every row of table C that has a block. More of them than entries fit the file is damage:
// rows that share a block, over and over.
Status AppendAll(uint16_t type, std::string* list) {
  const uint8_t* table = IndexInfo(type, kSetUser, 0)->tableC;
  if (table == nullptr) return kInternal;
  EntryBound bound(type);
  Status status = kOk;
  for (uint32_t row = 0; row < RowCount(table, kRowC) && status == kOk; ++row) {
    const uint32_t block = readLE32(table + kTableHeadC + kRowC * row + 1);
    if (block != kNoBlockUser) status = AppendBlock(type, block, &bound, list);
  }
  return status;
}

struct ListCall {
  FunctionCode code;
  uint16_t type;
  uint16_t* count;
  Handle* list;
  uint32_t* size;
};

Status MakeList(const ListCall& call) {
  std::string list;
  Status status = AppendAll(call.type, &list);
  if (status == kOk && !list.empty()) status = RemoveSameMidasi(&list);
  if (status == kOk) status = MakeBlockList(list, call.size, call.list);
  if (status == kOk) GetListCount(list, call.count);
  return status;
}

// Clears the result; false when it isn't there.
bool Begin(const ListCall& call) {
  if (call.count != nullptr) *call.count = 0;
  if (call.list != nullptr) *call.list = nullptr;
  if (call.size != nullptr) *call.size = 0;
  return call.count != nullptr && call.list != nullptr && call.size != nullptr;
}

Status RunList(const ListCall& call) {
  const auto work = [&call] { return MakeList(call); };
  return RunUserReader(call.code, Begin(call), std::cref(work));
}

}  // namespace

int compStr(std::string_view a, std::string_view b) {
  return a.compare(b);
}

int compNewStr(std::string_view a, std::string_view b) {
  return OrderKey(a).compare(OrderKey(b));
}

Status RemoveSameMidasi(std::string* list) {
  if (list->empty() || list->back() != '\0') return kInternal;
  // Each key is made once; words of one key keep the order of their bytes.
  std::vector<std::pair<std::string, std::string_view>> keyed;
  for (const std::string_view word : SplitList(*list)) keyed.emplace_back(OrderKey(word), word);
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::string ordered;
  ordered.reserve(list->size());
  for (const auto& [key, word] : keyed) ordered.append(word).push_back('\0');
  *list = std::move(ordered);
  return kOk;
}

void GetListCount(std::string_view list, uint16_t* count) {
  const auto nuls = std::count(list.begin(), list.end(), '\0');
  *count = static_cast<uint16_t>(std::min<ptrdiff_t>(nuls, UINT16_MAX));
}

Status _GetListUserDicE(uint16_t* count, Handle* list, uint32_t* size) {
  return RunList({kCodeGetListUserDicE, kTypeE, count, list, size});
}

Status _GetListUserDicJ(uint16_t* count, Handle* list, uint32_t* size) {
  return RunList({kCodeGetListUserDicJ, kTypeKana, count, list, size});
}

}  // namespace zavel::engine
