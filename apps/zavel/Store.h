// The preference store as this host begins it.
#ifndef ZAVEL_STORE_H
#define ZAVEL_STORE_H

#include <string>

#include "HostPlatform.h"

namespace zavel::host {

// Opens the store as gZFWPlist, and keeps it in memory. Dictionaries that its list lacks are added: the
// bilingual one on, the translation dictionary off, since that one starts a program at each word, and not
// everybody wants to wait for it. Where nothing can be written, or the list that is there can't be read, the
// list holds for this process alone. Gives one line about a store that was damaged and begins anew, or that
// can't be read; else an empty text.
std::string openStore(HostPlatform& platform);

// Whether the list has the translation dictionary on.
bool searchesTranslation();

// Lets go of the store, unless controllers have done so.
void closeStore();

}  // namespace zavel::host

#endif
