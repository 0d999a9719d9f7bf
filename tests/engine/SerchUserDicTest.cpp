// Searching user entries: serial entries byte for byte, what is left out, and damage.
#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::entryE;
using test::entryJ;
using test::sjis;
using test::tag;
using namespace std::string_literals;

class SerchUserDicTest : public RamDicTest {
 protected:
  // One search as it comes: bytes of the list, with the count in count_.
  std::string SearchE(const std::string& word, const char* midasi = nullptr) {
    Handle list = nullptr;
    EXPECT_EQ(SerchUserDicE(word.c_str(), midasi, &count_, &list), 1);
    return TakeBytes(list);
  }
  std::string SearchJ(const std::string& kana, const char* midasi = nullptr) {
    Handle list = nullptr;
    EXPECT_EQ(SerchUserDicJ(sjis(kana).c_str(), midasi, &count_, &list), 1);
    return TakeBytes(list);
  }
  // The set with this one entry can't be understood.
  void DamagedE(const std::string& text, Status status = 20) {
    WriteSetE({{"cat", entryE("cat", "名", "猫")}, {"cat", text}});
    Handle list = nullptr;
    EXPECT_EQ(SerchUserDicE("cat", nullptr, &count_, &list), status) << text;
    EXPECT_EQ(count_, 0);
    EXPECT_EQ(list, nullptr);
  }
  void DamagedJ(const std::string& text, Status status = 20) {
    WriteSetJ({{"ねこ", text}}, {});
    Handle list = nullptr;
    EXPECT_EQ(SerchUserDicJ(sjis("ねこ").c_str(), nullptr, &count_, &list), status) << text;
    EXPECT_EQ(count_, 0);
    EXPECT_EQ(list, nullptr);
  }

  uint16_t count_ = 99;
};

// Rows of "cat": first letter 2; pair 2 * 27 + 1; third-level row 2 * 703 + 1 + 20 = 1427.
const std::string kCatPlace = Le32(0) + Le16(0) + Le16(2) + Le16(55) + Le16(1427);

TEST_F(SerchUserDicTest, AMeaningEntry) {
  ASSERT_EQ(
      Add(EntryE{.word = "Cat", .imi = "猫", .hinsi = 7, .youreis = {{"a cat", "ネコ"}, {"b", "いぬ"}}}), 1);
  // Offsets: 3 + 46 = 49; 49 + 3 = 52; 52 + 1 = 53; strings behind the table of 16 bytes at 69, 75, 80, 82.
  const std::string expected = "Cat\0"s + "\x01" + Le16(7) + Le32(49) + Le32(52) + Le16(2) + Le32(53) +
                               kCatPlace + Le32(128) + Le16(13) + Le16(1) + Le16(0) + Le16(0) + Le32(128) +
                               "\x94\x4C\0"s + "\0"s + Le32(69) + Le32(75) + Le32(80) + Le32(82) +
                               "a cat\0\x83\x6C\x83\x52\0"s + "b\0\x82\xA2\x82\xCA\0"s;
  EXPECT_EQ(expected.size(), 47u + 3 + 2 + 1 + 8 * 2 + (5 + 4 + 2) + (1 + 4 + 2));
  EXPECT_EQ(SearchE("cat"), expected);
  EXPECT_EQ(count_, 1);
}

TEST_F(SerchUserDicTest, APhraseEntry) {
  ASSERT_EQ(
      Add(EntryE{.word = "cat", .imi = "豪雨", .kind = 2, .phrase = "rain cats", .youreis = {{"a", "雨"}}}),
      1);
  // 3 + 46 = 49; 49 + 5 = 54; 54 + 10 = 64; 64 + 8 = 72, 74.
  const std::string expected = "cat\0"s + "\x02" + Le16(0) + Le32(49) + Le32(54) + Le16(1) + Le32(64) +
                               kCatPlace + Le32(128) + Le16(13) + Le16(1) + Le16(0) + Le16(0) + Le32(128) +
                               "\x8D\x8B\x89\x4A\0"s + "rain cats\0"s + Le32(72) + Le32(74) +
                               "a\0\x89\x4A\0"s;
  EXPECT_EQ(expected.size(), 47u + 3 + 4 + 10 + 8 + (1 + 2 + 2));
  EXPECT_EQ(SearchE("cat"), expected);
}

