// Small work on paths.
#ifndef FOUNDATION_PATHHELPERS_H
#define FOUNDATION_PATHHELPERS_H

#include <memory>
#include <string>

#include "foundation/Storage.h"

namespace zavel::foundation {

// Puts `delimiter` at the end of `path` unless it ends in one already (the empty path does not). `path` is
// the caller's, NUL-terminated, with room for one more byte. (Given spelling.)
void GFnAddParhDelim(char* path, char delimiter);

// Cuts one `delimiter` off the end of `path`.
void GFnRemovePathDelim(char* path, char delimiter);

// Makes an empty file of an unused name in `folder`: "prefix0.extension", or with the first higher number
// that is free. Result: the file, open for reading and writing, its path in `out`; null when it can't be
// made at the second attempt either.
std::unique_ptr<StorageFile> GFnCreateTmpFile(const std::string& folder, const std::string& prefix,
                                              const std::string& extension, std::string* out);

}  // namespace zavel::foundation

#endif
