#include "foundation/IniFile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::foundation {
namespace {

using test::FaultyStorage;
using test::TempFolder;

class IniFileTest : public testing::Test {
 protected:
  void write(std::string_view text) { folder.write("EXINFO.INI", text); }
  std::string text() { return folder.read("EXINFO.INI"); }

  // The value, or the result as "error N".
  std::string get(const char* section, const char* key, const char* otherwise = nullptr, size_t room = 256) {
    std::string buffer(256, 'x');
    const int error = ECGetString(section, key, otherwise, buffer.data(), room, path().c_str());
    if (error != 0) return "error " + std::to_string(error);
    return buffer.c_str();
  }

  // What is printed is taken away, and kept.
  int set(const char* section, const char* key, const char* value) {
    testing::internal::CaptureStdout();
    const int result = ECSetString(section, key, value, path().c_str());
    printed = testing::internal::GetCapturedStdout();
    return result;
  }

  std::string path() { return folder.file("EXINFO.INI"); }

  TempFolder folder;
  std::string printed;
};

TEST_F(IniFileTest, GivesAValueOfASection) {
  write("[GENERAL]\nSRCINFO=Somebody\nSRCVER=3\n");
  EXPECT_EQ(get("GENERAL", "SRCINFO"), "Somebody");
  EXPECT_EQ(get("GENERAL", "SRCVER"), "3");
}

TEST_F(IniFileTest, FindsAKeyAheadOfAnySectionOnlyWithoutASection) {
  write("KEY=first\n[GENERAL]\nOTHER=second\n");
  EXPECT_EQ(get("", "KEY"), "first");
  EXPECT_EQ(get(nullptr, "KEY"), "first");
  EXPECT_EQ(get("GENERAL", "KEY"), "error 1");
  EXPECT_EQ(get("", "OTHER"), "error 1");
}

TEST_F(IniFileTest, SeesTheFirstOfTwoSectionsOfOneName) {
  write("[GENERAL]\nONE=1\n[OTHER]\nX=2\n[GENERAL]\nTWO=3\n");
  EXPECT_EQ(get("GENERAL", "ONE"), "1");
  EXPECT_EQ(get("GENERAL", "TWO"), "error 1");
}

TEST_F(IniFileTest, TrimsBlanksAroundTheEqualsSign) {
  write("[GENERAL]\r\n \tSRCINFO \t = \t Some body \t \r\n");
  EXPECT_EQ(get("GENERAL", "SRCINFO"), "Some body");
}

TEST_F(IniFileTest, KeepsFurtherEqualsSignsInTheValue) {
  write("[A]\nK=a=b\n");
  EXPECT_EQ(get("A", "K"), "a=b");
}

// The two bytes of a blank in EUC-JP are two full stops in Shift_JIS.
TEST_F(IniFileTest, TrimsFullWidthBlanksOfEuc) {
  write("[A]\nK=\xA1\xA1value\xA1\xA1\n");
  EXPECT_EQ(get("A", "K"), "value");
}

TEST_F(IniFileTest, TakesNoCommentForAKey) {
  write("[A]\n#K=1\n # K=2\n\n   \nK=3\n");
  EXPECT_EQ(get("A", "K"), "3");
  EXPECT_EQ(get("A", "#K"), "error 1");
}

TEST_F(IniFileTest, ComparesNamesWithoutCase) {
  write("[general]\nSrcInfo=x\n");
  EXPECT_EQ(get("GENERAL", "SRCINFO"), "x");
  EXPECT_EQ(get("General", "srcinfo"), "x");
}

TEST_F(IniFileTest, TakesTheFirstOfTwoKeys) {
  write("[A]\nK=1\nK=2\n");
  EXPECT_EQ(get("A", "K"), "1");
}

TEST_F(IniFileTest, PassesOverLinesWithoutEqualsSign) {
  write("[A]\nK\nK=1\n");
  EXPECT_EQ(get("A", "K"), "1");
}

TEST_F(IniFileTest, UsesALastLineWithoutLineEnd) {
  write("[A]\nK=last");
  EXPECT_EQ(get("A", "K"), "last");
}

TEST_F(IniFileTest, FallsBackToTheDefault) {
  write("[A]\nK=1\n[B]\n");
  EXPECT_EQ(get("A", "NONE", "otherwise"), "otherwise");
  EXPECT_EQ(get("NONE", "K", "otherwise"), "otherwise");
  EXPECT_EQ(get("A", "K", "otherwise"), "1");
  EXPECT_EQ(get("A", "NONE"), "error 1");
}

TEST_F(IniFileTest, CutsWhatIsTooLongForTheBuffer) {
  write("[A]\nK=abcdefgh\n");
  EXPECT_EQ(get("A", "K", nullptr, 4), "abc");
  EXPECT_EQ(get("A", "K", nullptr, 9), "abcdefgh");
  EXPECT_EQ(get("A", "K", nullptr, 1), "");
  EXPECT_EQ(get("A", "NONE", "otherwise", 4), "oth");
}

TEST_F(IniFileTest, EmptiesTheBufferAtTheNextSectionAndLeavesItAtTheEnd) {
  write("[A]\nX=1\n[B]\nY=2\n");
  char buffer[8] = "before";
  EXPECT_EQ(ECGetString("A", "K", nullptr, buffer, sizeof buffer, path().c_str()), 1);
  EXPECT_STREQ(buffer, "");
  std::strcpy(buffer, "before");
  EXPECT_EQ(ECGetString("B", "K", nullptr, buffer, sizeof buffer, path().c_str()), 1);
  EXPECT_STREQ(buffer, "before");
}

TEST_F(IniFileTest, RefusesBadArguments) {
  write("[A]\nK=1\n");
  char buffer[8];
  const std::string file = path();
  EXPECT_EQ(ECGetString("A", "K", nullptr, nullptr, 8, file.c_str()), 22);
  EXPECT_EQ(ECGetString("A", "K", nullptr, buffer, 0, file.c_str()), 22);
  EXPECT_EQ(ECGetString("A", nullptr, nullptr, buffer, 8, file.c_str()), 22);
  EXPECT_EQ(ECGetString("A", "", nullptr, buffer, 8, file.c_str()), 22);
  EXPECT_EQ(ECGetString("A", "K", nullptr, buffer, 8, nullptr), 22);
  EXPECT_EQ(ECGetString("A", "K", nullptr, buffer, 8, ""), 22);
  EXPECT_EQ(set("A", nullptr, "x"), 22);
  EXPECT_EQ(set("A", "", "x"), 22);
  EXPECT_EQ(set("A", "K", nullptr), 22);
  EXPECT_EQ(ECSetString("A", "K", "x", ""), 22);
  char* names = nullptr;
  EXPECT_EQ(ECEnumSections(nullptr, &names), 22);
  EXPECT_EQ(ECEnumSections(file.c_str(), nullptr), 22);
}

TEST_F(IniFileTest, GivesTheSystemsErrorForAFileThatCantBeOpened) {
  EXPECT_EQ(get("A", "K"), "error " + std::to_string(ENOENT));
  EXPECT_EQ(get("A", "K", "otherwise"), "error " + std::to_string(ENOENT));
  char* names = nullptr;
  EXPECT_EQ(ECEnumSections(path().c_str(), &names), ENOENT);
  EXPECT_EQ(names, nullptr);
}

// 509 bytes of value and "K=" make 511: with one more, the rest is a line of its own.
TEST_F(IniFileTest, ReadsLinesInPiecesOf511Bytes) {
  const std::string longest(509, 'v');
  char buffer[600];
  write("[A]\nK=" + longest + "L=2\nM=3\n");
  ASSERT_EQ(ECGetString("A", "K", nullptr, buffer, sizeof buffer, path().c_str()), 0);
  EXPECT_EQ(buffer, longest);
  EXPECT_EQ(get("A", "L"), "2");
  EXPECT_EQ(get("A", "M"), "3");
}

TEST_F(IniFileTest, EndsALineAtANul) {
  write(std::string_view("[A]\nK=a\0b\nL=2\n", 14));
  EXPECT_EQ(get("A", "K"), "a");
  EXPECT_EQ(get("A", "L"), "2");
}

TEST_F(IniFileTest, RefusesAFileBeyondTheLimit) {
  write(std::string(kLargestIniFile + 1, '\n'));
  EXPECT_EQ(get("A", "K"), "error " + std::to_string(EFBIG));
  write("[A]\nK=1" + std::string(kLargestIniFile - 7, '\n'));
  EXPECT_EQ(get("A", "K"), "1");
}

TEST_F(IniFileTest, ReadLineLeavesItsBufferAtTheEnd) {
  IniText file;
  file.content = "\n# comment\n  one  \ntwo";
  char buffer[4] = "";
  EXPECT_EQ(ReadLine(buffer, sizeof buffer, &file), 0);
  EXPECT_STREQ(buffer, "one");
  EXPECT_FALSE(file.ended);
  EXPECT_EQ(file.lineStart, 11u);
  EXPECT_EQ(ReadLine(buffer, sizeof buffer, &file), 0);
  EXPECT_STREQ(buffer, "two");
  EXPECT_EQ(ReadLine(buffer, sizeof buffer, &file), 0);
  EXPECT_STREQ(buffer, "two");
  EXPECT_TRUE(file.ended);
}

TEST_F(IniFileTest, ReadLineCutsToItsBuffer) {
  IniText file;
  file.content = "longer\n";
  char buffer[4];
  EXPECT_EQ(ReadLine(buffer, sizeof buffer, &file), 0);
  EXPECT_STREQ(buffer, "lon");
}

TEST_F(IniFileTest, GivesNumbers) {
  write("[A]\nYES=42\nNEGATIVE=-7 of them\nWORD=none\n");
  const std::string file = path();
  EXPECT_EQ(ECGetLong("A", "YES", 5, file.c_str()), 42);
  EXPECT_EQ(ECGetLong("A", "NEGATIVE", 5, file.c_str()), -7);
  EXPECT_EQ(ECGetLong("A", "WORD", 5, file.c_str()), 0);
  EXPECT_EQ(ECGetLong("A", "MISSING", -5, file.c_str()), -5);
  EXPECT_EQ(ECGetLong("A", "YES", 5, (file + "x").c_str()), 5);
  EXPECT_EQ(ECGetLong("A", nullptr, 5, file.c_str()), 5);
}

TEST_F(IniFileTest, MakesAMissingFile) {
  EXPECT_EQ(set("GENERAL", "SRCVER", "2"), 0);
  EXPECT_EQ(text(), "[GENERAL]\nSRCVER=2\n");
  EXPECT_EQ(printed, "CURPOS:0\n");
}

TEST_F(IniFileTest, PutsALineIntoAMissingFileWithoutSection) {
  EXPECT_EQ(set("", "K", "1"), 0);
  EXPECT_EQ(text(), "K=1\n");
}

TEST_F(IniFileTest, ReplacesAKeysLine) {
  write("[A]\n# of K\n\n  k = old\nL=2\n[B]\nK=3\n");
  EXPECT_EQ(set("A", "K", "new"), 0);
  EXPECT_EQ(text(), "[A]\n# of K\n\nK=new\nL=2\n[B]\nK=3\n");
  EXPECT_EQ(printed, "CURPOS:34\n");
}

TEST_F(IniFileTest, AddsALineAheadOfTheNextSection) {
  write("[A]\nL=2\n\n# of B\n[B]\nK=3\n");
  EXPECT_EQ(set("A", "K", "1"), 0);
  EXPECT_EQ(text(), "[A]\nL=2\n\n# of B\nK=1\n[B]\nK=3\n");
}

TEST_F(IniFileTest, AddsALineBehindTheLastSection) {
  write("[A]\nL=2\n");
  EXPECT_EQ(set("A", "K", "1"), 0);
  EXPECT_EQ(text(), "[A]\nL=2\nK=1\n");
}

TEST_F(IniFileTest, AddsASectionAtTheEnd) {
  write("[A]\nL=2\n");
  EXPECT_EQ(set("B", "K", "1"), 0);
  EXPECT_EQ(text(), "[A]\nL=2\n[B]\nK=1\n");
}

TEST_F(IniFileTest, AddsALineAheadOfAllSectionsWithoutASection) {
  write("L=2\n[A]\nK=3\n");
  EXPECT_EQ(set(nullptr, "K", "1"), 0);
  EXPECT_EQ(text(), "L=2\nK=1\n[A]\nK=3\n");
}

TEST_F(IniFileTest, JoinsALastLineWithoutLineEnd) {
  write("[A]\nL=2");
  EXPECT_EQ(set("A", "K", "1"), 0);
  EXPECT_EQ(text(), "[A]\nL=2K=1\n");
}

TEST_F(IniFileTest, ReadsBackWhatItWrote) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(ECSetLong("A", "NUMBER", -12, path().c_str()), 0);
  EXPECT_EQ(ECSetString("A", "TEXT", "some text", path().c_str()), 0);
  EXPECT_EQ(ECSetLong("A", "NUMBER", 13, path().c_str()), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "CURPOS:0\nCURPOS:15\nCURPOS:30\n");
  EXPECT_EQ(ECGetLong("A", "NUMBER", 0, path().c_str()), 13);
  EXPECT_EQ(get("A", "TEXT"), "some text");
}

