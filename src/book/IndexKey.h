// What an index makes of a word, for those who search in it and those who write it.
#ifndef BOOK_INDEXKEY_H
#define BOOK_INDEXKEY_H

#include <cstdint>

#include "book/ControlEntry.h"

namespace zavel::book {

// The key of `in` as the flags and the kind of `index` want it (docs/book-format.md, "Keys"): signs fall,
// kana and letters are folded, and kinds 0x70 to 0x7F have it the other way round. Both are JIS,
// NUL-terminated, and `out` takes as many bytes as `in` has. Input above 256 bytes leaves `out` as it is.
// `keepFirstMark` leaves a long vowel mark at the beginning alone.
void formatIndexKey(const _EPBOOKCONTROLENTRY& index, char* out, const char* in, bool keepFirstMark);

// Blank, middle dot, apostrophe, hyphen: they don't count where keys are compared with leaves.
bool isPassedOver(uint16_t code);

// Capitals to small letters: Latin, Greek and Cyrillic. Comparisons take both for the same.
uint16_t foldDown(uint16_t code);

// Writes a code of two bytes at *out, which moves past it.
void appendCode(uint16_t code, char** out);

}  // namespace zavel::book

#endif
