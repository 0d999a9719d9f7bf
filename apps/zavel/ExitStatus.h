// Exit statuses of the host program; the manual page has the same table.
#ifndef ZAVEL_EXITSTATUS_H
#define ZAVEL_EXITSTATUS_H

namespace zavel::host {

enum ExitStatus : int {
  kExitFound = 0,        // found, or done
  kExitNothing = 1,      // nothing found, or nothing to do
  kExitUsage = 2,        // wrong usage
  kExitEnvironment = 3,  // no dictionary, no engine, disk full
  kExitPartly = 4,       // some of several inputs failed, the rest are done
  kExitDamaged = 5,      // the data is damaged
};

}  // namespace zavel::host

#endif
