// The names of the Windows API and of a Shift_JIS character library that the engine speaks, with the
// meaning it relies on: one process, no real shared memory, no real locking.
#ifndef ENGINE_SHIM_H
#define ENGINE_SHIM_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"

namespace zavel::engine {

// --- Memory blocks with handles (GlobalLock, GlobalUnlock, GlobalFree are exported) ---

inline constexpr uint32_t kZeroFill = 0x40;     // bit of `flags`: zero-filled
inline constexpr uint32_t kHandleFlags = 0x42;  // what every call in the engine gives

// A new block of `size` bytes; null on failure.
Handle GlobalAlloc(uint32_t flags, size_t size);
// Resizes in place, content kept, and gives the same handle; null on failure, the block then as it was.
Handle GlobalReAlloc(Handle handle, size_t size, uint32_t flags);
size_t GlobalSize(Handle handle);

// The usual end of a search: a block list of exactly `bytes`. Empty bytes give a null handle and kOk.
Status MakeBlockList(std::string_view bytes, uint32_t* size, Handle* list);

// --- Named memory: ten slots ---

inline constexpr size_t kMappingSlots = 10;
inline constexpr uint32_t kAlreadyExists = 183;  // a GetLastError that never comes here

// One slot; empty while `block` is null.
struct FileMapping {
  char name[64];
  uint32_t size;   // as first asked for
  uint8_t* block;  // owned by the table
};

// The slot of that name with its first size, or the first empty slot with a new block of `sizeLow` bytes,
// not cleared. Null when all are taken, for a name of 64 bytes or more, and without memory.
FileMapping* CreateFileMapping(int file, void* security, uint32_t protect, uint32_t sizeHigh,
                               uint32_t sizeLow, const char* name);
// Slots that are left.
size_t FreeMappings();
void* MapViewOfFile(FileMapping* mapping);
// Nothing: the block stays with its content. 1.
int UnmapViewOfFile(void* view);
// Frees every slot's block and empties the slot.
void DeleteFileMapping();
// Always 0.
uint32_t GetLastError();
// Nothing. 1.
int CloseHandle(int handle);

// --- Mutex ---

// One thread, one process: made, taken and given back at once. 1, 1, 0.
int CreateMutex(void* security, int initialOwner, const char* name);
int ReleaseMutex(int handle);
uint32_t WaitForSingleObject(int handle, uint32_t timeout);

// --- Files; true on success. All go through the storage seam ---

bool DeleteFile(const std::string& path);
bool CopyFile(const std::string& from, const std::string& to);
bool MoveFile(const std::string& from, const std::string& to);
// A new empty file in `folder`; its path in `path`.
bool GetTempFileName(const std::string& folder, const std::string& prefix, uint32_t unique,
                     std::string* path);
// Makes an empty file at `spec`; what is there already stays as it is and counts as made. Creator and type
// have no place in a file here.
bool CreateFile(const std::string& spec, uint32_t creator, uint32_t type);

// A file specifier of this platform is a path, so that one turns into the other by a copy.
inline constexpr size_t kMaxFullPath = 1014;
inline constexpr int kPathNotResolved = -43;
// Bytes of *path; -1, with *path as it was, for a specifier that is empty or over kMaxFullPath bytes.
int FSp2FullPath(const std::string& spec, std::string* path);
// 0; kPathNotResolved, with *spec as it was, for a path that is no UTF-8 or where nothing stands.
int FullPath2FSp(const std::string& path, std::string* spec);

struct SplitPath {
  std::string drive;  // always empty here
  std::string dir;    // up to and with the last "/" (or "\")
  std::string name;   // the last part without its extension
  std::string ext;    // from the last "." of the last part on, that "." included
};
SplitPath _splitpath(const std::string& path);

// --- Byte order ---

// Marks where file integers stand in place; changes nothing, 1.
int ChangeLoHi(uint8_t* bytes, size_t size, size_t unit);
uint32_t getChangeLoHiDWORD(const uint8_t* bytes);
uint16_t getChangeLoHiWORD(const uint8_t* bytes);

// --- Characters: codes are a single byte, or lead byte x 256 + trail byte ---

// 0x81 to 0x9F and 0xE0 to 0xFC: `c` itself, else 0.
inline int _ismbblead(unsigned c) {
  return ((c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC)) ? static_cast<int>(c) : 0;
}
// A lead byte with a trail byte 0x40 to 0x7E or 0x80 to 0xFC.
bool _ismbclegal(unsigned code);
// Hiragana, and 0x8868, the voiced u.
bool _ismbchira(unsigned code);
bool _ismbckata(unsigned code);
// Kanji of JIS level 1 and 2, as ranges of codes.
bool _ismbcl1(unsigned code);
bool _ismbcl2(unsigned code);
// Katakana to hiragana; ヴ ヵ ヶ and all else unchanged.
unsigned _mbctohira(unsigned code);
// The single-byte form of 0x8140 to 0x8396 and 0x8868; `code` itself where there is none. A voiced kana
// gives its plain form.
unsigned _mbctombb(unsigned code);
// Printing single bytes, half-width kana, and the assigned double-byte codes.
bool _ismbcprint(unsigned code);
constexpr bool _isalpha(unsigned c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
// 0x20 to 0x7E: `c` itself, else 0.
int _isprint(unsigned c);
// (c + 224) modulo 256, of lower-case letters the upper-case one, of all else nonsense.
unsigned o_toupper(unsigned c);
inline uint8_t HIBYTE(unsigned x) {
  return static_cast<uint8_t>(x >> 8);
}
inline uint8_t LOBYTE(unsigned x) {
  return static_cast<uint8_t>(x);
}

}  // namespace zavel::engine

#endif
