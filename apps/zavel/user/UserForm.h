// An entry as a form for an editor: a field a line.
#ifndef ZAVEL_USER_USERFORM_H
#define ZAVEL_USER_USERFORM_H

#include <string>
#include <string_view>
#include <vector>

#include "user/UserEntry.h"

namespace zavel::host {

// With a comment ahead that tells the rules.
std::string formOf(const UserEntry& entry);

// Reads a form of the same language; the entry is settled. Empty, or what is wrong, with its line.
std::string readForm(std::string_view text, UserLanguage language, UserEntry* entry);

// Sets fields, as `--set` has them: "meaning=...", each once. An "example" or a "sentence" is added; without
// a text those ahead of it are taken away. A phrase takes the place of the part of speech that every word
// has, but no other; a part of speech takes no phrase's place. The entry is settled. Empty, or what is wrong.
std::string setFields(const std::vector<std::string>& settings, UserEntry* entry);

}  // namespace zavel::host

#endif
