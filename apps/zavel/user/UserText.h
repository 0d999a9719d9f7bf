// Texts on their way into a user dictionary: turned into the characters that it can hold, and checked ahead
// of the engine, whose one status for all of them could not name the character.
#ifndef ZAVEL_USER_USERTEXT_H
#define ZAVEL_USER_USERTEXT_H

#include <string>

#include "user/UserEntry.h"

namespace zavel::host {

enum class TextKind {
  kEnglishWord,  // letters, blank and & ' , - . / _
  kReading,      // hiragana, katakana, ー － … ・
  kWritten,      // these, kanji of JIS levels 1 and 2, and 々 behind them
  kMixed,        // ASCII and what Shift_JIS has in double width
  kAscii,        // ASCII without controls
};

// Folds `*text` (UTF-8) into characters of its kind: width, sound marks, typographic quotes and dashes;
// blanks at its ends are cut, marks that nobody sees left out. A settled text settles to itself. Empty, or
// why it can't be held: "\"é\" (U+00E9), character 4, can't stand here: ...", with its place as typed.
std::string settleText(TextKind kind, std::string* text);

// All texts of an entry. Empty, or what is wrong, with the field's name ahead where it is one's: "meaning:
// ...", "example 2, English side: ...". A missing part of speech becomes a noun.
std::string settleEntry(UserEntry* entry);

// Between UTF-8 and the dictionary's Shift_JIS; for texts that were settled.
std::string storedText(const std::string& utf8);
std::string textOfStored(const std::string& sjis);

}  // namespace zavel::host

#endif
