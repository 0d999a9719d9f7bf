// What a property list may be like, in both forms, before the library behind the port sees it.
#ifndef PORT_LINUX_BASE_PLISTLIMITS_H
#define PORT_LINUX_BASE_PLISTLIMITS_H

#include <cstddef>
#include <cstdint>

namespace zavel {

constexpr size_t kPlistMaxBytes =
    size_t{64} * 1024 * 1024;           // of the list, and of what a binary one unfolds to
constexpr size_t kPlistMaxDepth = 512;  // lists and maps inside one another
constexpr size_t kPlistMaxValues = size_t{4} * 1024 * 1024;  // values and keys, shared ones counted each time

// Keys of one map. The library looks for each key among all that came before, so that time grows with the
// square of this: half a second for such a map, minutes for one that fills the list.
constexpr size_t kPlistMaxKeys = 65536;

// The library takes dates in whole seconds of 32 bits from 2001-01-01: December 1932 to January 2069.
constexpr int64_t kPlistFirstDate = INT32_MIN;
constexpr int64_t kPlistLastDate = INT32_MAX;

}  // namespace zavel

#endif
