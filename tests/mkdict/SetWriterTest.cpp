// The set is in its folder whole or not at all.
#include "mkdict/SetWriter.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::mkdict {
namespace {

namespace fs = std::filesystem;

// Two files will do: each is treated alike.
std::vector<SetFile> setOf(const std::string& content) {
  return {{"ej.dic", content + "ej.dic"}, {SetWriter::kSources, content}};
}

bool writeTo(const std::string& target, const std::string& content, bool swap = true) {
  SetWriter writer(target, swap);
  Progress progress;
  std::string error;
  const bool written = writer.write(setOf(content), progress, &error);
  EXPECT_EQ(written, error.empty());
  return written;
}

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// "old", "new", "none", or what is wrong with the folder.
std::string stateOf(const std::string& target) {
  if (!fs::exists(target)) return "none";
  if (namesIn(target) != std::vector<std::string>{"SOURCES.txt", "ej.dic"}) return "incomplete";
  const std::string content = test::readFile(target + "/SOURCES.txt");
  return test::readFile(target + "/ej.dic") == content + "ej.dic" ? content : "mixed";
}

TEST(SetWriter, MakesTheFolderAndItsParents) {
  const test::TempFolder folder;
  const std::string target = folder.path() + "/a/b/set";
  SetWriter writer(target + "/");
  std::string error;
  ASSERT_TRUE(writer.prepare(&error)) << error;
  Progress progress;
  ASSERT_TRUE(writer.write(setOf("new"), progress, &error)) << error;
  EXPECT_EQ("new", stateOf(target));
  EXPECT_EQ(std::vector<std::string>{"set"}, namesIn(folder.path() + "/a/b"));
}

TEST(SetWriter, ReplacesAnOlderSet) {
  for (const bool swap : {true, false}) {
    const test::TempFolder folder;
    const std::string target = folder.path() + "/set";
    ASSERT_TRUE(writeTo(target, "old", swap));
    ASSERT_TRUE(writeTo(target, "new", swap));
    EXPECT_EQ("new", stateOf(target));
    EXPECT_EQ(std::vector<std::string>{"set"}, namesIn(folder.path()));
  }
}

TEST(SetWriter, KeepsALinkALink) {
  const test::TempFolder folder;
  fs::create_directory(folder.path() + "/real");
  fs::create_directory_symlink(folder.path() + "/real", folder.path() + "/link");
  ASSERT_TRUE(writeTo(folder.path() + "/link", "new"));
  EXPECT_TRUE(fs::is_symlink(folder.path() + "/link"));
  EXPECT_EQ("new", stateOf(folder.path() + "/real"));
}

TEST(SetWriter, TouchesNoFolderWithForeignFiles) {
  const test::TempFolder folder;
  test::writeFile(folder.path() + "/letter.txt", "dear");
  test::writeFile(folder.path() + "/ej.dic", "old");
  std::string error;
  EXPECT_FALSE(SetWriter(folder.path()).prepare(&error));
  EXPECT_EQ(fs::canonical(folder.path()).string() +
                " holds something else than a dictionary (letter.txt); it is left as it is",
            error);
}

TEST(SetWriter, RefusesAFolderThatBearsAFilesName) {
  const test::TempFolder folder;
  fs::create_directories(folder.path() + "/set/ej.dic");
  std::string error;
  EXPECT_FALSE(SetWriter(folder.path() + "/set").prepare(&error));
  EXPECT_NE(std::string::npos, error.find("(ej.dic)"));
}

TEST(SetWriter, RefusesAFile) {
  const test::TempFolder folder;
  test::writeFile(folder.path() + "/set", "x");
  std::string error;
  EXPECT_FALSE(SetWriter(folder.path() + "/set").prepare(&error));
  EXPECT_EQ(fs::canonical(folder.path()).string() + "/set is no folder", error);
}

TEST(SetWriter, AcceptsAnEmptyFolderAndAnOlderSet) {
  const test::TempFolder folder;
  std::string error;
  EXPECT_TRUE(SetWriter(folder.path()).prepare(&error));
  fs::create_directory(folder.path() + "/set");
  ASSERT_TRUE(writeTo(folder.path() + "/set", "old"));
  EXPECT_TRUE(SetWriter(folder.path() + "/set").prepare(&error));
}

struct Failing {
  test::FaultyStorage::Repeat repeat;
  bool swap;
  bool hadOld;
};

class FailingDisk : public testing::TestWithParam<Failing> {};

// Every operation fails in its turn: old or new, never a mixture.
TEST_P(FailingDisk, LeavesTheSetWholeOrAbsent) {
  const Failing param = GetParam();
  for (long n = 1;; ++n) {
    const test::TempFolder folder;
    const std::string target = folder.path() + "/set";
    if (param.hadOld) {
      fs::create_directory(target);
      for (const SetFile& file : setOf("old")) test::writeFile(target + "/" + file.name, file.bytes);
    }
    test::FaultyStorage disk;
    disk.failAt(n, param.repeat);
    const bool written = writeTo(target, "new", param.swap);
    const bool reached = disk.faults() != 0;
    disk.failAt(0);
    if (!reached) {
      EXPECT_TRUE(written);
      EXPECT_GT(n, 10);
      return;
    }
    std::string state = stateOf(target);
    // Two renames, and from the second one on a disk that refuses everything: the old set waits beside.
    const std::string aside = target + ".old-" + std::to_string(getpid());
    if (state == "none" && !param.swap && fs::exists(aside)) state = stateOf(aside);
    EXPECT_TRUE(state == (param.hadOld ? "old" : "none") || state == "new") << n << " " << state;
    EXPECT_TRUE(!written || state == "new") << n;
    if (param.repeat == test::FaultyStorage::kOnce && state != "new") {
      EXPECT_EQ(param.hadOld ? 1u : 0u, namesIn(folder.path()).size()) << n;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(SetWriter, FailingDisk,
                         testing::Values(Failing{test::FaultyStorage::kOnce, true, true},
                                         Failing{test::FaultyStorage::kOnce, true, false},
                                         Failing{test::FaultyStorage::kOnce, false, true},
                                         Failing{test::FaultyStorage::kForEver, true, true},
                                         Failing{test::FaultyStorage::kForEver, true, false},
                                         Failing{test::FaultyStorage::kForEver, false, true}));

// What the caller may say of the target after a failure.
SetWriter::Left leftBy(const char* kind, long nth, test::FaultyStorage::Repeat repeat, bool swap) {
  const test::TempFolder folder;
  const std::string target = folder.path() + "/set";
  EXPECT_TRUE(writeTo(target, "old"));
  test::FaultyStorage disk;
  EXPECT_TRUE(writeTo(target, "old", swap));
  long at = 0;
  for (const std::string& operation : disk.history()) {
    ++at;
    if (operation.rfind(kind, 0) == 0 && --nth == 0) break;
  }
  EXPECT_EQ(0, nth) << kind;
  disk.failAt(at, repeat);
  SetWriter writer(target, swap);
  Progress progress;
  std::string error;
  EXPECT_FALSE(writer.write(setOf("new"), progress, &error));
  EXPECT_NE("", error);
  disk.failAt(0);
  const std::string expected = writer.left() == SetWriter::Left::kNewSet  ? "new"
                               : writer.left() == SetWriter::Left::kAside ? "none"
                                                                          : "old";
  EXPECT_EQ(expected, stateOf(target));
  if (expected == "none") {
    EXPECT_EQ("old", stateOf(writer.aside()));
  }
  return writer.left();
}

TEST(SetWriter, TellsWhatStandsInTheTargetAfterAFailure) {
  using Left = SetWriter::Left;
  constexpr auto kOnce = test::FaultyStorage::kOnce, kForEver = test::FaultyStorage::kForEver;
  EXPECT_EQ(Left::kAsItWas, leftBy("writeAt", 1, kOnce, true));
  EXPECT_EQ(Left::kAsItWas, leftBy("rename", 1, kForEver, false));
  EXPECT_EQ(Left::kAsItWas, leftBy("rename", 2, kOnce, false));  // put back
  EXPECT_EQ(Left::kAside, leftBy("rename", 2, kForEver, false));
  EXPECT_EQ(Left::kNewSet, leftBy("syncFolder", 2, kOnce, true));  // the parent, after the swap
}

TEST(SetWriter, StartsWhereItMayWrite) {
  const test::TempFolder folder;
  test::FaultyStorage disk;
  disk.failAt(1);  // makeFolder
  SetWriter writer(folder.path() + "/set");
  std::string error;
  EXPECT_FALSE(writer.start(&error));
  EXPECT_EQ(0u,
            error.rfind("making the folder " + fs::canonical(folder.path()).string() + "/set.partial-", 0))
      << error;
  EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(SetWriter, RemovesItsFolderWhenStopped) {
  const test::TempFolder folder;
  volatile std::sig_atomic_t stop = 1;
  Progress progress;
  progress.watch(&stop);
  std::string error = "x";
  {
    SetWriter writer(folder.path() + "/set");
    EXPECT_FALSE(writer.write(setOf("new"), progress, &error));
  }
  EXPECT_EQ("", error);
  EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(SetWriter, RemovesWhatKilledRunsLeft) {
  const test::TempFolder folder;
  // No process has this number: it is above what the system gives out.
  const std::string dead = "999999999";
  fs::create_directory(folder.path() + "/set.partial-" + dead);
  test::writeFile(folder.path() + "/set.partial-" + dead + "/ej.dic", "half");
  fs::create_directory(folder.path() + "/set.partial-" + dead + "x");
  fs::create_directory(folder.path() + "/set.partial-1");  // that one lives
  ASSERT_TRUE(writeTo(folder.path() + "/set", "new"));
  EXPECT_EQ((std::vector<std::string>{"set", "set.partial-1", "set.partial-999999999x"}),
            namesIn(folder.path()));
}

TEST(SetWriter, AnOldSetThatAKilledRunPutAsideReturnsUntilTheNewOneIsThere) {
  const test::TempFolder folder;
  ASSERT_TRUE(writeTo(folder.path() + "/set", "old"));
  fs::rename(folder.path() + "/set", folder.path() + "/set.old-999999999");
  {
    test::FaultyStorage disk;
    disk.failAt(2);  // the first operation brings the old set back, the second one makes the new folder
    EXPECT_FALSE(writeTo(folder.path() + "/set", "new"));
  }
  EXPECT_EQ("old", stateOf(folder.path() + "/set"));
}

}  // namespace
}  // namespace zavel::mkdict
