// The book engine's result codes. They cross the exported interface and never change.
#ifndef BOOK_BOOKSTATUS_H
#define BOOK_BOOKSTATUS_H

#include <cstdint>

namespace zavel::book {

using BookStatus = uint32_t;

// A file that can't be opened: the system's error number with this bit on.
inline constexpr BookStatus kSystemError = 0x80000000;

inline constexpr BookStatus kDone = 0;
inline constexpr BookStatus kOutOfMemory = 0x8000000C;
inline constexpr BookStatus kInvalidArgument = 0x80000016;
inline constexpr BookStatus kUnsupportedMedia = 0x80041001;  // picture or sound of a format not known here
inline constexpr BookStatus kNoIcon = 0x80041004;
inline constexpr BookStatus kNoHonbun = 0x80041006;        // the book has no body text
inline constexpr BookStatus kNotOpen = 0x80041007;         // also for a file that is no book
inline constexpr BookStatus kBadKey = 0x80041009;          // a query malformed, or a key too short
inline constexpr BookStatus kNotAvailable = 0x8004100C;    // the book has no such search or data
inline constexpr BookStatus kReadFailed = 0x8004100D;      // in the data
inline constexpr BookStatus kBroken = 0x8004100E;          // data not found, or its structure is broken
inline constexpr BookStatus kNoFolder = 0x8004100F;        // a path without "/"
inline constexpr BookStatus kNoFurtherEntry = 0x80041010;  // in that direction
inline constexpr BookStatus kInvalidAddress = 0x80041011;
inline constexpr BookStatus kNoInformation = 0x80041012;
inline constexpr BookStatus kKnownSoundFault = 0x80042001;  // comes with the sound
inline constexpr BookStatus kKnownReadFault = 0x80042002;   // comes without

}  // namespace zavel::book

#endif
