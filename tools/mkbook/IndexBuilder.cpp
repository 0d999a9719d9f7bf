// Tests: tests/mkbook/IndexBuilderTest.cpp
#include "mkbook/IndexBuilder.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "book/BookFormat.h"
#include "book/ControlEntry.h"
#include "book/IndexKey.h"
#include "foundation/ByteReader.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr size_t kRoom = kBlock - kIndexHeader;  // bytes for records
constexpr size_t kSearched = 62 * 2;             // bytes of a word that a search takes in
constexpr size_t kLongest = 127 * 2;             // bytes that a record's length can tell, whole characters
constexpr size_t kChild = 4;

bool isBackward(uint16_t kind) {
  return (kind & 0xF0) == 0x70;
}

// What a query takes for its own signs never reaches a key.
bool isToken(uint16_t code) {
  return (code >= kTokenExact && code <= kTokenField) || code == kTokenOpen || code == kTokenClose ||
         code == kTokenAnd || code == kTokenOr;
}

uint16_t codeAt(std::string_view text, size_t at) {
  return readBE16(reinterpret_cast<const uint8_t*>(text.data() + at));
}

// What comparisons pass over stands in no key: the walk to a leaf doesn't pass over it.
std::string asStored(std::string_view key) {
  std::string out;
  for (size_t at = 0; at + 2 <= key.size(); at += 2)
    if (!isPassedOver(codeAt(key, at))) appendBE16(out, foldDown(codeAt(key, at)));
  return out;
}

void appendAddress(std::string* out, const _SDICADDRESS& address) {
  appendBE32(*out, address.block);
  appendBE16(*out, static_cast<uint16_t>(address.offset));
}

std::string block(uint8_t flags, size_t keyLength, size_t records, const std::string& content) {
  std::string out;
  out += static_cast<char>(flags);
  out += static_cast<char>(keyLength);
  appendBE16(out, static_cast<uint16_t>(records));
  out += content;
  out.resize(kBlock);
  return out;
}

}  // namespace

IndexBuilder::IndexBuilder(uint16_t kind, const IndexFlags& flags) : kind_(kind), flags_(flags) {
  if ((flags[1] & 0x0C) != 0) throw std::invalid_argument("an index whose keys keep signs can't be searched");
}

IndexBuilder IndexBuilder::ofField(uint16_t kind) {
  IndexBuilder builder(kind);
  builder.asTyped_ = true;
  return builder;
}

std::string IndexBuilder::queryOf(uint16_t kind, std::string_view word) {
  std::string out;
  for (size_t at = 0; at + 2 <= word.size(); at += 2)
    if (!isToken(codeAt(word, at))) out += word.substr(at, 2);
  if (!isBackward(kind)) return out.substr(0, kSearched);
  return out.size() > kLongest ? out.substr(out.size() - kLongest) : out;
}

std::string IndexBuilder::keyOf(uint16_t kind, const IndexFlags& flags, std::string_view word) {
  const std::string query = queryOf(kind, word);
  const _EPBOOKCONTROLENTRY index{.kind = kind,
                                  .flag0 = flags[0],
                                  .flag1 = flags[1],
                                  .flag2 = flags[2],
                                  .flag3 = flags[3],
                                  .reserved = {},
                                  .start = 0,
                                  .end = 0};
  char key[kLongest + 2];
  formatIndexKey(index, key, query.c_str(), false);
  return asStored(key);
}

bool IndexBuilder::add(std::string_view word, const _SDICADDRESS& body, const _SDICADDRESS& headword) {
  const std::string key = asTyped_ ? asStored(queryOf(kind_, word)) : keyOf(kind_, flags_, word);
  if (key.empty()) return false;
  records_.push_back({keys_.size(), static_cast<uint8_t>(key.size()), body, headword});
  keys_ += key;
  return true;
}

std::string_view IndexBuilder::keyAt(size_t record) const {
  return std::string_view(keys_).substr(records_[record].key, records_[record].length);
}

// Codes are compared as numbers, high byte first, which is how bytes compare; what ends first comes first.
void IndexBuilder::settle() {
  const auto keyOfRecord = [this](const Record& record) {
    return std::string_view(keys_).substr(record.key, record.length);
  };
  const auto place = [](const Record& record) {
    return std::tuple(record.body.block, record.body.offset, record.headword.block, record.headword.offset);
  };
  std::sort(records_.begin(), records_.end(), [&](const Record& a, const Record& b) {
    const int order = keyOfRecord(a).compare(keyOfRecord(b));
    return order != 0 ? order < 0 : place(a) < place(b);
  });
  const auto same = [&](const Record& a, const Record& b) {
    return a.body.block == b.body.block && a.body.offset == b.body.offset && keyOfRecord(a) == keyOfRecord(b);
  };
  records_.erase(std::unique(records_.begin(), records_.end(), same), records_.end());
  layLeaves();
}