// Whatever fails, the file is the old one or the new one; only a failed reading is told.
TEST_F(IniFileTest, LosesNothingWhenTheDiskFails) {
  const std::string before = "[A]\nK=old\n[B]\n";
  const std::string after = "[A]\nK=new\n[B]\n";
  for (long n = 1;; ++n) {
    write(before);
    FaultyStorage disk;
    disk.failAt(n, FaultyStorage::kOnce);
    const int result = set("A", "K", "new");
    if (disk.faults() == 0) {
      EXPECT_EQ(text(), after);
      EXPECT_GT(n, 6);
      break;
    }
    EXPECT_TRUE(text() == before || text() == after) << n;
    EXPECT_TRUE(result != 0 || n > 3) << n;
    EXPECT_EQ(folder.names(), std::vector<std::string>{"EXINFO.INI"}) << n;
  }
}

TEST_F(IniFileTest, TellsOfAFailedReading) {
  write("[A]\nK=old\n");
  FaultyStorage disk;
  disk.failAt(2, FaultyStorage::kOnce);  // its size
  EXPECT_NE(set("A", "K", "new"), 0);
  EXPECT_EQ(printed.substr(0, 16), "SEEK_END failed ");
  disk.failAt(3, FaultyStorage::kOnce);  // its content
  EXPECT_NE(set("A", "K", "new"), 0);
  EXPECT_EQ(printed.substr(0, 22), "CURPOS:10\nREAD failed ");
}

TEST_F(IniFileTest, TellsWhenAFileCantBeMade) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(ECSetString("A", "K", "1", folder.file("none/EXINFO.INI").c_str()), ENOENT);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "CURPOS:0\n");
}

TEST_F(IniFileTest, ListsSections) {
  write("K=1\n[A]\nL=2\n[]\n [Bee] rest\n[open\n#[C]\n[A]\n");
  char* names = nullptr;
  ASSERT_EQ(ECEnumSections(path().c_str(), &names), 0);
  ASSERT_NE(names, nullptr);
  EXPECT_EQ(std::string(names, 9), std::string("A\0Bee\0A\0\0", 9));
  std::free(names);
}

TEST_F(IniFileTest, ListsNothingWithoutSections) {
  write("K=1\n");
  char* names = nullptr;
  EXPECT_EQ(ECEnumSections(path().c_str(), &names), 0);
  EXPECT_EQ(names, nullptr);
}

}  // namespace
}  // namespace zavel::foundation
