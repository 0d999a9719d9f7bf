// The texts that adding appends to the .dic files, byte for byte, and their limits.
#include "engine/WordInfo.h"

#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::sjis;
using namespace std::string_literals;

class WordInfoTest : public RamDicTest {};

TEST_F(WordInfoTest, AnEnglishMeaning) {
  ASSERT_EQ(Add(EntryE{.word = "Cat", .imi = "猫", .hinsi = 1, .youreis = {{"a cat", "ネコ"}, {"b", "ト"}}}),
            1);
  EXPECT_EQ(Body("ej.dic"),
            "\xF5\xD1\xF5\xB1"
            "Cat"
            "\xF5\xC1\n"
            "\xF5\xD3-[\x96\xBC]\n"
            "\xF5\xD4\x94\x4C\n"
            "\xF5\xD5"
            "a cat"
            "\xF5\xD8 \x83\x6C\x83\x52\n"
            "\xF5\xD5"
            "b"
            "\xF5\xD8 \x83\x67\n"s);
}

TEST_F(WordInfoTest, AnEnglishPhrase) {
  ASSERT_EQ(
      Add(EntryE{.word = "cat", .imi = "豪雨", .kind = 2, .phrase = "rain cats", .youreis = {{"a", "雨"}}}),
      1);
  EXPECT_EQ(Body("ej.dic"),
            "\xF5\xD1\xF5\xB1"
            "cat"
            "\xF5\xC1\n"
            "\xF5\xD6\xF5\xB1rain cats\xF5\xC1\n"
            "\xF5\xE4\x8D\x8B\x89\x4A\n"
            "\xF5\xE5"
            "a"
            "\xF5\xD8 \x89\x4A\n"s);
}

TEST_F(WordInfoTest, EveryPartOfSpeech) {
  const char* const texts[] = {"[\x96\xBC]",           "[\x91\xE3]", "[\x8C\x60]",
                               "[\x95\x9B]",           "[\x93\xAE]", "[\x93\xAE][\x91\xBC]",
                               "[\x93\xAE][\x8E\xA9]", "[\x91\x4F]", "[\x90\xDA]"};
  const char* const read[] = {"[名]", "[代]", "[形]", "[副]", "[動]", "[動][他]", "[動][自]", "[前]", "[接]"};
  std::string expected;
  for (uint16_t hinsi = 1; hinsi <= 9; ++hinsi) {
    ASSERT_EQ(Add(EntryE{.word = "x", .imi = "y", .hinsi = hinsi}), 1);
    expected += "\xF5\xD1\xF5\xB1x\xF5\xC1\n\xF5\xD3-"s + texts[hinsi - 1] + "\n\xF5\xD4y\n";
    EXPECT_EQ(HinsiText(hinsi), texts[hinsi - 1]);
    EXPECT_EQ(sjis(read[hinsi - 1]), texts[hinsi - 1]);
  }
  EXPECT_EQ(Body("ej.dic"), expected);
  EXPECT_EQ(HinsiText(0), "");
  EXPECT_EQ(HinsiText(10), "");
}

TEST_F(WordInfoTest, JapaneseWithoutKanji) {
  ASSERT_EQ(Add(EntryJ{.kana = "ネコ", .imi = "a cat"}), 1);
  EXPECT_EQ(Body("je.dic"), "\xF5\xD1\x83\x6C\x83\x52\n\xF5\xD4"s + "a cat\n");
}

TEST_F(WordInfoTest, JapaneseWithKanjiPhrasesAndSentences) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ",
                       .kanji = "猫",
                       .imi = "cat",
                       .kureis = {{"e1", "あ"}, {"e2", "い"}},
                       .bunreis = {{"e3", "う"}, {"e4", "え"}, {"e5", "お"}}}),
            1);
  EXPECT_EQ(Body("je.dic"),
            "\xF5\xD1\x82\xCB\x82\xB1\x1B\x94\x4C\n"
            "\xF5\xD4"
            "cat\n"
            "\xF5\xD5\x81\xF7\x82\xA0\xF5\xD8 e1\n"
            "\xF5\xD5/\x82\xA2\xF5\xD8 e2\n"
            "\xF5\xD6[\x95\xB6\x97\xE1]\x1B\x82\xA4\xF5\xD8 e3\n"
            "\xF5\xD6/\x82\xA6\xF5\xD8 e4\n"
            "\xF5\xD6/\x82\xA8\xF5\xD8 e5\n"s);
}

