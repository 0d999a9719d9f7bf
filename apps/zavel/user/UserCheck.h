// Whether the files of a user dictionary belong together: every block that an index leads to lies inside its
// file, every entry that a block leads to begins where one does, and the last one is whole. Reads the live
// blocks and two bytes of each entry, by means of the storage alone.
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

// The path of a file by its name behind the prefix; of a backup, where that is what is to be looked at.
using UserPaths = std::function<std::string(const std::string& name)>;

class UserCheck {
 public:
  // kIndexes: whether all files are there and the indexes are any, which costs the same however many entries
  // there are.
  enum Depth { kIndexes, kAll };
  UserCheck(UserLanguage language, const UserPaths& paths, Depth depth = kAll);

  bool whole() const { return wrong_.empty(); }
  // What is wrong first, with the name of the file: "myej.ix3 ends too soon".
  const std::string& wrong() const { return wrong_; }
  // That a file which is there can't be read, which says nothing about what it holds.
  bool unreadable() const { return unreadable_; }

  // Of a whole set. Offsets of the entries that the first index leads to, in ascending order.
  const std::vector<uint32_t>& entries() const { return entries_; }
  // Fingerprint of the first index.
  uint64_t indexHash() const { return indexHash_; }
  // Where the last live block of each file of blocks ends, and the last live entry.
  const std::vector<std::pair<std::string, uint64_t>>& ends() const { return ends_; }

 private:
  bool filesThere();
  bool readIndexes();
  bool checkBlocks(const std::string& name, const std::vector<const UserIndex*>& indexes,
                   std::vector<uint32_t>* entries);
  bool checkEntries(const std::vector<uint32_t>& offsets);
  bool fail(const std::string& name, const char* what);
  bool cantRead(const std::string& name);

  UserLanguage language_;
  UserPaths paths_;
  std::vector<std::pair<std::string, UserIndex>> indexes_;
  std::string wrong_;
  bool unreadable_ = false;
  uint64_t indexHash_ = 0;
  std::vector<uint32_t> entries_;
  std::vector<std::pair<std::string, uint64_t>> ends_;
};

// A file read through a window, so that what stands close together costs one read.
class WindowFile {
 public:
  explicit WindowFile(const std::string& path);

  bool open() const { return size_ >= 0; }
  uint64_t size() const { return size_ < 0 ? 0 : static_cast<uint64_t>(size_); }
  // Up to `length` bytes from `offset`, fewer where the file ends; lasts until the next call. Nothing and
  // failed() when reading fails.
  std::string_view at(uint64_t offset, size_t length);
  bool failed() const { return failed_; }

 private:
  std::unique_ptr<StorageFile> file_;
  int64_t size_ = -1;
  uint64_t start_ = 0;
  std::string window_;
  bool failed_ = false;
};

// A block of `file`, empty where none can stand at `offset`: its bytes, and how many rows they have.
std::string_view blockAt(WindowFile* file, uint64_t offset, size_t* rows);
// The offset of an entry that a row of such a block leads to.
uint32_t entryOfRow(std::string_view block, size_t rows, size_t row);

}  // namespace zavel::host

#endif
