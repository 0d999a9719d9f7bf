// The folders as they are really used: a path table that is there decides about some of them.
#ifndef ZAVEL_PLACESINUSE_H
#define ZAVEL_PLACESINUSE_H

#include <string>

#include "Places.h"
#include "config/WorkPathTable.h"

namespace zavel::host {

// The property list that names the library's folders, written on the first start.
std::string pathTableFile();

// What this program's path table is made with.
PathTableRoots pathTableRoots(const Places& places);

// Whether there is a table that tells where the dictionary is.
bool pathTableNamesDictionary();

// One line on standard error where a path table is there and can't be used, as a look-up refuses it.
void warnOfDamagedPathTable();

// findPlaces(), with the dictionary and the cache where the path table says. Makes no folder. A table that
// was made for other places is renewed, or passed over where it can't be written.
Places placesInUse();

}  // namespace zavel::host

#endif
