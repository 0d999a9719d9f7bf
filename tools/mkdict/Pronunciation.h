// Pronunciations as entries carry them, and what they tell of a word's inflection.
//
// An entry writes sounds in ASCII, X-SAMPA's letters without its stress marks' quotes: "kA:n", "rI'membr".
// Conjugation reads the end of it alone, so the ends below have spellings of their own:
//
//   ends in           is the sound        then
//   A 0xD8            sh                  plural and third person take "es": washes
//   A 0xD9            ch                  the same: churches; a stomach ends in "k" and takes "s"
//   z                 z                   the same: waltzes
//   e                 a vowel written e   the e stays before "ing": seeing, being
//   A 0xC5            behind "ye", "oe"   the same: dyeing, shoeing
#ifndef MKDICT_PRONUNCIATION_H
#define MKDICT_PRONUNCIATION_H

#include <string>
#include <string_view>

namespace zavel::mkdict {

// What the inflection of a word depends on besides its spelling.
struct Sounds {
  bool known = false;  // from a pronunciation, not guessed by the spelling
  unsigned syllables = 0;
  bool lastStressed = false;  // stress on the last syllable; true for a word of one
  bool hardCh = false;        // ends in "ch" spoken as k
  bool keepsE = false;        // ends in an e that is spoken or belongs to "ye", "oe": it stays before "ing"
};

class Pronunciation {
 public:
  static Sounds sounds(std::string_view word, std::string_view ipa);

  // Phonetic bytes for the entry of `word`. Without `ipa`, only the end that the rules need, behind a
  // hyphen, or nothing where they need none.
  static std::string encode(std::string_view word, std::string_view ipa);
};

}  // namespace zavel::mkdict

#endif
