// The headword (midasi) of an English entry as the conjugation rules read it:
//
//   F5D1 F4B5 2 F4D0 re<A5>cord ≦pronunciation≧ , ... LF
//                    '--------'  '-----------'
#ifndef ENGINE_KATUYOMIDASI_H
#define ENGINE_KATUYOMIDASI_H

#include <string>
#include <string_view>

namespace zavel::engine {

// What one entry says about its headword. All texts are at most 65,534 bytes long.
struct DicOneMidasiInfo {
  std::string_view text;      // the entry, borrowed from the caller of GetOneMidasiInfo
  std::string MidaInfo;       // the headword: letters, blanks, ' and - only
  std::string syllables;      // the same with the 0xA5 syllable marks kept
  int markCount = 0;          // number of 0xA5
  std::string pronunciation;  // the phonetic bytes between ≦ and ≧ or the first ","
  bool star = false;          // a "*" stood in the headword
};

// Reads the headword of the entry `text`, which must outlive *info. Without the tag 0xF4D0, which opens
// the headword, all of it stays empty.
void GetOneMidasiInfo(std::string_view text, DicOneMidasiInfo* info);

}  // namespace zavel::engine

#endif
