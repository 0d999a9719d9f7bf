// A storage that fails on demand, so that a test can break any store at its n-th operation.
#ifndef TESTS_SUPPORT_FAULTYSTORAGE_H
#define TESTS_SUPPORT_FAULTYSTORAGE_H

#include <memory>
#include <string>
#include <vector>

#include "foundation/Storage.h"

namespace zavel::test {

// Stands in front of the storage in use for as long as it lives, passes everything on and counts.
//
//   FaultyStorage disk;
//   for (long n = 1;; ++n) {
//     disk.failAt(n, FaultyStorage::kOnce);
//     const bool saved = store.save();
//     if (disk.faults() == 0) break;  // the work ended before its n-th operation
//     ...
//   }
//
// Counted, from 1: open, openTemporary, readAt, writeAt, size, truncate, sync, close, remove, rename,
// exchange, copy, makeFolder, syncFolder. Not counted: exists and isFolder, which have no way to tell of a
// failure, and the closing done by destructors. A failing write leaves the first half of its bytes behind, a
// failing close closes, everything else fails without effect.
class FaultyStorage : public Storage {
 public:
  enum Repeat { kOnce, kForEver };

  FaultyStorage() : below_(storage()), previous_(setStorage(this)) {}
  ~FaultyStorage() override { setStorage(previous_); }

  // Starts counting anew; the n-th operation fails, with kForEver every later one too. 0: none fails.
  void failAt(long n, Repeat repeat = kOnce);

  long operations() const { return static_cast<long>(history_.size()); }
  long faults() const { return faults_; }

  // What was done since failAt, such as "writeAt /tmp/x/ue.ix3", for messages and for counting kinds.
  const std::vector<std::string>& history() const { return history_; }
  long count(const std::string& kind) const;

  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override;
  bool exists(const std::string& path) override { return below_.exists(path); }
  bool isFolder(const std::string& path) override { return below_.isFolder(path); }
  bool remove(const std::string& path) override;
  bool rename(const std::string& from, const std::string& to) override;
  bool exchange(const std::string& one, const std::string& other) override;
  bool copy(const std::string& from, const std::string& to) override;
  int makeFolder(const std::string& path) override;
  bool syncFolder(const std::string& folder) override;

 private:
  class File;

  // Notes an operation; true when it is to fail.
  bool fails(const char* kind, const std::string& path);

  Storage& below_;
  Storage* previous_;
  long failAt_ = 0;
  Repeat repeat_ = kOnce;
  long faults_ = 0;
  std::vector<std::string> history_;
};

}  // namespace zavel::test

#endif
