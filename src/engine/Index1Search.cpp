// Searching the tables of a first-level index: one open-ended binary search under the three given names,
// and the walk from a key to the offset of its block. Tests: tests/engine/Index1SearchTest.cpp
#include <algorithm>
#include <bit>

#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// Row numbers from here on mean something else.
constexpr uint32_t kMaxRowCount = kRowBad;

// A table as the searches see it.
struct Table {
  const uint8_t* head = nullptr;  // its size word; null: not loaded
  const uint8_t* rows = nullptr;
  size_t rowSize = 0;
  bool pairKeys = false;  // two-byte keys, unsigned; else one byte, signed
  uint32_t count = 0;     // rows

  const uint8_t* row(uint32_t number) const { return rows + number * rowSize; }
  const uint8_t* link(uint32_t number) const { return row(number) + (pairKeys ? 2 : 1); }
  int32_t key(uint32_t number) const {
    return pairKeys ? readBE16(row(number)) : static_cast<int8_t>(row(number)[0]);
  }
  int32_t asKey(uint16_t key) const { return pairKeys ? key : static_cast<int8_t>(key); }
};

Table MakeTable(const uint8_t* head, size_t headSize, size_t rowSize, bool pairKeys) {
  Table table;
  if (head == nullptr) return table;
  table.head = head;
  table.rows = head + headSize;
  table.rowSize = rowSize;
  table.pairKeys = pairKeys;
  table.count = RowCount(head, rowSize);
  return table;
}

Table TableA(const idx_info_ptr* info, uint16_t type) {
  if (info == nullptr) return Table{};
  const bool kanji = type == kTypeKji;
  return MakeTable(info->tableA, kTableHead, kanji ? kRowAKji : kRowAE, kanji);
}

Table TableB(const idx_info_ptr* info) {
  return info == nullptr ? Table{} : MakeTable(info->tableB, kTableHead, kRowB, false);
}

Table TableC(const idx_info_ptr* info, uint16_t type) {
  if (info == nullptr) return Table{};
  return MakeTable(info->tableC, kTableHeadC, RowSizeC(type), type == kTypeKji);
}

bool HasTableB(uint16_t type) {
  return type == kTypeE || type == kTypeHase;
}

// Rows from `first` up to `end`, exclusive.
struct Span {
  uint32_t first = 0;
  uint32_t end = 0;
};

// The children of `row`. False when the row or the child rows that the file gives do not exist.
bool ChildRows(const Table& parent, uint32_t row, const Table& child, Span* span) {
  if (parent.head == nullptr || child.head == nullptr || row >= parent.count) return false;
  span->first = readLE16(parent.link(row));
  span->end = row + 1 < parent.count ? readLE16(parent.link(row + 1)) : child.count;
  return span->first <= span->end && span->end <= child.count;
}

// What floor(log2(n) + 1) is for n of at least 1, without the slips of rounded logarithms.
unsigned LogLimit(const Span& span) {
  return static_cast<unsigned>(std::bit_width(span.end - span.first));
}

// Because `first` takes the middle and not the row behind it, a span of two rows never closes: the number
// of comparisons ends the search.
uint16_t SearchRows(const Table& table, Span span, uint16_t wanted, unsigned comparisons) {
  const int32_t key = table.asKey(wanted);
  for (; comparisons > 0 && span.first < span.end; --comparisons) {
    const uint32_t middle = (span.first + span.end) / 2;
    const int32_t there = table.key(middle);
    if (key == there) return static_cast<uint16_t>(middle);
    (key > there ? span.first : span.end) = middle;
  }
  return kRowNotFound;
}

// The child that stands for a word which ended: key 0. Sorted by signed key it comes first before letters
// and kanji, but last behind kana, whose bytes are negative; a writer may put it first there too.
uint16_t EndedRow(const Table& table, const Span& span) {
  if (span.first == span.end) return kRowNotFound;
  if (table.key(span.first) == 0) return static_cast<uint16_t>(span.first);
  return table.key(span.end - 1) == 0 ? static_cast<uint16_t>(span.end - 1) : kRowNotFound;
}

// Unit `number` of a key, one byte or one kanji; false when the key has ended before it.
bool KeyUnit(uint16_t type, const std::string& key, size_t number, uint16_t* unit) {
  const uint8_t* bytes = reinterpret_cast<const uint8_t*>(key.data());
  const size_t width = type == kTypeKji ? 2 : 1;
  if (key.size() < (number + 1) * width) return false;
  *unit = width == 2 ? readBE16(bytes + number * 2) : bytes[number];
  return true;
}

uint16_t StepToB(uint16_t type, uint16_t set, const std::string& key, uint16_t rowA) {
  uint16_t unit = 0;
  if (KeyUnit(type, key, 1, &unit)) return Bsrch2_1(type, unit, rowA, set);
  const idx_info_ptr* info = IndexInfo(type, set, 0);
  const Table b = TableB(info);
  Span span;
  return ChildRows(TableA(info, type), rowA, b, &span) ? EndedRow(b, span) : kRowBad;
}

uint16_t StepToC(uint16_t type, uint16_t set, uint16_t fileNo, const std::string& key, uint16_t parentRow) {
  uint16_t unit = 0;
  if (KeyUnit(type, key, HasTableB(type) ? 2 : 1, &unit)) return Bsrch2_2(type, fileNo, unit, parentRow, set);
  const idx_info_ptr* info = IndexInfo(type, set, fileNo);
  const Table c = TableC(info, type);
  Span span;
  const Table parent = HasTableB(type) ? TableB(info) : TableA(info, type);
  return ChildRows(parent, parentRow, c, &span) ? EndedRow(c, span) : kRowBad;
}

