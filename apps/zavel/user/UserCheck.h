// Whether the files of a user dictionary belong together: each index has the rows that it must have, every
// block that it leads to lies inside its file and is none of another's, every entry that a block leads to is
// whole and has the word that it is filed under, and the entries with a written form are those that the
// indexes of kanji lead to. Reads the live blocks and entries once, in order, by means of the storage alone.
// What it can't see: a character of a text that became another, an older block in the place of a newer one,
// and that an entry nothing leads to was not deleted (UserReach.h).
#ifndef ZAVEL_USER_USERCHECK_H
#define ZAVEL_USER_USERCHECK_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/Storage.h"
#include "user/UserIndex.h"
#include "user/UserPlace.h"

namespace zavel::host {

// What a change that broke off may have left of itself at the end of the file of entries. From `from` on
// anything may stand behind the last entry; whole entries ahead of `keep` were there when the change began,
// and count as a part of the file though nothing leads to them: they were deleted earlier.
struct BrokenOff {
  uint64_t from = UINT64_MAX;
  uint64_t keep = 0;
};

// The path of a file by its name behind the prefix; of a backup, where that is what is to be looked at.
using UserPaths = std::function<std::string(const std::string& name)>;

class WindowFile;

// Bytes of a file, the last one excluded.
struct FileRange {
  uint64_t from = 0, to = 0;
  bool operator==(const FileRange&) const = default;
};
using FileRanges = std::vector<FileRange>;

class UserCheck {
 public:
  // kIndexes: whether all files are there and the indexes are any, which costs the same however many entries
  // there are.
  enum Depth { kIndexes, kAll };
  UserCheck(UserLanguage language, const UserPaths& paths, Depth depth = kAll, BrokenOff broken = {});

  bool whole() const { return wrong_.empty(); }
  // What is wrong first, with the name of the file: "myej.ix3 ends too soon".
  const std::string& wrong() const { return wrong_; }
  // That a file which is there can't be read, which says nothing about what it holds.
  bool unreadable() const { return unreadable_; }

  // Of a whole set. Offsets of the entries that the first index leads to, in ascending order.
  const std::vector<uint32_t>& entries() const { return entries_; }
  // The parts of the file of entries that nothing leads to, in ascending order.
  const FileRanges& gaps() const { return gaps_; }
  // Fingerprint of the first index.
  uint64_t indexHash() const { return indexHash_; }
  // Where the last live block of each file of blocks ends, and the last live entry or the last one that a
  // change which broke off found there.
  const std::vector<std::pair<std::string, uint64_t>>& ends() const { return ends_; }

 private:
  bool filesThere();
  bool readIndexes();
  // A row of a block: where its entry stands, and where in keys_ the whole key does.
  struct Filed {
    uint32_t entry = 0;
    uint32_t length = 0;
    size_t key = 0;
  };
  using FiledRows = std::vector<Filed>;

  bool checkBlocks(const std::string& name, const std::vector<const UserIndex*>& indexes, FiledRows* filed);
  bool takeBlock(std::string_view block, size_t rows, const std::string& prefix, FiledRows* filed);
  bool checkEntries(const FiledRows& words, const FiledRows& written);
  // `next`: where the next entry of a word stands, null behind the last. *end: where the entry ends.
  bool checkEntry(WindowFile* file, const Filed& word, const Filed* written, const Filed* next,
                  uint64_t* end);
  std::string_view keyOf(const Filed& filed) const;
  uint64_t endOfWhole(WindowFile* file, uint64_t end);
  bool fail(const std::string& name, const char* what);
  bool cantRead(const std::string& name);

  UserLanguage language_;
  UserPaths paths_;
  std::vector<std::pair<std::string, UserIndex>> indexes_;
  std::string wrong_;
  bool unreadable_ = false;
  BrokenOff broken_;
  uint64_t indexHash_ = 0;
  std::string keys_;  // of all rows, one behind the other
  std::vector<uint32_t> entries_;
  FileRanges gaps_;
  std::vector<std::pair<std::string, uint64_t>> ends_;
};

// A file read through a window, so that what stands close together costs one read.
class WindowFile {
 public:
  static constexpr size_t kWindow = 4096;
  // `window`: bytes that one read takes at least.
  explicit WindowFile(const std::string& path, size_t window = kWindow);

  bool open() const { return size_ >= 0; }
  uint64_t size() const { return size_ < 0 ? 0 : static_cast<uint64_t>(size_); }
  // Up to `length` bytes from `offset`, fewer where the file ends; lasts until the next call. Nothing and
  // failed() when reading fails.
  std::string_view at(uint64_t offset, size_t length);
  bool failed() const { return failed_; }

 private:
  std::unique_ptr<StorageFile> file_;
  size_t least_;
  int64_t size_ = -1;
  uint64_t start_ = 0;
  std::string window_;
  bool failed_ = false;
};

// A block of `file`, empty where none can stand at `offset`: its bytes, and how many rows they have.
std::string_view blockAt(WindowFile* file, uint64_t offset, size_t* rows);
// The offset of an entry that a row of such a block leads to.
uint32_t entryOfRow(std::string_view block, size_t rows, size_t row);
// The remainder of the key in a row of such a block; false where the block has none there.
bool remainderOfRow(std::string_view block, size_t rows, size_t row, std::string_view* remainder);

}  // namespace zavel::host

#endif
