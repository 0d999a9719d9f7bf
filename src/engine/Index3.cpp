// A block is read whole through the stream's window: one read when it fits what is read ahead, a second one
// for the rest when it doesn't. Rows are then found by bisection, with each row checked before it is used.
// Tests: tests/engine/Ix3Test.cpp
#include "engine/Index3.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>

#include "engine/Frame.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// Bytes asked for before the size of a block is known: most blocks fit.
constexpr size_t kIx3ReadAhead = 4096;

constexpr size_t kIx3Rows = 2 + 4;  // what a row takes outside the string area

// Takes a block's head apart. False when count and size contradict each other; a count with its highest
// bit set always does.
bool ParseHead(const uint8_t* data, Ix3View* block) {
  block->data = data;
  block->count = readLE16(data);
  block->size = readLE16(data + 2);
  return block->size >= kIx3Head + kIx3Rows * block->count;
}

const uint8_t* Bytes(std::string_view view) {
  return reinterpret_cast<const uint8_t*>(view.data());
}

// The rows of a block as bisection sees them.
struct Rows {
  const uint8_t* strings;
  const uint8_t* rowOffsets;
  size_t stringsSize;

  // The remainder of a row without its NUL; none when it doesn't end inside the string area.
  std::optional<std::string_view> remainder(uint16_t row) const {
    const size_t start = size_t{readLE16(rowOffsets + size_t{2} * row)} + 2;
    if (start >= stringsSize) return std::nullopt;
    const void* nul = std::memchr(strings + start, 0, stringsSize - start);
    if (nul == nullptr) return std::nullopt;
    const char* text = reinterpret_cast<const char*>(strings + start);
    return std::string_view(text, static_cast<const char*>(nul) - text);
  }
};

int CompareWhole(std::string_view remainder, std::string_view wanted) {
  return remainder.compare(wanted);
}

int CompareFront(std::string_view remainder, std::string_view wanted) {
  return remainder.substr(0, wanted.size()).compare(wanted);
}

using Compare = int (*)(std::string_view remainder, std::string_view wanted);

// Steps from a hit to both sides over all rows that agree too. False: a row is damaged.
bool Widen(const Rows& rows, uint16_t count, std::string_view wanted, Compare compare, uint16_t* first,
           uint16_t* number) {
  uint16_t end = *first + 1;
  for (; *first > 0; --*first) {
    const auto before = rows.remainder(*first - 1);
    if (!before) return false;
    if (compare(*before, wanted) != 0) break;
  }
  for (; end < count; ++end) {
    const auto next = rows.remainder(end);
    if (!next) return false;
    if (compare(*next, wanted) != 0) break;
  }
  *number = end - *first;
  return true;
}

// Bisects. Each round halves what is left, so the rounds are bounded and no row is passed over.
uint16_t Bisect(const Rows& rows, uint16_t count, std::string_view wanted, Compare compare,
                uint16_t* number) {
  *number = 0;
  uint16_t lo = 0;
  uint16_t hi = count;
  while (lo < hi) {
    uint16_t mid = lo + (hi - lo) / 2;
    const auto remainder = rows.remainder(mid);
    if (!remainder) return kRowBad;
    const int order = compare(*remainder, wanted);
    if (order == 0) return Widen(rows, count, wanted, compare, &mid, number) ? mid : kRowBad;
    if (order < 0) {
      lo = mid + 1;
    } else {
      hi = mid;
    }
  }
  return kRowNotFound;
}

uint16_t Agree(uint16_t type, const Rows& rows, uint16_t count, const std::string& key, Compare compare,
               uint16_t* number) {
  *number = 0;
  if (key.size() < kPrefixLength[type]) return kRowBad;
  return Bisect(rows, count, std::string_view(key).substr(kPrefixLength[type]), compare, number);
}

// Which rows of a block a search takes.
struct Span {
  uint16_t first = 0;
  uint16_t number = 0;
};

// The whole block, at most `cap` rows. With `wantsEmpty` its first remainder must be empty, else nothing.
Status TakeBlock(const Ix3View& block, bool wantsEmpty, uint16_t cap, Span* span) {
  if (block.count == 0) return kOk;
  if (wantsEmpty) {
    const auto first = Rows{block.strings(), block.rowOffsets(), block.stringsSize()}.remainder(0);
    if (!first) return kInternal;
    if (!first->empty()) return kOk;
  }
  span->number = std::min(block.count, cap);
  return kOk;
}

// Takes the rows that `agree` finds.
template <typename AgreeFunction>
Status TakeAgreeing(AgreeFunction agree, uint16_t type, const Ix3View& block, const std::string& key,
                    Span* span) {
  uint16_t number = 0;
  const uint16_t first =
      agree(type, block.strings(), block.rowOffsets(), block.count, key, &number, block.stringsSize());
  if (first == kRowNotFound) return kOk;
  if (first == kRowBad || first + number > block.count) return kInternal;
  *span = {first, number};
  return kOk;
}

