// Every exported search over one set of words, results read as a caller reads them.
#ifndef FUZZ_ENGINECALLS_H
#define FUZZ_ENGINECALLS_H

#include <string>

#include "engine/EngineAPI.h"

namespace zavel::fuzz {

// Ends the run as a finding, with `what` on standard error, unless `holds`.
void demand(bool holds, const char* what);

// The engine must be open. Statuses are whatever the damage makes them; sizes and handles must agree.
void searchEnglish(const std::string& word, unsigned char dic);
void searchJapanese(const std::string& word, unsigned char dic);
void conjugate(const std::string& word);

// The bytes of a block list, which is freed; empty for none.
std::string takeBytes(Handle list);

}  // namespace zavel::fuzz

#endif
