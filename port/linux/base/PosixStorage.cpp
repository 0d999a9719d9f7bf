// Tests: tests/port/PosixStorageTest.cpp
#include "base/PosixStorage.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <vector>

namespace zavel {
namespace {

constexpr uint64_t kLastOffset = INT64_MAX;
constexpr int kTemporaryAttempts = 100;
constexpr size_t kCopyChunk = size_t{256} * 1024;

bool holdsNul(const std::string& path) {
  return std::memchr(path.data(), 0, path.size()) != nullptr;
}

// Opens without waiting for a pipe's other end; on plain files O_NONBLOCK changes nothing.
int openDescriptor(const std::string& path, int flags) {
  if (holdsNul(path)) {
    errno = EINVAL;
    return -1;
  }
  int fd;
  do {
    fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
  } while (fd < 0 && errno == EINTR);
  return fd;
}

bool syncDescriptor(int fd) {
  int result;
  do {
    result = ::fsync(fd);
  } while (result < 0 && errno == EINTR);
  return result == 0;
}

class PosixFile final : public StorageFile {
 public:
  explicit PosixFile(int fd) : fd_(fd) {}
  ~PosixFile() override {
    if (fd_ >= 0) ::close(fd_);
  }
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;

  int64_t readAt(uint64_t offset, void* out, size_t length) override;
  bool writeAt(uint64_t offset, std::string_view bytes) override;
  int64_t size() override;
  bool truncate(uint64_t length) override;
  bool sync() override { return syncDescriptor(fd_); }
  bool close() override;

 private:
  int fd_;  // owned; -1 once closed
};

int64_t PosixFile::readAt(uint64_t offset, void* out, size_t length) {
  if (offset > kLastOffset || length > kLastOffset - offset) return -1;
  size_t done = 0;
  while (done < length) {
    const ssize_t n =
        ::pread(fd_, static_cast<char*>(out) + done, length - done, static_cast<off_t>(offset + done));
    if (n == 0) break;
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return -1;
    done += static_cast<size_t>(n);
  }
  return static_cast<int64_t>(done);
}

bool PosixFile::writeAt(uint64_t offset, std::string_view bytes) {
  if (offset > kLastOffset || bytes.size() > kLastOffset - offset) return false;
  while (!bytes.empty()) {
    const ssize_t n = ::pwrite(fd_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    offset += static_cast<uint64_t>(n);
    bytes.remove_prefix(static_cast<size_t>(n));
  }
  return true;
}

int64_t PosixFile::size() {
  struct stat status;
  if (::fstat(fd_, &status) != 0 || !S_ISREG(status.st_mode)) return -1;
  return status.st_size;
}

bool PosixFile::truncate(uint64_t length) {
  if (length > kLastOffset) return false;
  int result;
  do {
    result = ::ftruncate(fd_, static_cast<off_t>(length));
  } while (result < 0 && errno == EINTR);
  return result == 0;
}

bool PosixFile::close() {
  if (fd_ < 0) return false;
  const int fd = fd_;
  fd_ = -1;
  // Not again after EINTR: the descriptor is gone by then and its number may be someone else's.
  return ::close(fd) == 0 || errno == EINTR;
}

uint32_t randomNumber() {
  uint32_t number = 0;
  return ::getrandom(&number, sizeof number, GRND_NONBLOCK) == sizeof number ? number : 0;
}

// Something that no other process and no earlier call has used, for a file name.
std::string unusedTail() {
  static const uint32_t random = randomNumber();
  static std::atomic<unsigned> counter{0};
  char text[48];
  ::snprintf(text, sizeof text, "%ld.%08x.%u", static_cast<long>(::getpid()), random, ++counter);
  return text;
}

// The folder of a path: ".", "/" or what stands before the last delimiter.
std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool copyContent(StorageFile& from, StorageFile& to) {
  std::vector<char> chunk(kCopyChunk);
  uint64_t offset = 0;
  for (;;) {
    const int64_t n = from.readAt(offset, chunk.data(), chunk.size());
    if (n < 0) return false;
    if (n == 0) return true;
    if (!to.writeAt(offset, std::string_view(chunk.data(), static_cast<size_t>(n)))) return false;
    offset += static_cast<uint64_t>(n);
  }
}

}  // namespace

std::unique_ptr<StorageFile> PosixStorage::open(const std::string& path, OpenMode mode) {
  int flags = O_RDONLY;
  if (mode == OpenMode::kReadWrite) flags = O_RDWR;
  if (mode == OpenMode::kCreate) flags = O_RDWR | O_CREAT | O_TRUNC;
  const int fd = openDescriptor(path, flags);
  if (fd < 0) return nullptr;
  return std::make_unique<PosixFile>(fd);
}

std::unique_ptr<StorageFile> PosixStorage::openTemporary(const std::string& folder, const std::string& prefix,
                                                         std::string* path) {
  for (int attempt = 0; attempt < kTemporaryAttempts; ++attempt) {
    std::string name = folder;
    if (name.empty() || name.back() != '/') name += '/';
    name += prefix + unusedTail();
    const int fd = openDescriptor(name, O_RDWR | O_CREAT | O_EXCL);
    if (fd >= 0) {
      *path = std::move(name);
      return std::make_unique<PosixFile>(fd);
    }
    if (errno != EEXIST) break;
  }
  return nullptr;
}

bool PosixStorage::exists(const std::string& path) {
  struct stat status;
  return !holdsNul(path) && ::stat(path.c_str(), &status) == 0;
}

bool PosixStorage::isFolder(const std::string& path) {
  struct stat status;
  return !holdsNul(path) && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool PosixStorage::remove(const std::string& path) {
  return !holdsNul(path) && ::unlink(path.c_str()) == 0;
}

bool PosixStorage::rename(const std::string& from, const std::string& to) {
  return !holdsNul(from) && !holdsNul(to) && ::rename(from.c_str(), to.c_str()) == 0;
}

bool PosixStorage::exchange(const std::string& one, const std::string& other) {
  return !holdsNul(one) && !holdsNul(other) &&
         ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

bool PosixStorage::copy(const std::string& from, const std::string& to) {
  const std::unique_ptr<StorageFile> source = open(from, OpenMode::kRead);
  if (!source || holdsNul(to) || isFolder(to)) return false;
  std::string temporary;
  const std::string folder = folderOf(to);
  const std::unique_ptr<StorageFile> target = openTemporary(folder, ".copy-", &temporary);
  if (!target) return false;
  const bool written = copyContent(*source, *target) && target->sync() && target->close();
  if (written && rename(temporary, to)) return syncFolder(folder);
  remove(temporary);
  return false;
}

int PosixStorage::makeFolder(const std::string& path) {
  if (holdsNul(path)) return EINVAL;
  return ::mkdir(path.c_str(), 0777) == 0 ? 0 : errno;
}

bool PosixStorage::syncFolder(const std::string& folder) {
  const int fd = openDescriptor(folder, O_RDONLY | O_DIRECTORY);
  if (fd < 0) return false;
  // A file system without such a thing says EINVAL: there is then nothing to wait for.
  const bool synced = syncDescriptor(fd) || errno == EINVAL;
  ::close(fd);
  return synced;
}

Storage& defaultStorage() {
  static PosixStorage storage;
  return storage;
}

}  // namespace zavel
