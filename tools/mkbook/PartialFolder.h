// The folders that books are written into before they get their names.
#ifndef MKBOOK_PARTIALFOLDER_H
#define MKBOOK_PARTIALFOLDER_H

#include <string>

namespace zavel::mkbook {

// "<target>.partial-<process>".
std::string partialNameOf(const std::string& target);

// Says that a partial folder is in use, as long as it lives: by a lock, which ends with the process however
// that ends.
class PartialFolder {
 public:
  explicit PartialFolder(const std::string& path);
  ~PartialFolder();
  PartialFolder(const PartialFolder&) = delete;
  PartialFolder& operator=(const PartialFolder&) = delete;

 private:
  int fd_;  // -1 where there is no such folder on a disk
};

// Removes partial folders of books in `parent` whose processes ended before they could: those whose number no
// process has, that nobody holds, and that have nothing but a book's files in them.
void removeAbandonedFolders(const std::string& parent);

}  // namespace zavel::mkbook

#endif
