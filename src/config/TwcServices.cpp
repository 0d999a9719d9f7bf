// Tests: tests/config/TwcServicesTest.cpp
#include "config/TwcServices.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "config/NewString.h"
#include "config/SjisClassWalk.h"
#include "foundation/Storage.h"
#include "platform/Folders.h"
#include "platform/Platform.h"

namespace {

constexpr size_t kMaxPathBytes = 4096;
constexpr size_t kMaxComponentBytes = 254;

// The longest piece from the start of `text` with at most `limit` bytes and no character cut in two.
std::string_view cutToBytes(std::string_view text, size_t limit) {
  if (text.size() <= limit) return text;
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0) == 0x80) --limit;
  return text.substr(0, limit);
}

char* copyOfPath(const char* path) {
  return path ? zavel::newString(path) : nullptr;
}

// Makes each folder on the way to `path` that is not there.
int32_t createEachFolder(const std::string& path) {
  size_t component = 0;  // bytes gathered of the current one
  // The walk begins at the second byte: the first is the delimiter of an absolute path.
  for (size_t i = 1; i <= path.size(); ++i) {
    if (i < path.size() && path[i] != '/') {
      if (++component > kMaxComponentBytes) return TWC_ERROR_NAME_TOO_LONG;
      continue;
    }
    component = 0;
    const std::string prefix = path.substr(0, i);
    if (zavel::storage().exists(prefix)) continue;
    if (const int error = zavel::makeFolderOrFind(prefix)) return error;
  }
  return 0;
}

}  // namespace

int32_t twcCreateFolder(const char* path) try {
  const std::string whole(cutToBytes(path ? path : "", kMaxPathBytes));
  if (whole.empty()) return TWC_ERROR_PARAMETER;
  if (zavel::storage().exists(whole)) return 0;
  const int32_t error = createEachFolder(whole);
  if (zavel::storage().exists(whole)) return 0;
  // Every prefix stood and yet the whole does not: cut at the limit, or removed again meanwhile.
  return error ? error : TWC_ERROR_PARAMETER;
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

char* twcUserFolderCreateCopy(void) try {
  const std::string home = zavel::platform().folders().home();
  if (home.empty() || home.size() > kMaxPathBytes) return nullptr;
  return zavel::newString(home);
} catch (const std::bad_alloc&) {
  return nullptr;
}

int32_t twcGetBytesFromCFString(const char* string, char* buffer, int32_t size) {
  if (!buffer || size < 1) return 0;
  const std::string_view bytes = cutToBytes(string ? string : "", static_cast<size_t>(size) - 1);
  std::copy(bytes.begin(), bytes.end(), buffer);
  buffer[bytes.size()] = '\0';
  return static_cast<int32_t>(bytes.size());
}

int32_t twcMakeFolderInFolderX(const char* parent, const uint8_t* name) try {
  if (!parent || !name) return TWC_ERROR_PARAMETER;
  const std::string folder(reinterpret_cast<const char*>(name) + 1, name[0]);
  const bool impossible = folder.empty() || folder == "." || folder == ".." ||
                          folder.find_first_of(std::string_view("/\0", 2)) != std::string::npos;
  if (impossible) return TWC_ERROR_PARAMETER;
  return zavel::storage().makeFolder(std::string(parent) + "/" + folder);
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

bool twcCFStringToFSRef(const char* path) try {
  return path && zavel::storage().exists(path);
} catch (const std::bad_alloc&) {
  return false;
}

char* twcFSSpecToCFString(const char* path) {
  return copyOfPath(path);
}
char* twcFSSpecToFullPath(const char* path) {
  return copyOfPath(path);
}
char* twcFSSpecToUTF8Path(const char* path) {
  return copyOfPath(path);
}
char* twcGetClassicFullPath(const char* path) {
  return copyOfPath(path);
}
char* CreateUTF8CStringFromCFString(const char* string) {
  return copyOfPath(string);
}

bool twcIsJapanese(const char* bytes) {
  if (!bytes) return false;
  return std::any_of(bytes, bytes + std::strlen(bytes), [](char c) {
    const unsigned char byte = static_cast<unsigned char>(c);
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  });
}

int32_t twcSJISCode(const char* bytes, int32_t index) {
  if (!bytes || index < 0) return zavel::kSjisEmpty;
  return zavel::SjisClassWalk(bytes).classAt(static_cast<size_t>(index));
}
