// A folder that lives in memory: thousands of opened and saved dictionaries in the time that a disk takes to
// sync one file. What stands elsewhere is passed on to the storage in use before.
#ifndef TESTS_SUPPORT_RAMDISK_H
#define TESTS_SUPPORT_RAMDISK_H

#include <cstdlib>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "foundation/Storage.h"

namespace zavel::test {

// Memory that FailingMemory doesn't refuse: what a disk holds costs a program nothing.
template <typename T>
struct DiskMemory {
  using value_type = T;
  DiskMemory() = default;
  template <typename Other>
  DiskMemory(const DiskMemory<Other>&) {}
  T* allocate(size_t n) {
    if (void* bytes = std::malloc(n * sizeof(T))) return static_cast<T*>(bytes);
    throw std::bad_alloc();
  }
  void deallocate(T* bytes, size_t) { std::free(bytes); }
  bool operator==(const DiskMemory&) const { return true; }
};

// In use for as long as it lives. Opened files outlive their names, as on a real disk.
class RamDisk : public Storage {
 public:
  // `folder` without its last delimiter; it need not exist, and no folder in it does.
  explicit RamDisk(const std::string& folder)
      : folder_(folder + "/"), below_(storage()), previous_(setStorage(this)) {}
  ~RamDisk() override { setStorage(previous_); }

  // Name in the folder to content.
  using Files = std::map<std::string, std::string>;
  Files files() const;
  void setFiles(const Files& files);
  std::string file(const std::string& name) const;
  bool has(const std::string& name) const { return files_.contains(std::string_view(folder_ + name)); }
  void setFile(const std::string& name, std::string_view bytes);
  void removeFile(const std::string& name) { remove(folder_ + name); }

  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override;
  bool exists(const std::string& path) override;
  bool isFolder(const std::string& path) override;
  bool remove(const std::string& path) override;
  bool rename(const std::string& from, const std::string& to) override;
  bool copy(const std::string& from, const std::string& to) override;
  int makeFolder(const std::string& path) override { return below_.makeFolder(path); }
  bool syncFolder(const std::string&) override { return true; }

 private:
  using Bytes = std::basic_string<char, std::char_traits<char>, DiskMemory<char>>;
  using Content = std::shared_ptr<Bytes>;
  class File;

  bool isHere(const std::string& path) const { return path.starts_with(folder_); }
  static Content newContent(std::string_view bytes) {
    return std::allocate_shared<Bytes>(DiskMemory<Bytes>(), bytes);
  }

  std::string folder_;
  Storage& below_;
  Storage* previous_;
  std::map<Bytes, Content, std::less<>, DiskMemory<std::pair<const Bytes, Content>>> files_;  // by path
  int temporaries_ = 0;
};

}  // namespace zavel::test

#endif
