// Questions to eight bytes at once, for the runs that a list is made of. Each answer holds for the bytes in
// any order, so the byte order of the machine doesn't matter.
#ifndef ENGINE_BYTEWORDS_H
#define ENGINE_BYTEWORDS_H

#include <cstdint>
#include <cstring>

namespace zavel::engine {

using ByteWord = uint64_t;

// The same byte eight times.
constexpr ByteWord EightOf(uint8_t byte) {
  return ByteWord{0x0101010101010101} * byte;
}

inline ByteWord WordAt(const char* bytes) {
  ByteWord word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// Whether one of the bytes is `byte`.
constexpr bool Holds(ByteWord word, uint8_t byte) {
  const ByteWord rest = word ^ EightOf(byte);
  return ((rest - EightOf(1)) & ~rest & EightOf(0x80)) != 0;
}

// Whether all bytes are 0x20 to 0x7F. Below 0x20 the subtraction borrows and leaves a highest bit.
constexpr bool AllPrintable(ByteWord word) {
  return (((word - EightOf(0x20)) | word) & EightOf(0x80)) == 0;
}

// Whether one of the bytes is 0xF0 or above: its upper four bits are set.
constexpr bool HoldsFromF0(ByteWord word) {
  return (word & word << 1 & word << 2 & word << 3 & EightOf(0x80)) != 0;
}

}  // namespace zavel::engine

#endif
