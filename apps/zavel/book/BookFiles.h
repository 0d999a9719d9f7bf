// The files of a book.
#ifndef ZAVEL_BOOK_BOOKFILES_H
#define ZAVEL_BOOK_BOOKFILES_H

#include <string>
#include <vector>

namespace zavel::host {

// Files that the catalog names and that aren't there, or are empty, in its order: the engine leaves out what they would
// have held and doesn't tell. Pictures and sounds are no such files: books are often installed without them.
std::vector<std::string> missingFiles(const std::string& catalog);

}  // namespace zavel::host

#endif
