// Tests: tests/foundation/StorageTest.cpp
#include "foundation/Storage.h"

namespace zavel {
namespace {

Storage* g_replacement = nullptr;  // borrowed

// The folder of a path: ".", "/" or what stands before the last delimiter.
std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

Storage& storage() {
  return g_replacement ? *g_replacement : defaultStorage();
}

Storage* setStorage(Storage* replacement) {
  Storage* previous = g_replacement;
  g_replacement = replacement;
  return previous;
}

bool readWholeFile(const std::string& path, size_t limit, std::string* out) {
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  if (!file) return false;
  const int64_t size = file->size();
  if (size < 0 || static_cast<uint64_t>(size) > limit) return false;
  std::string content(static_cast<size_t>(size), '\0');
  const int64_t read = file->readAt(0, content.data(), content.size());
  if (read < 0) return false;
  content.resize(static_cast<size_t>(read));  // shorter where the file was cut since
  *out = std::move(content);
  return true;
}

bool writeFileAtomically(const std::string& path, std::string_view bytes) {
  Storage& disk = storage();
  const std::string folder = folderOf(path);
  std::string temporary;
  std::unique_ptr<StorageFile> file = disk.openTemporary(folder, ".new-", &temporary);
  if (!file) return false;
  const bool written = file->writeAt(0, bytes) && file->sync() && file->close();
  file.reset();
  if (written && disk.rename(temporary, path)) return disk.syncFolder(folder);
  disk.remove(temporary);
  return false;
}

int makeFolderOrFind(const std::string& path) {
  const int error = storage().makeFolder(path);
  return error != 0 && storage().isFolder(path) ? 0 : error;
}

}  // namespace zavel
