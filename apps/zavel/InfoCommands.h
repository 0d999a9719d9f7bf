// `zavel paths`, `zavel about`.
#ifndef ZAVEL_INFOCOMMANDS_H
#define ZAVEL_INFOCOMMANDS_H

namespace zavel::host {

// The exit status of each.
int runPaths(bool json);
int runAbout(bool json);

}  // namespace zavel::host

#endif
