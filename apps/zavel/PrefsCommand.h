// `zavel prefs`.
#ifndef ZAVEL_PREFSCOMMAND_H
#define ZAVEL_PREFSCOMMAND_H

#include <string>

namespace zavel::host {

struct PrefsDictOptions {
  std::string dictionary;  // a number of the list, from 1 on, or a name
  long position = 0;       // where to move it, from 1 on
  bool json = false;
};

// The exit status of each. All of them print the list as it is then.
int runPrefsDictList(const PrefsDictOptions& options);
int runPrefsDictEnable(const PrefsDictOptions& options, bool on);
int runPrefsDictMove(const PrefsDictOptions& options);

}  // namespace zavel::host

#endif
