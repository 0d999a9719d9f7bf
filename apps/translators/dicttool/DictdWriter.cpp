// Tests: tests/translators/DictdWriterTest.cpp
#include "dicttool/DictdWriter.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "dicttool/DictdIndex.h"
#include "dicttool/DictdText.h"
#include "dicttool/WordFold.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kPiece = size_t{1} << 20;          // bytes written at once
constexpr size_t kLongestWord = 1000;               // bytes, below 4096
constexpr uint64_t kLongestEntry = (1u << 24) - 1;  // bytes

std::string folderOf(const std::string& path) {
  const size_t delimiter = path.rfind('/');
  if (delimiter == std::string::npos) return ".";
  return delimiter == 0 ? "/" : path.substr(0, delimiter);
}

}  // namespace

std::string DictdWriter::withoutEnd(std::string path) {
  for (const std::string_view end : {".index", ".dict"}) {
    if (path.ends_with(end) && path.size() > end.size()) return path.substr(0, path.size() - end.size());
  }
  return path;
}

DictdWriter::DictdWriter(std::string base) : base_(std::move(base)), folder_(folderOf(base_)) {}

DictdWriter::~DictdWriter() {
  remove(text_);
  remove(index_);
}

bool DictdWriter::open(Output& output) {
  output.file = storage().openTemporary(folder_, ".new-", &output.path);
  return output.file != nullptr;
}

bool DictdWriter::append(Output& output, std::string_view bytes) {
  if (!output.file && !open(output)) return false;
  output.pending += bytes;
  if (output.pending.size() < kPiece) return true;
  const std::string piece = std::move(output.pending);
  output.pending.clear();
  const uint64_t at = output.written;
  output.written += piece.size();
  return output.file->writeAt(at, piece);
}

bool DictdWriter::close(Output& output) {
  if (!output.file && !open(output)) return false;
  const bool done = (output.pending.empty() || output.file->writeAt(output.written, output.pending)) &&
                    output.file->sync() && output.file->close();
  output.file.reset();
  return done;
}

void DictdWriter::remove(Output& output) {
  output.file.reset();
  if (!output.path.empty()) storage().remove(output.path);
  output.path.clear();
}

bool DictdWriter::addEntry(std::string_view text) {
  entryOffset_ += entryLength_;
  entryLength_ = text.size();
  entryRow_ = rows_.size();
  if (text.size() <= kLongestEntry) return append(text_, text);
  errno = EFBIG;
  return false;
}

void DictdWriter::addWord(std::string_view word, unsigned rank) {
  const std::string folded = foldWord(word, {});
  if (folded.empty() || folded.size() > kLongestWord) return;
  for (size_t i = entryRow_; i < rows_.size(); ++i) {
    if (wordOf(rows_[i]) != folded) continue;  // a spelling and a reading, two glosses: one line is enough
    rows_[i].rank = std::min<uint64_t>(rows_[i].rank, rank) & (kRanks - 1);
    return;
  }
  Row row{};
  row.word = folded_.size();
  row.wordLength = folded.size();
  row.rank = rank & (kRanks - 1);
  row.offset = entryOffset_;
  row.length = entryLength_;
  rows_.push_back(row);
  folded_ += folded;
}

std::string_view DictdWriter::wordOf(const Row& row) const {
  return std::string_view(folded_).substr(row.word, row.wordLength);
}

bool DictdWriter::writeIndex() {
  std::sort(rows_.begin(), rows_.end(), [this](const Row& one, const Row& other) {
    const int order = compareFolded(wordOf(one), wordOf(other));
    if (order != 0) return order < 0;
    if (one.rank != other.rank) return one.rank < other.rank;
    return one.offset < other.offset;
  });
  for (const Row& row : rows_) {
    std::string line(wordOf(row));
    line += "\t" + indexNumberText(row.offset) + "\t" + indexNumberText(row.length) + "\n";
    if (!append(index_, line)) return false;
  }
  return true;
}

// A folder in the place of either file is noticed while the old pair is whole.
bool DictdWriter::putInPlace() {
  Storage& disk = storage();
  std::error_code error;
  for (const std::string& path : {base_ + ".dict", indexPath()}) {
    if (!std::filesystem::is_directory(path, error)) continue;
    errno = EISDIR;
    return false;
  }
  disk.remove(indexPath());
  if (!disk.rename(text_.path, base_ + ".dict")) return false;
  text_.path.clear();
  if (!disk.rename(index_.path, indexPath())) return false;
  index_.path.clear();
  return disk.syncFolder(folder_);
}

bool DictdWriter::finish() {
  return writeIndex() && append(text_, indexSizeLine(index_.written + index_.pending.size())) &&
         close(text_) && close(index_) && putInPlace();
}

}  // namespace zavel::dicttool
