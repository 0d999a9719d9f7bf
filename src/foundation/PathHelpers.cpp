// Tests: tests/foundation/PathHelpersTest.cpp
#include "foundation/PathHelpers.h"

#include <climits>
#include <cstring>

namespace zavel::foundation {

void GFnAddParhDelim(char* path, char delimiter) {
  const size_t length = std::strlen(path);
  if (length > 0 && path[length - 1] == delimiter) return;
  path[length] = delimiter;
  path[length + 1] = 0;
}

void GFnRemovePathDelim(char* path, char delimiter) {
  const size_t length = std::strlen(path);
  if (length > 0 && path[length - 1] == delimiter) path[length - 1] = 0;
}

std::unique_ptr<StorageFile> GFnCreateTmpFile(const std::string& folder, const std::string& prefix,
                                              const std::string& extension, std::string* out) {
  for (int number = 0; number < INT_MAX; ++number) {
    std::string path = folder + "/" + prefix + std::to_string(number) + "." + extension;
    if (storage().exists(path)) continue;
    std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kCreate);
    if (!file) file = storage().open(path, OpenMode::kCreate);
    if (file) *out = std::move(path);
    return file;
  }
  return nullptr;
}

}  // namespace zavel::foundation