TEST_F(SerchUserDicTest, EntriesWithoutExamplesOneBehindTheOther) {
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = "x"}), 1);
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = "y"}), 1);
  // An entry takes 10 + 8 + 4 bytes in its file, the first block 13.
  const auto one = [](uint16_t row, uint32_t dic, const std::string& imi) {
    return "cat\0"s + "\x01" + Le16(1) + Le32(49) + Le32(51) + Le16(0) + Le32(52) + kCatPlace + Le32(141) +
           Le16(22) + Le16(2) + Le16(row) + Le16(0) + Le32(dic) + imi + "\0\0"s;
  };
  EXPECT_EQ(SearchE("cat"), one(0, 128, "x") + one(1, 150, "y"));
  EXPECT_EQ(count_, 2);
}

// ね is 0xCB, こ 0xB1: rows 44 of table A, 44 * 84 + 18 of table C.
const std::string kNekoPlace = Le32(0) + Le16(0) + Le16(44) + Le16(0xFFFF) + Le16(3714);

TEST_F(SerchUserDicTest, AJapaneseEntryWithoutKanji) {
  ASSERT_EQ(Add(EntryJ{.kana = "ネコ", .imi = "cat"}), 1);
  // The word and two NULs are 6 bytes; 6 + 72 = 78; 78 + 4 = 82.
  const std::string expected = "\x83\x6C\x83\x52\0\0"s + Le32(78) + Le16(0) + Le32(82) + Le16(0) + Le32(82) +
                               kNekoPlace + Le32(128) + Le16(13) + Le16(1) + Le16(0) + Le16(0) + Le32(128) +
                               Le32(0) + Le16(0) + Le16(0xFFFF) + std::string(20, '\0') + "cat\0"s;
  EXPECT_EQ(SearchJ("ねこ"), expected);
  EXPECT_EQ(count_, 1);
}

TEST_F(SerchUserDicTest, AJapaneseEntryWithKanjiPhrasesAndSentences) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ",
                       .kanji = "猫",
                       .imi = "cat",
                       .kureis = {{"e1", "あい"}, {"e22", "う"}},
                       .bunreis = {{"e4", "え"}}}),
            1);
  // Words 5 + 3 = 8; 8 + 72 = 80; 80 + 4 = 84; kurei table and strings 16 + (3 + 5) + (4 + 3) = 31, 84 + 31 =
  // 115.
  const std::string expected =
      "\x82\xCB\x82\xB1\0\x94\x4C\0"s + Le32(80) + Le16(2) + Le32(84) + Le16(1) + Le32(115) + kNekoPlace +
      Le32(128) + Le16(13) + Le16(1) + Le16(0) + Le16(0) + Le32(128) +
      // the kanji row: the first one, pos2 unused
      Le32(0) + Le16(0) + Le16(0) + Le16(0xFFFF) + Le16(0) + Le32(128) + Le16(13) + Le16(1) + Le16(0) +
      Le16(0) + Le32(128) + "cat\0"s + Le32(100) + Le32(103) + Le32(108) + Le32(112) +
      "e1\0\x82\xA0\x82\xA2\0"s + "e22\0\x82\xA4\0"s + Le32(123) + Le32(126) + "e4\0\x82\xA6\0"s;
  EXPECT_EQ(SearchJ("ねこ"), expected);
}

TEST_F(SerchUserDicTest, NothingFoundIs1WithoutAList) {
  ASSERT_EQ(Add(EntryE{.word = "cats"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこか", .kanji = "猫科"}), 1);
  for (const char* word : {"dog", "cat", "catsx", "c", "-"}) {
    EXPECT_EQ(SearchE(word), "") << word;
    EXPECT_EQ(count_, 0);
  }
  for (const char* kana : {"いぬ", "ねこ", "ねこかな", "ね", "ー"}) {
    EXPECT_EQ(SearchJ(kana), "") << kana;
    EXPECT_EQ(count_, 0);
  }
}

TEST_F(SerchUserDicTest, OnlyTheEntriesWithTheLineAskedFor) {
  for (const char* word : {"cat", "Cat", "cat"}) ASSERT_EQ(Add(EntryE{.word = word, .imi = "猫"}), 1);
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = "犬"}), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(SerchMidasiE("cat", 0, &size, &list, 2), 1);
  const auto lines = test::takeLines(list, size);
  ASSERT_EQ(lines.size(), 3u) << "two entries share a line";
  size_t all = 0;
  for (std::string line : lines) {
    line.resize(line.find('\0') == std::string::npos ? line.size() : line.find('\0'));
    const std::string found = SearchE("cat", line.c_str());
    const auto entries = ParseE(found, count_);
    all += entries.size();
    for (const FoundE& entry : entries) {
      EXPECT_TRUE(line.starts_with(entry.entry.word)) << line;
      const char* const row[] = {"cat", "Cat", "cat", "cat"};
      EXPECT_EQ(entry.entry.word, row[entry.sikibetu.ix3Index])
          << "the row among all, not among those listed";
    }
  }
  EXPECT_EQ(all, 4u);
  EXPECT_EQ(SearchE("cat", "cat"), "") << "a line is compared whole, gloss included";
  EXPECT_EQ(count_, 0);
}

TEST_F(SerchUserDicTest, JapaneseLinesAreComparedTheSameWay) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ネコ"}), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  std::string kana = sjis("ねこ");
  ASSERT_EQ(SerchMidasiJ(kana.data(), &size, &list, 2), 1);
  const auto lines = test::takeLines(list, size);
  ASSERT_EQ(lines.size(), 2u);
  for (const std::string& line : lines) {
    SearchJ("ねこ", line.c_str());
    EXPECT_EQ(count_, 1) << line;
  }
}

