#include "UserRoundTrip.h"

#include "EngineCalls.h"
#include "user/UserText.h"

namespace zavel::fuzz {

void demandSettledRoundTrip(const host::UserEntry& settled, const UserTrip& trip) {
  host::UserEntry again = settled;
  demand(host::settleEntry(&again).empty() && again == settled, "what is stored is stored alike again");
  demand(host::textOfStored(host::storedText(settled.meaning)) == settled.meaning, "the dictionary holds it");
  demand(trip(settled) == settled, "what is stored is read as it was written");
}

void demandRoundTrip(const host::UserEntry& read, const UserTrip& trip) {
  demand(trip(read) == read, "what was read is read as it was written");
  host::UserEntry settled = read;
  if (host::settleEntry(&settled).empty()) demandSettledRoundTrip(settled, trip);
}

}  // namespace zavel::fuzz
