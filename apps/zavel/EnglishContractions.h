// Words that an apostrophe joins or cuts short: "can't", "I'm", "children's".
#ifndef ZAVEL_ENGLISHCONTRACTIONS_H
#define ZAVEL_ENGLISHCONTRACTIONS_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// A word that stands in another, and how.
struct Contraction {
  std::string word;    // "can"
  std::string reason;  // "contraction with not"
  bool operator==(const Contraction&) const = default;
};

// The words that `word` (ASCII, any case) may be made of, the likeliest first; none without an apostrophe.
// Whether there are such words is the dictionary's affair.
//   "can't"       can, contraction with not
//   "it's"        it, contraction with is or has
//   "dogs'"       dogs, possessive
std::vector<Contraction> contractionsOf(std::string_view word);

}  // namespace zavel::host

#endif
