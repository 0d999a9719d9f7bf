// Tests: tests/zavel/user/UserCheckTest.cpp
#include "user/UserCheck.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Index3.h"
#include "engine/UserEntry.h"
#include "foundation/ByteReader.h"
#include "user/UserRecords.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kWindow = 4096;
constexpr std::string_view kEntryMark = "\xF5\xD1";
constexpr const char* kShort = " ends too soon";

const uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

std::string fileName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

uint16_t typeOf(const std::string& index, UserLanguage language) {
  if (language == UserLanguage::kEnglish) return kTypeE;
  return index == "kna.idx" ? kTypeKana : kTypeKji;
}

}  // namespace

WindowFile::WindowFile(const std::string& path) : file_(storage().open(path, OpenMode::kRead)) {
  if (file_) size_ = file_->size();
}

std::string_view WindowFile::at(uint64_t offset, size_t length) {
  if (failed_ || size_ < 0 || offset >= size()) return {};
  length = static_cast<size_t>(std::min<uint64_t>(length, size() - offset));
  if (offset < start_ || offset + length > start_ + window_.size()) {
    window_.resize(std::max(length, kWindow));
    const int64_t got = file_->readAt(offset, window_.data(), window_.size());
    failed_ = got < 0;
    window_.resize(failed_ ? 0 : static_cast<size_t>(got));
    start_ = offset;
  }
  return std::string_view(window_).substr(static_cast<size_t>(offset - start_), length);
}

std::string_view blockAt(WindowFile* file, uint64_t offset, size_t* rows) {
  const std::string_view head = file->at(offset, kIx3Head);
  if (offset < kUserHeader || head.size() < kIx3Head) return {};
  *rows = readLE16(bytesOf(head));
  const size_t size = readLE16(bytesOf(head) + 2);
  if (size < kIx3Head + kIx3RowOverhead * *rows) return {};
  const std::string_view block = file->at(offset, size);
  return block.size() == size ? block : std::string_view();
}

uint32_t entryOfRow(std::string_view block, size_t rows, size_t row) {
  return readLE32(bytesOf(block) + block.size() - 4 * (rows - row));
}

UserCheck::UserCheck(UserLanguage language, const UserPaths& paths, Depth depth)
    : language_(language), paths_(paths) {
  if (!filesThere() || !readIndexes() || depth == kIndexes) return;
  const bool english = language == UserLanguage::kEnglish;
  std::vector<const UserIndex*> kanji;
  for (size_t i = 1; i < indexes_.size(); ++i) kanji.push_back(&indexes_[i].second);
  std::vector<uint32_t> written;
  if (!checkBlocks(english ? "ej.ix3" : "kna.ix3", {&indexes_[0].second}, &entries_)) return;
  if (!english && !checkBlocks("kji.ix3", kanji, &written)) return;
  if (!checkEntries(entries_)) return;
  if (!std::includes(entries_.begin(), entries_.end(), written.begin(), written.end())) {
    fail("kji.ix3", " leads to other entries than mykna.ix3");
  }
}

bool UserCheck::fail(const std::string& name, const char* what) {
  wrong_ = fileName(paths_(name)) + what;
  return false;
}

bool UserCheck::cantRead(const std::string& name) {
  unreadable_ = true;
  return fail(name, " can't be read");
}

bool UserCheck::filesThere() {
  for (const std::string& name : userFiles(language_)) {
    if (!storage().exists(paths_(name))) return fail(name, " is missing");
  }
  return true;
}

bool UserCheck::readIndexes() {
  std::vector<std::string> names;
  for (const std::string& name : userFiles(language_)) {
    if (name.ends_with(".idx")) names.push_back(name);
  }
  for (size_t i = 0; i < names.size(); ++i) {
    const std::string name = names[i];
    if (!storage().exists(paths_(name))) return fail(name, " is missing");
    UserIndex index(paths_(name), typeOf(name, language_));
    if (!index.readable()) return cantRead(name);
    if (!index.sound()) return fail(name, " is no index");
    if (name == "kji.idx" && index.furtherIndexes() > kMostKanjiIndexes)
      return fail(name, " counts too many indexes");
    for (int number = 1; name == "kji.idx" && number <= index.furtherIndexes(); ++number)
      names.push_back(kanjiIndexName(number));
    indexes_.emplace_back(name, std::move(index));
  }
  indexHash_ = indexes_[0].second.hash();
  return true;
}

bool UserCheck::checkBlocks(const std::string& name, const std::vector<const UserIndex*>& indexes,
                            std::vector<uint32_t>* entries) {
  WindowFile file(paths_(name));
  if (!file.open()) return cantRead(name);
  if (file.size() < kUserHeader) return fail(name, kShort);
  std::vector<uint32_t> offsets;
  for (const UserIndex* index : indexes) {
    for (const UserIndex::Row& row : index->rows()) offsets.push_back(row.block);
  }
  std::sort(offsets.begin(), offsets.end());  // the way a window goes best
  uint64_t end = kUserHeader;
  for (const uint32_t offset : offsets) {
    size_t rows = 0;
    const std::string_view block = blockAt(&file, offset, &rows);
    if (file.failed()) return cantRead(name);
    if (block.empty() && offset + uint64_t{kIx3Head} > file.size()) return fail(name, kShort);
    if (block.empty() || CheckIdx3Data(bytesOf(block), block.size()) != kOk)
      return fail(name, " holds other blocks than its index leads to, or ends too soon");
    for (size_t row = 0; row < rows; ++row) entries->push_back(entryOfRow(block, rows, row));
    end = std::max(end, uint64_t{offset} + block.size());
  }
  std::sort(entries->begin(), entries->end());
  entries->erase(std::unique(entries->begin(), entries->end()), entries->end());
  ends_.emplace_back(name, end);
  return true;
}

bool UserCheck::checkEntries(const std::vector<uint32_t>& offsets) {
  const std::string& name = userFiles(language_).back();
  WindowFile file(paths_(name));
  if (!file.open()) return cantRead(name);
  if (file.size() < kUserHeader) return fail(name, kShort);
  uint64_t end = kUserHeader;
  for (const uint32_t offset : offsets) {
    const std::string_view mark = file.at(offset, kEntryMark.size());
    if (file.failed()) return cantRead(name);
    if (mark.size() < kEntryMark.size()) return fail(name, kShort);
    if (mark != kEntryMark || offset < kUserHeader)
      return fail(name, " holds other entries than are looked for in it");
  }
  if (!offsets.empty()) {
    const std::string_view text = file.at(offsets.back(), kMaxEntry);
    if (file.failed()) return cantRead(name);
    const size_t length = entryEnd(text);
    StoredEntry last;
    if (!readEntryText(text.substr(0, length), language_, &last)) return fail(name, kShort);
    end = offsets.back() + length;
  }
  ends_.emplace_back(name, end);
  return true;
}

}  // namespace zavel::host
