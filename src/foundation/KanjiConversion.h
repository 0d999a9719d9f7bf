// Conversions of whole strings among JIS, Shift_JIS and EUC-JP, and what is done to such strings in place.
//
// The caller owns every buffer and makes it large enough. Where no count is given, the input ends with NUL
// and so does the output. A double-byte character whose second half is cut off counts as a single byte.
#ifndef FOUNDATION_KANJICONVERSION_H
#define FOUNDATION_KANJICONVERSION_H

#include <cstddef>

namespace zavel::foundation {

// Pairs of JIS to EUC-JP: codes from 0x2121 to 0xA120 get both high bits, higher ones stay. Ends at the
// first code above 0xFE7E or below 0x2121. `out` gets two zero bytes at its end: room for `bytes` + 2.
// An odd last byte is not read.
void GFnConvJIS2EUC(char* out, const char* in, size_t bytes);

// Every character to two bytes of JIS: single bytes by way of their full-width form. No terminator.
// Result: bytes written, at most twice `bytes`. A byte without full-width form still goes through the
// arithmetic and gives a code that is no JIS (kept: docs/quirks.md).
size_t GFnConvSJIS2JIS(char* out, const char* in, size_t bytes);

// Shift_JIS to EUC-JP. Ends with `in`, or as soon as `limit` characters of two output bytes are written;
// characters of one byte don't count (kept: docs/quirks.md). Half-width katakana become two bytes.
void ConvSJIStoEUC(char* out, const char* in, int limit);

// Sets the high bit of each byte.
void JisToEucX(const char* in, char* out);

// Half-width katakana (0x8E and byte) to the byte without its high bit, double-byte characters to JIS, other
// bytes as they are. `out` may be `in`.
void EucToJisX(const char* in, char* out);

// EUC-JP to its half-width forms: letters and digits to ASCII, katakana to 0x8E and byte, those with a mark
// to two such pairs. What has no such form is copied. `out` may take twice the bytes of `in`.
void ZenToHanEuc(const char* in, char* out);

// Hiragana to katakana in place, in Shift_JIS.
void GFnReplaceKatakana(char* text);

// Reverses a string of two-byte characters in place. An odd last byte is not moved.
void InvertDBCSString(char* text);

// Remove tabs, blanks and full-width blanks of EUC-JP (0xA1A1) in place, TrimRight line ends too. Result:
// the argument. They go by bytes: in Shift_JIS two half-width full stops are such a blank, and a character
// that ends in 0xA1 in front of one stop is cut in two (kept: docs/quirks.md).
char* TrimLeft(char* text);
char* TrimRight(char* text);
char* Trim(char* text);

}  // namespace zavel::foundation

#endif