bool IndexBuilder::isGrouped() const {
  return kind_ == kKindGrouped;
}

bool IndexBuilder::hasHeadwords() const {
  return isGrouped() || kind_ == kKindBackward || kind_ == kKindBackwardAlphabetic || kind_ == kKindForward ||
         kind_ == kKindForwardAlphabetic;
}

size_t IndexBuilder::recordSize(const Record& record) const {
  return (isGrouped() ? 2 : 1) + size_t{record.length} + (hasHeadwords() ? kLongTrailer : kShortTrailer);
}

void IndexBuilder::layLeaves() {
  levels_.assign(1, {});
  size_t used = 0;
  for (size_t i = 0; i < records_.size(); ++i) {
    const size_t size = recordSize(records_[i]);
    if (used + size > kRoom) {
      levels_[0].ends.push_back(i);
      used = 0;
    }
    used += size;
  }
  levels_[0].ends.push_back(records_.size());
  while (levels_.back().ends.size() > 1) layInner();
}

// Inner keys are whole, so that a level's keys are as long as the longest of them.
void IndexBuilder::layInner() {
  const size_t below = levels_.size() - 1;
  const size_t children = levels_[below].ends.size();
  size_t keyLength = 2;
  for (size_t child = 0; child + 1 < children; ++child)
    keyLength = std::max<size_t>(keyLength, records_[lastRecord(below, child)].length);
  Level level{{}, keyLength};
  const size_t room = kRoom / (keyLength + kChild);
  for (size_t end = room; end < children; end += room) level.ends.push_back(end);
  level.ends.push_back(children);
  levels_.push_back(std::move(level));
}

size_t IndexBuilder::lastRecord(size_t level, size_t number) const {
  for (; level > 0; --level) number = levels_[level].ends[number] - 1;
  return levels_[0].ends[number] - 1;
}

uint32_t IndexBuilder::blocks() const {
  size_t blocks = 0;
  for (const Level& level : levels_) blocks += level.ends.size();
  return static_cast<uint32_t>(blocks);
}

// A key of FF bytes ends the level, for what sorts behind all others.
std::string IndexBuilder::inner(size_t level, size_t number, uint32_t childrenFirst) const {
  const std::vector<size_t>& ends = levels_[level].ends;
  const size_t keyLength = levels_[level].keyLength;
  const size_t children = levels_[level - 1].ends.size();
  const size_t first = number == 0 ? 0 : ends[number - 1];
  std::string content;
  for (size_t child = first; child < ends[number]; ++child) {
    std::string key(keyLength, '\xFF');
    if (child + 1 < children) {
      key = keyAt(lastRecord(level - 1, child));
      key.resize(keyLength);
    }
    content += key;
    appendBE32(content, childrenFirst + static_cast<uint32_t>(child));
  }
  const bool last = number + 1 == ends.size();
  return block(last ? kIndexLast : 0, keyLength, ends[number] - first, content);
}

std::string IndexBuilder::leaf(size_t number) const {
  const std::vector<size_t>& ends = levels_[0].ends;
  const size_t first = number == 0 ? 0 : ends[number - 1];
  std::string content;
  for (size_t i = first; i < ends[number]; ++i) {
    if (isGrouped()) content += static_cast<char>(kGroupSingle);
    content += static_cast<char>(records_[i].length);
    content += keyAt(i);
    appendAddress(&content, records_[i].body);
    if (hasHeadwords()) appendAddress(&content, records_[i].headword);
  }
  const bool last = number + 1 == ends.size();
  const unsigned flags = kIndexLeaf | (last ? kIndexLast : 0u) | (isGrouped() ? kIndexGroups : 0u);
  return block(static_cast<uint8_t>(flags), 0, ends[number] - first, content);
}

void IndexBuilder::write(uint32_t first, RegionFile& file) const {
  for (size_t level = levels_.size() - 1; level > 0; --level) {
    const size_t count = levels_[level].ends.size();
    first += static_cast<uint32_t>(count);
    for (size_t number = 0; number < count; ++number) file.append(inner(level, number, first));
  }
  for (size_t number = 0; number < levels_[0].ends.size(); ++number) file.append(leaf(number));
}

}  // namespace zavel::mkbook
