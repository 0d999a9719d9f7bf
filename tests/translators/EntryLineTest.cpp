#include "dicttool/EntryLine.h"

#include <gtest/gtest.h>

namespace zavel::dicttool {
namespace {

// As FreeDict writes entries.
TEST(EntryLine, GivesHeadwordPartOfSpeechAndGlosses) {
  EXPECT_EQ(entryLine({"cat",
                       "cat //kat// //kæt// /[kʰæt]/ /[kʰæt̚]/ <n>\n猫 2.\ndomestic species\n 3.\nmember of "
                       "the family Felidae\n"}),
            "cat (n) 猫; domestic species; member of the family Felidae");
  EXPECT_EQ(entryLine({"cat burglar", "cat burglar //kæt ˈbɜːɡlə// <n>\n怪盗\nburglar\n"}),
            "cat burglar (n) 怪盗; burglar");
  EXPECT_EQ(entryLine({"er", "er //ə// <suffix>\n1. , , \n(used to form nouns) person\n2. \nresident\n"}),
            "er (suffix) 1.; (used to form nouns) person; resident");
}

TEST(EntryLine, JoinsSpellingsAndReadings) {
  EXPECT_EQ(entryLine({"猫背",
                       " [ichi1]  猫背 /(en)tʃˈaɪ niːz/, 猫脊 /(en)tʃ/,  [ichi1] ねこぜ /ne̞kˈo̞ze̞/\n(noun)\n"
                       "bent back, hunchback\n"}),
            "猫背, 猫脊, ねこぜ (noun) bent back, hunchback");
}

// As they are converted from EDICT.
TEST(EntryLine, ShowsAJapaneseEntryAlikeFromBothSides) {
  EXPECT_EQ(entryLine({"東京", "東京 [とうきょう]\n(place) Tokyo\n"}), "東京 [とうきょう] (place) Tokyo");
  EXPECT_EQ(entryLine({"tokyo", "東京 [とうきょう]\n(place) Tokyo\n"}), "東京 [とうきょう] (place) Tokyo");
  EXPECT_EQ(entryLine({"16進法", "１６進法 [じゅうろくしんほう]\n(noun) hexadecimal\n"}),
            "１６進法 [じゅうろくしんほう] (noun) hexadecimal");
}

TEST(EntryLine, PutsAWordInFrontThatTheEntryDoesNotName) {
  EXPECT_EQ(entryLine({"foo", "A metasyntactic variable.\n"}), "foo: A metasyntactic variable.");
  EXPECT_EQ(entryLine({"Cat's eye", "cats eye\nA gem.\n"}), "cats eye A gem.");
}

TEST(EntryLine, LeavesAnEntryOfOneLineAsItIs) {
  EXPECT_EQ(entryLine({"猫", "猫 [ねこ] /(n) cat/feline/\n"}), "猫 [ねこ] /(n) cat/feline/");
}

TEST(EntryLine, KeepsAPronunciationThatDoesNotEnd) {
  EXPECT_EQ(entryLine({"cat", "cat /kæt\n猫\n"}), "cat /kæt 猫");
}

TEST(EntryLine, MakesBlanksOfControlCharacters) {
  EXPECT_EQ(entryLine({"cat", "cat\x01\tn.\r\n\x1B[1m猫\n"}), "cat n. [1m猫");
}

TEST(EntryLine, GivesNothingForAnEntryWithoutText) {
  EXPECT_EQ(entryLine({"cat", ""}), "");
  EXPECT_EQ(entryLine({"cat", " \n\t\n"}), "");
}

std::string repeated(const std::string& text, size_t times) {
  std::string out;
  while (times-- > 0) out += text;
  return out;
}

TEST(EntryLine, CutsALongEntryAtTwoHundredCharacters) {
  EXPECT_EQ(entryLine({"猫", repeated("猫", 200)}), repeated("猫", 200));
  EXPECT_EQ(entryLine({"猫", repeated("猫", 201)}), repeated("猫", 199) + "…");
}

TEST(EntryLine, CutsBetweenWordsWhereOneIsNear) {
  // 49 times "cat " are 196 characters, then "c", "ca", "cat" and more.
  EXPECT_EQ(entryLine({"cat", repeated("cat ", 49) + "catcatcat"}), repeated("cat ", 48) + "cat…");
}

}  // namespace
}  // namespace zavel::dicttool
