// How the words of entries become what indexes file and what references find.
#ifndef MKBOOK_WORDKEYS_H
#define MKBOOK_WORDKEYS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mkbook/CustomCharacters.h"

namespace zavel::mkbook {

// The spellings in codes that a word is filed under: as it is, and, where that can't be typed, as it is
// typed.
std::vector<std::string> spellings(std::string_view word, CustomCharacters& characters);

// Which entry a word leads to. Words are codes, as CustomCharacters has them.
class WordTable {
 public:
  // Of several entries of the same word the first one is kept.
  void add(std::string_view codes, size_t entry);

  // The entry, or -1.
  int64_t find(std::string_view codes) const;

 private:
  std::unordered_map<std::string, uint32_t> entries_;
};

}  // namespace zavel::mkbook

#endif
