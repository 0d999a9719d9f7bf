// EDICT's lines as entries of the set.
#ifndef MKDICT_JAPANESEENTRIES_H
#define MKDICT_JAPANESEENTRIES_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EdictLine.h"
#include "mkdict/Summary.h"

namespace zavel::mkdict {

class JapaneseEntries {
 public:
  // `summary` is borrowed and told what is changed or left out.
  explicit JapaneseEntries(Summary* summary) : summary_(summary) {}

  // Adds a line. The same word in a second line joins the first: its senses follow, or precede when they
  // are the more frequent ones; senses that stand there already are not repeated.
  void add(const EdictLine& line);

  // The entries in the order of their first lines; this is then empty. A word written with 々 is two of them,
  // one for its reading and one for its written form. Their ranks now also tell words in kanji that common
  // words use from words in rare kanji, and a word from its other spellings.
  std::vector<JapaneseEntry> take();

  // What follows the headword line, in Shift_JIS: a line on the whole word, part-of-speech lines, senses.
  // False when a character can't be written; *lacking names it.
  static bool body(const EdictLine& line, std::string* text, std::string* lacking);

  // The smaller the more frequent, as far as the line itself tells: common words, others, rare ones; in each
  // the words that are written in kana, then those with most senses.
  static uint32_t rank(const EdictLine& line);
  static bool inKana(const EdictLine& line);

 private:
  struct Headword {
    std::string kana;     // as shown, Shift_JIS
    std::string written;  // as shown, may be empty
  };
  bool headword(const EdictLine& line, Headword* out);
  void partSpellings();
  void partSpelling(size_t marked, const std::string& repeated);
  void refineRanks();
  void join(JapaneseEntry* entry, const std::string& body, uint32_t rank);
  void file(const Headword& shown, const std::string& name, JapaneseEntry* entry);

  Summary* summary_;                    // borrowed
  std::vector<JapaneseEntry> entries_;  // text without the headword line until take()
  std::vector<std::string> headLines_;  // by entry
  std::unordered_map<std::string, size_t> byHeadLine_;
};

}  // namespace zavel::mkdict

#endif
