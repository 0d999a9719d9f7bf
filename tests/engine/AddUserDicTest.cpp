// Adding and overwriting, through the exported functions.
#include <gtest/gtest.h>

#include "engine/IdxInfo.h"
#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using namespace std::string_literals;

class AddUserDicTest : public UserDicTest {};

EntryE Word(const std::string& word, const std::string& imi = "意味") {
  return {.word = word, .imi = imi};
}

TEST_F(AddUserDicTest, AnEnglishEntryComesBackAsItWasGiven) {
  const EntryE entry{
      .word = "Zebra crossing", .imi = "横断歩道 (UK)", .hinsi = 6, .youreis = {{"a b", "ア、イ"}}};
  ASSERT_EQ(Add(entry), 1);
  for (const bool reopened : {false, true}) {
    if (reopened) Reopen();
    const auto found = FindE("zebracrossing");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].entry == entry);
  }
}

TEST_F(AddUserDicTest, AJapaneseEntryComesBackAsItWasGiven) {
  const EntryJ entry{.kana = "くだもの",
                     .kanji = "果物",
                     .imi = "fruit",
                     .kureis = {{"fruit juice", "果物のジュース"}, {"x", "か"}},
                     .bunreis = {{"I eat fruit.", "果物を食べる。"}, {"y", "く"}}};
  ASSERT_EQ(Add(entry), 1);
  for (const bool reopened : {false, true}) {
    if (reopened) Reopen();
    const auto found = FindJ("クダモノ");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].entry == entry);
    EXPECT_EQ(found[0].kanji.pos1, 0);
    EXPECT_EQ(found[0].kanji.dicOffset, found[0].kana.dicOffset);
  }
}

TEST_F(AddUserDicTest, OverwritingChangesTheEntryInItsRow) {
  ASSERT_EQ(Add(Word("cat", "猫")), 1);
  ASSERT_EQ(Add(Word("cat", "ネコ")), 1);
  auto found = FindE("cat");
  ASSERT_EQ(found.size(), 2u);
  ASSERT_EQ(Add(Word("Cat", "三毛猫"), &found[0].sikibetu), 1);
  found = FindE("cat");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].entry.word, "Cat");
  EXPECT_EQ(found[0].entry.imi, "三毛猫");
  EXPECT_EQ(found[1].entry.imi, "ネコ");
}