TEST_F(WordInfoTest, OneSentenceWithoutPhrases) {
  ASSERT_EQ(Add(EntryJ{.kana = "ね", .imi = "x", .bunreis = {{"e", "う"}}}), 1);
  EXPECT_EQ(Body("je.dic"),
            "\xF5\xD1\x82\xCB\n\xF5\xD4x\n\xF5\xD6[\x95\xB6\x97\xE1]\x1B\x82\xA4\xF5\xD8 e\n"s);
}

// "cat" with a part of speech takes 21 bytes beside its meaning: 10 for the headword line, 8 and 3.
TEST_F(WordInfoTest, AnEnglishEntryHas65534BytesAtMost) {
  EXPECT_EQ(Add(EntryE{.word = "cat", .imi = std::string(65514, 'x')}), 2052);
  EXPECT_EQ(Body("ej.dic"), "") << "nothing is appended";
  EXPECT_TRUE(ListE().empty());
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = std::string(65513, 'x')}), 1);
  EXPECT_EQ(Body("ej.dic").size(), 65534u);
  ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
  Reopen();
  ASSERT_EQ(FindE("cat").size(), 1u);
  EXPECT_EQ(FindE("cat")[0].entry.imi, std::string(65513, 'x'));
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(FindE("cat")[0].entry.imi, std::string(65513, 'x'));
}

// A phrase takes 7 bytes with its tags: 10 + 7 + 3 beside the texts. An example takes 6.
TEST_F(WordInfoTest, AllTextsOfAnEnglishEntryCount) {
  EntryE entry{.word = "cat",
               .imi = std::string(30000, 'x'),
               .kind = 2,
               .hinsi = 0,
               .phrase = std::string(35515, 'p')};
  EXPECT_EQ(Add(entry), 2052);
  entry.phrase.pop_back();
  EXPECT_EQ(Add(entry), 1);
  entry.youreis = {{"a", "b"}};
  EXPECT_EQ(Add(entry), 2052);
  entry.phrase.resize(35514 - 7);
  EXPECT_EQ(Add(entry), 2052);
  entry.phrase.resize(35514 - 8);
  EXPECT_EQ(Add(entry), 1);
  EXPECT_EQ(FindE("cat").size(), 2u);
}

TEST_F(WordInfoTest, TextsOf65535BytesAre18) {
  const std::string tooLong(65535, 'x'), longest(65534, 'x');
  EXPECT_EQ(Add(EntryE{.word = tooLong}), 18);
  EXPECT_EQ(Add(EntryE{.word = longest}), 2052);
  EXPECT_EQ(Add(EntryE{.word = "cat", .imi = tooLong}), 18);
  EXPECT_EQ(Add(EntryE{.word = "cat", .imi = longest}), 2052);
  EXPECT_EQ(Add(EntryE{.word = "cat", .kind = 2, .phrase = tooLong}), 18);
  EXPECT_EQ(Add(EntryE{.word = "cat", .youreis = {{tooLong, "x"}}}), 18);
  EXPECT_EQ(Add(EntryE{.word = "cat", .youreis = {{"x", tooLong}}}), 18);
  EXPECT_EQ(Add(EntryE{.word = "cat", .youreis = {{longest, longest}}}), 2052);
  EXPECT_EQ(Add(EntryJ{.kana = "ね", .imi = tooLong}), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ね", .imi = longest}), 2052);
  EXPECT_EQ(Body("ej.dic") + Body("je.dic"), "");
}

// ねこ takes 7 bytes for its line, a meaning 3; kanji one more; ¶ 2, [文例] 7 with its end, "/" 1.
TEST_F(WordInfoTest, AJapaneseEntryHas65534BytesAtMost) {
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .imi = std::string(65525, 'x')}), 2052);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .imi = std::string(65524, 'x')}), 1);
  EXPECT_EQ(Body("je.dic").size(), 65534u);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫", .imi = std::string(65522, 'x')}), 2052);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫", .imi = std::string(65521, 'x')}), 1);
  EXPECT_EQ(Body("je.dic").size(), 2 * 65534u);
  // 10 + (6 + 2 + 2) + (6 + 1 + 2) + (6 + 7 + 2) + (6 + 1 + 2)
  EntryJ all{
      .kana = "ねこ", .imi = "", .kureis = {{"a", "b"}, {"a", "b"}}, .bunreis = {{"a", "b"}, {"a", "b"}}};
  all.imi = std::string(65535 - 53, 'x');
  EXPECT_EQ(Add(all), 2052);
  all.imi.pop_back();
  EXPECT_EQ(Add(all), 1);
  EXPECT_EQ(Body("je.dic").size(), 3 * 65534u);
}

