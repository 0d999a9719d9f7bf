// `zavel dict info`.
#ifndef ZAVEL_DICTINFO_H
#define ZAVEL_DICTINFO_H

namespace zavel::host {

// Tells where the dictionaries stand and how large their files are. The exit status.
int runDictInfo(bool json);

}  // namespace zavel::host

#endif
