// Sounds, as WAVE files in memory. Tests: tests/book/MediaTest.cpp
#include <cstdlib>
#include <cstring>

#include "book/Address.h"
#include "book/CEpwing.h"
#include "book/OutBuffer.h"
#include "book/TagReader.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr uint32_t kBookOfFaults = 300;
constexpr size_t kName = 20, kNameInBookOfFaults = 18;

struct Span {
  _SDICADDRESS start;
  _SDICADDRESS end;

  bool operator==(const Span& other) const {
    return start.block == other.start.block && start.offset == other.start.offset &&
           end.block == other.end.block && end.offset == other.end.offset;
  }
};

// Sounds of book 300 whose tags name the wrong place, and the right one.
constexpr struct {
  Span wrong;
  Span right;
} kMisplaced[] = {{{{0xA9F80, 1432}, {0xAAF53, 520}}, {{692142, 284}, {696192, 1420}}},
                  {{{0xA8FAE, 284}, {0xA9F80, 1420}}, {{696192, 1432}, {700243, 520}}}};
constexpr Span kFaulty = {{0x41E02, 8}, {0x41E23, 1536}};
constexpr Span kUnreadable = {{0xD395B, 1200}, {0xD4881, 1792}};

Span corrected(const Span& span) {
  for (const auto& known : kMisplaced) {
    if (span == known.wrong) return known.right;
  }
  return span;
}

// Bytes between start and end; negative for a span that isn't one.
int64_t lengthOf(const Span& span) {
  int64_t length = span.end.offset;
  if (span.end.block < uint64_t{span.start.block} + 2) {
    if (span.end.block != span.start.block) length += kBlock;
  } else {
    length += int64_t{span.end.block - span.start.block} * static_cast<int64_t>(kBlock);
  }
  return length - span.start.offset;
}

constexpr size_t kChunksHeader = 12;
constexpr size_t kPcmHeader = 44;

void writePcmHeader(uint16_t format, uint32_t length, uint8_t* out) {
  const uint16_t channels = (format & 0xF000) != 0 ? 2 : 1;
  const uint32_t rate = (format & 0xF) == 0 ? 44100 : (format & 0xF) == 1 ? 22050 : 11025;
  const uint16_t bits = (format & 0xF0) != 0 ? 8 : 16;
  const uint16_t align = static_cast<uint16_t>(channels * bits / 8);
  std::memcpy(out, "RIFF....WAVEfmt ", 16);
  writeLE32(out + 4, length + 36);
  writeLE32(out + 16, 16);
  writeLE16(out + 20, 1);
  writeLE16(out + 22, channels);
  writeLE32(out + 24, rate);
  writeLE32(out + 28, rate * align);
  writeLE16(out + 32, align);
  writeLE16(out + 34, bits);
  std::memcpy(out + 36, "data", 4);
  writeLE32(out + 40, length);
}

}  // namespace

// The bytes with `header` bytes of room ahead of them.
BookStatus CEpwing::readSound(const _SDICADDRESS& start, uint64_t length, size_t header, char** data) {
  char* bytes = nullptr;
  if (const BookStatus status = readOut(start, length, &bytes)) return status;
  char* const out = allocateOut(header + static_cast<size_t>(length));
  if (out) std::memcpy(out + header, bytes, static_cast<size_t>(length));
  std::free(bytes);
  *data = out;
  return out ? kDone : kOutOfMemory;
}

BookStatus CEpwing::Fn_GetStreamData(const char* tag, char** name, uint16_t* nameLength, char** data,
                                     uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!tag || !data || !length) return kInvalidArgument;
  const TagReader reader(tag);
  if (reader.word(0) != kTagSound) return kBroken;
  if ((reader.byte(3) & 0x0F) != 1) return kUnsupportedMedia;  // the argument with its bytes swapped
  if (Fp_FindBookControlEntry(lowByte(kKindSound)) < 0) return kBroken;
  const bool faults = m_dicID == kBookOfFaults;
  const auto title = reader.upTo(faults ? kNameInBookOfFaults : kName, kTagSoundEnd);
  if (!title) return kBroken;
  const Span told = {reader.address(6), reader.address(12)};
  const Span span = faults ? corrected(told) : told;
  const int64_t size = lengthOf(span);
  if (size < 0) return kReadFailed;
  const uint16_t format = reader.word(4);
  const bool pcm = (format & 0xF00) == 0x100;
  const size_t header = pcm ? kPcmHeader : kChunksHeader;
  if (const BookStatus status = readSound(span.start, static_cast<uint64_t>(size), header, data))
    return faults && told == kUnreadable && !pcm && status == kReadFailed ? kKnownReadFault : status;
  uint8_t* const out = reinterpret_cast<uint8_t*>(*data);
  const uint32_t bytes = static_cast<uint32_t>(size);
  if (pcm) {
    writePcmHeader(format, bytes, out);
  } else {
    std::memcpy(out, "RIFF....WAVE", kChunksHeader);
    writeLE32(out + 4, bytes + 4);
  }
  *length = bytes + static_cast<uint32_t>(header);
  if (const BookStatus status = copyName(*title, name, nameLength)) {
    std::free(*data);
    *data = nullptr;
    return status;
  }
  return faults && told == kFaulty ? kKnownSoundFault : kDone;
}

}  // namespace zavel::book
