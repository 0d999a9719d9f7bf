// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/PartialFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <optional>
#include <vector>

#include "mkbook/BookFolder.h"

namespace zavel::mkbook {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPartial = ".partial-";

int openFolder(const std::string& path) {
  return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

// The process that a folder is named by.
std::optional<pid_t> processIn(const std::string& name) {
  const size_t at = name.rfind(kPartial);
  if (at == std::string::npos || at == 0) return std::nullopt;
  pid_t process = 0;
  const char* const begin = name.data() + at + kPartial.size();
  const char* const end = name.data() + name.size();
  const auto [last, code] = std::from_chars(begin, end, process);
  return code == std::errc() && last == end && process > 0 ? std::optional(process) : std::nullopt;
}

bool isAlive(pid_t process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

bool isHeld(const std::string& path) {
  const int fd = openFolder(path);
  if (fd < 0) return true;
  const bool held = flock(fd, LOCK_EX | LOCK_NB) != 0;
  close(fd);
  return held;
}

bool holdsBookFilesAlone(const std::string& path) {
  const std::vector<std::string>& names = bookFileNames();
  std::error_code code;
  for (fs::directory_iterator at(path, code), end; !code && at != end; at.increment(code)) {
    const std::string name = at->path().filename().string();
    if (std::find(names.begin(), names.end(), name) == names.end() || !at->is_regular_file(code))
      return false;
  }
  return !code;
}

}  // namespace

std::string partialNameOf(const std::string& target) {
  return target + std::string(kPartial) + std::to_string(getpid());
}

PartialFolder::PartialFolder(const std::string& path) : fd_(openFolder(path)) {
  if (fd_ >= 0) flock(fd_, LOCK_EX | LOCK_NB);
}

PartialFolder::~PartialFolder() {
  if (fd_ >= 0) close(fd_);
}

void removeAbandonedFolders(const std::string& parent) {
  std::error_code code;
  std::vector<std::string> abandoned;
  for (fs::directory_iterator at(parent, code), end; !code && at != end; at.increment(code)) {
    const std::optional<pid_t> process = processIn(at->path().filename().string());
    const std::string path = at->path().string();
    if (process && !at->is_symlink(code) && at->is_directory(code) && !isAlive(*process) && !isHeld(path) &&
        holdsBookFilesAlone(path))
      abandoned.push_back(path);
  }
  for (const std::string& path : abandoned) removeBook(path);
}

}  // namespace zavel::mkbook
