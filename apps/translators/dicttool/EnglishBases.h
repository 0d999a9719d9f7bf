// The words that an English word may be a form of.
#ifndef DICTTOOL_ENGLISHBASES_H
#define DICTTOOL_ENGLISHBASES_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::dicttool {

// The possible bases of `word` (UTF-8) as a possessive, a plural or third person, or a form in -ed or -ing,
// by how English spells these: "cities" gives city and citie, "planned" plann and plan. No dictionary is
// asked, so most of them are no words. Irregular forms have none. Of several words the last one is taken as
// the form.
//
// The outer list is in the order in which they are to be tried: one that is a word leaves no room for those
// behind it ("uses" is of use, not of us). Within an inner list all that are words count ("pasted" may be of
// past and of paste).
std::vector<std::vector<std::string>> englishBases(std::string_view word);

}  // namespace zavel::dicttool

#endif
