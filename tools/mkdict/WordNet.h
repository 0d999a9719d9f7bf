// What the build takes from WordNet: which English words there are, in which parts of speech and how often,
// what kind of thing a noun names, which words stand for one thing, which are derived from which, and the
// irregular forms. Glosses are not kept; they only feed the list of attested words.
#ifndef MKDICT_WORDNET_H
#define MKDICT_WORDNET_H

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zavel::mkdict {

class WordNet {
 public:
  enum Pos : uint8_t { kNoun, kVerb, kAdjective, kAdverb, kPosCount };

  struct Lemma {
    std::string text;  // lower case, words parted by blanks
    std::array<uint32_t, kPosCount> senses{};
    std::array<uint32_t, kPosCount> uses{};  // counted in the tagged texts
    // Of a noun: senses by kind, a tagged use weighing ten times a sense. See kindOf.
    std::array<uint32_t, 4> kinds{};
    uint32_t relational = 0;  // adjective senses that mean "of a ...": they don't compare
    bool lowerCase = false;   // WordNet writes it without capitals somewhere
    // Those of `senses` and `uses` that WordNet writes with a capital: "China", "WHO".
    std::array<uint32_t, kPosCount> nameSenses{};
    std::array<uint32_t, kPosCount> nameUses{};

    // Whether it has a sense that is written with a capital, or one that is not.
    bool isName(Pos pos) const { return nameSenses[pos] > 0; }
    bool isCommon(Pos pos) const { return is(pos) && (senses[pos] == 0 || senses[pos] > nameSenses[pos]); }
    // True when WordNet tells the uses of the two apart.
    bool tellsNames() const;
    // Uses of the word as it is spelled; all of them where WordNet does not tell.
    uint32_t spelledUses(bool capital) const;
    uint32_t spelledUses(Pos pos, bool capital) const;

    // Some counted lemmas have left the synsets since, "more than" for one.
    bool is(Pos pos) const { return senses[pos] > 0 || uses[pos] > 0; }
    uint32_t allUses() const { return uses[0] + uses[1] + uses[2] + uses[3]; }
  };

  // Kinds of nouns, by lexicographer file: persons, animals and plants; other things that are counted; what
  // may be; what mostly is not.
  enum Kind : uint8_t { kLiving, kThing, kMixed, kMass };
  static Kind kindOf(unsigned lexicographerFile);

  // form -> base, several bases possible, in the order of the file. Words with blanks.
  using Exceptions = std::vector<std::pair<std::string, std::string>>;

  // Called for the gloss of each synset.
  using GlossSink = std::function<void(std::string_view gloss)>;
  // Called for each synset of two words or more, with their lemma numbers in its order.
  using SynsetSink = std::function<void(Pos pos, const std::vector<uint32_t>& lemmas)>;

  // Reads data.*, *.exc and cntlist.rev of `folder`. False with a sentence in *error when a file is missing,
  // a line of it is damaged, its last line does not end or pointers lead to synsets that are not there.
  // Either sink may be empty.
  bool load(const std::string& folder, const GlossSink& glosses, const SynsetSink& synsets,
            std::string* error);

  const std::vector<Lemma>& lemmas() const { return lemmas_; }  // in the order of first mention
  static constexpr uint32_t kNone = 0xFFFFFFFF;
  uint32_t find(std::string_view text) const;       // lemma number or kNone
  const Lemma* lemma(std::string_view text) const;  // null when unknown
  bool is(std::string_view text, Pos pos) const;

  // Pairs (derived, base) or the other way round: WordNet does not tell which came first.
  const std::vector<std::pair<uint32_t, uint32_t>>& derivations() const { return derivations_; }
  const Exceptions& exceptions(Pos pos) const { return exceptions_[pos]; }

  // Parts of load, over the text of one file. readData must see all four files before finish(), which tells
  // how many pointers lead nowhere.
  bool readData(Pos pos, std::string_view text, const GlossSink& glosses, const SynsetSink& synsets);
  bool readCounts(std::string_view text);
  bool readExceptions(Pos pos, std::string_view text);
  size_t finish();

 private:
  struct Pointer {
    uint32_t lemma;
    uint32_t synset;  // offset in the file of `pos`
    uint16_t word;    // number in that synset, from 1; 0 all of it
    Pos pos;
  };
  bool readSynset(Pos pos, std::string_view line, const SynsetSink& synsets);
  // `cased`: the file keeps capitals, so a word without any is one that is written so.
  uint32_t add(std::string_view word, bool cased);

  std::vector<Lemma> lemmas_;
  std::unordered_map<std::string, uint32_t> numbers_;
  std::vector<std::pair<uint32_t, uint32_t>> derivations_;
  std::array<Exceptions, kPosCount> exceptions_;
  // Until finish(): words of each synset, by file and offset, and the pointers that name them.
  std::array<std::vector<std::pair<uint32_t, uint32_t>>, kPosCount> synsetAt_;  // offset, first in words_
  std::vector<uint32_t> words_;                                                 // kNone ends a synset
  std::unordered_set<uint64_t> names_;  // senses with a capital, see senseKey in the source
  std::vector<Pointer> pointers_;
};

}  // namespace zavel::mkdict

#endif
