// Tests: tests/zavel/user/UserCheckTest.cpp
#include "user/UserCheck.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Index3.h"
#include "foundation/ByteReader.h"
#include "user/UserCheckForm.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kBlocksWindow = kMaxIx3;
constexpr size_t kEntriesWindow = size_t{4} * kMaxEntry;
constexpr std::string_view kEntryMark = "\xF5\xD1";
constexpr const char* kWrongBlocks = " holds other blocks than its index leads to, or ends too soon";
constexpr const char* kWrongEntries = " holds other entries than are looked for in it";
constexpr const char* kOtherKanji = " leads to other entries than mykna.ix3";
constexpr const char* kCutEntry = " holds an entry that was cut or changed";
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

WindowFile::WindowFile(const std::string& path, size_t window)
    : file_(storage().open(path, OpenMode::kRead)), least_(window) {
  if (file_) size_ = file_->size();
}

std::string_view WindowFile::at(uint64_t offset, size_t length) {
  if (failed_ || size_ < 0 || offset >= size()) return {};
  length = static_cast<size_t>(std::min<uint64_t>(length, size() - offset));
  if (offset < start_ || offset + length > start_ + window_.size()) {
    window_.resize(std::max(length, least_));
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

bool remainderOfRow(std::string_view block, size_t rows, size_t row, std::string_view* remainder) {
  const size_t start = kIx3Head + 2 * rows, end = block.size() - 4 * rows;
  const size_t at = start + readLE16(bytesOf(block) + kIx3Head + 2 * row) + 2;
  if (at >= end) return false;
  const std::string_view text = block.substr(at, end - at);
  *remainder = text.substr(0, text.find('\0'));
  return remainder->size() < text.size();
}

UserCheck::UserCheck(UserLanguage language, const UserPaths& paths, Depth depth, BrokenOff broken)
    : language_(language), paths_(paths), broken_(broken) {
  if (!filesThere() || !readIndexes() || depth == kIndexes) return;
  const bool english = language == UserLanguage::kEnglish;
  std::vector<const UserIndex*> kanji;
  for (size_t i = 1; i < indexes_.size(); ++i) kanji.push_back(&indexes_[i].second);
  FiledRows words, written;
  if (!checkBlocks(english ? "ej.ix3" : "kna.ix3", {&indexes_[0].second}, &words)) return;
  if (!english && !checkBlocks("kji.ix3", kanji, &written)) return;
  if (!checkEntries(words, written)) return;
  for (const Filed& word : words) entries_.push_back(word.entry);
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
    if (!index.sound()) return fail(name, index.shaped() ? " was changed or is damaged" : " is no index");
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
                            FiledRows* filed) {
  WindowFile file(paths_(name), kBlocksWindow);
  if (!file.open()) return cantRead(name);
  if (file.size() < kUserHeader) return fail(name, kShort);
  std::vector<const UserIndex::Row*> rows;
  for (const UserIndex* index : indexes) {
    for (const UserIndex::Row& row : index->rows()) rows.push_back(&row);
  }
  std::sort(rows.begin(), rows.end(),  // the way a window goes best
            [](const UserIndex::Row* a, const UserIndex::Row* b) { return a->block < b->block; });
  uint64_t end = kUserHeader;
  for (const UserIndex::Row* row : rows) {
    size_t count = 0;
    const std::string_view block = blockAt(&file, row->block, &count);
    if (file.failed()) return cantRead(name);
    if (block.empty() && row->block + uint64_t{kIx3Head} > file.size()) return fail(name, kShort);
    // Blocks share no bytes.
    if (block.empty() || row->block < end || !takeBlock(block, count, row->key, filed))
      return fail(name, kWrongBlocks);
    end = uint64_t{row->block} + block.size();
  }
  std::sort(filed->begin(), filed->end(), [](const Filed& a, const Filed& b) { return a.entry < b.entry; });
  ends_.emplace_back(name, end);
  return true;
}

// Searches halve a block, so that rows out of order hide each other.
bool UserCheck::takeBlock(std::string_view block, size_t rows, const std::string& prefix, FiledRows* filed) {
  if (CheckIdx3Data(bytesOf(block), block.size()) != kOk) return false;
  std::string_view before;
  for (size_t row = 0; row < rows; ++row) {
    std::string_view remainder;
    if (!remainderOfRow(block, rows, row, &remainder) || remainder < before) return false;
    before = remainder;
    const size_t length = prefix.size() + remainder.size();
    filed->push_back({entryOfRow(block, rows, row), static_cast<uint32_t>(length), keys_.size()});
    keys_.append(prefix).append(remainder);
  }
  return true;
}

// An entry with a written form is filed under both words, any other under its one, and none twice.
bool UserCheck::checkEntries(const FiledRows& words, const FiledRows& written) {
  const std::string& name = userFiles(language_).back();
  WindowFile file(paths_(name), kEntriesWindow);
  if (!file.open()) return cantRead(name);
  if (file.size() < kUserHeader) return fail(name, kShort);
  uint64_t end = kUserHeader;
  auto kanji = written.begin();
  for (const Filed& word : words) {
    const bool both = kanji != written.end() && kanji->entry == word.entry;
    if (word.entry < end) return fail(name, kWrongEntries);
    if (word.entry > end) gaps_.push_back({end, word.entry});
    if (!checkEntry(&file, word, both ? &*kanji : nullptr, &word == &words.back() ? nullptr : &word + 1,
                    &end))
      return false;
    if (both) ++kanji;
  }
  if (kanji != written.end()) return fail("kji.ix3", kOtherKanji);
  if (file.size() > end) gaps_.push_back({end, file.size()});
  end = endOfWhole(&file, end);
  if (file.failed()) return cantRead(name);
  ends_.emplace_back(name, end);
  return true;
}

bool UserCheck::checkEntry(WindowFile* file, const Filed& word, const Filed* written, const Filed* next,
                           uint64_t* end) {
  const std::string& name = userFiles(language_).back();
  const std::string_view text = file->at(word.entry, kMaxEntry);
  if (file->failed()) return cantRead(name);
  if (text.size() < kEntryMark.size()) return fail(name, kShort);
  const EntryForm entry = formOfEntry(text, language_);
  const bool filed =
      isFiledUnder(keyOf(word), entry.word, language_ == UserLanguage::kEnglish ? kTypeE : kTypeKana);
  // What broke off may have left anything behind the last one.
  const bool torn = !next && entry.sound > 0 && word.entry + entry.sound >= broken_.from;
  if (entry.length == 0 && !torn)
    return fail(name, entry.tooSoon ? kShort : filed ? kCutEntry : kWrongEntries);
  if (!filed) return fail(name, kWrongEntries);
  if (entry.kanji.empty() != (written == nullptr)) return fail("kji.ix3", kOtherKanji);
  if (written && !isFiledUnder(keyOf(*written), entry.kanji, kTypeKji)) return fail("kji.ix3", kOtherKanji);
  *end = word.entry + entry.sound;
  // Anything else than another entry may be what is left of a further line.
  const bool good = torn || *end == file->size() || (next && *end == next->entry) ||
                    beginsEntry(file->at(*end, kEntryMark.size()));
  return file->failed() ? cantRead(name) : good || fail(name, kCutEntry);
}

std::string_view UserCheck::keyOf(const Filed& filed) const {
  return std::string_view(keys_).substr(filed.key, filed.length);
}

uint64_t UserCheck::endOfWhole(WindowFile* file, uint64_t end) {
  while (end < broken_.keep) {
    const size_t length = formOfEntry(file->at(end, kMaxEntry), language_).length;
    if (length == 0) break;
    end += length;
  }
  return end;
}

}  // namespace zavel::host
