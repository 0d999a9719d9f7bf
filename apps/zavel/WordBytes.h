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

}  // namespace zavel::host

#endif
