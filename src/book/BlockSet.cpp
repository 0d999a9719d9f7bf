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

static_assert(kLongestMatch < kWide, "one step copies a match whole");

// What it copies beyond the match is written over by what comes next, whatever it was.
void copyWide(uint8_t* out, const uint8_t* from) {
  uint8_t step[kWide];
  std::memcpy(step, from, kWide);
  std::memcpy(out, step, kWide);
}

// A match that is longer than it lies `back`, so that it repeats itself: each step copies twice as many bytes
// rightly as the one before.
void copyRepeating(uint8_t* out, size_t back, size_t length) {
  const uint8_t* const from = out - back;
  size_t right = back;
  for (copyWide(out, from); length > right; copyWide(out, from)) {
    out += right;
    length -= right;
    right *= 2;
  }
}

// The match begins `back` bytes ahead of where it goes, and longer ago than it is long: seldom otherwise, so
// that the processor guesses well. Runs of one byte are the most of the rest. A match that doesn't begin
// ahead at all reads what isn't written yet: zeroes.
void copyMatch(uint8_t* out, ptrdiff_t back, size_t length) {
  if (back >= static_cast<ptrdiff_t>(length)) {
    copyWide(out, out - back);
  } else if (back > 1) {
    copyRepeating(out, static_cast<size_t>(back), length);
  } else {
    std::memset(out, back == 1 ? out[-1] : 0, kWide);
  }
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
    copyMatch(out, back, length);
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
