// A path table for a process that can't make the folders of the user's own, as on a disk that is read only.
#ifndef ZAVEL_STANDINTABLE_H
#define ZAVEL_STANDINTABLE_H

#include <string>

#include "platform/Value.h"

namespace zavel::host {

// `table` with each folder that is not there and can't be made replaced by one below `folder`, which exists.
// Makes those that can be made.
Value standInTable(const Value& table, const std::string& folder);

}  // namespace zavel::host

#endif
