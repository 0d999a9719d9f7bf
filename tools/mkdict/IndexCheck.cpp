// Reads the format on its own, without the engine's or the writer's code. Tests: tests/mkdict/VerifyTest.cpp.
#include "mkdict/IndexCheck.h"

#include <iterator>

#include "engine/DicFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::mkdict {
namespace {

const uint8_t* bytesAt(std::string_view bytes, size_t at) {
  return reinterpret_cast<const uint8_t*>(bytes.data()) + at;
}

bool contains(std::string_view bytes, uint64_t at, uint64_t length) {
  return at <= bytes.size() && length <= bytes.size() - at;
}

}  // namespace

bool IndexCheck::readTable(char name, size_t keySize, size_t valueSize, size_t* at) {
  const std::string title = std::string("table ") + name;
  const bool last = name == 'C';
  const size_t head = last ? engine::kTableHeadC : engine::kTableHead;
  if (!contains(idx_, *at, head)) {
    fault(*at, title + ": head cut short");
    return false;
  }
  const size_t size = readLE32(bytesAt(idx_, *at));
  Table table{name, keySize, keySize + valueSize, *at + head, size / (keySize + valueSize)};
  if (!contains(idx_, table.rowsAt, size)) {
    fault(*at, title + ": " + std::to_string(size) + " bytes of rows run past the end of the file");
    return false;
  }
  if (size % table.rowSize != 0) {
    fault(*at, title + ": " + std::to_string(size) + " bytes are no whole rows of " +
                   std::to_string(table.rowSize));
    return false;
  }
  if (table.rows > engine::kRowBad) {
    fault(*at, title + ": " + std::to_string(table.rows) + " rows, more than 65534");
    return false;
  }
  const size_t end = table.rowsAt + size;
  const size_t next = last ? end : readLE32(bytesAt(idx_, *at + 4));
  if (next != end) {
    fault(*at + 4,
          title + ": next table at " + std::to_string(next) + ", its rows end at " + std::to_string(end));
    return false;
  }
  tables_.push_back(table);
  *at = end;
  return true;
}

bool IndexCheck::readTables() {
  size_t at = 0;
  const size_t key = type_ == engine::kTypeKji ? 2 : 1;
  const bool hasA = type_ != engine::kTypeKatu;
  const bool hasB = type_ == engine::kTypeE || type_ == engine::kTypeHase;
  if (hasA && !readTable('A', key, 2, &at)) return false;
  if (hasB && !readTable('B', key, 2, &at)) return false;
  if (!readTable('C', key, 4, &at)) return false;
  if (at != idx_.size()) fault(at, std::to_string(idx_.size() - at) + " bytes behind the last table");
  return true;
}

// Single-byte keys compare signed, two-byte keys unsigned with the first byte high.
int IndexCheck::compareKeys(const Table& table, size_t a, size_t b) const {
  const uint8_t* left = bytesAt(idx_, rowAt(table, a));
  const uint8_t* right = bytesAt(idx_, rowAt(table, b));
  if (table.keySize == 2) return readBE16(left) - readBE16(right);
  return static_cast<int8_t>(*left) - static_cast<int8_t>(*right);
}

uint32_t IndexCheck::value(const Table& table, size_t row) const {
  const uint8_t* at = bytesAt(idx_, rowAt(table, row) + table.keySize);
  return table.name == 'C' ? readLE32(at) : readLE16(at);
}

// The children of a row of a table that is not the last: [*begin, *end) of the next one.
bool IndexCheck::children(size_t number, size_t row, size_t* begin, size_t* end) {
  Table& table = tables_[number];
  const size_t all = tables_[number + 1].rows;
  *begin = value(table, row);
  *end = row + 1 < table.rows ? value(table, row + 1) : all;
  const std::string title = std::string("table ") + table.name + " row " + std::to_string(row);
  if (row == 0 && *begin != 0) {
    fault(rowAt(table, row) + table.keySize,
          title + ": first child " + std::to_string(*begin) + " instead of 0");
  }
  const std::string span = title + ": children " + std::to_string(*begin) + " to " + std::to_string(*end);
  if (*begin >= *end || *end > all) {
    fault(rowAt(table, row) + table.keySize, span + " of " + std::to_string(all));
    return false;
  }
  if (*begin < table.walked) {
    fault(rowAt(table, row) + table.keySize, span + " belong to rows before");
    return false;
  }
  table.walked = *end;
  return true;
}

