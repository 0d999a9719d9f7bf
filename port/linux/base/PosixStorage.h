// Files through the POSIX calls: positioned reads and writes, descriptors closed on exec, no buffers.
#ifndef PORT_LINUX_BASE_POSIXSTORAGE_H
#define PORT_LINUX_BASE_POSIXSTORAGE_H

#include <memory>
#include <string>

#include "foundation/Storage.h"

namespace zavel {

// Opening asks the system nothing beyond the open itself, because a look-up opens and closes files for
// each word: a folder or a device can be opened, but every read of it fails. Opening never waits.
// Paths that hold a NUL are refused. New files get the permissions that the user's mask leaves of 0666.
class PosixStorage : public Storage {
 public:
  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override;
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override;
  bool exists(const std::string& path) override;
  bool isFolder(const std::string& path) override;
  bool remove(const std::string& path) override;
  bool rename(const std::string& from, const std::string& to) override;
  bool exchange(const std::string& one, const std::string& other) override;

  // By way of a temporary file beside `to`, so that a failure leaves `to` as it was.
  bool copy(const std::string& from, const std::string& to) override;

  int makeFolder(const std::string& path) override;
  bool syncFolder(const std::string& folder) override;
};

}  // namespace zavel

#endif
