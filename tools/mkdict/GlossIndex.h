// EDICT turned round: its short glosses as English headwords, the words they explain as translations.
#ifndef MKDICT_GLOSSINDEX_H
#define MKDICT_GLOSSINDEX_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mkdict/EdictLine.h"
#include "mkdict/EnglishWord.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

class GlossIndex {
 public:
  // `wordNet` is borrowed and complete: it tells which words there are, and in which parts of speech.
  explicit GlossIndex(const WordNet& wordNet) : wordNet_(wordNet) {}

  // Takes the glosses of a line that are no more than a word or a set phrase: one to three words, all of
  // the gloss but for remarks in brackets. Rare and obsolete words and spellings are passed over.
  void add(const EdictLine& line);

  // What a headword in one part of speech has gathered.
  struct Turned {
    std::string word;  // as the gloss spells it
    PartOfSpeech pos = PartOfSpeech::kNone;
    std::vector<std::string> translations;  // UTF-8, the best first
    std::vector<std::string> ranked;        // up to kMostRanked, whatever their worth, the best first
    bool common = false;                    // a common Japanese word among them
    bool known = false;                     // WordNet has the word in this part of speech
  };

  // All of them, ordered by word and part of speech. Up to six common translations; others only fill up to
  // three. One spelling of a word is enough, and what explains the headword in one of many senses only stands
  // beside what does so in the first ones. The index is then empty.
  static constexpr size_t kMostRanked = 24;
  std::vector<Turned> take();

  // A gloss as a headword: brackets, articles and "to" taken off, articles not where WordNet has the phrase
  // with them ("a bit"). Nothing when more than three words are left that WordNet does not have.
  // *verb: it began with "to"; *remarked: brackets fell.
  std::optional<std::string> headword(std::string_view gloss, bool* verb, bool* remarked) const;

 private:
  struct Candidate {
    uint32_t score;  // the lower the better
    uint32_t order;  // of arrival, parts equals
    bool common;
    std::string japanese;
    std::string written;   // beside a word that is usually written in kana
    std::u32string sound;  // its reading, the same for all its spellings
  };
  struct Slot {
    std::string word;
    PartOfSpeech pos;
    bool known;
    std::vector<Candidate> candidates;
  };
  void addGloss(const EdictLine& line, const EdictSense& sense, std::string_view gloss, uint32_t score);
  struct Choice {
    PartOfSpeech pos;
    bool known;   // WordNet has the word so
    bool agreed;  // and so has EDICT
    bool cased;   // its capitals belong to it
  };
  std::optional<Choice> choose(std::string_view word, const EdictSense& sense, bool verb) const;
  std::string singular(const std::string& word) const;
  const WordNet::Lemma* lemma(std::string_view word) const;

  const WordNet& wordNet_;                                      // borrowed
  std::map<std::pair<std::string, PartOfSpeech>, Slot> slots_;  // by lower case, unless its capitals count
  uint32_t arrivals_ = 0;
};

}  // namespace zavel::mkdict

#endif
