// A storage that loses its power: in the middle of a run what was not yet put on the disk is lost, wholly or
// in part, and the process ends. For child processes; the parent then looks at what is left in the folder.
#ifndef TESTS_SUPPORT_CRASHSTORAGE_H
#define TESTS_SUPPORT_CRASHSTORAGE_H

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "foundation/Storage.h"

namespace zavel::test {

// Stands in front of the storage in use for as long as it lives. Changes go through to the disk at once, and
// are remembered until sync() or syncFolder() puts them there for good. The crash undoes what is remembered:
//   content of a file   kept, lost, cut somewhere between the old and the new size, or torn (the old content
//                       of some sectors, zeros where there was none)
//   names in a folder   the first of the changes kept, the rest undone: journals keep the order
// Nothing is really put on the disk, which takes long and which this crash doesn't need.
//
//   const int result = runAndCrash(n, seed, [&] { ... });  // in a child process
//   kCrashed: the power went at the n-th change. Anything else: what the function returned, before that.
class CrashStorage : public Storage {
 public:
  // The power goes ahead of the n-th change, counted from 1; 0: never.
  CrashStorage(long n, unsigned seed);
  ~CrashStorage() override;

  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override;
  bool exists(const std::string& path) override { return below_.exists(path); }
  bool isFolder(const std::string& path) override { return below_.isFolder(path); }
  bool remove(const std::string& path) override;
  bool rename(const std::string& from, const std::string& to) override;
  bool exchange(const std::string&, const std::string&) override { return false; }
  bool copy(const std::string& from, const std::string& to) override;
  int makeFolder(const std::string& path) override { return below_.makeFolder(path); }
  bool syncFolder(const std::string& folder) override;

 private:
  class File;
  // What stood in a file when it was last put on the disk; none while nothing has changed since.
  using Content = std::shared_ptr<std::optional<std::string>>;
  // A change of names that is not on the disk: how to undo it.
  struct NameChange {
    std::string folder;
    std::function<void()> undo;
  };

  // Counts a change; the one at which the power goes doesn't come back.
  void change();
  [[noreturn]] void crash();
  void damage(const std::string& path, const std::string& before);
  Content contentOf(const std::string& path);
  // Puts the names in a folder on the disk.
  void settleNames(const std::string& folder);

  Storage& below_;
  Storage* previous_;
  long left_;
  std::mt19937 random_;
  std::map<std::string, Content> contents_;
  std::vector<NameChange> names_;
};

inline constexpr int kCrashed = 77;

// Runs `work` in a child process whose power goes ahead of its n-th change. The child's exit status: kCrashed
// or what `work` returned (0 to 76); -1 when it died in another way.
int runAndCrash(long n, unsigned seed, const std::function<int()>& work);

}  // namespace zavel::test

#endif
