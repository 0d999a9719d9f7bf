// One line of a file in EDICT form: "WRITTEN [READING] /(n) gloss/gloss/".
#ifndef DICTTOOL_EDICTENTRY_H
#define DICTTOOL_EDICTENTRY_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::dicttool {

// A word that an entry is found by. The lower the rank, the earlier the entry stands among those of the word.
struct EdictKey {
  std::string word;  // UTF-8, not folded
  int rank = 0;
};

// All text UTF-8.
struct EdictEntry {
  std::vector<std::string> written;   // "猫"; several in the later form of the file, which parts them by ";"
  std::vector<std::string> readings;  // "ねこ"; none when the word is written in kana
  std::vector<std::string> glosses;   // as they stand, codes included; marks of frequency left out

  // False for a line of another form.
  static bool parse(std::string_view line, EdictEntry* out);

  // Two lines: "東京 [とうきょう]" and "(place) Tokyo". Codes are spelled out where they are known; those of
  // a dictionary of names mean other things than the same letters elsewhere.
  std::string text(bool names) const;

  // The written forms, the readings; each gloss without what stands in parentheses and without "to", "a",
  // "an", "the" in front; and the single words of glosses of two to six, but for those that every gloss has.
  // A Japanese word with full-width letters or digits is found by the usual ones too.
  std::vector<EdictKey> keys() const;
};

}  // namespace zavel::dicttool

#endif
