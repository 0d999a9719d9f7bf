// Look-up results as records for other programs: one a line, fields parted by tabs, no colours, no wrapping.
#ifndef ZAVEL_PLAINVIEW_H
#define ZAVEL_PLAINVIEW_H

#include <cstddef>
#include <string>

#include "LookResult.h"

namespace zavel::host {

// A record for each sense: query, headword, reading, parts of speech (parted by ","), translations (parted by
// "; "), note. A record for each example: query, headword, reading, "example", source, target. `limit` counts
// entries, 0 gives all. Tabs and line ends inside a field become blanks, other control characters U+FFFD.
std::string plainEntries(const LookResult& result, size_t limit);

// word, line as the list shows it.
std::string plainHeadwords(const LookResult& result, size_t limit);

// form, its name ("past"), its label in the dictionary.
std::string plainForms(const LookResult& result);

}  // namespace zavel::host

#endif
