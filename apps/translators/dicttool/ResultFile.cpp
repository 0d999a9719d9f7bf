// Tests: tests/translators/WordLookupTest.cpp
#include "dicttool/ResultFile.h"

#include <memory>

#include "foundation/Storage.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel::dicttool {
namespace {

std::string folderOf(const std::string& path) {
  const size_t delimiter = path.rfind('/');
  if (delimiter == std::string::npos) return ".";
  return delimiter == 0 ? "/" : path.substr(0, delimiter);
}

}  // namespace

bool writeResultFile(const std::string& path, const Value& result) {
  const std::string bytes = platform().propertyLists().serialize(result, PropertyListFormat::kXml);
  if (bytes.empty()) return false;
  Storage& disk = storage();
  std::string temporary;
  std::unique_ptr<StorageFile> file = disk.openTemporary(folderOf(path), ".answer-", &temporary);
  if (!file) return false;
  const bool written = file->writeAt(0, bytes) && file->close();
  file.reset();
  if (written && disk.rename(temporary, path)) return true;
  disk.remove(temporary);
  return false;
}

}  // namespace zavel::dicttool
