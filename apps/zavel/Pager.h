// Shows text that is longer than the screen through the user's pager.
#ifndef ZAVEL_PAGER_H
#define ZAVEL_PAGER_H

#include <cstddef>
#include <string>

namespace zavel::host {

// Whether `text` has more lines than a screen of `rows`; never with 0 rows.
bool needsPager(const std::string& text, size_t rows);

// Writes `text` to standard output, through $ZAVEL_PAGER, $PAGER or "less -FIRX", the first that is set and
// not empty; directly where that can't be started.
void showPaged(const std::string& text);

}  // namespace zavel::host

#endif
