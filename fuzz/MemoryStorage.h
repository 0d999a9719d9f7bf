// Files in memory, so that a fuzz target opens a dictionary without touching the disk.
#ifndef FUZZ_MEMORYSTORAGE_H
#define FUZZ_MEMORYSTORAGE_H

#include <cerrno>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "foundation/Storage.h"

namespace zavel::fuzz {

// In use from its construction to its destruction.
class MemoryStorage : public Storage {
 public:
  MemoryStorage() : previous_(setStorage(this)) {}
  ~MemoryStorage() override { setStorage(previous_); }

  std::map<std::string, std::string> files;  // content by path
  std::set<std::string> folders;

  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override;
  bool exists(const std::string& path) override { return files.contains(path) || isFolder(path); }
  bool isFolder(const std::string& path) override { return folders.contains(path); }
  bool remove(const std::string& path) override { return files.erase(path) > 0; }
  bool rename(const std::string& from, const std::string& to) override;
  bool copy(const std::string& from, const std::string& to) override;
  int makeFolder(const std::string& path) override { return folders.insert(path).second ? 0 : EEXIST; }
  bool syncFolder(const std::string&) override { return true; }

 private:
  Storage* previous_;
};

}  // namespace zavel::fuzz

#endif
