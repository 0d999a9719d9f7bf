// Tests: tests/zavel/DictionariesTest.cpp
#include "PrivateFolder.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

namespace zavel::host {

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  if (!path_.empty()) std::filesystem::remove_all(path_, error);
}

bool PrivateFolder::make() {
  const char* folder = std::getenv("TMPDIR");
  std::string path = std::string(folder && *folder == '/' ? folder : "/tmp") + "/zavel-XXXXXX";
  if (!mkdtemp(path.data())) return false;
  path_ = path;
  return true;
}

}  // namespace zavel::host
