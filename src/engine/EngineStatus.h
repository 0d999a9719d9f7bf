// The engine's status numbers. They cross the exported interface and never change.
#ifndef ENGINE_ENGINESTATUS_H
#define ENGINE_ENGINESTATUS_H

#include <cstdint>

namespace zavel::engine {

using Status = uint16_t;

inline constexpr Status kOk = 1;               // success
inline constexpr Status kOtherMidasi = 2;      // the entry at this offset has another headword line; skip it
inline constexpr Status kNoMemory = 17;        // out of memory, a block that can't be locked, no streams
inline constexpr Status kBadArgument = 18;     // null pointer, mode out of range, illegal characters
inline constexpr Status kMalformed = 19;       // kanji index information or conjugation record malformed
inline constexpr Status kInternal = 20;        // null internal pointer, index out of bounds, corrupt block
inline constexpr Status kFileError = 21;       // read or write error
inline constexpr Status kNoMutex = 33;         // the mutex could not be created
inline constexpr Status kMutexNotTaken = 34;   // the mutex could not be taken
inline constexpr Status kRefused = 35;         // conflicts with an operation in progress
inline constexpr Status kNoKihonFile = 257;    // a basic file could not be opened; an unknown form label
inline constexpr Status kNoUserE = 258;        // user English files not openable or no such set opened
inline constexpr Status kNoUserJ = 259;        // user Japanese files not openable or no such set opened
inline constexpr Status kNoIndexMemory = 260;  // a memory block for an index could not be made
inline constexpr Status kAlreadyOpen = 261;    // InitAPI called again, or with other paths
inline constexpr Status kAttached = 262;       // this process has attached already
inline constexpr Status kNotAttached = 263;    // EndAPI without attach
inline constexpr Status kTooManyKjiIndexes = 2049;  // a new continuation index would be the eleventh
inline constexpr Status kBlockTooLong = 2051;       // a third-level block would pass 65,535 bytes
inline constexpr Status kEntryTooLong = 2052;       // an entry would reach 65,535 bytes
inline constexpr Status kNoWorkBuffer = 2304;       // a work buffer could not be allocated

}  // namespace zavel::engine

#endif
