// Reads the entries of a FreeDict dictionary from English to Japanese, as its dictd edition lays them out:
//
//   light //laɪt// //lʌɪt// /[ɫɐɪ̯ʔ]/ <adj>       headword, pronunciations, part of speech
//   1. 明るい, 光                                 numbered sense: translations
//   having light                                  its note
//   2. 軽い 2.                                    a sense with several notes: the numbers count on from
//   of low weight                                 the translations
//    3.
//   low in fat, calories, alcohol, salt, etc.
//
// A word with one sense has no "1. ".
#ifndef MKDICT_FREEDICT_H
#define MKDICT_FREEDICT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mkdict/EnglishWord.h"

namespace zavel::mkdict {

class FreeDict {
 public:
  enum class Fault {
    kNone,
    kNoWord,         // about the dictionary itself, or an empty or artificial headword
    kAffix,          // "-able", "un-": the source has lost the first characters of their translations
    kNoTranslation,  // no translation that can be read as Japanese
  };

  // One entry. On any fault but kNone *word is unsettled, though word->word stands where it could be read.
  // `dropped` (if given) receives the translations that were left out of an entry that is kept or not.
  static Fault read(std::string_view entry, EnglishWord* word, std::vector<std::string>* dropped = nullptr);

  // A translation as an entry shows it. Readings and romanised forms in brackets fall, brackets are made
  // single-byte and balanced, wiki marks and stray stops fall, blanks inside Japanese words close. Nothing
  // when the rest is empty or no Japanese: romanised words, for example.
  static std::optional<std::string> cleanTranslation(std::string_view translation);

  // A note, fit to stand in "( )": no brackets of its own but "[ ]". May be empty.
  static std::string cleanNote(std::string_view note);
};

}  // namespace zavel::mkdict

#endif
