// Whole files that a person names.
#ifndef MKBOOK_INPUTFILE_H
#define MKBOOK_INPUTFILE_H

#include <cstddef>
#include <string>

namespace zavel::mkbook {

enum class InputState { kRead, kMissing, kNoFile, kTooLarge, kUnreadable };

// Reads a file of at most `limit` bytes. A folder, a pipe, a device is no file: none of them ends.
InputState readInput(const std::string& path, size_t limit, std::string* bytes);

}  // namespace zavel::mkbook

#endif
