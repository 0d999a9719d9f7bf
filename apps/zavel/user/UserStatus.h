// The engine's statuses as sentences: what happened to the user's entries, and what to do next.
#ifndef ZAVEL_USER_USERSTATUS_H
#define ZAVEL_USER_USERSTATUS_H

#include <cstdint>
#include <string>

#include "Failure.h"
#include "user/UserPlace.h"

namespace zavel::host {

// What was under way, for messages: "adding \"bank\"".
struct UserWork {
  std::string what;
  UserLanguage language = UserLanguage::kEnglish;
  std::string folder;
  bool writing = false;  // else only reading
};

// The failure of `status`; none for success. The engine has one status for a file that ends too soon and for
// one that can't be read or written, and one for a damaged record and for a defect of its own. Which it is
// shows in the files: `wrong` is what is wrong with them, empty where they belong together.
Failure failureOfStatus(uint16_t status, const UserWork& work, const std::string& wrong);

// Whether it takes a look at the files to tell what a status means.
bool isOfFiles(uint16_t status);

// The failure of files that don't belong together: "your English entries in /f are damaged: ...".
Failure damagedEntries(UserLanguage language, const std::string& folder, const std::string& wrong);

// What to do about damage.
inline constexpr char kDamageHint[] =
    "Put a copy of that folder in its place; or save what can be read (zavel user export FILE), move the "
    "folder "
    "away and import it (zavel user import FILE).";

// The failure of a file that is there and can't be read.
Failure unreadableEntries(UserLanguage language, const std::string& folder, const std::string& wrong);

// "your English entries"
std::string entriesOf(UserLanguage language);

}  // namespace zavel::host

#endif
