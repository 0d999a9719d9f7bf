// Entries of a user's own, written and read again.
#ifndef FUZZ_USERROUNDTRIP_H
#define FUZZ_USERROUNDTRIP_H

#include <functional>

#include "user/UserEntry.h"

namespace zavel::fuzz {

// Reads what it writes: the entry that comes back, or an empty one where reading refuses it.
using UserTrip = std::function<host::UserEntry(const host::UserEntry&)>;

// Demands that an entry as it was read comes back the same, and so does what is stored of it, which is the
// same when it is stored again.
void demandRoundTrip(const host::UserEntry& read, const UserTrip& trip);

// The same for an entry that was settled already.
void demandSettledRoundTrip(const host::UserEntry& settled, const UserTrip& trip);

}  // namespace zavel::fuzz

#endif
