// Entries are looked at through the stream's window, a small part first: most of them end within it, and
// neighbours in a list share one read. What doesn't fit is looked at again through a larger part.
// Tests: tests/engine/EntryTest.cpp
#include "engine/Entry.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Index3.h"

namespace zavel::engine {
namespace {

constexpr size_t kFirstLook = 1024;
constexpr size_t kLookGrowth = 4;
constexpr size_t kMaxShared = 32768;  // farther apart, entries are read as they come

// A headword ends at this many bytes; the longer cap is that of a user Japanese entry.
constexpr size_t kHeadwordCap = 65533;
constexpr size_t kHeadwordCapUserJ = 131068;
constexpr size_t kReadBeyondCap = 256;

constexpr size_t kMaxLine = 65534;  // with its NUL a u16 still counts it

// Shows `settle` the bytes at `offset`, more and more of them up to `limit`, until it answers true.
// `settle(bytes, whole)`: `whole` when no further bytes will follow.
template <typename Settle>
Status LookAt(FsObj* stream, uint32_t offset, size_t limit, Settle settle) {
  for (size_t wanted = kFirstLook;; wanted *= kLookGrowth) {
    wanted = std::min(wanted, limit);
    std::string_view bytes;
    if (!stream->ReadWindow(offset, wanted, &bytes)) return kFileError;
    const bool whole = bytes.size() < wanted || wanted == limit;
    if (settle(bytes.substr(0, limit), whole) || whole) return kOk;
  }
}

// Brings entries that lie close together into the stream's window. False: they can't be read.
bool ReadAhead(FsObj* stream, const std::vector<uint32_t>& offsets) {
  const auto [first, last] = std::minmax_element(offsets.begin(), offsets.end());
  const size_t span = size_t{*last} - *first + kFirstLook;
  std::string_view window;
  return span > kMaxShared || stream->ReadWindow(*first, span, &window);
}

Status LineAt(FsObj* stream, uint16_t type, uint32_t offset, uint16_t set, std::string* line,
              bool* readable) {
  const size_t cap = type != kTypeE && set == kSetUser ? kHeadwordCapUserJ : kHeadwordCap;
  const Status status = LookAt(stream, offset, cap + kReadBeyondCap, [&](std::string_view bytes, bool whole) {
    const LineResult result = BuildIndexLine(bytes, whole, type, cap, line);
    *readable = result == LineResult::kLine;
    return result != LineResult::kNeedsMore;
  });
  if (line->size() > kMaxLine) line->resize(kMaxLine);
  return status;
}

void BlankNuls(size_t from, std::string* text) {
  for (size_t at = text->find('\0', from); at != std::string::npos; at = text->find('\0', at + 1)) {
    (*text)[at] = ' ';
  }
}

bool IsMidasi(const char* midasi, uint16_t type, uint32_t offset, uint16_t set, Status* status) {
  std::string line;
  bool readable = false;
  *status = GetIndexWord(type, offset, set, &line, &readable);
  return *status == kOk && readable && line == midasi;
}

}  // namespace

size_t FindEntryTag(std::string_view text, size_t from) {
  constexpr char tag[] = {static_cast<char>(kTagEntry >> 8), static_cast<char>(kTagEntry & 0xFF)};
  return text.find(std::string_view(tag, sizeof tag), from);
}

size_t EntryLength(std::string_view text) {
  const size_t first = FindEntryTag(text, 0);
  return first == std::string_view::npos ? first : FindEntryTag(text, first + 2);
}

Status GetDicData(const char* midasi, uint16_t type, uint16_t set, uint32_t offset, std::string* text) {
  FsObj* stream = DicStream(type, set);
  if (stream == nullptr) return NoStreamStatus(type, set);
  Status status = kOk;
  if (midasi != nullptr && !IsMidasi(midasi, type, offset, set, &status)) {
    return status == kOk ? kOtherMidasi : status;
  }
  const size_t start = text->size();
  status = LookAt(stream, offset, kMaxEntry, [&](std::string_view bytes, bool whole) {
    const size_t length = EntryLength(bytes);
    if (length == std::string_view::npos && !whole) return false;
    text->append(bytes.substr(0, length));
    return true;
  });
  BlankNuls(start, text);
  return status;
}

Status GetIndexWord(uint16_t type, uint32_t offset, uint16_t set, std::string* line, bool* readable) {
  *readable = false;
  FsObj* stream = DicStream(type, set);
  return stream == nullptr ? NoStreamStatus(type, set) : LineAt(stream, type, offset, set, line, readable);
}

Status GetIndexWords(uint16_t type, const std::vector<uint32_t>& offsets, uint16_t set, LineStore* store,
                     std::vector<std::string_view>* lines) {
  if (offsets.empty()) return kOk;
  FsObj* stream = DicStream(type, set);
  if (stream == nullptr) return NoStreamStatus(type, set);
  if (!ReadAhead(stream, offsets)) return kFileError;
  lines->reserve(lines->size() + offsets.size());
  std::string line;  // grows once for all
  for (const uint32_t offset : offsets) {
    bool readable = false;
    const Status status = LineAt(stream, type, offset, set, &line, &readable);
    if (status != kOk) return status;
    if (readable) lines->push_back(store->keep(line));
  }
  return kOk;
}

}  // namespace zavel::engine
