// Tests: tests/zavel/user/UserCheckTest.cpp, tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserIndex.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kLongestIndex = 16 << 20;  // the engine's own limit

const uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

uint64_t hashOf(std::string_view bytes) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const char c : bytes) hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3;
  return hash;
}

// The rows of the table at *offset; goes on to the next table.
bool takeTable(std::string_view bytes, size_t* offset, std::string_view* rows) {
  const ByteReader file(bytesOf(bytes), bytes.size());
  uint32_t size = 0, next = 0;
  if (!file.readLE32At(*offset, &size) || !file.readLE32At(*offset + 4, &next)) return false;
  if (!file.contains(*offset + kTableHead, size) || next < *offset + kTableHead + size) return false;
  *rows = bytes.substr(*offset + kTableHead, size);
  *offset = next;
  return true;
}

// The rows that every index of English words or of readings has from its making on: for each beginning of
// letters or kana, shorter ones included. Of them only the offsets of blocks ever change.
constexpr size_t kLetters = 26, kLettersOrEnd = kLetters + 1;
constexpr size_t kUnderLetter = 1 + kLetters * kLettersOrEnd;  // rows of table C under one of table A
constexpr size_t kKana = 83, kKanaOrEnd = kKana + 1;
constexpr uint8_t kFirstKana = 0x9F;
constexpr size_t kEnglishSize = kUserHeader + 2 * kTableHead + kTableHeadC + kLetters * kRowAE +
                                kLetters * kLettersOrEnd * kRowB + kLetters * kUnderLetter * kRowC;
constexpr size_t kKanaSize =
    kUserHeader + kTableHead + kTableHeadC + kKana * kRowAE + kKana * kKanaOrEnd * kRowC;

uint8_t keyAt(std::string_view table, size_t rowSize, size_t row) {
  return static_cast<uint8_t>(table[row * rowSize]);
}

// The first child of a row of table A or B.
size_t childAt(std::string_view table, size_t rowSize, size_t row) {
  return readLE16(bytesOf(table) + (row + 1) * rowSize - 2);
}

// The end of a word, which is 0, comes ahead of the letters.
uint8_t letterOrEnd(size_t row) {
  return row == 0 ? 0 : static_cast<uint8_t>('a' + row - 1);
}

// It comes behind the kana: they are negative as signed bytes.
uint8_t kanaOrEnd(size_t row) {
  return row == kKana ? 0 : static_cast<uint8_t>(kFirstKana + row);
}

bool hasAllLetters(std::string_view a, std::string_view b, std::string_view c) {
  if (a.size() != kLetters * kRowAE || b.size() != kLetters * kLettersOrEnd * kRowB) return false;
  if (c.size() != kLetters * kUnderLetter * kRowC) return false;
  for (size_t row = 0; row < kLetters; ++row) {
    if (keyAt(a, kRowAE, row) != letterOrEnd(row + 1)) return false;
    if (childAt(a, kRowAE, row) != row * kLettersOrEnd) return false;
  }
  for (size_t row = 0; row < kLetters * kLettersOrEnd; ++row) {
    const size_t first = row / kLettersOrEnd, second = row % kLettersOrEnd;
    const size_t child = first * kUnderLetter + (second == 0 ? 0 : 1 + (second - 1) * kLettersOrEnd);
    if (keyAt(b, kRowB, row) != letterOrEnd(second) || childAt(b, kRowB, row) != child) return false;
  }
  for (size_t row = 0; row < kLetters * kUnderLetter; ++row) {
    const size_t under = row % kUnderLetter;
    const uint8_t key = under == 0 ? 0 : letterOrEnd((under - 1) % kLettersOrEnd);
    if (keyAt(c, kRowC, row) != key) return false;
  }
  return true;
}

bool hasAllKana(std::string_view a, std::string_view c) {
  if (a.size() != kKana * kRowAE || c.size() != kKana * kKanaOrEnd * kRowC) return false;
  for (size_t row = 0; row < kKana; ++row) {
    if (keyAt(a, kRowAE, row) != kanaOrEnd(row) || childAt(a, kRowAE, row) != row * kKanaOrEnd) return false;
  }
  for (size_t row = 0; row < kKana * kKanaOrEnd; ++row) {
    if (keyAt(c, kRowC, row) != kanaOrEnd(row % kKanaOrEnd)) return false;
  }
  return true;
}

// Whether the rows from `from` to `to` rise by their two bytes.
bool rises(std::string_view table, size_t rowSize, size_t from, size_t to) {
  for (size_t row = from + 1; row < to; ++row) {
    if (table.substr((row - 1) * rowSize, 2) >= table.substr(row * rowSize, 2)) return false;
  }
  return true;
}

