// Numbers in book data: packed decimal digits, and bytes the other way round.
#ifndef FOUNDATION_BCD_H
#define FOUNDATION_BCD_H

#include <cstddef>
#include <cstdint>

namespace zavel::foundation {

// Packed decimal (two digits a byte, high digit first) of `bytes` bytes. A digit over 9 counts with its
// value; what is over 32 bits is cut off at the top.
uint32_t BCD2ulong(const uint8_t* bcd, size_t bytes);
uint32_t GFnBCD2DWORD(const uint8_t* bcd, size_t bytes);
uint32_t GFn_BCD2DWORD(const uint8_t* bcd, size_t bytes);

// The same, cut to 16 bits at each step.
uint16_t GFnBCD2WORD(const uint8_t* bcd, size_t bytes);
uint16_t GFn_BCD2WORD(const uint8_t* bcd, size_t bytes);

// Swap the bytes, on every machine.
uint16_t GFn_Swap(uint16_t value);
uint32_t GFn_Swap2(uint32_t value);
uint32_t Little2BigUL(uint32_t value);
uint16_t Little2BigUS(uint16_t value);
uint32_t Big2LittleUL(uint32_t value);
uint16_t Big2LittleUS(uint16_t value);

}  // namespace zavel::foundation

#endif
