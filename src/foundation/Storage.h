// The one seam under every file that the system reads at random or writes. The engines and the stores
// above them reach files through storage() alone, so that a single harness can fail any operation at its
// n-th call. The port defines defaultStorage(); a test puts its own in front with setStorage().
#ifndef FOUNDATION_STORAGE_H
#define FOUNDATION_STORAGE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zavel {

enum class OpenMode {
  kRead,       // must exist
  kReadWrite,  // must exist
  kCreate,     // read-write; made when missing, cut to nothing when there
};

// An open file. The destructor closes it.
class StorageFile {
 public:
  virtual ~StorageFile() = default;

  // Reads `length` bytes from `offset` into `out`. Result: bytes read, fewer only where the file ends
  // first; -1 on an error.
  virtual int64_t readAt(uint64_t offset, void* out, size_t length) = 0;

  // Writes all of `bytes` at `offset`, or answers false; what stands there is then unsettled.
  virtual bool writeAt(uint64_t offset, std::string_view bytes) = 0;

  // Bytes in the file, -1 on an error.
  virtual int64_t size() = 0;

  virtual bool truncate(uint64_t length) = 0;

  // True when all that was written is on the disk.
  virtual bool sync() = 0;

  // Closes now and tells of an error that only closing shows. The object is of no further use.
  virtual bool close() = 0;
};

class Storage {
 public:
  virtual ~Storage() = default;

  // Null when the file can't be opened so. Paths are bytes (UTF-8 by convention), NUL-free.
  virtual std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) = 0;

  // A new empty file of an unused name in `folder`, opened read-write; its path in `path`.
  virtual std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                                     std::string* path) = 0;

  virtual bool exists(const std::string& path) = 0;
  virtual bool isFolder(const std::string& path) = 0;

  // Removes a plain file; false when it was not there.
  virtual bool remove(const std::string& path) = 0;

  // Replaces `to` if it is there.
  virtual bool rename(const std::string& from, const std::string& to) = 0;

  // Swaps what stands at two paths in one step. False, with nothing changed, where one of them is missing or
  // the file system knows no such thing; rename() is then the way.
  virtual bool exchange(const std::string&, const std::string&) { return false; }

  // Copies content; `to` is replaced if it is there. The copy is on the disk when true comes back; false
  // leaves `to` as it was.
  virtual bool copy(const std::string& from, const std::string& to) = 0;

  // Makes one folder. 0, or the platform's error number.
  virtual int makeFolder(const std::string& path) = 0;

  // Puts renames and removals in `folder` on the disk.
  virtual bool syncFolder(const std::string& folder) = 0;
};

// The storage in use.
Storage& storage();

// Puts `replacement` (borrowed; null for the port's own) in use and gives what was in use before it.
Storage* setStorage(Storage* replacement);

// Defined by the port.
Storage& defaultStorage();

// Whole content of a file of at most `limit` bytes. False when it can't be read or is longer; `out` is
// then untouched.
bool readWholeFile(const std::string& path, size_t limit, std::string* out);

// Temporary file beside `path`, written, synced, renamed over it, folder synced. False leaves the old
// content of `path` as it was and no temporary behind. One failure comes after the rename: when the folder
// can't be synced, the new content stands there whole, false only says that it may not outlive a power cut.
bool writeFileAtomically(const std::string& path, std::string_view bytes);

// Makes one folder, as Storage::makeFolder does. 0 also when that fails because another process has made the
// folder meanwhile; anything else that stands there is an error.
int makeFolderOrFind(const std::string& path);

}  // namespace zavel

#endif
