#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelCommonModule.h"
#include "platform/TextEncoding.h"
#include "support/EnvironmentVariable.h"
#include "support/FaultyStorage.h"
#include "support/RacingStorage.h"

namespace zavel::test {
namespace {

using Module = ZavelCommonModule;

// 日本 in the encodings that are told apart.
constexpr char kSjis[] = "\x93\xFA\x96\x7B";
constexpr char kEuc[] = "\xC6\xFC\xCB\xDC";
constexpr char kUtf8[] = "\xE6\x97\xA5\xE6\x9C\xAC";
const std::string kUtf16("\xFF\xFE\xE5\x65\x2C\x67", 6);

class ReadTextOfFile : public ConfigTest {
 protected:
  // The text of a file with these bytes, with the file tool saying `description`.
  std::optional<std::string> read(std::string_view bytes, const std::string& description) {
    writeText(at("text"), bytes);
    platform.fakeTools.answer = {true, 0, description};
    return Module::readTextOfFile(at("text"));
  }
};

TEST_F(ReadTextOfFile, RunsTheFileToolWithThePathAlone) {
  read("a", "text: ASCII text\n");
  EXPECT_EQ(platform.fakeTools.programs, std::vector<std::string>{"/usr/bin/file"});
  EXPECT_EQ(platform.fakeTools.arguments[0], std::vector<std::string>{at("text")});
}

TEST_F(ReadTextOfFile, TakesTheEncodingFromWhatTheToolSays) {
  EXPECT_EQ(read(kUtf16, "x: Unicode text, UTF-16, little-endian text\n"), "日本");
  EXPECT_EQ(read(kUtf8, "x: Unicode text, UTF-8 text\n"), "日本");
  EXPECT_EQ(read(kEuc, "x: ISO-8859 text\n"), "日本");
  EXPECT_EQ(read(kSjis, "x: Non-ISO extended-ASCII text\n"), "日本");
  EXPECT_EQ(read(kSjis, "x: data\n"), "日本");
  EXPECT_EQ(read(kSjis, ""), "日本");
}

TEST_F(ReadTextOfFile, TheFirstOfTheThreeNamesDecides) {
  EXPECT_EQ(read(kUtf16, "ISO-8859 UTF-8 UTF-16"), "日本");
  EXPECT_EQ(read(kUtf8, "ISO-8859 UTF-8"), "日本");
}

TEST_F(ReadTextOfFile, TheToolRepeatsThePathSoThatAFolderNamedUtf8Decides) {
  EXPECT_EQ(read(kUtf8, "/home/UTF-8/text: Non-ISO extended-ASCII text"), "日本");
  EXPECT_EQ(read(kSjis, "/home/UTF-8/text: Non-ISO extended-ASCII text"), std::nullopt);
}

// あ at the end of the folder's name is 0x82 0xA0 in Shift_JIS, but E3 81 82 in UTF-8: the last of these
// takes the "U" behind it along, and the name of the encoding is gone.
TEST_F(ReadTextOfFile, WhatTheToolSaysIsReadAsShiftJis) {
  EXPECT_EQ(read(kSjis, "/home/あUTF-8/text: Non-ISO extended-ASCII text"), "日本");
  EXPECT_EQ(read(kUtf8, "/home/\x82\xA0UTF-8/text: Non-ISO extended-ASCII text"), "日本");
}

TEST_F(ReadTextOfFile, ReadsWhatTheRealToolSaysAsShiftJis) {
  const EnvironmentVariable locale("LC_ALL", "C.UTF-8");  // in others the tool masks bytes of the path
  platform.realTools = true;
  for (const char* name : {"あUTF-8", "UTF-8"}) makeFolder(at(name));
  writeText(at("あUTF-8/text"), kSjis);
  EXPECT_EQ(Module::readTextOfFile(at("あUTF-8/text")), "日本");
  writeText(at("UTF-8/text"), kSjis);
  EXPECT_EQ(Module::readTextOfFile(at("UTF-8/text")), std::nullopt);
}

TEST_F(ReadTextOfFile, HoldsAtMost64MiB) {
  constexpr uintmax_t kMost = uintmax_t{64} << 20;
  platform.fakeTools.answer = {true, 0, "x: ASCII text"};
  writeText(at("long"), "");
  std::filesystem::resize_file(at("long"), kMost);
  const std::optional<std::string> whole = Module::readTextOfFile(at("long"));
  ASSERT_TRUE(whole);
  EXPECT_EQ(whole->size(), kMost);
  std::filesystem::resize_file(at("long"), kMost + 1);
  EXPECT_EQ(Module::readTextOfFile(at("long")), std::nullopt);
  EXPECT_EQ(Module::judgeTextStringEorJOfFile(at("long")), 3);
}

TEST_F(ReadTextOfFile, ATextThatDoesNotDecodeIsNotRead) {
  EXPECT_EQ(read("\xFF\xFE\xFD", "x: UTF-8 text"), std::nullopt);
}

TEST_F(ReadTextOfFile, ShiftJisServesWhenTheToolDoesNotRun) {
  writeText(at("text"), kSjis);
  platform.fakeTools.answer = {false, -1, ""};
  EXPECT_EQ(Module::readTextOfFile(at("text")), "日本");
}

TEST_F(ReadTextOfFile, AMissingFileOrAFolderIsNotRead) {
  platform.fakeTools.answer = {true, 0, "cannot open"};
  EXPECT_EQ(Module::readTextOfFile(at("nothing")), std::nullopt);
  EXPECT_EQ(Module::readTextOfFile(folder), std::nullopt);
}

TEST_F(ReadTextOfFile, AnEmptyFileIsAnEmptyText) {
  EXPECT_EQ(read("", "x: empty"), "");
}

TEST_F(ReadTextOfFile, APathThatLooksLikeAnOptionIsNoOption) {
  Module::readTextOfFile("-f");
  EXPECT_EQ(platform.fakeTools.arguments[0], std::vector<std::string>{"./-f"});
}

TEST_F(ReadTextOfFile, ReadsWithTheRealToolAlsoWithABlankInThePath) {
  ASSERT_TRUE(std::filesystem::exists("/usr/bin/file")) << "install the package file";
  platform.realTools = true;
  const std::string path = at("two words");
  writeText(path, kUtf8);
  EXPECT_EQ(Module::readTextOfFile(path), "日本");
  writeText(path, kUtf16);
  EXPECT_EQ(Module::readTextOfFile(path), "日本");
  writeText(path, kSjis);
  EXPECT_EQ(Module::readTextOfFile(path), "日本");
  writeText(path, std::string("Euc: ") + kEuc + "\n");
  EXPECT_EQ(Module::readTextOfFile(path), "Euc: 日本\n");
  writeText(path, "plain words\n");
  EXPECT_EQ(Module::readTextOfFile(path), "plain words\n");
}

using JudgeTextOfFile = ReadTextOfFile;

TEST_F(JudgeTextOfFile, JudgesWhatItReads) {
  platform.fakeTools.answer = {true, 0, "x: Unicode text, UTF-8 text"};
  writeText(at("j"), kUtf8);
  writeText(at("e"), "English");
  EXPECT_EQ(Module::judgeTextStringEorJOfFile(at("j")), 2);
  EXPECT_EQ(Module::judgeTextStringEorJOfFile(at("e")), 1);
}

TEST_F(JudgeTextOfFile, AFileThatCannotBeReadGives3) {
  platform.fakeTools.answer = {true, 0, "x: UTF-8"};
  EXPECT_EQ(Module::judgeTextStringEorJOfFile(at("nothing")), 3);
  writeText(at("broken"), "\xFF");
  EXPECT_EQ(Module::judgeTextStringEorJOfFile(at("broken")), 3);
}

// --- Folders ---

using HomeFolders = ConfigTest;

TEST_F(HomeFolders, AreMadeBelowTheHome) {
  EXPECT_EQ(Module::homeFolder(), at("home"));
  EXPECT_EQ(Module::documentTarnwick(), at("home/Documents/Tarnwick/HW_Dictionaries"));
  EXPECT_EQ(Module::preferencesTarnwick(), at("home/Library/Preferences/Tarnwick"));
  EXPECT_EQ(Module::preferencesTarnwickCache(), at("home/Library/Preferences/Tarnwick/Cache"));
  EXPECT_EQ(Module::preferencesTarnwickCash(), at("home/Library/Preferences/Tarnwick/Cash"));
  for (const char* made :
       {"home/Documents/Tarnwick/HW_Dictionaries", "home/Library/Preferences/Tarnwick/Cache",
        "home/Library/Preferences/Tarnwick/Cash"})
    EXPECT_TRUE(isFolder(at(made))) << made;
}

TEST_F(HomeFolders, FallBackOnTheHomeWhenTheyCannotBeMade) {
  writeText(at("home/Documents"), "");
  writeText(at("home/Library"), "");
  EXPECT_EQ(Module::documentTarnwick(), at("home"));
  EXPECT_EQ(Module::preferencesTarnwick(), at("home"));
  EXPECT_EQ(Module::preferencesTarnwickCache(), at("home"));
  EXPECT_EQ(Module::preferencesTarnwickCash(), at("home"));
}

TEST_F(HomeFolders, ThePreferencesFolderIsNotMade) {
  EXPECT_EQ(Module::preferencesFolder(), at("home"));
  EXPECT_FALSE(exists(at("home/Library")));
  makeFolder(at("home/Library/Preferences"));
  EXPECT_EQ(Module::preferencesFolder(), at("home/Library/Preferences"));
}

TEST_F(HomeFolders, WithoutAHomeNothingIsMadeElsewhere) {
  platform.fakeFolders.homePath = "";
  EXPECT_EQ(Module::homeFolder(), "");
  EXPECT_EQ(Module::documentTarnwick(), "");
  EXPECT_EQ(Module::preferencesFolder(), "");
  EXPECT_FALSE(exists("/Documents/Tarnwick"));
}

using CreateDirectories = ConfigTest;

TEST_F(CreateDirectories, MakesEachComponentInTurn) {
  EXPECT_TRUE(Module::createDirectoriesAtPath(at("one/two words/三")));
  EXPECT_TRUE(isFolder(at("one/two words/三")));
  EXPECT_TRUE(Module::createDirectoriesAtPath(at("one/two words/三")));
}

TEST_F(CreateDirectories, AnEmptyPathAndTheRootAreTrue) {
  EXPECT_TRUE(Module::createDirectoriesAtPath(""));
  EXPECT_TRUE(Module::createDirectoriesAtPath("/"));
}

TEST_F(CreateDirectories, PassesOverDoubledAndFinalDelimiters) {
  EXPECT_TRUE(Module::createDirectoriesAtPath(at("one//two/")));
  EXPECT_TRUE(isFolder(at("one/two")));
}

TEST_F(CreateDirectories, TakesARelativePath) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  EXPECT_TRUE(Module::createDirectoriesAtPath("a/b"));
  std::filesystem::current_path(before);
  EXPECT_TRUE(isFolder(at("a/b")));
}

TEST_F(CreateDirectories, StopsAtTheFirstFailure) {
  writeText(at("file"), "");
  EXPECT_FALSE(Module::createDirectoriesAtPath(at("file/below/deeper")));
  EXPECT_FALSE(Module::createDirectoriesAtPath(at("new/") + std::string(300, 'x') + "/deeper"));
  EXPECT_TRUE(isFolder(at("new")));
}

TEST_F(CreateDirectories, WhatIsThereAlreadyCounts) {
  writeText(at("file"), "");
  EXPECT_TRUE(Module::createDirectoriesAtPath(at("file")));
}

TEST_F(CreateDirectories, GoesOnWhereAnotherProcessMakesThemFirst) {
  const RacingStorage disk(RacingStorage::kMakesTheFolder);
  EXPECT_TRUE(Module::createDirectoriesAtPath(at("one/two")));
  EXPECT_TRUE(isFolder(at("one/two")));
}

TEST_F(CreateDirectories, StopsWhereAnotherProcessMakesAFileFirst) {
  const RacingStorage disk(RacingStorage::kMakesAFile, "two");
  EXPECT_FALSE(Module::createDirectoriesAtPath(at("one/two/three")));
  EXPECT_FALSE(Module::createDirectoriesAtPath(at("four/two")));
  EXPECT_TRUE(isFolder(at("four")));
}

using RemoveFiles = ConfigTest;

TEST_F(RemoveFiles, RemovesPlainFilesAndNotSubfolders) {
  makeFolder(at("work/sub"));
  writeText(at("work/a"), "");
  writeText(at("work/.hidden"), "");
  writeText(at("work/two 語"), "");
  writeText(at("work/sub/inner"), "");
  EXPECT_TRUE(Module::removeFileInDirectory(at("work")));
  EXPECT_FALSE(exists(at("work/a")));
  EXPECT_FALSE(exists(at("work/.hidden")));
  EXPECT_FALSE(exists(at("work/two 語")));
  EXPECT_TRUE(exists(at("work/sub/inner")));
}

TEST_F(RemoveFiles, ALinkIsJudgedByWhatItLeadsTo) {
  makeFolder(at("work"));
  writeText(at("kept"), "kept");
  std::filesystem::create_symlink(at("kept"), at("work/file"));
  std::filesystem::create_symlink(at("home"), at("work/folder"));
  std::filesystem::create_symlink(at("nothing"), at("work/dangling"));
  EXPECT_TRUE(Module::removeFileInDirectory(at("work")));
  EXPECT_EQ(readText(at("kept")), "kept");
  EXPECT_FALSE(exists(at("work/file")));
  EXPECT_TRUE(std::filesystem::is_symlink(at("work/folder")));
  EXPECT_TRUE(std::filesystem::is_symlink(at("work/dangling")));
}

TEST_F(RemoveFiles, OneThatStaysIsFalseAndTheOthersGo) {
  makeFolder(at("work"));
  for (const char* name : {"work/a", "work/b", "work/c"}) {
    writeText(at(name), "");
  }
  FaultyStorage disk;
  for (long failing = 1; failing <= 2; ++failing) {
    disk.failAt(1);
    EXPECT_FALSE(Module::removeFileInDirectory(at("work")));
    EXPECT_EQ(disk.count("remove"), failing == 1 ? 3 : 1);
    EXPECT_EQ(static_cast<int>(exists(at("work/a"))) + static_cast<int>(exists(at("work/b"))) +
                  static_cast<int>(exists(at("work/c"))),
              1);
  }
  EXPECT_TRUE(Module::removeFileInDirectory(at("work")));
  EXPECT_TRUE(std::filesystem::is_empty(at("work")));
}

TEST_F(RemoveFiles, AnEmptyOrMissingFolderIsTrue) {
  EXPECT_TRUE(Module::removeFileInDirectory(at("home")));
  EXPECT_TRUE(Module::removeFileInDirectory(at("nothing")));
}

TEST_F(RemoveFiles, WhatIsNoFolderIsFalse) {
  writeText(at("file"), "");
  EXPECT_FALSE(Module::removeFileInDirectory(at("file")));
  EXPECT_TRUE(exists(at("file")));
}

using UnixPath = ConfigTest;

TEST_F(UnixPath, IsItsOwnOtherForm) {
  std::string spec = "untouched";
  EXPECT_FALSE(Module::unixPathToFSspec(at("nothing"), &spec));
  EXPECT_EQ(spec, "untouched");
  EXPECT_TRUE(Module::unixPathToFSspec(at("home"), &spec));
  EXPECT_EQ(spec, at("home"));
  EXPECT_EQ(Module::unixPathToClassic("/a b/辞書"), "/a b/辞書");
}

}  // namespace
}  // namespace zavel::test
