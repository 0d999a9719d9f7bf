// Each code copies up to 15 bytes of what came before and adds one. Tests: tests/book/BlockTest.cpp
#include "book/BlockSet.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr size_t kWide = 16;            // bytes that one step copies, whatever the match's length
constexpr size_t kMostCodes = kSet;     // each gives one byte at least
constexpr size_t kOverrun = 2 * kWide;  // what the last steps may write behind the set

// The source of the match begins `back` bytes ahead of where it goes. Closer than a wide step it repeats
// itself byte by byte. One that doesn't begin ahead at all reads what isn't written yet: zeroes.
void copyClose(uint8_t* out, ptrdiff_t back, size_t length) {
  if (back <= 0) {
    std::memset(out, 0, length);
    return;
  }
  for (size_t i = 0; i < length; ++i) out[i] = out[static_cast<ptrdiff_t>(i) - back];
}

bool readAll(StorageFile& file, uint64_t offset, void* out, size_t length) {
  return file.readAt(offset, out, length) == static_cast<int64_t>(length);
}

}  // namespace

void decodeBlockSet(uint8_t* destination, const uint8_t* codes, uint32_t count, uint8_t fill) {
  uint8_t work[kWindow + kSet + kOverrun];
  std::memset(work, fill, kWindow);
  uint8_t* const first = work + kWindow;
  uint8_t* const end = first + kSet;
  uint8_t* out = first;
  const uint8_t* const codesEnd = codes + size_t{count} * kCode;
  for (; codes != codesEnd && out < end; codes += kCode) {
    const ptrdiff_t back = static_cast<ptrdiff_t>(kWindow) - (codes[0] << 4 | codes[1] >> 4);
    const size_t length = codes[1] & kLongestMatch;
    if (back >= static_cast<ptrdiff_t>(kWide)) {
      std::memcpy(out, out - back, kWide);
    } else {
      copyClose(out, back, length);
    }
    out[length] = codes[2];
    out += length + 1;
  }
  const size_t written = std::min(static_cast<size_t>(out - first), kSet);
  std::memcpy(destination, first, written);
  std::memset(destination + written, 0, kSet - written);
}

bool SFDecodeBlockSet(uint8_t* destination, uint32_t set, StorageFile& file) {
  uint8_t place[4];
  if (!readAll(file, kSetTable + uint64_t{set} * sizeof place, place, sizeof place)) return false;
  const uint64_t offset = readBE32(place);
  uint8_t header[kSetHeader];
  if (!readAll(file, offset, header, sizeof header)) return false;
  const uint64_t count = readBE32(header);
  const int64_t size = file.size();
  if (size < 0 || offset + kSetHeader + count * kCode > static_cast<uint64_t>(size)) return false;
  const size_t used = static_cast<size_t>(std::min<uint64_t>(count, kMostCodes));
  const std::unique_ptr<uint8_t[]> codes(new (std::nothrow) uint8_t[used * kCode + 1]);
  if (!codes || !readAll(file, offset + kSetHeader, codes.get(), used * kCode)) return false;
  decodeBlockSet(destination, codes.get(), static_cast<uint32_t>(used), header[4]);
  return true;
}

}  // namespace zavel::book
