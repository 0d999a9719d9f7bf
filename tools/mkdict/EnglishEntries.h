// Gathers the English entries: what FreeDict has, what EDICT turned round adds, and what is known under
// another spelling; then orders and numbers them.
#ifndef MKDICT_ENGLISHENTRIES_H
#define MKDICT_ENGLISHENTRIES_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mkdict/Attested.h"
#include "mkdict/EnglishWord.h"
#include "mkdict/EntryText.h"
#include "mkdict/GlossIndex.h"
#include "mkdict/Inflection.h"
#include "mkdict/SpellingPairs.h"
#include "mkdict/Summary.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

class EnglishEntries {
 public:
  // One entry in the making.
  struct Item {
    EntryDraft draft;
    std::string key;
    Sounds sounds;
    uint32_t rank = 0;
    bool turned = false;  // from EDICT
  };

  // All borrowed; `summary` is told what is left out or changed.
  EnglishEntries(const WordNet& wordNet, const Attested& attested, const Inflection& inflection,
                 Summary* summary);

  // A word of FreeDict. Its senses come in the order of their notes' alphabet; `ranked`, the Japanese words
  // that EDICT explains by this word, the best first, tells which to put ahead.
  void add(EnglishWord word, const std::vector<std::string>& ranked);

  // A word of EDICT turned round, unless FreeDict has it in this part of speech. After all add().
  void addTurned(const GlossIndex::Turned& turned);

  // Lets the two spellings of a word refer to each other where both have entries, and gives the one that has
  // none a short entry that refers to the other. After all addTurned().
  void addSpellings(const std::vector<SpellingPairs::Pair>& pairs);

  // Orders all entries, numbers the homographs, sets stars, labels, sounds and references.
  //
  // Homographs: parts of speech by WordNet's counts; prepositions, pronouns, conjunctions, determiners,
  // articles and modal verbs count as kClosedClassUses there, because WordNet does not have them; capitalised
  // words last.
  // Ranks: by the uses of the word in WordNet's tagged texts, words of those classes by their number in the
  // definitions; then FreeDict before EDICT, then the alphabet.
  // Stars: "***" the 1,000 most frequent lemmas, "**" the next 3,000; of the closed classes those that
  // definitions use 1,000 and 100 times.
  void arrange();

  const std::vector<Item>& items() const { return items_; }  // after arrange() by rank
  std::vector<Item> take() { return std::move(items_); }
  bool hasKey(const std::string& key) const { return byKey_.contains(key); }

  static constexpr uint32_t kClosedClassUses = 30;
  static constexpr size_t kThreeStars = 1000, kTwoStars = 3000;
  static constexpr uint32_t kThreeStarsAttested = 1000, kTwoStarsAttested = 100;

 private:
  struct Source {
    EntryDraft draft;
    std::vector<std::string> ipa;
    bool turned = false;
    bool isNameToo = false;  // "moon" beside "Moon": WordNet's uses of the two count for both
    bool isVerbToo = false;  // the word is a verb and a noun or adjective
    Sounds sounds;
    std::vector<std::pair<std::string, bool>> spellings;  // other word, own is British
    std::vector<std::pair<std::string, bool>> remarks;    // other word, own is British
  };
  Source* find(const std::string& word, PartOfSpeech pos);
  bool isInflected(std::string_view word) const;
  bool says(const Source& other, const std::string& headword, const GlossIndex::Turned& turned) const;
  bool isVerbAndOther(const std::vector<size_t>& group, const std::string& word) const;
  void countFrequencies();
  void addVariant(const Source& main, const std::string& word, bool british, bool translations);
  uint32_t usesOf(const Source& source) const;
  uint32_t weightOf(const Source& source) const;
  std::string starsOf(const Source& source, bool sharesWord) const;
  void label(Source& source) const;
  void number(std::vector<size_t>& group);

  const WordNet& wordNet_;
  const Attested& attested_;
  const Inflection& inflection_;
  Summary* summary_;
  std::vector<Source> sources_;
  std::unordered_map<std::string, std::vector<size_t>> byKey_;  // into sources_
  // Places of the most frequent lemmas; true for a name beside a word of the same letters.
  std::map<std::pair<std::string, bool>, size_t> frequency_;
  std::vector<Item> items_;
};

}  // namespace zavel::mkdict

#endif
