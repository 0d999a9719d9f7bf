// EDICT's lines as entries of the set.
#ifndef MKDICT_JAPANESEENTRIES_H
#define MKDICT_JAPANESEENTRIES_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EdictLine.h"
#include "mkdict/JapaneseRanks.h"
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
  // one for its reading and one for its written form.
  std::vector<JapaneseEntry> take();

  // What follows the headword line, in Shift_JIS: a line on the whole word, part-of-speech lines, senses.
  // False when a character can't be written; *lacking names it.
  static bool body(const EdictLine& line, std::string* text, std::string* lacking);

 private:
  struct Headword {
    std::string kana;     // as shown, Shift_JIS
    std::string written;  // as shown, may be empty
  };
  bool headword(const EdictLine& line, Headword* out);
  // An entry in the making.
  struct Word {
    std::string head;     // headword line
    JapaneseEntry entry;  // text without the headword line until take()
    WordFrequency frequency;
  };
  void file(const Headword& shown, const std::string& name, JapaneseEntry* entry);
  void join(Word* word, const std::string& body, const WordFrequency& line);
  void partSpellings();
  void partSpelling(size_t marked, const std::string& repeated);

  Summary* summary_;  // borrowed
  std::vector<Word> words_;
  std::unordered_map<std::string, size_t> byHead_;  // places in words_
};

}  // namespace zavel::mkdict

#endif
