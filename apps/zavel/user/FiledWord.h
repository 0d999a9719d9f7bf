// Words with a character that the engine refuses (々, ・, 遙) are stored under the word as wordAsFiled() has
// it, 時時 for 時々. The spelling is kept in the entry: as its last sentences, which tell it to whoever reads
// the entry without knowing this.
#ifndef ZAVEL_USER_FILEDWORD_H
#define ZAVEL_USER_FILEDWORD_H

#include "user/UserEntry.h"

namespace zavel::host {

// An entry as the engine stores it.
UserEntry asFiled(const UserEntry& entry);

// Gives an entry as the engine stores it its spelling back.
void takeSpellings(UserEntry* filed);

}  // namespace zavel::host

#endif
