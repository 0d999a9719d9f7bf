// Words as they are typed, in the codes that a book files them under.
#ifndef ZAVEL_BOOK_BOOKKEYS_H
#define ZAVEL_BOOK_BOOKKEYS_H

#include <string>
#include <string_view>
#include <vector>

#include "book/BookCharacters.h"

namespace zavel::host {

// Characters of a key that a search looks at; what is behind them doesn't count.
inline constexpr size_t kLongestKey = 62;

// The spellings to try, the nearest to the typed one first: with the book's own characters and without
// blanks, as indexes mostly have words; with the blanks inside; without signs at both ends; as words are
// typed where every character can be, accents and all else that a book lacks left out. `asTyped` leaves out
// the last but one: fields of forms compare signs. Empty when the book can't write the word; its characters
// that it can't, each once, then are in `unknown`.
std::vector<std::string> keySpellings(std::string_view word, const BookCharacters& characters, bool asTyped,
                                      std::string* unknown);

// UTF-8 without blanks and signs at both ends, as they surround words in running text. A word of signs
// alone stays.
std::string_view withoutOuterSigns(std::string_view utf8);

// Code as two bytes, and text of such codes.
void appendCode(std::string* codes, unsigned code);

}  // namespace zavel::host

#endif
