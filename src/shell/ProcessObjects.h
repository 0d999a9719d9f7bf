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

// The steps of a controller's start that make what is shared, in their order: common services with path and
// style tables; stores; work paths; the translation controller and the feed subscriber.
void retainProcessObjects();
// The manager, for a controller that is being set up.
void makeMirellModule(const std::string& cacheName);
// Lets go; with the last controller all of it ends but the music player's.
void releaseProcessObjects();

}  // namespace zavel

#endif
