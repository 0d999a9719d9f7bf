// Tests: tests/engine/ArrangeUserDicTest.cpp
#include "engine/TemporaryFile.h"

#include "engine/Shim.h"

namespace zavel::engine {

TemporaryFile::~TemporaryFile() {
  stream_.Close();
  if (!path_.empty()) DeleteFile(path_);
}

bool TemporaryFile::open(const std::string& folder, const std::string& prefix) {
  return GetTempFileName(folder, prefix, 0, &path_) && stream_.Open(path_, false);
}

bool TemporaryFile::finish() {
  const bool synced = stream_.Sync();
  return stream_.Close() && synced;
}

bool TemporaryFile::replace(const std::string& path) {
  if (!DeleteFile(path) || !MoveFile(path_, path)) return false;
  path_.clear();
  return true;
}

}  // namespace zavel::engine
