// Words on their way to the dictionary, in its encoding, and back.
#ifndef ZAVEL_WORDBYTES_H
#define ZAVEL_WORDBYTES_H

#include <optional>
#include <string>

namespace zavel::host {

// In Shift_JIS; nothing when a character has no place there, so that no headword can hold it.
std::optional<std::string> wordBytes(const std::string& utf8);

// The characters that keep wordBytes() from giving anything, each once, in their order. `utf8` is UTF-8.
std::string unknownCharacters(const std::string& utf8);

// `utf8` without them.
std::string withoutUnknownCharacters(const std::string& utf8);

// UTF-8 for the eye: lines ended by 0x0A, no control characters.
std::string shownText(std::string sjis);

// Whether the engine takes the word for an English one: it begins with a single byte.
bool isEnglishWord(const std::string& sjis);

// What the English index files a word under: small letters alone. "Run-up" and "runup" are one.
std::string englishKey(const std::string& sjis);

// The same of a word in UTF-8.
std::string englishKeyOf(const std::string& utf8);

// The key of an English word (UTF-8) with all that tells it from others of that key: apostrophes, and a
// hyphen at an end, which makes it a part of words. Case, blanks and inner hyphens tell nothing.
std::string englishSpelling(const std::string& utf8);

// How near a Japanese word (UTF-8) is to a query that the index files with it: 0 it is written so, 1 in the
// other kana, 2 the index passes over what tells them apart, as "ー".
int kanaDistance(const std::string& word, const std::string& query);

}  // namespace zavel::host

#endif
