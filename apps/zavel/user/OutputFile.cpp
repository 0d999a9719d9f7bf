// Tests: tests/zavel/user/UserExchangeTest.cpp
#include "user/OutputFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "foundation/Storage.h"

namespace zavel::host {
namespace {

bool writeInto(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  return !out.fail();
}

// The content is exchanged by a rename, so that the old one is there until the new one is whole.
bool replaceContent(const std::string& path, const struct stat& old, const std::string& text) {
  std::error_code failure;
  const std::filesystem::path target = std::filesystem::canonical(path, failure);
  if (failure || ::access(target.c_str(), W_OK) != 0 || !writeFileAtomically(target, text)) return false;
  // Another owner's file is not ours to give away where this isn't allowed; the mode holds in any case.
  if (::chown(target.c_str(), old.st_uid, old.st_gid) != 0 && old.st_uid != ::geteuid()) return true;
  return ::chmod(target.c_str(), old.st_mode & 07777) == 0;
}

}  // namespace

bool writeOutputFile(const std::string& path, const std::string& text) {
  struct stat old;
  if (::stat(path.c_str(), &old) == 0) {
    return S_ISREG(old.st_mode) ? replaceContent(path, old, text) : writeInto(path, text);
  }
  // A link to nothing yet makes the file it leads to.
  const bool link = ::lstat(path.c_str(), &old) == 0;
  return link ? writeInto(path, text) : writeFileAtomically(path, text);
}

}  // namespace zavel::host
