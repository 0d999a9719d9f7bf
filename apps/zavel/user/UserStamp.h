// What this program left of a dictionary when it last changed it. Nothing in the files themselves tells an
// entry that was deleted from one that an older or a damaged index only doesn't lead to any more: the engine
// takes entries out of the index alone. So a file beside them says which parts of the file of entries nothing
// is to lead to.
//
// Other programs that use the engine know nothing of it. The stamp stays right whatever they add; what they
// delete seems lost, and the user is asked (UserReach.h). One that is missing, or not whole, says nothing.
#ifndef ZAVEL_USER_USERSTAMP_H
#define ZAVEL_USER_USERSTAMP_H

#include <cstdint>
#include <string>

#include "user/UserCheck.h"
#include "user/UserPlace.h"

namespace zavel::host {

struct UserStamp {
  bool known = false;
  uint64_t entriesEnd = 0;   // bytes in the file of entries
  uint64_t entriesHash = 0;  // of these
  uint64_t indexHash = 0;    // of the first index
  FileRanges dead;           // parts of the file of entries that nothing led to, in ascending order

  // Of the files as they are. Unknown where they can't be read. What `dead` has behind their end is left out.
  static UserStamp of(const UserPlace& place, UserLanguage language, FileRanges dead);
  static UserStamp read(const UserPlace& place, UserLanguage language);
  // Puts it on the disk. False: the one before may stand there. One that isn't known can't be put there.
  bool write(const UserPlace& place, UserLanguage language) const;
  // Takes it away for good, ahead of a change that it would be wrong about. False: it may still be there.
  static bool remove(const UserPlace& place, UserLanguage language);

  // Whether it is of these very files, as far as the first index and the size of the file of entries tell.
  bool isOf(uint64_t firstIndex, uint64_t entriesSize) const {
    return known && indexHash == firstIndex && entriesEnd == entriesSize;
  }
  // Whether the file of entries begins with what it is of: nobody arranged it since, and it is no older one.
  bool fits(const UserPlace& place, UserLanguage language) const;
  bool isDead(uint64_t entry) const;

  bool operator==(const UserStamp&) const = default;
};

}  // namespace zavel::host

#endif
