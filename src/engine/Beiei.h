// Beiei, American and British spelling: an entry that says in its meaning "《米》 =color" or "《英》 =colour"
// leads to the entry of that other word.
#ifndef ENGINE_BEIEI_H
#define ENGINE_BEIEI_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// A word that an entry refers to.
struct BeieiWord {
  std::string word;
  int number = 0;  // its homograph number, 0 for none

  bool operator==(const BeieiWord&) const = default;
};

// The cross-references in the text of entries: for each what follows "=", up to 0x0A, "." or 64 bytes.
std::vector<std::string> FindBeiei(std::string_view block);

// Takes one cross-reference apart: "color; colour 1" gives color and colour, both with number 0, and
// "bow F4B5 1,3 F4D0" or "F4B5 1,3 F4D0 bow" gives bow twice, with 1 and with 3. Appends to *words.
void GetBeiEiMidasi(std::string_view text, std::vector<BeieiWord>* words);

// The headword of an entry, letters and blank & ' - . / _ of its first line, and its homograph number.
BeieiWord GetMidasiNo(std::string_view entry);

// Appends every basic entry whose headword and homograph number are those of `wanted` to *text.
// *budget: bytes that may still be read; kNoMemory when they are used up.
Status SrchBeiei(const BeieiWord& wanted, size_t* budget, std::string* text);

// Appends the entries of all words in a list of cross-references to *text. kInternal at a reference of 256
// bytes or more.
Status SrchBeieiImi(const std::vector<std::string>& references, std::string* text);

}  // namespace zavel::engine

#endif
