// Memory, mutex, files and byte order. Characters: ShimChars.cpp. Tests: tests/engine/ShimTest.cpp
#include "engine/Shim.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>

#include "foundation/ByteReader.h"
#include "foundation/Storage.h"
#include "foundation/Utf8.h"

struct zavel_handle {
  uint8_t* bytes;  // owned, from malloc
  size_t size;
};

extern "C" {

void* GlobalLock(Handle handle) {
  return handle ? handle->bytes : nullptr;
}

void GlobalUnlock(Handle) {}

void GlobalFree(Handle handle) {
  if (handle == nullptr) return;
  std::free(handle->bytes);
  delete handle;
}

}  // extern "C"

namespace zavel::engine {
namespace {

FileMapping g_mappings[kMappingSlots];

FileMapping* FindMapping(const char* name) {
  const auto found = std::find_if(
      std::begin(g_mappings), std::end(g_mappings),
      [name](const FileMapping& slot) { return slot.block != nullptr && std::strcmp(slot.name, name) == 0; });
  return found == std::end(g_mappings) ? nullptr : found;
}

FileMapping* FindEmptyMapping() {
  const auto found = std::find_if(std::begin(g_mappings), std::end(g_mappings),
                                  [](const FileMapping& slot) { return slot.block == nullptr; });
  return found == std::end(g_mappings) ? nullptr : found;
}

// malloc may answer null for 0 bytes, and null means failure here.
size_t AtLeastOne(size_t size) {
  return std::max<size_t>(size, 1);
}

}  // namespace

Handle GlobalAlloc(uint32_t flags, size_t size) {
  Handle handle = new (std::nothrow) zavel_handle{nullptr, size};
  if (handle == nullptr) return nullptr;
  void* bytes = flags & kZeroFill ? std::calloc(AtLeastOne(size), 1) : std::malloc(AtLeastOne(size));
  handle->bytes = static_cast<uint8_t*>(bytes);
  if (bytes != nullptr) return handle;
  delete handle;
  return nullptr;
}

Handle GlobalReAlloc(Handle handle, size_t size, uint32_t flags) {
  if (handle == nullptr) return nullptr;
  void* bytes = std::realloc(handle->bytes, AtLeastOne(size));
  if (bytes == nullptr) return nullptr;
  handle->bytes = static_cast<uint8_t*>(bytes);
  if (size > handle->size && (flags & kZeroFill))
    std::memset(handle->bytes + handle->size, 0, size - handle->size);
  handle->size = size;
  return handle;
}

size_t GlobalSize(Handle handle) {
  return handle ? handle->size : 0;
}

Status MakeBlockList(std::string_view bytes, uint32_t* size, Handle* list) {
  *size = 0;
  *list = nullptr;
  if (bytes.empty()) return kOk;
  if (bytes.size() > UINT32_MAX) return kNoMemory;
  Handle handle = GlobalAlloc(kHandleFlags, bytes.size());
  if (handle == nullptr) return kNoMemory;
  std::memcpy(handle->bytes, bytes.data(), bytes.size());
  *size = static_cast<uint32_t>(bytes.size());
  *list = handle;
  return kOk;
}

FileMapping* CreateFileMapping(int, void*, uint32_t, uint32_t, uint32_t sizeLow, const char* name) {
  if (FileMapping* known = FindMapping(name)) return known;
  FileMapping* slot = FindEmptyMapping();
  if (slot == nullptr || std::strlen(name) >= sizeof(slot->name)) return nullptr;
  slot->block = static_cast<uint8_t*>(std::malloc(AtLeastOne(sizeLow)));
  if (slot->block == nullptr) return nullptr;
  std::strcpy(slot->name, name);
  slot->size = sizeLow;
  return slot;
}

size_t FreeMappings() {
  return static_cast<size_t>(std::count_if(std::begin(g_mappings), std::end(g_mappings),
                                           [](const FileMapping& slot) { return slot.block == nullptr; }));
}

void* MapViewOfFile(FileMapping* mapping) {
  return mapping ? mapping->block : nullptr;
}

int UnmapViewOfFile(void*) {
  return 1;
}

void DeleteFileMapping() {
  for (FileMapping& slot : g_mappings) {
    std::free(slot.block);
    slot = FileMapping{};
  }
}

uint32_t GetLastError() {
  return 0;
}

int CloseHandle(int) {
  return 1;
}

int CreateMutex(void*, int, const char*) {
  return 1;
}

int ReleaseMutex(int) {
  return 1;
}

uint32_t WaitForSingleObject(int, uint32_t) {
  return 0;
}

bool DeleteFile(const std::string& path) {
  return storage().remove(path);
}

bool CopyFile(const std::string& from, const std::string& to) {
  return storage().copy(from, to);
}

bool MoveFile(const std::string& from, const std::string& to) {
  return storage().rename(from, to);
}

bool GetTempFileName(const std::string& folder, const std::string& prefix, uint32_t, std::string* path) {
  const auto file = storage().openTemporary(folder, prefix, path);
  if (file == nullptr) return false;
  if (file->close()) return true;
  DeleteFile(*path);
  return false;
}

bool CreateFile(const std::string& spec, uint32_t, uint32_t) {
  if (storage().exists(spec)) return true;
  const auto file = storage().open(spec, OpenMode::kCreate);
  return file != nullptr && file->close();
}

int FSp2FullPath(const std::string& spec, std::string* path) {
  if (spec.empty() || spec.size() > kMaxFullPath) return -1;
  *path = spec;
  return static_cast<int>(spec.size());
}

int FullPath2FSp(const std::string& path, std::string* spec) {
  if (!isValidUtf8(path) || !storage().exists(path)) return kPathNotResolved;
  *spec = path;
  return 0;
}

SplitPath _splitpath(const std::string& path) {
  SplitPath parts;
  const size_t slash = path.find_last_of("/\\");
  const size_t last = slash == std::string::npos ? 0 : slash + 1;
  const size_t point = path.find_last_of('.');
  const size_t end = point == std::string::npos || point < last ? path.size() : point;
  parts.dir = path.substr(0, last);
  parts.name = path.substr(last, end - last);
  parts.ext = path.substr(end);
  return parts;
}

int ChangeLoHi(uint8_t*, size_t, size_t) {
  return 1;
}

uint32_t getChangeLoHiDWORD(const uint8_t* bytes) {
  return readLE32(bytes);
}

uint16_t getChangeLoHiWORD(const uint8_t* bytes) {
  return readLE16(bytes);
}

}  // namespace zavel::engine
