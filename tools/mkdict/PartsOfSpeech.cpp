#include "mkdict/PartsOfSpeech.h"

namespace zavel::mkdict {

std::optional<WordNet::Pos> wordNetPos(PartOfSpeech pos) {
  switch (pos) {
    case PartOfSpeech::kNoun:
    case PartOfSpeech::kProperNoun:
      return WordNet::kNoun;
    case PartOfSpeech::kVerb:
      return WordNet::kVerb;
    case PartOfSpeech::kAdjective:
      return WordNet::kAdjective;
    case PartOfSpeech::kAdverb:
      return WordNet::kAdverb;
    default:
      return std::nullopt;
  }
}

PartOfSpeech partOfSpeech(WordNet::Pos pos) {
  constexpr PartOfSpeech kAll[] = {PartOfSpeech::kNoun, PartOfSpeech::kVerb, PartOfSpeech::kAdjective,
                                   PartOfSpeech::kAdverb};
  static_assert(std::size(kAll) == WordNet::kPosCount);
  return kAll[pos];
}

}  // namespace zavel::mkdict
