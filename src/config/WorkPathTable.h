// The path table that a host writes on its first start.
#ifndef CONFIG_WORKPATHTABLE_H
#define CONFIG_WORKPATHTABLE_H

#include <string>

#include "foundation/Export.h"
#include "platform/Value.h"

namespace zavel {

// Folders below which everything of the table stands: absolute, UTF-8, without a trailing delimiter. The
// usual choice is the user's own: data, cache and preferences are "zavel" below $XDG_DATA_HOME,
// $XDG_CACHE_HOME and $XDG_CONFIG_HOME, or below one folder for all.
struct PathTableRoots {
  std::string data;
  std::string cache;
  std::string preferences;
  std::string documents;
  std::string helpers;  // where the helper programs are installed

  // Web addresses that the installer knows; an empty one is left out of the table.
  std::string support;
  std::string homepage;
};

// A table with every key of every group, so that it loads with code 0 wherever its folders can be made.
//   <data>/dictionaries/basic     the bilingual dictionary ("KenkyuDictionaryFolder")
//   <data>/dictionaries/...       user, memories, learning, enhanced/EJ, technical/EJ, checker, ...
//   <data>/archives, <data>/memories, <data>/help
//   <cache>                       "CacheFolder"; the other cache folders stand below it
//   <preferences>                 "PreferencesFolder", with ZavelStyle and PresetRSS
//   <documents>                   "DocumentsFolder", where the user dictionaries' names are joined on
//   <helpers>/zavel-...           helper programs, engine modules and sibling applications
// Paths that loading expands stand there from "~" on where they are below the home folder: a home folder that
// is moved or copied takes its table along.
ZAVEL_API Value defaultPathTable(const PathTableRoots& roots);

// Writes the default table as XML to `path` + ".plist", with the folders above it, if nothing is there. The
// write is atomic. True when a file stands there afterwards; one that stood there before is not looked into.
ZAVEL_API bool writePathTableIfMissing(const std::string& path, const PathTableRoots& roots);

// Renews the table at `path` + ".plist" when a host made it for other folders and nobody has changed it
// since: it then holds what defaultPathTable(roots) gives. A table that somebody changed, one that can't be
// read and one that is not there stay as they are. False when the table should have been renewed and could
// not be written: it then names the folders of another place.
ZAVEL_API bool renewPathTable(const std::string& path, const PathTableRoots& roots);

// Where loading looks for the table when it is given no path, without ".plist".
ZAVEL_API std::string defaultPathTablePath();

}  // namespace zavel

#endif
