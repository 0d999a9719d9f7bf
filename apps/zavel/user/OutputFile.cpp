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
  // Where a file can't be given back to another owner, the new one is ours; the mode holds in any case.
  const bool givenBack = ::chown(target.c_str(), old.st_uid, old.st_gid) == 0;
  return ::chmod(target.c_str(), old.st_mode & (givenBack ? 07777 : 0777)) == 0;
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
