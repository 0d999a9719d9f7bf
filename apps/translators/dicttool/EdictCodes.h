// What the codes in an EDICT gloss say to a reader.
#ifndef DICTTOOL_EDICTCODES_H
#define DICTTOOL_EDICTCODES_H

#include <string>
#include <string_view>

namespace zavel::dicttool {

// Stands in the title of the file of names, and so in what a dictionary made of it says of itself.
inline constexpr std::string_view kNamesTitle = "ENAMDICT";

// "n,vs" as "noun, suru verb". Empty unless every code is known. `names`: the codes of the dictionary of
// proper names, where "p" is a place and "s" a surname.
std::string readableCodes(std::string_view codes, bool names);

}  // namespace zavel::dicttool

#endif