void CopyRows(const Ix3View& block, const Span& span, Ix3Rows* rows) {
  rows->firstRow = span.first;
  rows->offsets.resize(span.number);
  for (uint16_t i = 0; i < span.number; ++i) rows->offsets[i] = block.entryOffset(span.first + i);
}

// Opens the stream, reads the block and notes its count and size.
Status OpenBlock(uint16_t type, uint16_t set, uint32_t offset, Ix3View* block, Ix3Rows* rows) {
  *rows = {};
  FsObj* stream = Ix3Stream(type, set);
  if (stream == nullptr) return NoStreamStatus(type, set);
  if (Status status = ViewIx3(stream, offset, block); status != kOk) return status;
  rows->blockCount = block->count;
  rows->blockSize = block->size;
  return kOk;
}

FsObj* NeededKihon(FsObj* stream, const char* name) {
  return stream != nullptr && NeedKihon(stream, name) ? stream : nullptr;
}

FsObj* OpenUser(FsObj* stream) {
  return stream != nullptr && stream->IsOpen() ? stream : nullptr;
}

FsObj* KihonIx3Stream(uint16_t type) {
  switch (type) {
    case kTypeE:
      return NeededKihon(g_fs_Ej_Ix3_Kihon, "ej.ix3");
    case kTypeKana:
      return NeededKihon(g_fs_Je_Ix3_Kihon, "je.ix3");
    case kTypeKji:
      return NeededKihon(g_fs_Ke_Ix3_Kihon, "ke.ix3");
    case kTypeHase:
      return NeededKihon(g_fs_Ha_Ix3_Kihon, "hase.ix3");
    case kTypeKatu:
      return NeededKihon(g_fs_Ka_Ix3_Kihon, "katu.ix3");
    default:
      return nullptr;
  }
}

FsObj* UserIx3Stream(uint16_t type) {
  switch (type) {
    case kTypeE:
      return OpenUser(g_fs_Ej_Ix3_User);
    case kTypeKana:
      return OpenUser(g_fs_Je_Ix3_User);
    case kTypeKji:
      return OpenUser(g_fs_Ke_Ix3_User);
    default:
      return nullptr;
  }
}

}  // namespace

const uint8_t* Ix3View::rowOffsets() const {
  return data + kIx3Head;
}
const uint8_t* Ix3View::strings() const {
  return rowOffsets() + size_t{2} * count;
}
size_t Ix3View::stringsSize() const {
  return size - kIx3Head - kIx3Rows * count;
}
const uint8_t* Ix3View::entryOffsets() const {
  return data + size - size_t{4} * count;
}
uint32_t Ix3View::entryOffset(uint16_t row) const {
  return readLE32(entryOffsets() + size_t{4} * row);
}

Ix3View Ix3Block::view() const {
  return {Bytes(bytes), count, size};
}

Status ViewIx3(FsObj* stream, uint32_t offset, Ix3View* block) {
  std::string_view view;
  if (!stream->ReadWindow(offset, kIx3ReadAhead, &view) || view.size() < kIx3Head) return kFileError;
  if (!ParseHead(Bytes(view), block)) return kInternal;
  if (view.size() >= block->size) return kOk;
  if (!stream->ReadWindow(offset, block->size, &view) || view.size() < block->size) return kFileError;
  block->data = Bytes(view);
  return kOk;
}

Status ReadIx3(FsObj* stream, uint32_t offset, Ix3Block* block) {
  Ix3View view;
  const Status status = ViewIx3(stream, offset, &view);
  if (status != kOk) return status;
  block->bytes.assign(reinterpret_cast<const char*>(view.data), view.size);
  block->count = view.count;
  block->size = view.size;
  return kOk;
}

Status AccessCheckIdx3(const uint8_t* block, size_t size, size_t offset, size_t length) {
  const bool inside = block != nullptr && offset <= size && length <= size - offset;
  return inside ? kOk : kInternal;
}

Status CheckIdx3Data(const uint8_t* block, size_t size) {
  Ix3View view;
  if (block == nullptr || size < kIx3Head || size > kMaxIx3 || !ParseHead(block, &view)) return kInternal;
  if (view.size != size) return kInternal;
  if (view.count == 0) return size == kIx3Head ? kOk : kInternal;
  const Rows rows{view.strings(), view.rowOffsets(), view.stringsSize()};
  size_t end = 0;  // of the last row in the string area
  for (uint16_t row = 0; row < view.count; ++row) {
    const size_t start = readLE16(view.rowOffsets() + size_t{2} * row);
    const auto remainder = rows.remainder(row);
    if (!remainder || readLE16(view.strings() + start) != remainder->size()) return kInternal;
    end = start + 2 + remainder->size() + 1;
  }
  return end == view.stringsSize() ? kOk : kInternal;
}

