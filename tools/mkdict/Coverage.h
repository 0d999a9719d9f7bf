// How much of frequent English the set answers.
#ifndef MKDICT_COVERAGE_H
#define MKDICT_COVERAGE_H

#include <string>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/EnglishEntries.h"
#include "mkdict/KatuRecords.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

struct Coverage {
  size_t asked = 0;               // lemmas looked for
  size_t itself = 0;              // with an entry of their own that holds a translation
  size_t byBase = 0;              // forms of a word with one
  size_t derived = 0;             // derived from a word with one
  std::vector<std::string> gaps;  // the rest, the most frequent first

  size_t answered() const { return itself + byBase + derived; }

  // For the `most` most frequent lemmas of WordNet that hold no digit; equal counts by the alphabet.
  static Coverage measure(size_t most, const WordNet& wordNet, const std::vector<EnglishEntries::Item>& items,
                          const KatuRecords& katu, const std::vector<DerivedForm>& derived);
};

}  // namespace zavel::mkdict

#endif
