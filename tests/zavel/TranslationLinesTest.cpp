#include "TranslationLines.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

TEST(LookedUpAs, TellsWhatIsLeftOfAWordWithSigns) {
  EXPECT_EQ(lookedUpAs("C++", "★a\n    C (pn) a letter\n    C++ (pn) a language"), "C");
  EXPECT_EQ(lookedUpAs("R&D", "★a\n    rd (suffix) third"), "RD");
  EXPECT_EQ(lookedUpAs("rock & roll", "★a\n    rock roll"), "rock roll");
  EXPECT_EQ(lookedUpAs("we'll", "★a\n    well (n) a hole"), "well");
  EXPECT_EQ(lookedUpAs("Ｃ＃", "★a\n    C"), "Ｃ");
}

TEST(LookedUpAs, HasNothingToTellOfAWordThatEachEntryHolds) {
  EXPECT_EQ(lookedUpAs("church", "★a\n    chapel"), "");
  EXPECT_EQ(lookedUpAs("C++", ""), "");
  EXPECT_EQ(lookedUpAs("well-known", "★well\n    well-known (adj)\n    有名 Well-Known\n    … and 3 more"),
            "");
  EXPECT_EQ(lookedUpAs("R&D", "★a\n    Ｒ＆Ｄ (n) research"), "");
}

TEST(NamedEntries, LoseHeadingsWithoutAName) {
  EXPECT_EQ(namedEntries("★\n    one\n\n★b\n    two\n\n★"), "    one\n\n★b\n    two");
  EXPECT_EQ(namedEntries("★\n\n★"), "");
  for (const char* kept : {"", "a house", "★a\n    one\n\n★b\n    two"}) EXPECT_EQ(namedEntries(kept), kept);
}

TEST(FirstEntries, AreCountedInEachDictionary) {
  constexpr const char* kAnswer = "★a\n    one\n    two\n    … and 5 more\n\n★b\n    three\n    … and 1 more";
  EXPECT_EQ(firstEntries(kAnswer, "x", 1), "★a\n    one\n\n★b\n    three\n    … and 1 more");
  EXPECT_EQ(firstEntries(kAnswer, "x", 2), kAnswer);
  EXPECT_EQ(firstEntries(kAnswer, "x", 0), kAnswer);
  EXPECT_EQ(firstEntries("", "x", 1), "");
}

// Entries for the base of a word, behind a line that says so.
constexpr const char* kForms =
    "★a\n    jon's: form of jon\n    one\n    two\n    jon's: form of jons\n    three";

TEST(LookedUpAs, HasNothingToAddWhereTheAnswerNamesTheBase) {
  EXPECT_EQ(lookedUpAs("jon's", kForms), "");
  EXPECT_EQ(lookedUpAs("jon's", std::string(kForms) + "\n\n★b\n    jons"), "jons");
}

TEST(FirstEntries, AreWithoutTheLinesThatNameABase) {
  EXPECT_EQ(firstEntries(kForms, "jon's", 1), "★a\n    jon's: form of jon\n    one");
  EXPECT_EQ(firstEntries(kForms, "jon's", 3), kForms);
  EXPECT_EQ(firstEntries(kForms, "jon's", 2), "★a\n    jon's: form of jon\n    one\n    two");
}

}  // namespace
}  // namespace zavel::host
