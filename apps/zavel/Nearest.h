// "Did you mean": the known word that is nearest to one that was typed.
#ifndef ZAVEL_NEAREST_H
#define ZAVEL_NEAREST_H

#include <string>
#include <vector>

namespace zavel::host {

// The word of `known` that is fewest slips away from `word`, the first of several. A slip is a letter too
// many, missing, changed, or a pair that changed places. Empty when `word` has fewer than two letters, or
// when more than a third of the longer word would be slips; a beginning of a known word is always near.
std::string nearest(const std::string& word, const std::vector<std::string>& known);

}  // namespace zavel::host

#endif
