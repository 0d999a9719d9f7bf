// The file of the translation styles, as this host begins it.
#ifndef ZAVEL_STYLEFILE_H
#define ZAVEL_STYLEFILE_H

#include <string>

#include "config/WorkStyles.h"

namespace zavel::host {

// Whether styles can be read at `file`.
bool areStyles(const std::string& file);

// Writes the ten standard styles to `file` if nothing is there. With `check`, one that can't be read is put
// aside first, behind ".damaged". Gives one line about that, else an empty text.
std::string provideStyles(const std::string& file, bool check);

// The language of the styles' names: Japanese for who reads that, else English.
StyleLanguage styleLanguage();

}  // namespace zavel::host

#endif
