#include <gtest/gtest.h>

#include "EntryText.h"

namespace zavel::host {
namespace {

using Glosses = std::vector<std::string>;

TEST(Senses, AreReadFromLabels) {
  const auto entries = sensesFromLabels(
      "【見出し】go\r【品詞】-[動]\r"
      "【訳語】【ニュースゴシック】1【ローマン(標準書体)】 行く, 動く (of a machine, to work)\r"
      "【訳語】【ニュースゴシック】2【ローマン(標準書体)】 消える\r\r\r");
  ASSERT_EQ(entries.size(), 1u);
  ASSERT_EQ(entries[0].size(), 2u);
  EXPECT_EQ(entries[0][0].pos, Glosses{"v"});
  EXPECT_EQ(entries[0][0].number, "1");
  EXPECT_EQ(entries[0][0].glosses, (Glosses{"行く", "動く"}));
  EXPECT_EQ(entries[0][0].note, "of a machine, to work");
  EXPECT_EQ(entries[0][1].number, "2");
  EXPECT_EQ(entries[0][1].glosses, Glosses{"消える"});
}

TEST(Senses, LabelsAsLongAsADamagedEntryAreCut) {
  const std::string label(2000, 'x');
  const auto entries = sensesFromLabels("【見出し】go\r【品詞】-[" + label + "]\r【品詞】-[動][" + label +
                                        "]\r【訳語】行く\r");
  ASSERT_EQ(entries.size(), 1u);
  ASSERT_EQ(entries[0].size(), 1u);
  EXPECT_EQ(entries[0][0].labels, Glosses{"動"});
}

TEST(Senses, EachHeadwordBeginsAnEntry) {
  const auto entries = sensesFromLabels("【見出し】a\r【訳語】あ\r【見出し】b\r【訳語】い; う\r");
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0][0].glosses, Glosses{"あ"});
  EXPECT_EQ(entries[1][0].glosses, (Glosses{"い", "う"}));
}

TEST(Senses, TextAheadOfTheFirstHeadwordIsAnEntryOfItsOwn) {
  const auto entries = sensesFromLabels("【品詞】-[名][Ｃ]\r【訳語】教会\r");
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0][0].pos, (Glosses{"n", "countable"}));
}

TEST(Senses, EnglishGlossesArePartedBySemicolons) {
  const auto entries = sensesFromLabels("【見出し】あ\r【訳語】to lay, or raise (here; there); to move\r");
  EXPECT_EQ(entries[0][0].glosses, (Glosses{"to lay, or raise (here; there)", "to move"}));
}

TEST(Senses, CommasInsideBracketsPartNothing) {
  const auto entries = sensesFromLabels("【見出し】a\r【訳語】行く (here, there) 先, 動く\r");
  EXPECT_EQ(entries[0][0].glosses, (Glosses{"行く (here, there) 先", "動く"}));
}

TEST(Senses, ANoteAboutTheWordGoesToItsFirstSense) {
  const auto entries = sensesFromLabels(
      "【見出し】こう 斯う\r【囲み、表、その他の解説・注記】(usually kana)\r【品詞】-[副]\r【訳語】in this "
      "way; thus\r");
  ASSERT_EQ(entries[0].size(), 1u);
  EXPECT_EQ(entries[0][0].note, "usually kana");
  EXPECT_EQ(entries[0][0].glosses, (Glosses{"in this way", "thus"}));
}

TEST(Senses, JapaneseVerbsAreVerbs) {
  const auto entries = sensesFromLabels("【見出し】いく 行く\r【品詞】-[動カ五][自]\r【訳語】to go\r");
  EXPECT_EQ(entries[0][0].pos, (Glosses{"v", "vi"}));
}

TEST(Senses, EveryPartOfSpeechHasItsAbbreviation) {
  const std::pair<const char*, const char*> rows[] = {
      {"名", "n"},
      {"Ｃ", "countable"},
      {"固", "pn"},
      {"固名", "pn"},
      {"時名", "n-temporal"},
      {"名副", "n-adv"},
      {"代", "pron"},
      {"数", "num"},
      {"助数", "counter"},
      {"形", "adj"},
      {"形動", "adj-na"},
      {"の形", "adj-no"},
      {"連体", "adj-attributive"},
      {"形動タル", "adj-taru"},
      {"形動ナリ", "adj-nari"},
      {"形ク", "adj-ku"},
      {"形シク", "adj-shiku"},
      {"形カリ", "adj-kari"},
      {"補形", "aux-adj"},
      {"副", "adv"},
      {"副ト", "adv-to"},
      {"動", "v"},
      {"動カ五", "v"},
      {"動一段", "v"},
      {"動サ変", "v"},
      {"サ変", "vs"},
      {"他", "vt"},
      {"自", "vi"},
      {"助動", "aux"},
      {"補助", "aux"},
      {"助", "part"},
      {"小辞", "part"},
      {"前", "prep"},
      {"接", "conj"},
      {"間", "int"},
      {"感", "int"},
      {"冠", "art"},
      {"限", "det"},
      {"接頭", "pref"},
      {"接尾", "suf"},
      {"句", "exp"},
      {"成句", "exp"},
      {"記号", "symbol"},
      {"新種", "新種"},
  };
  for (const auto& [label, pos] : rows) {
    const auto entries = sensesFromLabels("【見出し】a\r【品詞】-[" + std::string(label) + "]\r【訳語】b\r");
    EXPECT_EQ(entries.at(0).at(0).pos, Glosses{pos}) << label;
    EXPECT_EQ(entries.at(0).at(0).labels, Glosses{label}) << label;
  }
}

TEST(Senses, TwoKindsOfVerbAreOneAbbreviation) {
  const auto entries = sensesFromLabels("【見出し】a\r【品詞】-[動カ四][動カ下二][他]\r【訳語】b\r");
  EXPECT_EQ(entries.at(0).at(0).pos, (Glosses{"v", "vt"}));
}

TEST(Senses, ExamplesHaveTwoSides) {
  const auto entries =
      sensesFromLabels("【見出し】go\r【訳語】行く\r【用例･句例】go home【和訳：用例】 家に帰る\r");
  ASSERT_EQ(entries[0][0].examples.size(), 1u);
  EXPECT_EQ(entries[0][0].examples[0].source, "go home");
  EXPECT_EQ(entries[0][0].examples[0].target, "家に帰る");
}

TEST(Senses, BracketsOfTheTextOpenNoLabel) {
  const auto entries = sensesFromLabels("【見出し】a\r【訳語】【注】を見よ\r");
  EXPECT_EQ(entries[0][0].glosses, Glosses{"【注】を見よ"});
}

TEST(Senses, AReferenceToAnotherSpellingIsANote) {
  const auto own = sensesFromLabels(
      "【見出し】colour\r【訳語】色, カラー\r【訳語】《英》 =color【添え字上付き】1【添え字なし】.\r");
  ASSERT_EQ(own[0].size(), 1u);
  EXPECT_EQ(own[0][0].glosses, (Glosses{"色", "カラー"}));
  EXPECT_EQ(own[0][0].note, "《英》 =color");
  const auto alone = sensesFromLabels("【見出し】colour\r【訳語】《英》 =color\r");
  ASSERT_EQ(alone[0].size(), 1u);
  EXPECT_TRUE(alone[0][0].glosses.empty());
  EXPECT_EQ(alone[0][0].note, "《英》 =color");
}

TEST(Senses, OfNothingAreNothing) {
  EXPECT_TRUE(sensesFromLabels("").empty());
}

}  // namespace
}  // namespace zavel::host