// Walks one index. kOk with *found telling whether a row of table C was reached, kInternal for damage.
Status Walk(uint16_t type, uint16_t set, uint16_t fileNo, const std::string& key, Idx1Position* position,
            bool* found) {
  *found = false;
  if (type < kTypeE || type > kTypeHase) return kInternal;
  uint16_t unit = 0;
  if (!KeyUnit(type, key, 0, &unit)) return kOk;
  Idx1Position at;
  at.fileNo = fileNo;
  uint16_t parent = at.pos1 = Bsrch1(type, fileNo, unit, set);
  if (parent < kRowBad && HasTableB(type)) parent = at.pos2 = StepToB(type, set, key, at.pos1);
  if (parent < kRowBad) at.pos3 = StepToC(type, set, fileNo, key, parent);
  if (at.pos1 == kRowBad || at.pos2 == kRowBad || at.pos3 == kRowBad) return kInternal;
  *found = at.pos3 != kRowNotFound;
  if (!*found) return kOk;
  at.offset = readLE32(TableC(IndexInfo(type, set, fileNo), type).link(at.pos3));
  *position = at;
  return kOk;
}

bool Loaded(const idx_info_ptr& info) {
  return info.tableA && info.tableB && info.tableC;
}

bool KihonLoaded() {
  return Loaded(g_sKihonEJ) && Loaded(g_sKihonHase) && Loaded(g_sKihonKna) && Loaded(g_sKihonKji) &&
         Loaded(g_sKihonKatu);
}

bool UserJLoaded() {
  if (g_sUserKjiIdxInfo == nullptr || !Loaded(g_sUserKna) || !Loaded(g_sUserKji)) return false;
  return std::all_of(g_pKjiIdx1s, g_pKjiIdx1s + KjiIdxCount(), Loaded);
}

}  // namespace

uint32_t RowCount(const uint8_t* table, size_t rowSize) {
  return std::min(static_cast<uint32_t>(readLE32(table) / rowSize), kMaxRowCount);
}

uint8_t* BlockOffsetOf(const idx_info_ptr* info, uint16_t type, uint16_t row) {
  const size_t size = RowSizeC(type);
  if (info == nullptr || AccessCheck(info->tableC, row, size) != kOk) return nullptr;
  return info->tableC + kTableHeadC + size * row + size - 4;
}

Status AccessCheck(const uint8_t* table, uint16_t row, size_t rowSize) {
  return table != nullptr && row < RowCount(table, rowSize) ? kOk : kInternal;
}

uint16_t Bsrch1(uint16_t type, uint16_t fileNo, uint16_t key, uint16_t set) {
  const idx_info_ptr* info = IndexInfo(type, set, fileNo);
  const Table table = type == kTypeKatu ? TableC(info, type) : TableA(info, type);
  if (table.head == nullptr) return kRowBad;
  const Span span{0, table.count};
  return SearchRows(table, span, key, LogLimit(span) + 2);
}

uint16_t Bsrch2_1(uint16_t type, uint16_t key, uint16_t parentRow, uint16_t set) {
  if (!HasTableB(type)) return kRowBad;
  const idx_info_ptr* info = IndexInfo(type, set, 0);
  const Table table = TableB(info);
  Span span;
  if (!ChildRows(TableA(info, type), parentRow, table, &span)) return kRowBad;
  return SearchRows(table, span, key, LogLimit(span));
}

uint16_t Bsrch2_2(uint16_t type, uint16_t fileNo, uint16_t key, uint16_t parentRow, uint16_t set) {
  if (type == kTypeKatu) return kRowBad;
  const idx_info_ptr* info = IndexInfo(type, set, fileNo);
  const Table table = TableC(info, type);
  Span span;
  if (!ChildRows(HasTableB(type) ? TableB(info) : TableA(info, type), parentRow, table, &span))
    return kRowBad;
  return SearchRows(table, span, key, LogLimit(span) + 5);
}

Status CheckOuterVal() {
  if (g_dicType == 0) return kInternal;
  if ((g_dicType & kDicKihon) && !KihonLoaded()) return kInternal;
  if ((g_dicType & kDicUserE) && !Loaded(g_sUserEJ)) return kInternal;
  return (g_dicType & kDicUserJ) && !UserJLoaded() ? kInternal : kOk;
}

Status GetIdxKihon(uint16_t type, const std::string& key, uint32_t* offset) {
  *offset = kNoBlockKihon;
  if (CheckOuterVal() != kOk) return kInternal;
  Idx1Position position;
  bool found = false;
  const Status status = Walk(type, kSetKihon, 0, key, &position, &found);
  if (status == kOk && found) *offset = position.offset;
  return status;
}

Status GetIdxUserPosition(uint16_t type, const std::string& key, Idx1Position* position) {
  *position = Idx1Position{};
  if (CheckOuterVal() != kOk) return kInternal;
  const uint16_t last = type == kTypeKji ? KjiIdxCount() : 0;
  bool found = false;
  Status status = kOk;
  for (uint16_t fileNo = 0; fileNo <= last && status == kOk && !found; ++fileNo) {
    status = Walk(type, kSetUser, fileNo, key, position, &found);
  }
  return status;
}

Status GetIdxUser(uint16_t type, const std::string& key, uint32_t* offset) {
  Idx1Position position;
  const Status status = GetIdxUserPosition(type, key, &position);
  *offset = position.offset;
  return status;
}

}  // namespace zavel::engine
