// An entry as one line of the answer.
#ifndef DICTTOOL_ENTRYLINE_H
#define DICTTOOL_ENTRYLINE_H

#include <string>

#include "dicttool/DictdDictionary.h"

namespace zavel::dicttool {

// Headword, part of speech, glosses: "cat (n) 猫; domestic species". Pronunciations, sense numbers that stand
// by themselves and marks of frequency are left out, lines are joined, control characters become blanks. The
// word that the index files the entry under stands in front when the entry doesn't name it, unless the entry
// is that of a Japanese word found by an English one. At most 200 characters, "…" at a cut. Empty for an
// entry without text.
std::string entryLine(const DictdEntry& entry);

}  // namespace zavel::dicttool

#endif
