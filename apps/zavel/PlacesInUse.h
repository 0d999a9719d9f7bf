// The folders as they are really used: a path table that is there decides about some of them.
#ifndef ZAVEL_PLACESINUSE_H
#define ZAVEL_PLACESINUSE_H

#include <string>

#include "Places.h"

namespace zavel::host {

// The property list that names the library's folders, written on the first start.
std::string pathTableFile();

// findPlaces(), with the dictionary and the cache where the path table says. Makes no folder.
Places placesInUse();

}  // namespace zavel::host

#endif
