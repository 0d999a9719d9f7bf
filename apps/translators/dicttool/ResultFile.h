// The file that carries an answer to whoever asked.
#ifndef DICTTOOL_RESULTFILE_H
#define DICTTOOL_RESULTFILE_H

#include <string>

#include "platform/Value.h"

namespace zavel::dicttool {

// Writes `result` as an XML property list, aside and then over `path`, so that a reader finds the old answer
// or the new one, whole. It is not forced to the disk: a file of this kind is read once, within the second,
// and waiting for the disk would cost more than all the rest. False leaves `path` as it was.
bool writeResultFile(const std::string& path, const Value& result);

}  // namespace zavel::dicttool

#endif
