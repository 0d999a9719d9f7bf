#include "support/DictdFiles.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <fstream>

namespace zavel::test {
namespace {

constexpr int kBare = -15;  // deflate data without a wrapper
constexpr int kGzipWrapper = 31;

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

void appendLow16(std::string& out, size_t value) {
  out += static_cast<char>(value & 0xFF);
  out += static_cast<char>(value >> 8 & 0xFF);
}

void appendLow32(std::string& out, size_t value) {
  appendLow16(out, value & 0xFFFF);
  appendLow16(out, value >> 16);
}

// Feeds one piece through the stream and gives what comes out.
std::string deflated(z_stream& stream, std::string_view piece, int flush) {
  std::string out(piece.size() * 2 + 1024, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
  stream.avail_in = static_cast<uInt>(piece.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  EXPECT_NE(deflate(&stream, flush), Z_STREAM_ERROR);
  out.resize(out.size() - stream.avail_out);
  return out;
}

std::vector<std::string> packedChunks(std::string_view text, size_t chunkLength) {
  z_stream stream{};
  EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, kBare, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::vector<std::string> chunks;
  for (size_t at = 0; at < text.size(); at += chunkLength) {
    const bool last = at + chunkLength >= text.size();
    chunks.push_back(deflated(stream, text.substr(at, chunkLength), Z_FULL_FLUSH));
    if (last) chunks.back() += deflated(stream, "", Z_FINISH);
  }
  deflateEnd(&stream);
  return chunks;
}

}  // namespace

std::string dictdNumber(size_t number) {
  static const char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string digits(1, kDigits[number % 64]);
  while (number /= 64) digits = kDigits[number % 64] + digits;
  return digits;
}

DictdFiles& DictdFiles::entry(std::string_view text, const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    line(word + "\t" + dictdNumber(text_.size()) + "\t" + dictdNumber(text.size()));
  }
  text_ += text;
  return *this;
}

DictdFiles& DictdFiles::line(const std::string& bytes) {
  lines_.push_back(bytes);
  return *this;
}

DictdFiles& DictdFiles::sorted() {
  std::sort(lines_.begin(), lines_.end());
  return *this;
}

std::string DictdFiles::index() const {
  std::string bytes;
  for (const std::string& line : lines_) bytes += line + "\n";
  return bytes;
}

void DictdFiles::write(const std::string& base) const {
  writeFile(base + ".index", index());
  writeFile(base + ".dict", text_);
}

void DictdFiles::writePacked(const std::string& base, size_t chunkLength) const {
  writeFile(base + ".index", index());
  writeFile(base + ".dict.dz", dictzip(text_, chunkLength));
}

std::string dictzip(std::string_view text, size_t chunkLength, const std::string& name) {
  const std::vector<std::string> chunks = packedChunks(text, chunkLength);
  std::string out("\x1F\x8B\x08", 3);
  out += static_cast<char>(name.empty() ? 0x04 : 0x0C);
  out += std::string(4, '\0') + "\x02\x03";
  appendLow16(out, 10 + 2 * chunks.size());  // the whole extra part: one field
  out += "RA";
  appendLow16(out, 6 + 2 * chunks.size());
  appendLow16(out, 1);
  appendLow16(out, chunkLength);
  appendLow16(out, chunks.size());
  for (const std::string& chunk : chunks) appendLow16(out, chunk.size());
  if (!name.empty()) out += name + '\0';
  for (const std::string& chunk : chunks) out += chunk;
  appendLow32(out, crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())));
  appendLow32(out, text.size());
  return out;
}

std::string plainGzip(std::string_view text) {
  z_stream stream{};
  EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, kGzipWrapper, 8, Z_DEFAULT_STRATEGY), Z_OK);
  const std::string packed = deflated(stream, text, Z_FINISH);
  deflateEnd(&stream);
  return packed;
}

}  // namespace zavel::test
