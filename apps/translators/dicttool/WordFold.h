// The form of a word under which a dictd index files it.
#ifndef DICTTOOL_WORDFOLD_H
#define DICTTOOL_WORDFOLD_H

#include <string>
#include <string_view>

namespace zavel::dicttool {

// How an index orders its words, as its own 00-database headwords say.
struct FoldRules {
  bool allCharacters = false;  // signs count; else letters, digits and blanks alone do
  bool caseSensitive = false;

  bool operator==(const FoldRules&) const = default;
};

// `word` (UTF-8; bytes that are none stay as they are) as it takes part in comparisons: white space of any
// kind as a blank, signs left out, letters small, unless the rules say otherwise. Two folded words compare as
// unsigned bytes.
std::string foldWord(std::string_view word, FoldRules rules);

// The query as a person types it: without blanks at its ends, each run of white space one blank.
std::string tidyQuery(std::string_view text);

// Full-width letters, digits and signs as the usual ones: "１６進" as "16進". UTF-8.
std::string withUsualLetters(std::string_view text);

// Below 0, 0, above 0, by unsigned bytes.
int compareFolded(std::string_view one, std::string_view other);

}  // namespace zavel::dicttool

#endif
