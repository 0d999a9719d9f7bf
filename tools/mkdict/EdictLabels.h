// What EDICT's codes say to a reader. All text is UTF-8.
#ifndef MKDICT_EDICTLABELS_H
#define MKDICT_EDICTLABELS_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkdict {

// A part-of-speech code as the label of a part-of-speech line: "n" "[名]", "v5r" "[動ラ五]", "vt" "[他]".
// Empty for "unc", which says that none was found. Null for anything else.
const char* posLabel(std::string_view code);

// A remark on a sense or on the whole word in plain words: "uk" "usually kana", "arch" "archaic",
// "comp" "computing". Null for anything else.
const char* remark(std::string_view code);

// True for the remarks that tell of the spelling or the reading of the whole entry: "iK", "ok", "ateji".
bool isSpellingRemark(std::string_view code);

// True for the remarks that make a word a rare one: "arch", "obsc", "ok", "iK".
bool isRareRemark(std::string_view code);

// True for the parts of speech of what is no word by itself: prefixes, suffixes, counters.
bool isPartOfWord(std::string_view code);

// The language or dialect that stands before a colon: "ita" "Italian", "ksb" "Kansai dialect". Null for
// anything else.
const char* language(std::string_view code);

// Whether a code, or one that `test` takes, is among the codes of a line or a sense.
bool hasCode(const std::vector<std::string>& codes, std::string_view code);
bool anyCode(const std::vector<std::string>& codes, bool (*test)(std::string_view));

}  // namespace zavel::mkdict

#endif
