// American and British spellings of one word: members of one WordNet synset whose letters differ by a
// correspondence that English spelling knows, such as "our" and "or". Members that merely mean the same
// ("lift", "elevator") are no pairs.
#ifndef MKDICT_SPELLINGPAIRS_H
#define MKDICT_SPELLINGPAIRS_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mkdict/WordNet.h"

namespace zavel::mkdict {

class SpellingPairs {
 public:
  struct Pair {
    std::string british, american;
    WordNet::Pos pos;
    uint32_t shared = 0;  // synsets that hold both
  };

  // What the members of a synset may be: WordNet::SynsetSink. `wordNet` may still be loading.
  void add(const WordNet& wordNet, WordNet::Pos pos, const std::vector<uint32_t>& lemmas);

  // All pairs so far, ordered by words and part of speech. Whether a doubled l is American can only be told
  // when all words are known, so this comes after loading.
  std::vector<Pair> pairs(const WordNet& wordNet) const;

  // True when `british` and `american` differ by regular correspondences from British to American alone.
  static bool corresponds(std::string_view british, std::string_view american);

  // The place of the "ll" where the words differ by one l only ("traveller", "traveler").
  static std::optional<size_t> doubledL(std::string_view longer, std::string_view shorter);

 private:
  // Words in alphabetical order, and the part of speech.
  std::map<std::pair<std::pair<uint32_t, uint32_t>, WordNet::Pos>, uint32_t> candidates_;
};

}  // namespace zavel::mkdict

#endif
