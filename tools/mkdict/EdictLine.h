// One line of EDICT, taken apart: "KANJI [KANA] /(pos) (mark) gloss/gloss/(2) gloss/(P)/".
#ifndef MKDICT_EDICTLINE_H
#define MKDICT_EDICTLINE_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkdict {

// All text UTF-8.
struct EdictSense {
  std::vector<std::string> pos;      // codes; those of the sense before where the line gives none
  std::vector<std::string> remarks;  // codes that stand ahead of the first gloss
  std::vector<std::string> glosses;  // never empty, codes inside already spelled out
};

struct EdictLine {
  std::string written;                // "食べる"; empty when the word is written in kana alone
  std::string reading;                // "たべる"
  std::vector<std::string> spelling;  // codes on spelling or reading, which hold for all senses
  std::vector<EdictSense> senses;     // never empty
  bool common = false;                // marked (P)

  // False for a line that is not of this form or has no gloss.
  static bool parse(std::string_view line, EdictLine* out);
};

}  // namespace zavel::mkdict

#endif
