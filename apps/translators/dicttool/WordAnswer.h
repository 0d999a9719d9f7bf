// The answer to a word: what each dictionary says, and the map that carries it to whoever asked.
#ifndef DICTTOOL_WORDANSWER_H
#define DICTTOOL_WORDANSWER_H

#include <string>
#include <vector>

#include "dicttool/DictionaryList.h"
#include "platform/Value.h"

namespace zavel::dicttool {

struct AnswerGroup {
  std::string dictionary;          // path of its index
  std::vector<std::string> lines;  // never empty
};

struct WordAnswer {
  std::vector<AnswerGroup> groups;      // dictionaries that hold the word, in the order of the list
  std::vector<std::string> complaints;  // one sentence for each dictionary that can't be searched
  size_t searched = 0;                  // dictionaries that could be searched

  // Looks `word` (UTF-8, tidy) up in the dictionaries at these index paths. Each gives at most twenty lines,
  // and one more that counts the rest. For an English word that none of them holds, or one in small letters
  // that only dictionaries of names hold, its base is looked up in the others: their groups come last, with a
  // line in front that names the base.
  static WordAnswer of(const std::string& word, const std::vector<std::string>& indexes);

  // The result map. "DictInfoJE" leads from the number of a group, from 1 on, as text to its dictionary's
  // path. "Unsearched", only where there are some, holds the complaints. "Search": for a Japanese word, for
  // each group its number and its lines; for an English word one string, the same as a reader sees it, a
  // heading for each group and its lines indented below it. Without groups "Search" is an empty list.
  Value result(Direction form) const;
};

}  // namespace zavel::dicttool

#endif
