// Where this process works: the files it shares with the helper programs, settled once when a main controller
// starts, and the application it runs inside.
#ifndef CONFIG_WORKPATHS_H
#define CONFIG_WORKPATHS_H

#include <string>

namespace zavel {

// Set by setWorkPaths(); empty before, and where the path table lacks what one is made of.
extern std::string gSourcePath;    // query or text for a helper program
extern std::string gResultPath;    // what a helper program answers
extern std::string gDictPath;      // parameter file: the dictionaries that a helper program uses
extern std::string gStylePath;     // style file, with ".plist"
extern std::string gEJEnginePath;  // English to Japanese text engine, a program
extern std::string gJEEnginePath;  // Japanese to English text engine

// Number of the application that this process is (ZAVEL_APPLET): the correspondence client until
// checkOwnApplet() finds another.
extern int ownedApplet;

// Sets `ownedApplet` by platform().bundle().mainSignature(); a signature of no application of the family
// leaves it.
void checkOwnApplet();

// The folder for the shared files: the application's own cache folder for the browser and the correspondence
// client, the common one for all others. Made when missing; "/tmp" when it can't be made or the table lacks
// it.
std::string chooseCacheFolder();

// Sets all six paths by the path table, the styles, `ownedApplet` and the system's version, and makes the
// preferences folder and the learning folder. Load path table and styles first. A later call settles them
// anew.
void setWorkPaths();

}  // namespace zavel

#endif
