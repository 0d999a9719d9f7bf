// The search for files of a creator and type.
// Tests: tests/config/TwcFileSearchTest.cpp
#include <algorithm>
#include <filesystem>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "config/NewString.h"
#include "config/TwcServices.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"

namespace {

// The walk that a call goes on with: what it wants, and the files it has not looked at, the last one first.
struct Walk {
  std::string creator;
  std::string type;
  std::vector<std::string> files;
};

Walk& walk() {
  static Walk theWalk;
  return theWalk;
}

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    // Nothing but files: reading a pipe would wait for whoever writes it.
    std::error_code unknown;
    if (it->is_regular_file(unknown)) files.push_back(folder + "/" + it->path().filename().string());
  }
  return files;
}

void begin(const std::string& folder, const char* creator, const char* type) {
  walk() = {creator, type, filesIn(folder)};
  std::sort(walk().files.begin(), walk().files.end(), std::greater<>());
}

bool isWanted(const std::string& path) {
  const std::optional<zavel::FileSignature> signature = zavel::platform().forkedFiles().signature(path);
  return signature && signature->creator == walk().creator && signature->type == walk().type;
}

}  // namespace

int32_t twcCreatorTypeFileSearchInFolder(const char* folder, const char* creator, const char* type,
                                         char** found, int32_t restart) {
  if (!folder || !creator || !type || !found) return TWC_ERROR_PARAMETER;
  int32_t count = 0;
  try {
    if (restart != 0) begin(folder, creator, type);
    std::vector<std::string>& files = walk().files;
    for (; count < TWC_SEARCH_BATCH && !files.empty(); files.pop_back()) {
      if (!isWanted(files.back())) continue;
      found[count] = zavel::newString(files.back());
      if (!found[count]) break;
      ++count;
    }
  } catch (const std::bad_alloc&) {
    if (count == 0) return TWC_ERROR_PARAMETER;
  }
  return count;
}
