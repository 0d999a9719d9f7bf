// The file that stands while a dictionary is being changed. It says what the change began with, so that of
// the backups that stand there after it broke off those that it made itself can be told from those that a
// copying program or an older restore left.
#ifndef ZAVEL_USER_USERMARKER_H
#define ZAVEL_USER_USERMARKER_H

#include <cstdint>

#include "user/UserPlace.h"

namespace zavel::host {

struct UserMarker {
  enum Work {
    kNone,        // no marker: nothing was under way
    kUnreadable,  // one that can't be read now
    kUnknown,     // one that says nothing
    kChanging,    // adding, overwriting, deleting
    kArranging,   // rewriting the files
  };
  Work work = kNone;
  uint64_t entriesEnd = 0;  // bytes in the file of entries when the change began
  uint64_t indexHash = 0;   // of the first index then; 0 where there was none or it was still to be saved

  // What a change that begins now is to say.
  static UserMarker beginning(const UserPlace& place, UserLanguage language, Work work);
  static UserMarker read(const UserPlace& place, UserLanguage language);
  // Puts it on the disk. False: it may not be there.
  bool write(const UserPlace& place, UserLanguage language) const;
};

}  // namespace zavel::host

#endif
