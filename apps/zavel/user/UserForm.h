// An entry as a form for an editor: a field a line.
#ifndef ZAVEL_USER_USERFORM_H
#define ZAVEL_USER_USERFORM_H

#include <string>
#include <string_view>

#include "user/UserEntry.h"

namespace zavel::host {

// With a comment ahead that tells the rules.
std::string formOf(const UserEntry& entry);

// Reads a form of the same language; the entry is settled. Empty, or what is wrong, with its line.
std::string readForm(std::string_view text, UserLanguage language, UserEntry* entry);

// Sets one field, as `--set` has it: "meaning=...". An "example" or a "sentence" is added; without a text all
// of them are taken away. Empty, or what is wrong.
std::string setField(std::string_view setting, UserEntry* entry);

}  // namespace zavel::host

#endif
