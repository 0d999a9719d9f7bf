#include "dicttool/EdictCompounds.h"

#include <gtest/gtest.h>

namespace zavel::dicttool {
namespace {

using Counts = std::vector<size_t>;

struct Word {
  const char* written;
  const char* reading;
};

Counts countsOf(const std::vector<Word>& words) {
  EdictCompounds compounds;
  for (const Word& word : words) compounds.add(word.written, word.reading);
  compounds.count();
  Counts counts;
  for (size_t i = 0; i < words.size(); ++i) counts.push_back(compounds.of(i));
  return counts;
}

TEST(EdictCompounds, CountsWordsThatBeginOrEndWithAnother) {
  EXPECT_EQ(countsOf({{"田中一郎", "たなかいちろう"},
                      {"田中", "たなか"},
                      {"一郎", "いちろう"},
                      {"田中駅", "たなかえき"}}),
            (Counts{0, 2, 1, 0}));
}

TEST(EdictCompounds, CountsAReadingByItself) {
  EXPECT_EQ(countsOf({{"田中", "たなか"}, {"田中", "でんちゅう"}, {"田中さくら", "たなかさくら"}}),
            (Counts{1, 0, 0}));
  // 新雪 ends in 雪, and its reading in ゆき but not in せつ.
  EXPECT_EQ(countsOf({{"雪", "せつ"}, {"雪", "ゆき"}, {"新雪", "あらゆき"}}), (Counts{0, 1, 0}));
}

TEST(EdictCompounds, TakesAWordInKanaForItsReading) {
  EXPECT_EQ(countsOf({{"スミス", ""}, {"ジョンスミス", ""}, {"スミス川", "スミスがわ"}}), (Counts{2, 0, 0}));
}

TEST(EdictCompounds, CountsChainsOfWords) {
  EXPECT_EQ(countsOf({{"あ", ""}, {"あい", ""}, {"あいう", ""}, {"い", ""}, {"あ", ""}}),
            (Counts{2, 1, 0, 1, 2}));
}

TEST(EdictCompounds, CountsNothingInAWordItself) {
  EXPECT_EQ(countsOf({{"田中", "たなか"}, {"田中", "たなか"}}), (Counts{0, 0}));
  EXPECT_EQ(countsOf({}), Counts{});
}

TEST(EdictCompounds, EndsInTimeHoweverOftenAWordStandsThere) {
  const std::vector<Word> words(200000, Word{"あ", "あ"});
  EXPECT_EQ(countsOf(words), Counts(words.size(), 0));
}

}  // namespace
}  // namespace zavel::dicttool