// Rows of kanji are made as they are wanted: in order, each of table A with children of its own.
bool isInOrder(std::string_view a, std::string_view c) {
  const size_t rowsA = a.size() / kRowAKji, rowsC = c.size() / kRowCKji;
  if (a.size() % kRowAKji != 0 || c.size() % kRowCKji != 0 || (rowsA == 0) != (rowsC == 0)) return false;
  if (rowsC > kUserKjiRows || !rises(a, kRowAKji, 0, rowsA)) return false;
  for (size_t row = 0, child = 0; row < rowsA; ++row) {
    const size_t end = row + 1 < rowsA ? childAt(a, kRowAKji, row + 1) : rowsC;
    if (childAt(a, kRowAKji, row) != child || end <= child || end > rowsC) return false;
    if (!rises(c, kRowCKji, child, end)) return false;
    child = end;
  }
  return true;
}

// The last row of a table whose first child is not behind `child`; children stand in the order of parents.
size_t parentOf(std::string_view table, size_t rowSize, size_t child, size_t from) {
  size_t row = from;
  while ((row + 2) * rowSize <= table.size() && readLE16(bytesOf(table) + (row + 2) * rowSize - 2) <= child) {
    ++row;
  }
  return row;
}

// A row's part of a key: without the zeros of a word that ended.
std::string keyPart(std::string_view table, size_t rowSize, size_t row, size_t length) {
  if ((row + 1) * rowSize > table.size()) return {};
  std::string key(table.substr(row * rowSize, length));
  std::erase(key, '\0');
  return key;
}

}  // namespace

UserIndex::UserIndex(const std::string& path, uint16_t type) {
  std::string bytes;
  readable_ = readWholeFile(path, kLongestIndex, &bytes);
  if (!readable_) return;
  hash_ = hashOf(bytes);
  sound_ = read(bytes, type);
}

bool UserIndex::read(const std::string& bytes, uint16_t type) {
  const bool empty = bytes.find_first_not_of('\0') == std::string::npos;
  shaped_ = !empty && bytes.size() == (type == kTypeE ? kEnglishSize : type == kTypeKana ? kKanaSize : 0);
  if (bytes.size() < kUserHeader) return false;
  further_ = readLE16(bytesOf(bytes) + kKjiCountOffset);
  size_t table = kUserHeader;
  std::string_view a, b;
  if (!takeTable(bytes, &table, &a) || (type == kTypeE && !takeTable(bytes, &table, &b))) return false;
  const ByteReader file(bytesOf(bytes), bytes.size());
  uint32_t size = 0;
  if (!file.readLE32At(table, &size) || !file.contains(table + kTableHeadC, size)) return false;
  const std::string_view c = std::string_view(bytes).substr(table + kTableHeadC, size);
  shaped_ = shaped_ || type == kTypeKji;
  if (!(type == kTypeE ? hasAllLetters(a, b, c) : type == kTypeKana ? hasAllKana(a, c) : isInOrder(a, c)))
    return false;
  readRows(a, b, c, type);
  return true;
}

void UserIndex::readRows(std::string_view tableA, std::string_view tableB, std::string_view tableC,
                         uint16_t type) {
  const size_t row = type == kTypeKji ? kRowCKji : kRowC, key = row - 4;
  const size_t rowA = type == kTypeKji ? kRowAKji : kRowAE;
  size_t a = 0, b = 0;
  for (size_t at = 0; (at + 1) * row <= tableC.size(); ++at) {
    const uint32_t block = readLE32(bytesOf(tableC) + at * row + key);
    if (block == kNoBlockUser) continue;
    if (type == kTypeE) b = parentOf(tableB, kRowB, at, b);
    a = parentOf(tableA, rowA, type == kTypeE ? b : at, a);
    std::string whole = keyPart(tableA, rowA, a, key);
    if (type == kTypeE) whole += keyPart(tableB, kRowB, b, 1);
    rows_.push_back({whole + keyPart(tableC, row, at, key), block});
  }
}

size_t entryEnd(std::string_view text) {
  size_t end = 0;
  for (size_t at = 0; at + 2 <= text.size();) {
    uint16_t tag = 0;
    if (!IsTag(static_cast<uint8_t>(text[at]), static_cast<uint8_t>(text[at + 1]), &tag)) break;
    if ((tag == kTagEntry) != (at == 0)) break;
    const size_t feed = text.find('\n', at);
    if (feed == std::string_view::npos) break;
    at = end = feed + 1;
  }
  return end;
}

}  // namespace zavel::host
