// Looking a word up for a program that asks by files.
#ifndef DICTTOOL_WORDLOOKUP_H
#define DICTTOOL_WORDLOOKUP_H

#include <ostream>
#include <string>

#include "dicttool/DictionaryList.h"
#include "dicttool/Failure.h"
#include "dicttool/ToolOptions.h"

namespace zavel::dicttool {

// A word as it stands in the source file.
struct SourceWord {
  std::string text;  // UTF-8, tidy, half-width katakana widened
  // The form of the answer. Whoever asks takes a word for an English one unless its first byte leads a
  // character of two, so half-width katakana count as English.
  Direction form = Direction::kEnglish;
  Direction language = Direction::kEnglish;  // the dictionaries that can hold it

  static SourceWord fromShiftJis(const std::string& bytes);
};

// Reads the source, searches, writes the result. Dictionaries that can't be searched are named on `err`, one
// line each, and passed over; a failure when none of them can, when there is none, or when a file fails.
Failure lookUpWord(const ToolOptions& options, const DictionaryPlaces& places, std::ostream& err);

}  // namespace zavel::dicttool

#endif
