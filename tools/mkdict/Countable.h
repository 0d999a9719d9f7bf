// Which nouns get the label for countable nouns, and with it a plural. No source says it, so it is judged:
//
// - a noun with an irregular plural in WordNet's list counts;
// - else a noun counts when its senses mostly name persons, animals or plants;
// - a noun that mostly names other things (artifacts, places, times ...) counts, unless definitions use it
//   often and its plural never ("equipment");
// - a noun that mostly names what may be counted (acts, ideas, messages ...) or a mass (substances,
//   feelings, qualities ...) counts when definitions use its plural; the plural of a noun that is a verb as
//   well may be the verb's third person, and must then occur three times;
// - a noun that WordNet does not know counts when definitions use its plural.
#ifndef MKDICT_COUNTABLE_H
#define MKDICT_COUNTABLE_H

#include <string_view>

#include "mkdict/Attested.h"
#include "mkdict/Inflection.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

// `plurals` as Inflection gives them; without any, the answer is no.
bool isCountable(std::string_view noun, const Forms& plurals, const WordNet& wordNet,
                 const Attested& attested, const Inflection& inflection);

}  // namespace zavel::mkdict

#endif