TEST_F(AddUserDicTest, DeletingAndArranging) {
  for (const char* word : {"cat", "catalog", "dog", "a"}) ASSERT_EQ(Add(Word(word)), 1);
  auto found = FindE("catalog");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(DelUserDicE(&found[0].sikibetu), 18);
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  Reopen();
  EXPECT_EQ(ListE(), (std::vector<std::string>{"a", "cat", "dog"}));
  EXPECT_EQ(Files().size(), 8u);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  auto dog = FindJ("いぬ");
  ASSERT_EQ(DelUserDicJ(&dog[0].kana, &dog[0].kanji), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  Reopen();
  EXPECT_EQ(ListJ(), (std::vector<std::string>{"ねこ"}));
  EXPECT_EQ(Files().size(), 8u);
}

class AddUserDicRamTest : public RamDicTest {
 protected:
  // Refused, with nothing changed in any file.
  void Refused(const add_dic_e& entry, Status status = 18) {
    const auto files = disk_.files();
    EXPECT_EQ(AddUserDicE(&entry), status);
    EXPECT_TRUE(disk_.files() == files);
  }
  void Refused(const add_dic_j& entry, Status status = 18) {
    const auto files = disk_.files();
    EXPECT_EQ(AddUserDicJ(&entry), status);
    EXPECT_TRUE(disk_.files() == files);
  }
};

char* Text(const char* text) {
  return const_cast<char*>(text);
}

add_dic_e GoodE() {
  return {Text("cat"), 1, 1, Text("imi"), nullptr, 0, nullptr, nullptr};
}
add_dic_j GoodJ() {
  static const std::string kana = test::sjis("ねこ");
  return {Text(kana.c_str()), nullptr, Text("cat"), 0, nullptr, 0, nullptr, nullptr, nullptr};
}

// Shift_JIS bytes: あ 82 A0, 猫 94 4C, half-width ｱ B1, a lead byte without trail, an unassigned pair.
constexpr const char* kNeverAWordE[] = {"",      "cat1",     "cat!",  "cat\n",        "cat\t",
                                        "a\xB1", "\x82\xA0", "a\x82", "na\xC3\xAFve", "a?",
                                        "a(b)",  "a:b",      "a&b;"};
constexpr const char* kNever1Byte[] = {"", "a\nb", "a\tb", "\x1F", "\x7F", "\x82\xA0", "a\xB1", "a\x82"};
constexpr const char* kNeverMixed[] = {"",     "a\nb",  "a\tb", "\x1F",    "\x7F",
                                       "\xB1", "a\x82", "\x82", "\x85\x40"};
constexpr const char* kNeverKana[] = {"",     "a",        "neko",     "\x94\x4C",  "\x82\xCB\x82",
                                      "\xB1", "\x81\x41", "\x82\x60", "\x82\xCB a"};
constexpr const char* kNeverKanji[] = {"",     "a",        "cat",      "\x94\x4C\x82",
                                       "\xB1", "\x81\x41", "\x82\x60", "\x94\x4C a"};

TEST_F(AddUserDicRamTest, EnglishTextsThatAreNotAsToldAre18) {
  add_dic_e entry = GoodE();
  entry.word = nullptr;
  Refused(entry);
  for (const char* text : kNeverAWordE) {
    entry = GoodE();
    entry.word = Text(text);
    Refused(entry);
  }
  entry = GoodE();
  entry.imi = nullptr;
  Refused(entry);
  for (const char* text : kNeverMixed) {
    entry = GoodE();
    entry.imi = Text(text);
    Refused(entry);
  }
  entry = GoodE();
  entry.kind = 2;
  Refused(entry);
  for (const char* text : kNever1Byte) {
    entry.phrase = Text(text);
    Refused(entry);
  }
}

TEST_F(AddUserDicRamTest, ExamplesThatAreNotAsToldAre18) {
  std::string good = "x";
  for (int variant = 0; variant < 3; ++variant) {
    add_dic_e english = GoodE();
    add_dic_j japanese = GoodJ();
    const auto refused = [&](yourei** pairs, uint16_t count) {
      if (variant == 0) {
        english.youreis = pairs;
        english.youreiCount = count;
        Refused(english);
      } else {
        japanese.kureis = variant == 1 ? reinterpret_cast<kurei**>(pairs) : nullptr;
        japanese.kureiCount = variant == 1 ? count : 0;
        japanese.bunreis = variant == 2 ? reinterpret_cast<bunrei**>(pairs) : nullptr;
        japanese.bunreiCount = variant == 2 ? count : 0;
        Refused(japanese);
      }
    };
    yourei sound{good.data(), good.data()};
    refused(nullptr, 1);
    yourei* missing[] = {&sound, nullptr};
    refused(missing, 2);
    const auto refusedPair = [&](char* eng, char* jpn) {
      yourei bad{eng, jpn};
      yourei* pairs[] = {&sound, &bad};
      refused(pairs, 2);
    };
    refusedPair(nullptr, good.data());
    refusedPair(good.data(), nullptr);
    for (const char* text : kNever1Byte) refusedPair(Text(text), good.data());
    for (const char* text : kNeverMixed) refusedPair(good.data(), Text(text));
  }
  add_dic_e none = GoodE();
  yourei* dangling[] = {nullptr};
  none.youreis = dangling;
  EXPECT_EQ(AddUserDicE(&none), 1) << "with a count of 0 the array isn't looked at";
}

TEST_F(AddUserDicRamTest, JapaneseTextsThatAreNotAsToldAre18) {
  add_dic_j entry = GoodJ();
  entry.kana = nullptr;
  Refused(entry);
  for (const char* text : kNeverKana) {
    entry = GoodJ();
    entry.kana = Text(text);
    Refused(entry);
  }
  for (const char* text : kNeverKanji) {
    entry = GoodJ();
    entry.kanji = Text(text);
    Refused(entry);
  }
  entry = GoodJ();
  entry.imi = nullptr;
  Refused(entry);
  for (const char* text : kNever1Byte) {
    entry = GoodJ();
    entry.imi = Text(text);
    Refused(entry);
  }
}

TEST_F(AddUserDicRamTest, KindsAndPartsOfSpeechHaveTheirBorders) {
  for (const uint16_t hinsi : {0, 10, 256, 65535}) {
    add_dic_e entry = GoodE();
    entry.hinsi = hinsi;
    Refused(entry);
  }
  for (const uint8_t kind : {0, 3, 255}) {
    add_dic_e entry = GoodE();
    entry.kind = kind;
    entry.phrase = Text("x");
    Refused(entry);
  }
  for (uint16_t hinsi = 1; hinsi <= 9; ++hinsi) EXPECT_EQ(Add(EntryE{.word = "cat", .hinsi = hinsi}), 1);
  EXPECT_EQ(Add(EntryE{.word = "cat", .kind = 2, .hinsi = 0, .phrase = "x"}), 1);
  EXPECT_EQ(Add(EntryE{.word = "cat", .kind = 2, .hinsi = 77, .phrase = "y"}), 1) << "not read for a phrase";
  const auto found = FindE("cat");
  ASSERT_EQ(found.size(), 11u);
  for (uint16_t hinsi = 1; hinsi <= 9; ++hinsi) EXPECT_EQ(found[hinsi - 1u].entry.hinsi, hinsi);
  EXPECT_EQ(found[10].entry.hinsi, 0);
}

TEST_F(AddUserDicRamTest, EveryKindOfCharacterThatAWordMayHold) {
  EXPECT_EQ(Add(Word("a b&c'd,e-f.g/h_i")), 1);
  EXPECT_EQ(FindE("ABANDCDEFGHI").size(), 1u);
  EXPECT_EQ(Add(EntryJ{.kana = "ヴァイオリンー－…ぁ", .kanji = "弾くヴー－…ン"}), 1);
  EXPECT_EQ(FindJ("うぁいおりんぁ").size(), 1u);
}

TEST_F(AddUserDicRamTest, NullIs18) {
  EXPECT_EQ(AddUserDicE(nullptr), 18);
  EXPECT_EQ(AddUserDicJ(nullptr), 18);
}

// No row of an index has room for an empty key.
TEST_F(AddUserDicRamTest, AWordOfMarksAloneIs20) {
  add_dic_e english = GoodE();
  for (const char* word : {"-", " ", "'.,/_-"}) {
    english.word = Text(word);
    Refused(english, 20);
  }
  const std::string mark = test::sjis("ー…");
  add_dic_j japanese = GoodJ();
  japanese.kana = Text(mark.c_str());
  Refused(japanese, 20);
  japanese = GoodJ();
  japanese.kanji = Text(mark.c_str());
  Refused(japanese, 20);
  EXPECT_TRUE(ListJ().empty());
}

TEST_F(AddUserDicRamTest, WordsOfOneKeyStandInTheOrderOfAdding) {
  for (const char* word : {"cat", "Cat", "c-at", "catty", "CAT"}) ASSERT_EQ(Add(Word(word)), 1);
  const auto found = FindE("c.a.t");
  ASSERT_EQ(found.size(), 4u);
  const char* const expected[] = {"cat", "Cat", "c-at", "CAT"};
  for (uint16_t row = 0; row < 4; ++row) {
    EXPECT_EQ(found[row].entry.word, expected[row]);
    EXPECT_EQ(found[row].sikibetu.ix3Index, row);
    EXPECT_EQ(found[row].sikibetu.ix3Count, 5);
  }
}

TEST_F(AddUserDicRamTest, WordsShorterThanTheirPrefixStandByThemselves) {
  for (const char* word : {"a", "ab", "abc", "abcd"}) ASSERT_EQ(Add(Word(word)), 1);
  for (const char* word : {"a", "ab", "abc", "abcd"}) {
    const auto found = FindE(word);
    ASSERT_EQ(found.size(), 1u) << word;
    EXPECT_EQ(found[0].entry.word, word);
  }
  for (const char* kana : {"あ", "あい", "あいう"}) ASSERT_EQ(Add(EntryJ{.kana = kana}), 1);
  for (const char* kana : {"あ", "あい", "あいう"}) EXPECT_EQ(FindJ(kana).size(), 1u) << kana;
}

// A search that lists fifty rows of a short key reaches no further ones; deleting brings them forth.
TEST_F(AddUserDicRamTest, OfAWordShorterThanItsPrefixFiftyAreReached) {
  for (int i = 0; i < 52; ++i) ASSERT_EQ(Add(Word("ab", std::to_string(i))), 1);
  auto found = FindE("ab");
  ASSERT_EQ(found.size(), 50u);
  EXPECT_EQ(found[49].entry.imi, "49");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  found = FindE("ab");
  ASSERT_EQ(found.size(), 50u);
  EXPECT_EQ(found[49].entry.imi, "50");
  for (int i = 0; i < 52; ++i) ASSERT_EQ(Add(Word("abc")), 1);
  EXPECT_EQ(FindE("abc").size(), 52u);
}

TEST_F(AddUserDicRamTest, OverwritingTakesAnotherSpellingOfTheSameKeyAndNoOtherWord) {
  for (const char* word : {"cat", "catty", "dog"}) ASSERT_EQ(Add(Word(word)), 1);
  sikibetu_data cat = FindE("cat")[0].sikibetu;
  for (const char* word : {"dog", "ca", "catty", "cats", "caw"}) EXPECT_EQ(Add(Word(word), &cat), 18) << word;
  EXPECT_EQ(Add(Word("C.A.T.", "新"), &cat), 1);
  EXPECT_EQ(FindE("cat")[0].entry.word, "C.A.T.");
  EXPECT_EQ(FindE("catty").size(), 1u);
}

TEST_F(AddUserDicRamTest, OverwritingJapaneseTakesBothWordsAsTheyWere) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫や"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこや"}), 1);
  auto found = FindJ("ねこや");
  ASSERT_EQ(found.size(), 2u);
  sikibetu_data &kana = found[0].kana, &kanji = found[0].kanji;
  sikibetu_data &plain = found[1].kana, &none = found[1].kanji;
  EXPECT_EQ(none.pos1, 0xFFFF);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや"}, &kana, &kanji), 18) << "it has kanji";
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫や"}, &plain, &none), 18) << "it has none";
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫や"}, &plain, &kanji), 18) << "of two entries";
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや"}, &kana, &none), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫屋"}, &kana, &kanji), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこよ", .kanji = "猫や"}, &kana, &kanji), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫や"}, &kana, nullptr), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫や"}, nullptr, &kanji), 18);
  EXPECT_EQ(Add(EntryJ{.kana = "ネコヤ", .kanji = "猫ヤ", .imi = "new"}, &kana, &kanji), 1);
  found = FindJ("ねこや");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].entry.kanji, "猫ヤ");
  EXPECT_EQ(found[0].entry.imi, "new");
  EXPECT_EQ(Add(EntryJ{.kana = "ねこーや", .imi = "newer"}, &found[1].kana, &found[1].kanji), 1);
  EXPECT_EQ(FindJ("ねこや")[1].entry.imi, "newer");
}

