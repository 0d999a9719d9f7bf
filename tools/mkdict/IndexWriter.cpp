// A row is one word; rows with one key prefix share a block, and the tables lead from prefix to block:
//
//   .idx   table A  first part of the prefix   -> first child in B (or C)
//          table B  second byte                -> first child in C        (types 1 and 4 only)
//          table C  last part of the prefix    -> offset of the block
//   .ix3   block    remainders in strcmp order -> offsets in the .dic file
//
// Tests: tests/mkdict/IndexWriterTest.cpp.
#include "mkdict/IndexWriter.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "engine/DicFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::mkdict {
namespace {

using engine::kIx3Head;
using engine::kIx3RowOverhead;
using engine::kMaxIx3;
using engine::kPrefixLength;
using engine::kTypeKana;
using engine::kTypeKatu;
using engine::kTypeKji;

// Row numbers are u16 and two of them mean something else.
constexpr size_t kMaxTableRows = engine::kRowBad;

size_t prefixLength(uint16_t type) {
  return kPrefixLength[type];
}

std::string_view remainderView(uint16_t type, const std::string& key) {
  return key.size() <= prefixLength(type) ? std::string_view()
                                          : std::string_view(key).substr(prefixLength(type));
}

uint8_t byteAt(const std::string& key, size_t i) {
  return i < key.size() ? static_cast<uint8_t>(key[i]) : 0;
}

// The i-th byte of a prefix as a number that sorts as the readers compare it.
int sortValue(uint16_t type, const std::string& key, size_t i) {
  const uint8_t byte = byteAt(key, i);
  return type == kTypeKji ? byte : static_cast<int8_t>(byte);
}

// What a word weighs when a table is full: half as much for each step of 32 in its rank, at least 1.
uint64_t weightOf(uint32_t rank) {
  return (uint64_t{1} << 40) >> std::min<uint32_t>(rank / 32, 40);
}

// Lengths of the prefix parts that tables A, B and C hold; 0 for a table that the type lacks.
struct Parts {
  size_t a, b, c;
};

Parts partsOf(uint16_t type) {
  switch (type) {
    case kTypeKana:
      return {1, 0, 1};
    case kTypeKji:
      return {2, 0, 2};
    case kTypeKatu:
      return {0, 0, 1};
    default:
      return {1, 1, 1};
  }
}

}  // namespace

std::string IndexWriter::prefixOf(uint16_t type, const std::string& key) {
  std::string prefix = key.substr(0, prefixLength(type));
  prefix.resize(prefixLength(type), '\0');
  return prefix;
}

std::string IndexWriter::remainderOf(uint16_t type, const std::string& key) {
  return std::string(remainderView(type, key));
}

int IndexWriter::comparePrefixes(uint16_t type, const std::string& a, const std::string& b) {
  for (size_t i = 0; i < prefixLength(type); ++i) {
    const int difference = sortValue(type, a, i) - sortValue(type, b, i);
    if (difference != 0) return difference;
  }
  return 0;
}

bool IndexWriter::before(const IndexRow& a, const IndexRow& b) const {
  if (const int prefix = comparePrefixes(type_, a.key, b.key); prefix != 0) return prefix < 0;
  if (const int rest = remainderView(type_, a.key).compare(remainderView(type_, b.key)); rest != 0)
    return rest < 0;
  if (a.rank != b.rank) return a.rank < b.rank;
  return a.entry < b.entry;
}

void IndexWriter::arrange(const LeftOut& leftOut) {
  refuseBadKeys(leftOut);
  std::sort(rows_.begin(), rows_.end(),
            [this](const IndexRow& a, const IndexRow& b) { return before(a, b); });
  const auto repeat = [](const IndexRow& a, const IndexRow& b) {
    return a.entry == b.entry && a.key == b.key;
  };
  rows_.erase(std::unique(rows_.begin(), rows_.end(), repeat), rows_.end());
  limitBlocks(leftOut);
  limitTables(leftOut);
}

void IndexWriter::refuseBadKeys(const LeftOut& leftOut) {
  std::vector<bool> filled, sound;
  for (const IndexRow& row : rows_) filled.push_back(!row.key.empty());
  keepOnly(filled, RowFault::kEmptyKey, leftOut);
  for (const IndexRow& row : rows_) {
    const bool whole = type_ != kTypeKji || row.key.size() % 2 == 0;
    sound.push_back(whole && row.key.find('\0') == std::string::npos);
  }
  keepOnly(sound, RowFault::kBadKey, leftOut);
}

void IndexWriter::keepOnly(const std::vector<bool>& keep, RowFault fault, const LeftOut& leftOut) {
  size_t kept = 0;
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (!keep[i]) {
      leftOut(rows_[i], fault);
    } else {
      if (kept != i) rows_[kept] = std::move(rows_[i]);
      ++kept;
    }
  }
  rows_.resize(kept);
}

std::vector<IndexWriter::Group> IndexWriter::groups() const {
  std::vector<Group> all;
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (i == 0 || comparePrefixes(type_, rows_[i - 1].key, rows_[i].key) != 0) all.push_back({i, i});
    all.back().end = i + 1;
  }
  return all;
}

