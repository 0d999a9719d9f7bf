#include "support/DicWriter.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "engine/EngineAPI.h"

namespace zavel::test {
namespace {

void put16(std::string& out, size_t value) {
  out += static_cast<char>(value & 0xFF);
  out += static_cast<char>(value >> 8 & 0xFF);
}

void put32(std::string& out, size_t value) {
  put16(out, value & 0xFFFF);
  put16(out, value >> 16 & 0xFFFF);
}

uint32_t get16(const std::string& bytes, size_t at) {
  return static_cast<uint8_t>(bytes[at]) | static_cast<uint32_t>(static_cast<uint8_t>(bytes[at + 1])) << 8;
}

uint32_t get32(const std::string& bytes, size_t at) {
  return get16(bytes, at) | get16(bytes, at + 2) << 16;
}

// The key under which an English word is filed.
std::string keyE(std::string_view word) {
  std::string key;
  for (char c : word) {
    if (std::string_view(" ',-./_").find(c) != std::string_view::npos) continue;
    if (c == '&') key += "and";
    if (c != '&') key += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  }
  return key;
}

// The key of a Japanese word, both bytes of each character.
std::string keyK(std::string_view word) {
  std::string key;
  for (size_t i = 0; i + 1 < word.size(); i += 2) {
    unsigned code = static_cast<uint8_t>(word[i]) * 256u + static_cast<uint8_t>(word[i + 1]);
    if (code == 0x815B || code == 0x817C || code == 0x8163) continue;
    if (key.size() < 4 && (code == 0x8394 || code == 0x8868)) code = 0x82A4;
    if (key.size() < 4 && code == 0x8395) code = 0x82A9;
    if (key.size() < 4 && code == 0x8396) code = 0x82AF;
    if (code >= 0x8340 && code <= 0x837E) code -= 0xA1;
    if (code >= 0x8380 && code <= 0x8393) code -= 0xA2;
    key += static_cast<char>(code >> 8);
    key += static_cast<char>(code & 0xFF);
  }
  return key;
}

// The same by kana: the low bytes alone.
std::string keyJ(std::string_view word) {
  const std::string both = keyK(word);
  std::string key;
  for (size_t i = 1; i < both.size(); i += 2) key += both[i];
  return key;
}

// Shape of an index: bytes of one key unit, and tables.
struct Shape {
  size_t unit;
  size_t levels;
};

Shape shapeOf(uint16_t type) {
  switch (type) {
    case 2:
      return {1, 2};
    case 3:
      return {2, 2};
    case 5:
      return {1, 1};
    default:
      return {1, 3};
  }
}

// The key bytes that the tables hold, zeros where the word has ended.
std::string prefixOf(const std::string& key, const Shape& shape) {
  std::string prefix = key.substr(0, shape.unit * shape.levels);
  prefix.resize(shape.unit * shape.levels, '\0');
  return prefix;
}

// One unit as the number it is compared by: a signed byte, or two bytes unsigned.
int unitNumber(const std::string& prefix, size_t level, size_t unit) {
  if (unit == 1) return static_cast<signed char>(prefix[level]);
  return static_cast<uint8_t>(prefix[level * 2]) * 256 + static_cast<uint8_t>(prefix[level * 2 + 1]);
}

std::vector<int> prefixNumbers(const std::string& key, const Shape& shape) {
  const std::string prefix = prefixOf(key, shape);
  std::vector<int> numbers;
  for (size_t level = 0; level < shape.levels; ++level)
    numbers.push_back(unitNumber(prefix, level, shape.unit));
  return numbers;
}

std::string remainderOf(const std::string& key, const Shape& shape) {
  const size_t prefix = shape.unit * shape.levels;
  return key.size() > prefix ? key.substr(prefix) : std::string();
}

// Rows of the tables in the making; the last table's rows hold block offsets.
class TableMaker {
 public:
  explicit TableMaker(Shape shape) : shape_(shape), rows_(shape.levels), counts_(shape.levels) {}

  void add(const std::string& prefix, size_t blockOffset) {
    size_t level = 0;
    const size_t unit = shape_.unit;
    while (level < shape_.levels && !last_.empty() &&
           prefix.compare(level * unit, unit, last_, level * unit, unit) == 0)
      ++level;
    for (; level < shape_.levels; ++level) {
      rows_[level] += prefix.substr(level * unit, unit);
      if (level + 1 < shape_.levels) put16(rows_[level], counts_[level + 1]);
      if (level + 1 == shape_.levels) put32(rows_[level], blockOffset);
      ++counts_[level];
    }
    last_ = prefix;
  }

