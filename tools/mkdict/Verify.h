// Checks a whole set of thirteen files, byte by byte and through the engine.
#ifndef MKDICT_VERIFY_H
#define MKDICT_VERIFY_H

#include <string>

#include "mkdict/Faults.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkdict {

enum class Verdict { kGood, kDamaged, kNoFolder, kCancelled };

// Walks every row of every index to its entry, compares each entry's headword with the key it is filed
// under, and looks up a sample of the words through the engine (unless the tables are already known to be
// faulty, or the engine is open for somebody else: then the figure "words looked up" stays 0).
Verdict verifySet(const std::string& folder, Progress& progress, Summary* summary, Faults* faults);

}  // namespace zavel::mkdict

#endif