size_t IndexWriter::prefixes() const {
  return groups().size();
}

// In each block the most frequent rows stay, as many as fit.
void IndexWriter::limitBlocks(const LeftOut& leftOut) {
  std::vector<bool> keep(rows_.size(), true);
  for (const Group& group : groups()) {
    size_t size = kIx3Head;
    std::vector<size_t> byRank;
    for (size_t i = group.begin; i < group.end; ++i) {
      size += kIx3RowOverhead + remainderView(type_, rows_[i].key).size();
      byRank.push_back(i);
    }
    if (size <= kMaxIx3) continue;
    std::sort(byRank.begin(), byRank.end(), [this](size_t a, size_t b) {
      if (rows_[a].rank != rows_[b].rank) return rows_[a].rank < rows_[b].rank;
      return rows_[a].entry < rows_[b].entry;
    });
    size = kIx3Head;
    for (size_t i : byRank) {
      const size_t row = kIx3RowOverhead + remainderView(type_, rows_[i].key).size();
      keep[i] = size + row <= kMaxIx3;
      if (keep[i]) size += row;
    }
  }
  keepOnly(keep, RowFault::kFullBlock, leftOut);
}

// Table C holds a row for each prefix, so it is the first to be full. The prefixes stay whose words weigh
// most together, so that few words and no frequent ones are lost; among equals the first.
void IndexWriter::limitTables(const LeftOut& leftOut) {
  const std::vector<Group> all = groups();
  if (all.size() <= kMaxTableRows) return;
  std::vector<uint64_t> weights(all.size(), 0);
  std::vector<size_t> order(all.size());
  for (size_t g = 0; g < all.size(); ++g) {
    order[g] = g;
    for (size_t i = all[g].begin; i < all[g].end; ++i) weights[g] += weightOf(rows_[i].rank);
  }
  std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return weights[a] > weights[b]; });
  std::vector<bool> keep(rows_.size(), true);
  for (size_t k = kMaxTableRows; k < order.size(); ++k) {
    const Group& group = all[order[k]];
    std::fill(keep.begin() + static_cast<ptrdiff_t>(group.begin),
              keep.begin() + static_cast<ptrdiff_t>(group.end), false);
  }
  keepOnly(keep, RowFault::kFullTable, leftOut);
}

std::string IndexWriter::block(const Group& group, const std::vector<uint32_t>& offsets) const {
  std::string rowOffsets, strings, entries;
  for (size_t i = group.begin; i < group.end; ++i) {
    const std::string_view remainder = remainderView(type_, rows_[i].key);
    appendLE16(rowOffsets, static_cast<uint16_t>(strings.size()));
    appendLE16(strings, static_cast<uint16_t>(remainder.size()));
    strings += remainder;
    strings += '\0';
    appendLE32(entries, offsets[rows_[i].entry]);
  }
  std::string out;
  appendLE16(out, static_cast<uint16_t>(group.end - group.begin));
  appendLE16(out, static_cast<uint16_t>(kIx3Head + rowOffsets.size() + strings.size() + entries.size()));
  return out + rowOffsets + strings + entries;
}

std::string IndexWriter::tables(const std::vector<Group>& all,
                                const std::vector<uint32_t>& blockOffsets) const {
  const Parts parts = partsOf(type_);
  std::string a, b, c, lastA, lastB;
  uint16_t rowsB = 0, rowsC = 0;
  for (size_t g = 0; g < all.size(); ++g) {
    const std::string prefix = prefixOf(type_, rows_[all[g].begin].key);
    const std::string partA = prefix.substr(0, parts.a), partB = prefix.substr(0, parts.a + parts.b);
    if (parts.a != 0 && (g == 0 || partA != lastA)) {
      a += partA;
      appendLE16(a, parts.b != 0 ? rowsB : rowsC);
    }
    if (parts.b != 0 && (g == 0 || partB != lastB)) {
      b += prefix.substr(parts.a, parts.b);
      appendLE16(b, rowsC);
      ++rowsB;
    }
    c += prefix.substr(parts.a + parts.b);
    appendLE32(c, blockOffsets[g]);
    ++rowsC;
    lastA = partA;
    lastB = partB;
  }
  std::string out;
  for (const std::string* table : {&a, &b}) {
    if ((table == &a ? parts.a : parts.b) == 0) continue;
    appendLE32(out, static_cast<uint32_t>(table->size()));
    appendLE32(out, static_cast<uint32_t>(out.size() + sizeof(uint32_t) + table->size()));
    out += *table;
  }
  appendLE32(out, static_cast<uint32_t>(c.size()));
  return out + c;
}

IndexWriter::Files IndexWriter::write(const std::vector<uint32_t>& offsets) const {
  Files files;
  const std::vector<Group> all = groups();
  std::vector<uint32_t> blockOffsets;
  blockOffsets.reserve(all.size());
  for (const Group& group : all) {
    blockOffsets.push_back(static_cast<uint32_t>(files.ix3.size()));
    files.ix3 += block(group, offsets);
  }
  files.idx = tables(all, blockOffsets);
  return files;
}

}  // namespace zavel::mkdict
