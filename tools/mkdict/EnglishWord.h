// One English word in one part of speech, on its way from a source to an entry.
#ifndef MKDICT_ENGLISHWORD_H
#define MKDICT_ENGLISHWORD_H

#include <string>
#include <vector>

namespace zavel::mkdict {

enum class PartOfSpeech {
  kNone,  // the source names none
  kNoun,
  kProperNoun,
  kVerb,
  kAdjective,
  kAdverb,
  kPreposition,
  kPronoun,
  kConjunction,
  kInterjection,
  kNumeral,
  kDeterminer,
  kArticle,
  kParticle,
  kIdiom,
  kProverb,
  kSymbol,
};

// UTF-8.
struct EnglishSense {
  std::vector<std::string> translations;  // Japanese, never empty in a sense that is kept
  std::vector<std::string> notes;         // English, telling which sense of the word is meant
};

struct EnglishWord {
  std::string word;  // headword as the source spells it, UTF-8
  PartOfSpeech pos = PartOfSpeech::kNone;
  std::vector<std::string> ipa;  // pronunciations, UTF-8, without their strokes
  std::vector<EnglishSense> senses;
};

}  // namespace zavel::mkdict

#endif
