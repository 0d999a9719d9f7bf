// Writing a file that the user named.
#ifndef ZAVEL_USER_OUTPUTFILE_H
#define ZAVEL_USER_OUTPUTFILE_H

#include <string>

namespace zavel::host {

// A new file, or the whole new content of a plain one, which keeps its mode and its owner; on a failure it
// keeps its old content too. A link is followed. Into anything else, a pipe or a device, the text is written
// as into any open file. False when it can't be written.
bool writeOutputFile(const std::string& path, const std::string& text);

}  // namespace zavel::host

#endif
