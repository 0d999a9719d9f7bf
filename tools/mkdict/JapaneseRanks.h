// How frequent Japanese words are, as far as EDICT tells. It orders words that are filed alike, and decides
// which of them stay where an index is full.
#ifndef MKDICT_JAPANESERANKS_H
#define MKDICT_JAPANESERANKS_H

#include <cstdint>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EdictLine.h"

namespace zavel::mkdict {

// What the lines of one word tell. Of two numbers the smaller means the more frequent word.
struct WordFrequency {
  uint32_t byReading = 0;   // common words, others, rare ones; in each those in kana first, then by senses
  uint32_t byWritten = 0;   // the same with those in kana and parts of words last, without regard to senses
  uint32_t senses = 0;      // at least 1
  bool partOfWord = false;  // a prefix, a suffix, a counter: it never stands by itself
  bool saying = false;      // a proverb, an idiom, an archaic word: they keep old readings alive

  static WordFrequency of(const EdictLine& line);
  // A second line of the same word.
  void join(const WordFrequency& line);
};

// Sets the ranks of finished entries; `frequencies` has one element for each. Words in kanji that common
// words use come ahead of words in rare kanji, a word ahead of its other spellings, and those with most
// senses first. By written form, of several readings the one first that EDICT's phrases use most.
void setRanks(const std::vector<WordFrequency>& frequencies, std::vector<JapaneseEntry>* entries);

}  // namespace zavel::mkdict

#endif