TEST_F(SerchUserDicTest, WrongArgumentsAre18AndTheResultIsCleared) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  Handle list = reinterpret_cast<Handle>(&count_);
  for (const char* word : {static_cast<const char*>(nullptr), "", "cat1", "\x82\xA0"}) {
    count_ = 99;
    EXPECT_EQ(SerchUserDicE(word, nullptr, &count_, &list), 18);
    EXPECT_EQ(count_, 0);
    EXPECT_EQ(list, nullptr);
  }
  for (const char* word : {static_cast<const char*>(nullptr), "", "neko", "\x94\x4C", "\x82"}) {
    count_ = 99;
    EXPECT_EQ(SerchUserDicJ(word, nullptr, &count_, &list), 18);
    EXPECT_EQ(count_, 0);
    EXPECT_EQ(list, nullptr);
  }
  EXPECT_EQ(SerchUserDicE("cat", nullptr, nullptr, &list), 18);
  EXPECT_EQ(SerchUserDicE("cat", nullptr, &count_, nullptr), 18);
  EXPECT_EQ(SerchUserDicJ("\x82\xA0", nullptr, nullptr, &list), 18);
  EXPECT_EQ(SerchUserDicJ("\x82\xA0", nullptr, &count_, nullptr), 18);
}

// One bad entry fails the search as a whole.
TEST_F(SerchUserDicTest, AnEnglishEntryThatCannotBeUnderstoodIs20) {
  const std::string head =
      "\xF5\xD1\xF5\xB1"
      "cat\xF5\xC1\n";
  const std::string imi = "\xF5\xD4x\n";
  DamagedE(head);                                 // no meaning
  DamagedE("cat\n" + imi);                        // no headword
  DamagedE(head + "\xF5\xD3[\x96\xBC]\n" + imi);  // a part of speech without "-"
  DamagedE(head + "\xF5\xD3\n" + imi);
  DamagedE(head + imi +
           "\xF5\xD5"
           "a\n");                        // an example of one side
  DamagedE(head + imi + "\xF5\xD8 b\n");  // the other side alone
  DamagedE(head + imi +
           "\xF5\xD5"
           "a\xF5\xD8 b\xF5\xD8 c\n");  // a third side
  DamagedE(head + imi +
           "\xF5\xD5"
           "a\n\xF5\xD5"
           "b\xF5\xD8 c\n");
  DamagedE(head + imi +
           "\xF5\xE5"
           "a\n");
}

TEST_F(SerchUserDicTest, AJapaneseEntryThatCannotBeUnderstoodIs20) {
  const std::string head = "\xF5\xD1" + sjis("ねこ") + "\n";
  const std::string imi = "\xF5\xD4x\n";
  const std::string kurei = "\xF5\xD5\x81\xF7\x82\xA0\xF5\xD8 e\n";
  DamagedJ(head);
  DamagedJ("x\n" + imi);
  DamagedJ("\xF5\xD1\n" + imi);
  DamagedJ(head + imi + "\xF5\xD5\x82\xA0\xF5\xD8 e\n");                    // no mark
  DamagedJ(head + imi + "\xF5\xD6\x81\xF7\x82\xA0\xF5\xD8 e\n");            // the mark of the other list
  DamagedJ(head + imi + "\xF5\xD6[\x95\xB6\x97\xE1]\x82\xA0\xF5\xD8 e\n");  // without its end
  DamagedJ(head + imi + "\xF5\xD5\x81\xF7\x82\xA0\n");
  DamagedJ(head + imi + "\xF5\xD8 e\n");
  DamagedJ(head + imi + kurei + "\xF5\xD8 e\n");
  DamagedJ(head + imi + "\xF5\xD5\x81\xF7\x82\xA0\n" + kurei);
  DamagedJ(head + imi + "\xF5\xD6/\x82\xA0\n\xF5\xD6/\x82\xA2\xF5\xD8 e\n");
}

