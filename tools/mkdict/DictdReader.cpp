// Tests: tests/mkdict/DictdReaderTest.cpp.
#include "mkdict/DictdReader.h"

#include <zlib.h>

#include <algorithm>
#include <utility>

#include "foundation/Storage.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kTextLimit = size_t{256} << 20;  // bytes, unpacked
constexpr size_t kFileLimit = size_t{128} << 20;  // bytes on the disk
constexpr size_t kMaxDigits = 6;                  // 36 bits: more than any text has
constexpr std::string_view kGzipMagic = "\x1F\x8B";
constexpr int kGzipOnly = 15 + 16;  // largest window, gzip wrapper demanded

// An inflating stream that is ended on every way out.
class Inflater {
 public:
  explicit Inflater(std::string_view input) {
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
    stream_.avail_in = static_cast<uInt>(input.size());
    ready_ = inflateInit2(&stream_, kGzipOnly) == Z_OK;
  }
  ~Inflater() {
    if (ready_) inflateEnd(&stream_);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  bool ready() const { return ready_; }
  bool drained() const { return stream_.avail_in == 0; }
  bool restart() { return inflateReset(&stream_) == Z_OK; }

  // Fills `buffer` as far as it goes. Result: the library's status; *got the bytes written.
  int step(std::vector<char>& buffer, size_t* got) {
    stream_.next_out = reinterpret_cast<Bytef*>(buffer.data());
    stream_.avail_out = static_cast<uInt>(buffer.size());
    const int status = inflate(&stream_, Z_NO_FLUSH);
    *got = buffer.size() - stream_.avail_out;
    return status;
  }

 private:
  z_stream stream_{};
  bool ready_ = false;
};

}  // namespace

std::optional<std::string> DictdReader::unzip(std::string_view gzip, size_t limit) {
  if (gzip.size() > kFileLimit) return std::nullopt;
  Inflater inflater(gzip);
  if (!inflater.ready()) return std::nullopt;
  std::string out;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    size_t got = 0;
    const int status = inflater.step(buffer, &got);
    if (got > limit - out.size()) return std::nullopt;
    out.append(buffer.data(), got);
    if (status == Z_STREAM_END) {
      if (inflater.drained()) return out;
      if (!inflater.restart()) return std::nullopt;
    } else if (status != Z_OK || (got == 0 && inflater.drained())) {
      return std::nullopt;
    }
  }
}

std::optional<uint64_t> DictdReader::number(std::string_view digits) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (digits.empty() || digits.size() > kMaxDigits) return std::nullopt;
  uint64_t value = 0;
  for (const char digit : digits) {
    const size_t place = kDigits.find(digit);
    if (place == std::string_view::npos) return std::nullopt;
    value = value * 64 + place;
  }
  return value;
}

// An index that was cut short at a line's end still leads somewhere with each line, but not to all of the
// text.
bool DictdReader::coversText() const {
  std::vector<std::pair<uint64_t, uint64_t>> spans;
  for (const Entry& entry : entries_) spans.emplace_back(entry.offset, entry.offset + entry.length);
  std::sort(spans.begin(), spans.end());
  uint64_t covered = 0, end = 0;
  for (const auto& [from, to] : spans) {
    if (to > end) covered += to - std::max(from, end);
    end = std::max(end, to);
  }
  return covered >= text_.size() / 10 * 9;
}

bool DictdReader::readIndex(std::string_view index, std::string* error) {
  if (!index.empty() && index.back() != '\n') {
    *error = "its last line does not end";
    return false;
  }
  size_t lineNumber = 0;
  while (!index.empty()) {
    ++lineNumber;
    const size_t end = std::min(index.find('\n'), index.size());
    const std::string_view line = index.substr(0, end);
    index.remove_prefix(std::min(end + 1, index.size()));
    if (line.empty()) continue;

    const size_t first = line.find('\t');
    const size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
    std::optional<uint64_t> offset, length;
    if (second != std::string_view::npos) {
      // A fourth column, which some indexes have, holds the word before folding.
      const size_t third = std::min(line.find('\t', second + 1), line.size());
      offset = number(line.substr(first + 1, second - first - 1));
      length = number(line.substr(second + 1, third - second - 1));
    }
    if (!offset || !length || *offset > text_.size() || *length > text_.size() - *offset) {
      *error = "line " + std::to_string(lineNumber) + " of the index leads nowhere";
      return false;
    }
    entries_.push_back({std::string(line.substr(0, first)), *offset, *length});
  }
  if (coversText()) return true;
  *error = "it leads to less than nine tenths of the text";
  return false;
}

bool DictdReader::open(const std::string& indexPath, const std::string& textPath, std::string* error) {
  entries_.clear();
  text_.clear();
  std::string index, packed;
  if (!readWholeFile(indexPath, kFileLimit, &index)) {
    *error = "can't read " + indexPath;
    return false;
  }
  if (!readWholeFile(textPath, kFileLimit, &packed)) {
    *error = "can't read " + textPath;
    return false;
  }
  if (packed.starts_with(kGzipMagic)) {
    std::optional<std::string> text = unzip(packed, kTextLimit);
    if (!text) {
      *error = textPath + " is damaged: its compressed text can't be unpacked";
      return false;
    }
    text_ = std::move(*text);
  } else {
    text_ = std::move(packed);
  }
  if (readIndex(index, error)) return true;
  *error = indexPath + " is damaged: " + *error;
  entries_.clear();
  text_.clear();
  return false;
}

}  // namespace zavel::mkdict