void IndexCheck::walk(size_t number, size_t begin, size_t end, const std::string& prefix,
                      const OnRow& onRow) {
  const Table& table = tables_[number];
  for (size_t row = begin; row < end; ++row) {
    if (row > begin && compareKeys(table, row - 1, row) >= 0) {
      fault(rowAt(table, row), std::string("table ") + table.name + " row " + std::to_string(row) +
                                   ": key not above that of the row before");
    }
    const std::string longer = prefix + std::string(idx_.substr(rowAt(table, row), table.keySize));
    if (table.name == 'C') {
      if (longer.find_first_not_of('\0', longer.find('\0')) < longer.size()) {
        fault(rowAt(table, row),
              "table C row " + std::to_string(row) + ": a key behind a word that has ended");
      }
      block(value(table, row), longer, onRow);
      continue;
    }
    size_t first = 0, behind = 0;
    if (children(number, row, &first, &behind)) walk(number + 1, first, behind, longer, onRow);
  }
}

bool IndexCheck::blockHead(uint64_t at, size_t* rows, size_t* size) {
  if (!contains(ix3_, at, engine::kIx3Head)) {
    faults_->add(ix3Name_, at, "no block here: the file ends at " + std::to_string(ix3_.size()));
    return false;
  }
  *rows = readLE16(bytesAt(ix3_, at));
  *size = readLE16(bytesAt(ix3_, at + 2));
  if (*size < engine::kIx3Head + *rows * engine::kIx3RowOverhead) {
    faults_->add(
        ix3Name_, at,
        "block of " + std::to_string(*size) + " bytes is too short for " + std::to_string(*rows) + " rows");
    return false;
  }
  if (!contains(ix3_, at, *size)) {
    faults_->add(ix3Name_, at, "block of " + std::to_string(*size) + " bytes runs past the end of the file");
    return false;
  }
  if (*rows == 0) faults_->add(ix3Name_, at, "block without rows");
  return *rows != 0;
}

// Notes the bytes of a block. False when it overlaps one that was noted before.
bool IndexCheck::cover(uint64_t begin, uint64_t end) {
  const auto behind = covered_.lower_bound(begin);
  const bool meetsNext = behind != covered_.end() && behind->first < end;
  const bool meetsLast = behind != covered_.begin() && std::prev(behind)->second > begin;
  if (meetsNext || meetsLast) {
    const uint64_t other = meetsLast ? std::prev(behind)->first : behind->first;
    faults_->add(ix3Name_, begin, "block overlaps the one at " + std::to_string(other));
    return false;
  }
  covered_.emplace_hint(behind, begin, end);
  coveredBytes_ += end - begin;
  return true;
}

void IndexCheck::block(uint64_t at, const std::string& prefix, const OnRow& onRow) {
  size_t rows = 0, size = 0;
  if (!blockHead(at, &rows, &size) || !cover(at, at + size)) return;
  ++blocks_;
  const uint64_t stringsAt = at + engine::kIx3Head + 2 * rows, entriesAt = at + size - 4 * rows;
  const size_t area = static_cast<size_t>(entriesAt - stringsAt);
  const std::string shortKey = prefix.substr(0, prefix.find('\0'));
  std::string last;
  size_t expected = 0;  // where the next string begins
  for (size_t row = 0; row < rows; ++row) {
    const std::string title = "row " + std::to_string(row);
    const uint64_t offsetAt = at + engine::kIx3Head + 2 * row;
    const size_t begin = readLE16(bytesAt(ix3_, offsetAt));
    if (begin != expected || !contains(ix3_.substr(stringsAt, area), begin, 3)) {
      faults_->add(
          ix3Name_, offsetAt,
          title + ": string at " + std::to_string(begin) + " instead of " + std::to_string(expected));
      return;
    }
    const size_t length = readLE16(bytesAt(ix3_, stringsAt + begin));
    if (begin + 2 + length + 1 > area) {
      faults_->add(ix3Name_, stringsAt + begin,
                   title + ": string of " + std::to_string(length) + " bytes leaves the block");
      return;
    }
    const std::string_view text = ix3_.substr(stringsAt + begin + 2, length + 1);
    if (text.find('\0') != length) {
      faults_->add(ix3Name_, stringsAt + begin,
                   title + ": string length " + std::to_string(length) + " is not where its NUL stands");
      return;
    }
    expected = begin + 2 + length + 1;
    const std::string remainder(text.substr(0, length));
    if (row > 0 && remainder < last) faults_->add(ix3Name_, offsetAt, title + ": below the row before");
    if (!remainder.empty() && shortKey.size() != prefix.size()) {
      faults_->add(ix3Name_, offsetAt, title + ": a remainder behind a word that has ended");
    }
    last = remainder;
    ++rows_;
    onRow(shortKey + remainder, readLE32(bytesAt(ix3_, entriesAt + 4 * row)), entriesAt + 4 * row);
  }
  if (expected != area) {
    faults_->add(ix3Name_, stringsAt + expected,
                 std::to_string(area - expected) + " bytes behind the last string");
  }
}

void IndexCheck::run(const OnRow& onRow) {
  if (readTables()) walk(0, 0, tables_[0].rows, "", onRow);
}

}  // namespace zavel::mkdict