// Readings and written forms have no limit of their own; their length must not wrap into one that fits.
TEST_F(WordInfoTest, AWordOf64KiBIs2052) {
  const auto ofLength = [](size_t characters) {
    std::string word;
    for (size_t i = 0; i < characters; ++i) word += "ね";
    return word;
  };
  EXPECT_EQ(Add(EntryJ{.kana = ofLength(32760)}), 1) << "13 bytes beside it";
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = ofLength(32758)}), 1) << "18 bytes beside it";
  for (const size_t characters : {32761u, 32767u, 32768u, 32770u, 40000u, 65536u}) {
    EXPECT_EQ(Add(EntryJ{.kana = ofLength(characters)}), 2052) << characters;
    EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = ofLength(characters)}), 2052) << characters;
  }
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = ofLength(32759)}), 2052);
  EXPECT_EQ(FindJ("ねこ").size(), 1u);
}

TEST_F(WordInfoTest, ExamplesBeyondWhatSixteenBitsCountAre2052) {
  Pairs pairs(9000, {"x", "y"});  // of 8 bytes each
  EXPECT_EQ(Add(EntryE{.word = "cat", .youreis = pairs}), 2052);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kureis = pairs, .bunreis = pairs}), 2052);
  pairs.resize(8000);
  ASSERT_EQ(Add(EntryE{.word = "cat", .youreis = pairs}), 1);
  EXPECT_EQ(FindE("cat")[0].entry.youreis.size(), 8000u);
}

TEST_F(WordInfoTest, OnlyTheTwoSetsHaveEntries) {
  uint32_t offset = 0;
  EXPECT_EQ(WriteImiData("x", 0, &offset), 18);
  EXPECT_EQ(WriteImiData("x", 3, &offset), 18);
  EXPECT_EQ(WriteImiData("x", 1, &offset), 21) << "not open";
}

TEST_F(WordInfoTest, SizesStartAtNothingAndGoBackToIt) {
  add_dic_size_e english{.word = 1, .imi = 2, .phrase = 3, .youreis = {{4}, {5}}};
  FreeAddDicSizeE(&english);
  EXPECT_EQ(english.youreis.count(), 0u);
  InitAddDicSizeE(&english);
  EXPECT_EQ(english.word + english.imi + english.phrase, 0);
  add_dic_size_j japanese{.kana = 1, .kanji = 2, .imi = 3, .kureis = {{4}, {5}}, .bunreis = {{6}, {7}}};
  FreeAddDicSizeJ(&japanese);
  EXPECT_EQ(japanese.kureis.count() + japanese.bunreis.count(), 0u);
  InitAddDicSizeJ(&japanese);
  EXPECT_EQ(japanese.kana + japanese.kanji + japanese.imi, 0);
}

}  // namespace
}  // namespace zavel::engine