  std::string idx(size_t header) const {
    std::string out(header, '\0');
    for (size_t level = 0; level < shape_.levels; ++level) {
      put32(out, rows_[level].size());
      if (level + 1 < shape_.levels) put32(out, out.size() + 4 + rows_[level].size());
      out += rows_[level];
    }
    return out;
  }

 private:
  Shape shape_;
  std::vector<std::string> rows_;
  std::vector<size_t> counts_;
  std::string last_;  // prefix of the row before
};

std::string takeBytes(void* list, uint32_t size) {
  Handle handle = static_cast<Handle>(list);
  if (handle == nullptr) return {};
  const std::string bytes(static_cast<const char*>(GlobalLock(handle)), size);
  GlobalUnlock(handle);
  GlobalFree(handle);
  return bytes;
}

// A record's text without its NUL.
std::string lineText(const std::string& bytes, size_t at, size_t length) {
  if (at + length > bytes.size() || length == 0 || bytes[at + length - 1] != '\0') {
    ADD_FAILURE() << "a record that is no NUL-terminated text at " << at;
    return {};
  }
  return bytes.substr(at, length - 1);
}

std::string convert(const char* toName, const char* fromName, std::string_view text) {
  const iconv_t converter = iconv_open(toName, fromName);
  std::string in(text);
  std::string out(text.size() * 3 + 1, '\0');
  char* from = in.data();
  char* to = out.data();
  size_t left = in.size();
  size_t room = out.size();
  const bool failed = iconv(converter, &from, &left, &to, &room) == static_cast<size_t>(-1);
  iconv_close(converter);
  if (failed) ADD_FAILURE() << "not in " << toName << ": " << text;
  out.resize(out.size() - room);
  return out;
}

}  // namespace

std::string sjis(std::string_view utf8) {
  return convert("CP932", "UTF-8", utf8);
}

std::string utf8(std::string_view sjis) {
  return convert("UTF-8", "CP932", sjis);
}

std::string tag(uint16_t value) {
  return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
}

std::string entryE(std::string_view word, std::string_view hinsiUtf8, std::string_view imiUtf8) {
  return tag(0xF5D1) + tag(0xF5B1) + std::string(word) + tag(0xF5C1) + "\n" + tag(0xF5D3) + "-[" +
         sjis(hinsiUtf8) + "]\n" + tag(0xF5D4) + sjis(imiUtf8) + "\n";
}

std::string entryForKatuyo(std::string_view number, std::string_view headwordField,
                           std::string_view hinsiLine, std::string_view imiUtf8) {
  const std::string marker = number.empty() ? std::string() : tag(0xF4B5) + std::string(number);
  return tag(0xF5D1) + marker + tag(0xF4D0) + std::string(headwordField) + "\n" + tag(0xF5D3) + "-" +
         std::string(hinsiLine) + "\n" + tag(0xF5D4) + sjis(imiUtf8) + "\n";
}

std::string entryJ(std::string_view kanaUtf8, std::string_view kanjiUtf8, std::string_view imi) {
  const std::string kanji = kanjiUtf8.empty() ? std::string() : "\x1B" + sjis(kanjiUtf8);
  return tag(0xF5D1) + sjis(kanaUtf8) + kanji + "\n" + tag(0xF5D4) + sjis(imi) + "\n";
}

std::string writeBlock(const std::vector<std::string>& remainders, const std::vector<uint32_t>& offsets) {
  std::string places, strings, entries;
  for (const std::string& remainder : remainders) {
    put16(places, strings.size());
    put16(strings, remainder.size());
    strings += remainder + '\0';
  }
  for (const uint32_t offset : offsets) put32(entries, offset);
  const size_t size = 4 + places.size() + strings.size() + entries.size();
  if (size > 65535) ADD_FAILURE() << "a block of " << size << " bytes";
  std::string block;
  put16(block, remainders.size());
  put16(block, size);
  return block + places + strings + entries;
}

IndexFiles writeIndex(uint16_t type, std::vector<IndexRow> rows, bool userHeader) {
  const Shape shape = shapeOf(type);
  const auto before = [&shape](const IndexRow& a, const IndexRow& b) {
    const auto left = prefixNumbers(a.key, shape), right = prefixNumbers(b.key, shape);
    return left != right ? left < right : remainderOf(a.key, shape) < remainderOf(b.key, shape);
  };
  std::stable_sort(rows.begin(), rows.end(), before);
  const size_t header = userHeader ? 128 : 0;
  IndexFiles files;
  files.ix3.assign(header, '\0');
  TableMaker tables(shape);
  for (size_t i = 0; i < rows.size();) {
    const std::string prefix = prefixOf(rows[i].key, shape);
    std::vector<std::string> remainders;
    std::vector<uint32_t> offsets;
    for (; i < rows.size() && prefixOf(rows[i].key, shape) == prefix; ++i) {
      remainders.push_back(remainderOf(rows[i].key, shape));
      offsets.push_back(rows[i].offset);
    }
    tables.add(prefix, files.ix3.size());
    files.ix3 += writeBlock(remainders, offsets);
  }
  files.idx = tables.idx(header);
  return files;
}

std::string scramble(std::string_view plain) {
  std::string out(plain);
  for (char& c : out) c = static_cast<char>(c - 10);
  return out;
}

uint32_t DicWriter::addE(std::string_view word, std::string_view entry) {
  const uint32_t offset = static_cast<uint32_t>(ejDic_.size());
  ejDic_ += entry;
  aliasE(word, offset);
  return offset;
}

void DicWriter::aliasE(std::string_view word, uint32_t offset) {
  ej_.push_back({keyE(word), offset});
}

void DicWriter::addHase(std::string_view form, uint32_t offset) {
  hase_.push_back({keyE(form), offset});
}

void DicWriter::addKatu(std::string_view form, std::string_view plainUtf8) {
  katu_.push_back({keyE(form), static_cast<uint32_t>(katuDic_.size())});
  katuDic_ += scramble(sjis(plainUtf8));
}

uint32_t DicWriter::addJ(std::string_view kanaUtf8, std::string_view kanjiUtf8, std::string_view entry) {
  const uint32_t offset = static_cast<uint32_t>(jeDic_.size());
  jeDic_ += entry;
  je_.push_back({keyJ(sjis(kanaUtf8)), offset});
  if (!kanjiUtf8.empty()) ke_.push_back({keyK(sjis(kanjiUtf8)), offset});
  return offset;
}

std::map<std::string, std::string> DicWriter::files() const {
  const IndexFiles ej = writeIndex(1, ej_), je = writeIndex(2, je_), ke = writeIndex(3, ke_);
  const IndexFiles hase = writeIndex(4, hase_), katu = writeIndex(5, katu_);
  return {{"ej.dic", ejDic_},     {"ej.ix3", ej.ix3},     {"ej.idx", ej.idx},     {"hase.ix3", hase.ix3},
          {"hase.idx", hase.idx}, {"katu.dic", katuDic_}, {"katu.ix3", katu.ix3}, {"katu.idx", katu.idx},
          {"je.dic", jeDic_},     {"je.ix3", je.ix3},     {"je.idx", je.idx},     {"ke.ix3", ke.ix3},
          {"ke.idx", ke.idx}};
}

void DicWriter::write(const std::string& folder) const {
  std::filesystem::create_directories(folder);
  for (const auto& [name, bytes] : files()) writeFile(folder + "/" + name, bytes);
}

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) ADD_FAILURE() << "can't write " << path;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) ADD_FAILURE() << "can't read " << path;
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> takeLines(void* list, uint32_t size) {
  const std::string bytes = takeBytes(list, size);
  std::vector<std::string> lines;
  size_t at = 0;
  while (at + 2 <= bytes.size()) {
    const size_t length = get16(bytes, at);
    lines.push_back(lineText(bytes, at + 2, length));
    at += 2 + length;
  }
  EXPECT_EQ(at, bytes.size()) << "bytes left over behind the last record";
  return lines;
}

std::vector<std::string> takeEntries(void* list, uint32_t size) {
  const std::string bytes = takeBytes(list, size);
  std::vector<std::string> entries;
  size_t at = 0;
  while (at + 4 <= bytes.size()) {
    const size_t length = get32(bytes, at);
    if (length > bytes.size() - at - 4) break;
    entries.push_back(bytes.substr(at + 4, length));
    at += 4 + length;
  }
  EXPECT_EQ(at, bytes.size()) << "bytes left over behind the last record";
  return entries;
}

std::vector<std::pair<int, std::string>> takeForms(void* list, uint32_t size) {
  const std::string bytes = takeBytes(list, size);
  std::vector<std::pair<int, std::string>> forms;
  size_t at = 0;
  while (at + 3 <= bytes.size()) {
    const size_t length = get16(bytes, at);
    forms.emplace_back(static_cast<uint8_t>(bytes[at + 2]), lineText(bytes, at + 3, length));
    at += 3 + length;
  }
  EXPECT_EQ(at, bytes.size()) << "bytes left over behind the last record";
  return forms;
}

}  // namespace zavel::test
