// Headwords near to a word that the dictionary does not have.
#ifndef ZAVEL_NEARHEADWORDS_H
#define ZAVEL_NEARHEADWORDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "EntrySource.h"

namespace zavel::host {

// At most `limit`, UTF-8. English: those that one slip of the pen makes of it, then those that begin most
// like it. Japanese: those that begin most like it. `word` as wordBytes() gives it.
std::vector<std::string> nearHeadwords(const std::string& word, bool english, size_t limit,
                                       EntrySource* source);

}  // namespace zavel::host

#endif
