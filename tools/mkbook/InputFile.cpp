// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/InputFile.h"

#include <filesystem>
#include <memory>

#include "foundation/Storage.h"

namespace zavel::mkbook {

InputState readInput(const std::string& path, size_t limit, std::string* bytes) {
  std::error_code code;
  const std::filesystem::file_status status = std::filesystem::status(path, code);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    return InputState::kNoFile;
  if (!storage().exists(path)) return InputState::kMissing;
  if (storage().isFolder(path)) return InputState::kNoFile;
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  if (!file) return InputState::kUnreadable;
  if (file->size() > static_cast<int64_t>(limit)) return InputState::kTooLarge;
  return readWholeFile(path, limit, bytes) ? InputState::kRead : InputState::kUnreadable;
}

}  // namespace zavel::mkbook
