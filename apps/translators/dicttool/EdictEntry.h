// One line of a file in EDICT form: "WRITTEN [READING] /(n) gloss/gloss/".
#ifndef DICTTOOL_EDICTENTRY_H
#define DICTTOOL_EDICTENTRY_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::dicttool {

// A word that an entry is found by.
struct EdictKey {
  std::string word;  // UTF-8, not folded
  // How far the entry is about the word, from 0 on: the lower, the earlier it stands among those of the word.
  int rank = 0;
  bool explained = false;  // the gloss says more in parentheses: ahead of it goes one that doesn't
};

// All text UTF-8.
struct EdictEntry {
  std::vector<std::string> written;   // "猫"; several in the later form of the file, which parts them by ";"
  std::vector<std::string> readings;  // "ねこ"; none when the word is written in kana
  std::vector<std::string> glosses;   // as they stand, codes included; marks of frequency left out
  bool common = false;                // it has such a mark

  // False for a line of another form.
  static bool parse(std::string_view line, EdictEntry* out);

  // Two lines: "東京 [とうきょう]" and "(place) Tokyo". Codes are spelled out where they are known; those of
  // a dictionary of names mean other things than the same letters elsewhere.
  std::string text(bool names) const;

  // By rank: 0 the written forms, and the first gloss without what stands in parentheses and without "to",
  // "a", "an", "the" in front; 1 the readings, and the next two glosses; 2 all later ones; from 3 on the
  // single words of the first four glosses, if those have two to six words, fewer words first, but for words
  // that every gloss has. A Japanese word with full-width letters or digits is found by the usual ones too,
  // and in a dictionary of names one with long vowels ("Satou") by short ones ("Sato"), rank 1 at best.
  std::vector<EdictKey> keys(bool names) const;
};

}  // namespace zavel::dicttool

#endif
