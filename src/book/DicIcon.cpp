// Tests: tests/book/IconTest.cpp
#include "book/DicIcon.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "book/Bitmap.h"
#include "book/BookFormat.h"
#include "book/OutBuffer.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::book {
namespace {

constexpr uint32_t kResolution = 100;

// Blue, green, red, zero: black, the dark colours, light grey, grey, the bright colours, white.
constexpr std::string_view kColors{
    "\x00\x00\x00\x00"
    "\x00\x00\x80\x00"
    "\x00\x80\x00\x00"
    "\x00\x80\x80\x00"
    "\x80\x00\x00\x00"
    "\x80\x00\x80\x00"
    "\x80\x80\x00\x00"
    "\xC0\xC0\xC0\x00"
    "\x80\x80\x80\x00"
    "\x00\x00\xFF\x00"
    "\x00\xFF\x00\x00"
    "\x00\xFF\xFF\x00"
    "\xFF\x00\x00\x00"
    "\xFF\x00\xFF\x00"
    "\xFF\xFF\x00\x00"
    "\xFF\xFF\xFF\x00",
    64};
static_assert(kBitmapHeader + kColors.size() == kIconBitmapHeader);

// The file's own length bounds what its header claims.
bool fits(StorageFile& file, uint64_t offset, uint64_t size) {
  const int64_t all = file.size();
  return all >= 0 && offset + size <= static_cast<uint64_t>(all);
}

}  // namespace

char* GFnGetDicIconBitmap(const char* path, bool large) {
  errno = 0;
  if (!path) return nullptr;
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  uint8_t header[kHeader];
  if (!file || file->readAt(0, header, kHeader) != static_cast<int64_t>(kHeader)) return nullptr;
  if (std::memcmp(header, kMagic.data(), kMagic.size()) != 0) {
    errno = 0;
    return nullptr;
  }
  const uint8_t* const place = header + (large ? kHeaderLargeIcon : kHeaderSmallIcon);
  const uint32_t offset = readBE32(place);
  const uint32_t size = readBE32(place + 4);
  if (!fits(*file, offset, size) || size > UINT32_MAX - kIconBitmapHeader) return nullptr;
  const uint32_t fileSize = size + static_cast<uint32_t>(kIconBitmapHeader);
  char* const out = allocateOut(fileSize);
  if (!out) return nullptr;
  const uint32_t width = large ? 32 : 16, height = large ? 32 : 15;
  writeBitmapHeader({fileSize, kIconBitmapHeader, width, height, 4, kResolution, kResolution}, out);
  writePalette(kColors, out);
  if (file->readAt(offset, out + kIconBitmapHeader, size) == static_cast<int64_t>(size)) return out;
  std::free(out);
  return nullptr;
}

}  // namespace zavel::book
