// A small English for tests: WordNet files by a few verbs, and what hangs on them.
#ifndef TESTS_MKDICT_ENGLISHSUPPORT_H
#define TESTS_MKDICT_ENGLISHSUPPORT_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "mkdict/Attested.h"
#include "mkdict/Inflection.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

// The language in the making; build() ends the making.
struct SmallEnglish {
  // One synset with these words. `file` is the lexicographer file.
  void synset(WordNet::Pos pos, const std::vector<std::string>& words, int file = 6,
              const std::string& pointers = "000") {
    constexpr const char* kTypes[] = {"n", "v", "a", "r"};
    char head[40];
    std::snprintf(head, sizeof head, "%08u %02d %s %02zx ", nextOffset++, file, kTypes[pos], words.size());
    std::string line = head;
    for (const std::string& word : words) line += word + " 0 ";
    line += pointers + " | gloss  \n";
    ASSERT_TRUE(wordNet.readData(pos, line, {}, synsets)) << line;
  }
  void uses(const std::string& line) { ASSERT_TRUE(wordNet.readCounts(line + "\n")) << line; }
  void exception(WordNet::Pos pos, const std::string& line) {
    ASSERT_TRUE(wordNet.readExceptions(pos, line + "\n")) << line;
  }
  void attest(std::string_view text) { attested.read(text); }

  const Inflection& inflection() {
    if (!inflection_) {
      wordNet.finish();
      inflection_ = std::make_unique<Inflection>(wordNet, attested);
    }
    return *inflection_;
  }

  WordNet wordNet;
  WordNet::SynsetSink synsets;
  Attested attested;
  unsigned nextOffset = 100;

 private:
  std::unique_ptr<Inflection> inflection_;
};

}  // namespace zavel::mkdict

#endif
