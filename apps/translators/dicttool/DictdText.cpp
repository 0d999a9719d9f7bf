// Tests: tests/translators/DictdTextTest.cpp
#include "dicttool/DictdText.h"

#include <zlib.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace zavel::dicttool {
namespace {

constexpr std::string_view kIndexSize = "index of ";  // "index of 1234 bytes"
constexpr int64_t kIndexSizeLine = 64;                // it is shorter than this

constexpr size_t kFixedHeader = 10;
constexpr size_t kExtraLength = 2;
constexpr size_t kFieldHeader = 4;  // of an extra field
constexpr uint8_t kDeflate = 8;
constexpr uint8_t kFlagHeaderCheck = 0x02, kFlagExtra = 0x04, kFlagName = 0x08, kFlagComment = 0x10;
constexpr uint8_t kKnownFlags = 0x1F;
constexpr uint16_t kVersion = 1;
constexpr size_t kLongestName = 4096;
constexpr int kNoWrapper = -15;  // the largest window, bare deflate data

uint16_t word(const std::string& bytes, size_t at) {
  return static_cast<uint16_t>(static_cast<uint8_t>(bytes[at]) | static_cast<uint8_t>(bytes[at + 1]) << 8);
}

uint8_t flagsOf(const std::string& header) {
  return static_cast<uint8_t>(header[3]);
}

bool readExactly(StorageFile& file, uint64_t offset, size_t length, std::string* out) {
  out->resize(length);
  return file.readAt(offset, out->data(), length) == static_cast<int64_t>(length);
}

// Whether it is the beginning of a gzip file, as far as an extra field's length, of a kind that is known.
bool isGzip(const std::string& header) {
  return header.size() == kFixedHeader + kExtraLength && static_cast<uint8_t>(header[2]) == kDeflate &&
         (flagsOf(header) & ~kKnownFlags) == 0;
}

// An inflating stream that is ended on every way out.
class Inflater {
 public:
  Inflater() { ready_ = inflateInit2(&stream_, kNoWrapper) == Z_OK; }
  ~Inflater() {
    if (ready_) inflateEnd(&stream_);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  // Unpacks one chunk, which holds at most `room` bytes of text.
  bool run(const std::string& packed, size_t room, std::string* out) {
    if (!ready_) return false;
    out->resize(room + 1);  // one more, to see a chunk that holds too much
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream_.avail_in = static_cast<uInt>(packed.size());
    stream_.next_out = reinterpret_cast<Bytef*>(out->data());
    stream_.avail_out = static_cast<uInt>(out->size());
    const int status = inflate(&stream_, Z_SYNC_FLUSH);
    const size_t made = out->size() - stream_.avail_out;
    out->resize(std::min(made, room));
    return (status == Z_OK || status == Z_STREAM_END) && made <= room && stream_.avail_in == 0;
  }

 private:
  z_stream stream_{};
  bool ready_ = false;
};

}  // namespace

std::string indexSizeLine(uint64_t size) {
  return std::string(kIndexSize) + std::to_string(size) + " bytes\n";
}

std::optional<uint64_t> indexSizeIn(std::string_view text) {
  const size_t start = text.rfind(kIndexSize);
  uint64_t size = 0;
  if (start == std::string_view::npos) return std::nullopt;
  const std::string_view line = text.substr(start);
  std::from_chars(line.data() + kIndexSize.size(), line.data() + line.size(), size);
  return line == indexSizeLine(size) ? std::optional<uint64_t>(size) : std::nullopt;
}

std::optional<uint64_t> DictdText::indexSize() const {
  const int64_t size = packed_ ? -1 : file_->size();
  std::string end(static_cast<size_t>(std::clamp<int64_t>(size, 0, kIndexSizeLine)), '\0');
  const int64_t at = size - static_cast<int64_t>(end.size());
  if (end.empty() || file_->readAt(static_cast<uint64_t>(at), end.data(), end.size()) < 0)
    return std::nullopt;
  return indexSizeIn(end);
}

bool DictdText::open(const std::string& path, std::string* error) {
  path_ = path;
  file_ = storage().open(path, OpenMode::kRead);
  loaded_ = SIZE_MAX;
  chunkStarts_.clear();
  if (file_ && file_->size() >= 0) return readHeader(error);
  *error = path + (storage().exists(path) ? " can't be read" : " is missing");
  return false;
}

bool DictdText::readHeader(std::string* error) {
  std::string header(kFixedHeader + kExtraLength, '\0');
  const int64_t got = file_->readAt(0, header.data(), header.size());
  if (got < 0) {
    *error = path_ + " can't be read";
    return false;
  }
  header.resize(static_cast<size_t>(got));
  packed_ = header.starts_with("\x1F\x8B");
  if (!packed_) return true;
  if (isGzip(header) && !(flagsOf(header) & kFlagExtra)) {
    *error =
        path_ +
        " is an ordinary gzip file, which can only be read from the start; compress it with dictzip instead";
    return false;
  }
  if (isGzip(header) && readGzipHeader(header)) return true;
  *error = path_ + " is damaged: its table of chunks can't be read";
  return false;
}

// From the extra fields to where the packed text begins.
bool DictdText::readGzipHeader(const std::string& header) {
  const uint64_t fieldsAt = kFixedHeader + kExtraLength;
  const size_t length = word(header, kFixedHeader);
  std::string fields;
  uint64_t begin = 0;
  if (!readExactly(*file_, fieldsAt, length, &fields) ||
      !skipNames(flagsOf(header), fieldsAt + length, &begin)) {
    return false;
  }
  chunkStarts_.push_back(begin);
  return readExtraFields(fields);
}

// Each field: two letters, a length, that many bytes. The chunks' is called RA.
bool DictdText::readExtraFields(const std::string& fields) {
  for (size_t at = 0; at + kFieldHeader <= fields.size();) {
    const size_t end = at + kFieldHeader + word(fields, at + 2);
    if (end > fields.size()) return false;
    if (fields.compare(at, 2, "RA") == 0) return readChunkTable(fields, at + kFieldHeader, end);
    at = end;
  }
  return false;
}

// Version, length of a chunk, number of chunks, and for each its packed length.
bool DictdText::readChunkTable(const std::string& fields, size_t at, size_t end) {
  if (end - at < 6 || word(fields, at) != kVersion) return false;
  chunkLength_ = word(fields, at + 2);
  const size_t count = word(fields, at + 4);
  at += 6;
  if (chunkLength_ == 0 || end - at < 2 * count) return false;
  for (size_t i = 0; i < count; ++i) {
    chunkStarts_.push_back(chunkStarts_.back() + word(fields, at + 2 * i));
  }
  return true;
}

// The file's former name and a comment, each ended by a NUL, and a check sum of the header.
bool DictdText::skipNames(uint8_t flags, uint64_t at, uint64_t* begin) {
  for (const uint8_t flag : {kFlagName, kFlagComment}) {
    if (!(flags & flag)) continue;
    std::string name(kLongestName, '\0');
    const int64_t got = file_->readAt(at, name.data(), name.size());
    const size_t end = got <= 0 ? std::string::npos : name.substr(0, static_cast<size_t>(got)).find('\0');
    if (end == std::string::npos) return false;
    at += end + 1;
  }
  *begin = at + (flags & kFlagHeaderCheck ? 2 : 0);
  return true;
}

bool DictdText::read(uint64_t offset, size_t length, std::string* out, std::string* error) {
  out->clear();
  if (length == 0) return true;
  if (packed_ ? readPacked(offset, length, out) : readPlain(offset, length, out)) return true;
  *error = path_ + " is damaged: an entry at " + std::to_string(offset) + " can't be read";
  return false;
}

bool DictdText::readPlain(uint64_t offset, size_t length, std::string* out) {
  const int64_t size = file_->size();  // now: a file may have been cut since it was opened
  if (size < 0 || offset > static_cast<uint64_t>(size) || length > static_cast<uint64_t>(size) - offset) {
    return false;
  }
  return readExactly(*file_, offset, length, out);
}

bool DictdText::readPacked(uint64_t offset, size_t length, std::string* out) {
  for (uint64_t number = offset / chunkLength_; length > 0; ++number) {
    if (number + 1 >= chunkStarts_.size() || !loadChunk(static_cast<size_t>(number))) return false;
    const size_t within = static_cast<size_t>(offset - number * chunkLength_);
    if (within >= chunk_.size()) return false;
    const size_t piece = std::min(length, chunk_.size() - within);
    out->append(chunk_, within, piece);
    offset += piece;
    length -= piece;
  }
  return true;
}

bool DictdText::loadChunk(size_t number) {
  if (loaded_ == number) return true;
  loaded_ = SIZE_MAX;
  std::string packed;
  const uint64_t start = chunkStarts_[number];
  const size_t length = static_cast<size_t>(chunkStarts_[number + 1] - start);
  const bool last = number + 2 == chunkStarts_.size();
  Inflater inflater;
  if (!readExactly(*file_, start, length, &packed) || !inflater.run(packed, chunkLength_, &chunk_) ||
      (!last && chunk_.size() != chunkLength_)) {
    return false;
  }
  loaded_ = number;
  return true;
}

}  // namespace zavel::dicttool