uint16_t CompleteAgree(uint16_t type, const uint8_t* strings, const uint8_t* rowOffsets, uint16_t count,
                       const std::string& key, uint16_t* number, size_t stringsSize) {
  return Agree(type, {strings, rowOffsets, stringsSize}, count, key, CompareWhole, number);
}

uint16_t FrontAgree(uint16_t type, const uint8_t* strings, const uint8_t* rowOffsets, uint16_t count,
                    const std::string& key, uint16_t* number, size_t stringsSize) {
  return Agree(type, {strings, rowOffsets, stringsSize}, count, key, CompareFront, number);
}

Status GetDicOffImi(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows) {
  Ix3View block;
  if (Status status = OpenBlock(type, set, offset, &block, rows); status != kOk) return status;
  if (key.empty()) return kOk;
  Span span;
  const bool shortKey = key.size() < kPrefixLength[type];
  const uint16_t cap = type == kTypeHase ? block.count : kMaxRows;
  const Status status =
      shortKey ? TakeBlock(block, true, cap, &span) : TakeAgreeing(CompleteAgree, type, block, key, &span);
  if (status == kOk) CopyRows(block, span, rows);
  return status;
}

Status GetIndex3(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows) {
  Ix3View block;
  if (Status status = OpenBlock(type, set, offset, &block, rows); status != kOk) return status;
  if (key.empty()) return kOk;
  Span span;
  const bool wantsEmpty = key.size() < kPrefixLength[type];
  const uint16_t cap = set == kSetKihon ? kMaxRows : block.count;
  const Status status = key.size() <= kPrefixLength[type] ? TakeBlock(block, wantsEmpty, cap, &span)
                                                          : TakeAgreeing(FrontAgree, type, block, key, &span);
  if (status == kOk) CopyRows(block, span, rows);
  return status;
}

Status GetDicOfset(uint16_t type, uint16_t set, uint32_t offset, std::vector<uint32_t>* offsets) {
  offsets->clear();
  FsObj* stream = Ix3Stream(type, set);
  if (stream == nullptr) return NoStreamStatus(type, set);
  uint8_t head[kIx3Head];
  if (!stream->ReadExact(offset, head, sizeof head)) return kFileError;
  Ix3View block;
  if (!ParseHead(head, &block)) return kInternal;
  const size_t bytes = size_t{4} * block.count;
  std::vector<uint8_t> area(bytes);
  if (!stream->ReadExact(uint64_t{offset} + block.size - bytes, area.data(), bytes)) return kFileError;
  for (size_t at = 0; at < bytes; at += 4) offsets->push_back(readLE32(&area[at]));
  return kOk;
}

Status GetIdx3Data(uint32_t offset, uint16_t type, Ix3Block* block) {
  FsObj* stream = type <= kTypeKji ? Ix3Stream(type, kSetUser) : nullptr;
  if (stream == nullptr) return NoStreamStatus(type, kSetUser);
  const Status status = ReadIx3(stream, offset, block);
  return status == kOk ? CheckIdx3Data(block->view().data, block->size) : status;
}

Status SrchHasei(const std::string& key, std::vector<uint32_t>* offsets) {
  offsets->clear();
  uint32_t offset = kNoBlockKihon;
  if (Status status = GetIdxKihon(kTypeHase, key, &offset); status != kOk) return status;
  if (offset == kNoBlockKihon) return kOk;
  Ix3Rows rows;
  if (Status status = GetDicOffImi(kTypeHase, kSetKihon, key, offset, &rows); status != kOk) return status;
  *offsets = std::move(rows.offsets);
  return kOk;
}

FsObj* Ix3Stream(uint16_t type, uint16_t set) {
  return set == kSetKihon ? KihonIx3Stream(type) : UserIx3Stream(type);
}

FsObj* DicStream(uint16_t type, uint16_t set) {
  const bool japanese = type == kTypeKana || type == kTypeKji;
  if (set == kSetUser) return OpenUser(japanese ? g_fs_Je_Dic_User : g_fs_Ej_Dic_User);
  if (type == kTypeKatu) return NeededKihon(g_fs_Ka_Dic_Kihon, "katu.dic");
  return japanese ? NeededKihon(g_fs_Je_Dic_Kihon, "je.dic") : NeededKihon(g_fs_Ej_Dic_Kihon, "ej.dic");
}

Status NoStreamStatus(uint16_t type, uint16_t set) {
  if (set == kSetKihon) return kNoKihonFile;
  return type == kTypeKana || type == kTypeKji ? kNoUserJ : kNoUserE;
}

}  // namespace zavel::engine
