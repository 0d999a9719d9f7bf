// Words without an entry of their own that are derived from a word with one: "thoughtfully" leads to
// "thoughtful". Only words that WordNet has, and "whom" and "towards"; never an inflected form, which
// conjugation leads back.
//
// Two ways to a base: WordNet's derivational pointers, between words that begin alike; and the regular
// suffixes -ly, -ness, -able, -er, -ment, -less, -ful, -ish, -ism, -ist, -ity, -ize, -ation. Beside them
// the pairs that differ by little more than a letter: "afterward" and "afterwards", "depend upon" and "depend
// on", "a hundred", "hundredth" and "hundred".
#ifndef MKDICT_DERIVEDFORMS_H
#define MKDICT_DERIVEDFORMS_H

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EnglishEntries.h"
#include "mkdict/KatuRecords.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

class DerivedForms {
 public:
  // All borrowed; `katu` is finished.
  DerivedForms(const WordNet& wordNet, const KatuRecords& katu,
               const std::vector<EnglishEntries::Item>& items);

  // All derived words, in the order of the alphabet, their entries in the order of `items`. Ranks count on
  // from those of the entries.
  std::vector<DerivedForm> make() const;

  // Bases that the suffix of `word` points to, with the part of speech that each must have; the likeliest
  // first.
  struct Guess {
    std::string base;
    WordNet::Pos pos;
  };
  static std::vector<Guess> guesses(std::string_view word);

 private:
  std::vector<size_t> entriesOf(const std::string& base, std::optional<WordNet::Pos> pos) const;
  std::vector<size_t> sameButForALetter(const std::string& word) const;
  std::vector<size_t> numeralsOf(const std::string& base) const;
  bool isLowerCase(const std::string& base) const;
  bool isFree(const std::string& word) const;

  const WordNet& wordNet_;
  const KatuRecords& katu_;
  const std::vector<EnglishEntries::Item>& items_;
  std::unordered_map<std::string, std::vector<size_t>> byKey_;
};

}  // namespace zavel::mkdict

#endif
