#include "support/BookWriter.h"

#include <algorithm>

#include "base/IconvTextEncoding.h"
#include "foundation/Kanji.h"
#include "foundation/KanjiConversion.h"

namespace zavel::test {
namespace {

constexpr size_t kBlock = 2048;
constexpr size_t kSet = 32768;
constexpr size_t kSetTable = 64;

char byteOf(uint32_t value, int shift) {
  return static_cast<char>(value >> shift & 0xFF);
}

std::string field(std::string text, size_t size) {
  text.resize(size);
  return text;
}

}  // namespace

std::string jis(std::string_view utf8) {
  const std::string sjis = IconvTextEncoding().toSjisLossy(utf8).bytes();
  std::string out(2 * sjis.size(), '\0');
  out.resize(foundation::GFnConvSJIS2JIS(out.data(), sjis.data(), sjis.size()));
  return out;
}

std::string fromJis(std::string_view jis) {
  std::string sjis;
  for (size_t i = 0; i + 2 <= jis.size(); i += 2) {
    const uint16_t code =
        static_cast<uint16_t>(static_cast<uint8_t>(jis[i]) << 8 | static_cast<uint8_t>(jis[i + 1]));
    sjis += be16(foundation::__mbcjistojms(code));
  }
  return IconvTextEncoding().fromSjisLossy(sjis);
}

std::string be16(uint32_t value) {
  return {byteOf(value, 8), byteOf(value, 0)};
}

std::string be32(uint32_t value) {
  return {byteOf(value, 24), byteOf(value, 16), byteOf(value, 8), byteOf(value, 0)};
}

std::string bcd(uint32_t value, size_t bytes) {
  std::string out(bytes, '\0');
  for (size_t i = bytes; i > 0; --i) {
    out[i - 1] = static_cast<char>(value % 10 | value / 10 % 10 << 4);
    value /= 100;
  }
  return out;
}

std::string code(unsigned distance, unsigned length, uint8_t literal) {
  return {byteOf(distance, 4), static_cast<char>((distance & 15) << 4 | length), static_cast<char>(literal)};
}

std::string blockSet(uint8_t fill, std::string_view codes) {
  return be32(static_cast<uint32_t>(codes.size() / 3)) + static_cast<char>(fill) + std::string(codes);
}

std::string blockSetFile(const std::vector<std::string>& sets) {
  std::string file(kSetTable, '\0');
  size_t offset = kSetTable + 4 * sets.size();
  for (const std::string& set : sets) {
    file += be32(static_cast<uint32_t>(offset));
    offset += set.size();
  }
  for (const std::string& set : sets) file += set;
  return file;
}

std::string blockSetFile(std::string_view blocks) {
  std::vector<std::string> sets;
  for (size_t at = 0; at < blocks.size(); at += kSet) {
    const std::string bytes = field(std::string(blocks.substr(at, kSet)), kSet);
    std::string codes;
    codes.reserve(3 * kSet);
    for (const char byte : bytes) codes += {'\0', '\0', byte};
    sets.push_back(blockSet(0, codes));
  }
  return blockSetFile(sets);
}

std::string padded(std::string bytes) {
  bytes.resize((bytes.size() + kBlock - 1) / kBlock * kBlock);
  return bytes;
}

std::string place(uint32_t block, uint32_t offset) {
  return be32(block) + be16(offset);
}

Text& Text::word(uint32_t value) {
  return raw(be16(value));
}

Text& Text::raw(std::string_view bytes) {
  bytes_ += bytes;
  return *this;
}

Text& Text::indent(unsigned depth) {
  return word(0x1F09).raw(bcd(depth, 2));
}

Text& Text::entry(std::string_view headword, std::string_view body, unsigned argument) {
  indent(1).word(0x1F41).word(argument).chars(headword).word(0x1F61).feed();
  return indent(2).chars(body).feed();
}

Text& Text::address(uint32_t block, uint32_t offset) {
  return raw(bcd(block, 4)).raw(bcd(offset, 2));
}

IndexBlock& IndexBlock::record(std::string_view bytes) {
  ++records_;
  return loose(bytes);
}

IndexBlock& IndexBlock::loose(std::string_view bytes) {
  content_ += bytes;
  return *this;
}

IndexBlock& IndexBlock::count(uint16_t records) {
  records_ = records;
  return *this;
}

IndexBlock& IndexBlock::inner(std::string_view key, uint32_t child) {
  return record(field(std::string(key), keyLength_) + be32(child));
}

IndexBlock& IndexBlock::closing(uint32_t child) {
  return inner(std::string(keyLength_, '\xFF'), child);
}

IndexBlock& IndexBlock::fixed(std::string_view key, uint32_t block, uint16_t offset) {
  return record(field(std::string(key), keyLength_) + place(block, offset));
}

IndexBlock& IndexBlock::leaf(std::string_view key, std::string_view body, std::string_view headword) {
  return record(static_cast<char>(key.size()) + std::string(key) + std::string(body) + std::string(headword));
}

IndexBlock& IndexBlock::tagged(uint8_t tag, std::string_view key, std::string_view behind) {
  return record(static_cast<char>(tag) + std::string(1, static_cast<char>(key.size())) + std::string(key) +
                std::string(behind));
}

std::string IndexBlock::bytes() const {
  return field({static_cast<char>(flags_), static_cast<char>(keyLength_)}, 2) + be16(records_) +
         field(content_, kBlock - 4);
}

BookWriter& BookWriter::region(uint16_t kind, uint32_t start, std::string_view blocks,
                               std::string_view flags) {
  Region region;
  region.kind = kind;
  region.start = start;
  region.end = start + static_cast<uint32_t>((blocks.size() + kBlock - 1) / kBlock) - 1;
  if (!flags.empty()) region.flags = flags;
  region.name = "r" + std::to_string(records_.size()) + ".dat";
  file(region.name, blockSetFile(blocks));
  return record(region);
}

BookWriter& BookWriter::record(const Region& region) {
  records_.push_back(region);
  return *this;
}

BookWriter& BookWriter::file(const std::string& name, std::string_view bytes) {
  files_.emplace_back(name, bytes);
  return *this;
}

std::string BookWriter::header() const {
  const size_t records = recordCount < 0 ? records_.size() : static_cast<size_t>(recordCount);
  const size_t length = titleLength < 0 ? title.size() : static_cast<size_t>(titleLength);
  const size_t icons = 128 + 48 * records_.size();
  std::string out = field(magic, 8) + be32(version) + static_cast<char>(length) + field(title, 63);
  out +=
      be16(static_cast<uint32_t>(records)) + static_cast<char>(contentType) + static_cast<char>(minorVersion);
  out += be32(static_cast<uint32_t>(icons)) + be32(static_cast<uint32_t>(largeIcon.size()));
  out +=
      be32(static_cast<uint32_t>(icons + largeIcon.size())) + be32(static_cast<uint32_t>(smallIcon.size()));
  out += be32(identity) + static_cast<char>(zenbun);
  return field(out, 128);
}

std::string BookWriter::catalog() const {
  std::string out = header();
  for (const Region& region : records_) {
    out += be16(0) + be16(region.kind) + be32(region.start) + be32(region.end) + field(region.flags, 4);
    out += static_cast<char>(region.name.size()) + field(region.name, 31);
  }
  return out + largeIcon + smallIcon;
}

std::string BookWriter::write(const TempFolder& folder, const std::string& name) const {
  for (const auto& [file, bytes] : files_) folder.write(file, bytes);
  folder.write(name, catalog());
  return folder.file(name);
}

}  // namespace zavel::test
