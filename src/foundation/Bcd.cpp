// Tests: tests/foundation/BcdTest.cpp
#include "foundation/Bcd.h"

namespace zavel::foundation {
namespace {

template <typename Number>
Number readBcd(const uint8_t* bcd, size_t bytes) {
  Number value = 0;
  for (size_t i = 0; i < bytes; ++i) {
    value = static_cast<Number>(value * 10u + (bcd[i] >> 4));
    value = static_cast<Number>(value * 10u + (bcd[i] & 15));
  }
  return value;
}

}  // namespace

uint32_t BCD2ulong(const uint8_t* bcd, size_t bytes) {
  return readBcd<uint32_t>(bcd, bytes);
}
uint32_t GFnBCD2DWORD(const uint8_t* bcd, size_t bytes) {
  return readBcd<uint32_t>(bcd, bytes);
}
uint32_t GFn_BCD2DWORD(const uint8_t* bcd, size_t bytes) {
  return readBcd<uint32_t>(bcd, bytes);
}
uint16_t GFnBCD2WORD(const uint8_t* bcd, size_t bytes) {
  return readBcd<uint16_t>(bcd, bytes);
}
uint16_t GFn_BCD2WORD(const uint8_t* bcd, size_t bytes) {
  return readBcd<uint16_t>(bcd, bytes);
}

uint16_t GFn_Swap(uint16_t value) {
  return static_cast<uint16_t>(value << 8 | value >> 8);
}

uint32_t GFn_Swap2(uint32_t value) {
  return value << 24 | (value & 0xFF00u) << 8 | (value >> 8 & 0xFF00u) | value >> 24;
}

uint32_t Little2BigUL(uint32_t value) {
  return GFn_Swap2(value);
}
uint16_t Little2BigUS(uint16_t value) {
  return GFn_Swap(value);
}
uint32_t Big2LittleUL(uint32_t value) {
  return GFn_Swap2(value);
}
uint16_t Big2LittleUS(uint16_t value) {
  return GFn_Swap(value);
}

}  // namespace zavel::foundation
