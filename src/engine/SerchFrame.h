// The frame of the four searches: which sides a call works on, and the five steps around its work.
#ifndef ENGINE_SERCHFRAME_H
#define ENGINE_SERCHFRAME_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/Frame.h"
#include "engine/Index3.h"

namespace zavel::engine {

// The `dic` argument of a search.
inline constexpr uint8_t kSerchKihon = 1;
inline constexpr uint8_t kSerchUser = 2;
inline constexpr uint8_t kSerchBoth = 3;

// The dictionaries that a search is about to work on.
struct SerchSides {
  bool kihon = false;
  bool user = false;
};

// One call as its exported function was given it.
struct SerchCall {
  FunctionCode code;  // kCodeSerchMidasiE ... kCodeSerchImiJ; it tells the language
  const char* word;
  uint32_t* size;
  Handle* list;
  uint8_t dic;
};

// What a search does between opening and closing: fills `records` with the block list's bytes. Callers wrap
// a reference to their function, which takes no memory: a lack of it is caught only inside RunSerch.
using SerchWork = std::function<Status(SerchSides sides, std::string* records)>;

// Runs a search. The result is cleared first and filled on success alone. Basic files are opened where the
// work first reads them; the user set is opened ahead of the work.
// Status: that of the work; 17; 18 a null argument or `dic` out of range; 35; 257; 258; 259.
Status RunSerch(const SerchCall& call, const SerchWork& work);

// The block offset of a key in one set's first-level index; *found false: there is none.
Status FindBlock(uint16_t type, uint16_t set, const std::string& key, uint32_t* offset, bool* found);

// Turns the katakana of a Japanese word into hiragana, in place, and tells the index type to search:
// kTypeKji with a kanji in the word, else kTypeKana. Single bytes are passed over.
uint16_t ToHiragana(char* word);

// Cuts trailing blanks and tabs, in place.
void CutTrailingBlanks(char* word);

}  // namespace zavel::engine

#endif
