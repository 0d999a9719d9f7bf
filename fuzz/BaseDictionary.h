// The sound dictionary that the fuzzers damage: every feature of the format once.
#ifndef FUZZ_BASEDICTIONARY_H
#define FUZZ_BASEDICTIONARY_H

#include <map>
#include <string>
#include <vector>

namespace zavel::fuzz {

// The thirteen files by name.
const std::map<std::string, std::string>& baseDictionary();

// Their names, those of the English side first.
const std::vector<std::string>& baseNames();

// Which sides differ from the sound files; both when neither does. Searches of a sound side find nothing new.
struct Sides {
  bool english, japanese;
};
Sides changedSides(const std::map<std::string, std::string>& files);

// Files of one user English and one user Japanese set, with headers and one continuation kanji index, by
// name ("ueej.dic", "ujkna.idx", "uj001.idx", ...).
const std::map<std::string, std::string>& baseUserSets();

}  // namespace zavel::fuzz

#endif
