// The words that a regular English form may come from, told by its ending alone: the basic dictionary's
// inflection tables know only its own words.
#ifndef ZAVEL_USER_ENGLISHBASES_H
#define ZAVEL_USER_ENGLISHBASES_H

#include <string>
#include <vector>

#include "WordForms.h"

namespace zavel::host {

// "grokked" may be a past form of "grokk", "grokke" and "grok". Whether there are such words, and whether
// they inflect so, is for who asks to find out.
std::vector<InflectedFrom> regularBases(const std::string& word);

}  // namespace zavel::host

#endif
