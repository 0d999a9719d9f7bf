// The folders of this user's installation, after the XDG base directory rules.
#ifndef ZAVEL_PLACES_H
#define ZAVEL_PLACES_H

#include <string>

#include "Failure.h"

namespace zavel::host {

// Absolute paths without a trailing delimiter, but for "/" itself. With ZAVEL_ROOT set to an absolute path all of them stand
// below it.
struct Places {
  std::string root;        // what the library takes for "/" and for "~"
  std::string config;      // settings
  std::string data;        // user dictionaries, feeds, books, the compiled dictionary
  std::string state;       // history
  std::string cache;       // what can be made again
  std::string dictionary;  // the thirteen files of the basic dictionary
};

// Reads the environment. Empty strings all over when neither ZAVEL_ROOT nor HOME tells where to begin.
Places findPlaces();

// "folder/name", and "/name" below "/".
std::string inFolder(const std::string& folder, const std::string& name);

// Where the helper programs stand, without a trailing delimiter: ZAVEL_LIBEXEC if that is an absolute path;
// "libexec/zavel" beside this program's folder, as installed, or above it, as built; else where the build was
// configured to install them.
std::string helpersFolder();

// The failure of a variable of this program's own that holds a relative path, which would mean another place
// in each working folder. An empty one counts as unset.
Failure relativePlace();

// Makes a folder and its parents. False when one can't be made.
bool makeFolders(const std::string& path);

// Why nothing can be made at `path`, as a message ends: ": Read-only file system", of its folder or the
// nearest above it that there is. Empty when something can.
std::string reasonAgainst(const std::string& path);

}  // namespace zavel::host

#endif
