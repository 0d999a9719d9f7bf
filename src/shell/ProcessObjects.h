// What all main controllers of a process share: made by the first one that needs it, released by the last.
#ifndef SHELL_PROCESSOBJECTS_H
#define SHELL_PROCESSOBJECTS_H

#include <string>

#include "foundation/Export.h"

namespace zavel {

// Live main controllers.
ZAVEL_API extern int gCallCount;
// Number of the view that the next controller to be set up gets.
ZAVEL_API extern int viewID;
// The feeds have been fetched once.
ZAVEL_API extern bool rssTimerFlag;

// The path table that controllers load, without ".plist"; empty: the product's default table. A host that has
// its own sets it before the first controller.
ZAVEL_API void setHostPathTable(const std::string& path);

// What loading gave, for a host that wants to say why nothing is found. A controller goes on without.
struct ProcessStatus {
  int pathTable = 1;          // of the last zavelPathLoadDictAndHelper (config/ZavelPath.h); 0: complete
  bool mirellLoaded = false;  // there is a lookup manager, though its dictionary need not have opened
};
// As the process's controllers found it; the values above before the first and after the last controller.
ZAVEL_API ProcessStatus processStatus();

// Makes what controllers share, in the order of a controller's start: common services with path and style
// tables; stores; work paths; the translation controller and the feed subscriber.
void retainProcessObjects();
// The manager, for a controller that is being set up.
void makeMirellModule(const std::string& cacheName);
// Releases one controller's share; the last one takes everything away except the music player's controller.
void releaseProcessObjects();

}  // namespace zavel

#endif