// Entries that this library didn't write: other tags and a part of speech of their own are passed over.
TEST_F(SerchUserDicTest, WhatAnEntryHoldsBesideItsFieldsIsPassedOver) {
  const std::string text =
      "\xF5\xD1\xF5\xB1"
      "cat\xF5\xC1\n"
      "\xF5\xD3-[\x8B\xB4]\n"
      "\xF5\xD4x\xF5\xB1y\xF5\xC1z\n"
      "\xF5\xD7note\n"
      "\xF5\xD5"
      "a\xF5\xD8  b\n"
      "junk";
  WriteSetE({{"cat", text}});
  const auto found = FindE("cat");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].entry, (EntryE{.word = "cat", .imi = "xyz", .hinsi = 0, .youreis = {{"a", " b"}}}));
}

TEST_F(SerchUserDicTest, EachPartOfSpeechIsReadBackWholeOrNotAtAll) {
  const std::pair<const char*, uint16_t> texts[] = {
      {"[名]", 1}, {"[代]", 2}, {"[形]", 3}, {"[副]", 4}, {"[動]", 5},     {"[動][他]", 6}, {"[動][自]", 7},
      {"[前]", 8}, {"[接]", 9}, {"[間]", 0}, {"", 0},     {"[動][間]", 5}, {"名", 0}};
  for (const auto& [text, hinsi] : texts) {
    WriteSetE({{"cat",
                "\xF5\xD1"
                "cat\n\xF5\xD3-" +
                    sjis(text) + "\n\xF5\xD4x\n"}});
    EXPECT_EQ(FindE("cat")[0].entry.hinsi, hinsi) << text;
  }
}

// A second byte that looks like the first of a tag is none: 員 is 88 F5, and E3 to E9 begin further kanji.
TEST_F(SerchUserDicTest, KanjiThatLookLikeTagsAreText) {
  const EntryE english{.word = "cat", .imi = "員縺員繝員纏 会員隊", .youreis = {{"a", "員繩"}}};
  const EntryJ japanese{
      .kana = "いん", .kanji = "員縺", .kureis = {{"a", "員隊"}}, .bunreis = {{"b", "会員縺"}}};
  ASSERT_EQ(Add(english), 1);
  ASSERT_EQ(Add(japanese), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  EXPECT_EQ(FindE("cat")[0].entry, english);
  EXPECT_EQ(FindJ("いん")[0].entry, japanese);
  EXPECT_EQ(FindJ("いん")[0].kanji.pos1, 0);
}

// An entry with kanji whose row is not there: an identification that says so.
TEST_F(SerchUserDicTest, AMissingKanjiRowIsTold) {
  const std::string text = entryJ("ねこ", "猫", "cat");
  WriteSetJ({{"ねこ", text}}, {});
  EXPECT_EQ(FindJ("ねこ")[0].kanji.pos1, 0xFFFF);
  WriteSetJ({{"ねこ", text}}, {{"猫", entryJ("いぬ", "猫", "another")}});
  EXPECT_EQ(FindJ("ねこ")[0].kanji.pos1, 0xFFFF) << "the row is another entry's";
}

TEST_F(SerchUserDicTest, ARowThatLeadsNowhereIs20And21) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  const std::string dic = File("ej.dic"), ix3 = File("ej.ix3");
  SetFile("ej.dic", dic.substr(0, 128));
  ASSERT_EQ(OpenBoth(), 1);
  Status status = 1;
  FindE("cat", &status);
  EXPECT_EQ(status, 20) << "no entry there";
  SetFile("ej.ix3", ix3.substr(0, 140));
  FindE("cat", &status);
  EXPECT_EQ(status, 21) << "half a block";
}

}  // namespace
}  // namespace zavel::engine