// 7,281 rows of nine bytes and the four ahead of them are all that 65,535 bytes hold.
TEST_F(AddUserDicRamTest, AFullBlockIs2051AndLeavesTheDictionaryAsItWas) {
  const std::string text = test::entryE("cat", "名", "猫");
  WriteSetE(std::vector<std::pair<std::string, std::string>>(7280, {"cat", text}));
  ASSERT_EQ(Add(Word("cat")), 1);
  EXPECT_EQ(Add(Word("cat")), 2051);
  EXPECT_EQ(Add(Word("cats")), 2051);
  auto found = FindE("cat");
  ASSERT_EQ(found.size(), 7281u);
  EXPECT_EQ(found[0].sikibetu.ix3Size, 65533);
  EXPECT_EQ(Add(Word("cat", "新"), &found[7280].sikibetu), 1) << "overwriting needs no room";
  Reopen();
  EXPECT_EQ(FindE("cat")[7280].entry.imi, "新");
}

// The kana row is set back when the kanji block is full.
TEST_F(AddUserDicRamTest, AFullKanjiBlockIs2051AndLeavesNoKanaRowEither) {
  const std::string text = test::entryJ("ねこ", "猫", "cat");
  WriteSetJ({{"ねこ", text}}, RowsJ(7281, {"猫", text}));
  const auto before = FindJ("ねこ");
  ASSERT_EQ(before.size(), 1u);
  for (const char* kana : {"ねこ", "ねこか"})
    EXPECT_EQ(Add(EntryJ{.kana = kana, .kanji = "猫"}), 2051) << kana;
  EXPECT_TRUE(FindJ("ねこか").empty());
  const auto after = FindJ("ねこ");
  ASSERT_EQ(after.size(), 1u);
  EXPECT_EQ(after[0].kana.ix3Offset, before[0].kana.ix3Offset);
  Reopen();
  EXPECT_EQ(ListJ(), std::vector<std::string>{"ねこ"});
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫科"}), 1);
}

// A set whose index lacks a key, as one that was not made by this library.
TEST_F(AddUserDicRamTest, AKeyWithoutARowIs20) {
  WriteSetE({{"cat", test::entryE("cat", "名", "猫")}});
  EXPECT_EQ(Add(Word("dog")), 20);
  EXPECT_EQ(Add(Word("cats")), 1);
}

}  // namespace
}  // namespace zavel::engine
