// Whole builds from small sources, as the command line runs them.
#include "mkdict/Build.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "engine/EngineAPI.h"
#include "mkdict/BasicSet.h"
#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::mkdict {
namespace {

namespace fs = std::filesystem;

// A folder with one of each source, and a target in it.
struct Workshop {
  Workshop() {
    options.edict = folder.path() + "/edict";
    options.english = {folder.path() + "/eng-jpn.index", folder.path() + "/eng-jpn.dict",
                       folder.path() + "/wordnet"};
    options.target = folder.path() + "/out/set";
    // 犬 [いぬ] /(n) dog/(P)/ and あ /(int) ah/ in EUC-JP
    test::writeFile(options.edict, "\xB8\xA4 [\xA4\xA4\xA4\xCC] /(n) dog/(P)/\n\xA4\xA2 /(int) ah/\n");
    const std::string dog = "dog //dɒɡ// <n>\n犬\n";
    test::writeFile(options.english.freedictText, dog);
    test::writeFile(options.english.freedictIndex,
                    std::string("dog\tA\t") + static_cast<char>('A' + dog.size()) + "\n");
    fs::create_directory(options.english.wordnetFolder);
    for (const char* name :
         {"data.verb", "data.adj", "data.adv", "verb.exc", "adj.exc", "adv.exc", "noun.exc", "cntlist.rev"}) {
      test::writeFile(options.english.wordnetFolder + "/" + name, "");
    }
    test::writeFile(options.english.wordnetFolder + "/data.noun",
                    "02084071 05 n 01 dog 0 000 | a member of the genus Canis  \n");
  }

  Outcome build() {
    summary = {};
    Progress progress;
    return mkdict::build(options, progress, &summary);
  }

  // Names beside and in the target.
  std::vector<std::string> left() const {
    std::vector<std::string> names;
    if (!fs::exists(folder.path() + "/out")) return names;
    for (const auto& entry : fs::directory_iterator(folder.path() + "/out"))
      names.push_back(entry.path().filename());
    return names;
  }

  test::TempFolder folder;
  Options options;
  Summary summary;
};

std::string entriesOf(std::string word, bool english) {
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status = english ? SerchImiE(word.data(), nullptr, 0, &size, &list, 1)
                                  : SerchImiJ(word.data(), nullptr, 0, &size, &list, 1);
  EXPECT_EQ(1, status);
  std::string all;
  for (const std::string& entry : test::takeEntries(list, size)) all += entry;
  return all;
}

TEST(Build, MakesASetThatTheEngineOpens) {
  Workshop shop;
  const Outcome outcome = shop.build();
  ASSERT_EQ(kExitDone, outcome.status) << outcome.message;
  EXPECT_EQ(std::vector<std::string>{"set"}, shop.left());
  EXPECT_EQ(2u, shop.summary.valueOf("Japanese entries"));
  ASSERT_EQ(1, InitAPI((shop.options.target + "/").c_str(), nullptr, nullptr));
  EXPECT_EQ("\xF5\xD1" + test::sjis("いぬ\x1B犬") + "\n\xF5\xD3-[" + test::sjis("名") +
                "]\n\xF5\xD4"
                "dog\n",
            entriesOf(test::sjis("犬"), false));
  EXPECT_NE(std::string::npos, entriesOf("dog", true).find(test::sjis("犬")));
  EndAPI();
  EXPECT_NE(std::string::npos, test::readFile(shop.options.target + "/SOURCES.txt").find("Source: EDICT"));
}

TEST(Build, VerifiesWhatItBuilt) {
  Workshop shop;
  ASSERT_EQ(kExitDone, shop.build().status);
  Options check;
  check.verify = shop.options.target;
  Progress progress;
  Summary summary;
  Faults faults;
  EXPECT_EQ(kExitDone, verify(check, progress, &summary, &faults).status);
  EXPECT_EQ(0u, faults.total());
  fs::remove(shop.options.target + "/ke.idx");
  const Outcome outcome = verify(check, progress, &summary, &faults);
  EXPECT_EQ(kExitDamaged, outcome.status);
  EXPECT_EQ("damaged_set", outcome.code);
  EXPECT_EQ("1 fault in " + check.verify, outcome.message);
  EXPECT_EQ("ke.idx at 0: the file is missing", faults.kept().at(0).text());
}

TEST(Verify, OfNoFolderIsTheEnvironment) {
  Options check;
  check.verify = "/nowhere";
  Progress progress;
  Summary summary;
  Faults faults;
  EXPECT_EQ(kExitEnvironment, verify(check, progress, &summary, &faults).status);
}

TEST(Build, SameSourcesSameBytes) {
  Workshop shop;
  ASSERT_EQ(kExitDone, shop.build().status);
  std::vector<std::string> first;
  for (const std::string& name : basicSetNames())
    first.push_back(test::readFile(shop.options.target + "/" + name));
  ASSERT_EQ(kExitDone, shop.build().status);
  for (size_t i = 0; i < first.size(); ++i) {
    EXPECT_EQ(first[i], test::readFile(shop.options.target + "/" + basicSetNames()[i])) << basicSetNames()[i];
  }
}

struct Missing {
  const char* file;
  const char* hint;
};

class MissingInput : public testing::TestWithParam<Missing> {};

TEST_P(MissingInput, IsNamedWithItsPackage) {
  Workshop shop;
  const std::string path = shop.folder.path() + "/" + GetParam().file;
  fs::remove(path);
  const Outcome outcome = shop.build();
  EXPECT_EQ(kExitEnvironment, outcome.status);
  EXPECT_EQ("missing_input", outcome.code);
  EXPECT_EQ(path + " is missing", outcome.message);
  EXPECT_EQ(GetParam().hint, outcome.hint);
  EXPECT_TRUE(shop.left().empty());
}

constexpr const char* kEdictHint = "Install the Debian package edict, or name the place with --edict.";
constexpr const char* kIndexHint =
    "Install the Debian package dict-freedict-eng-jpn, or name the place with --freedict-index.";
constexpr const char* kTextHint =
    "Install the Debian package dict-freedict-eng-jpn, or name the place with --freedict-dict.";
constexpr const char* kWordNetHint =
    "Install the Debian package wordnet-base, or name the place with --wordnet.";

INSTANTIATE_TEST_SUITE_P(Build, MissingInput,
                         testing::Values(Missing{"edict", kEdictHint}, Missing{"eng-jpn.index", kIndexHint},
                                         Missing{"eng-jpn.dict", kTextHint},
                                         Missing{"wordnet/data.noun", kWordNetHint},
                                         Missing{"wordnet/adv.exc", kWordNetHint},
                                         Missing{"wordnet/cntlist.rev", kWordNetHint}));

TEST(Build, AnInputThatCannotBeReadIsTheEnvironment) {
  Workshop shop;
  test::FaultyStorage disk;
  disk.failAt(1);  // the first file that is opened
  const Outcome outcome = shop.build();
  EXPECT_EQ(kExitEnvironment, outcome.status);
  EXPECT_EQ("unreadable_input", outcome.code);
  EXPECT_EQ(shop.options.edict + " can't be read", outcome.message);
  EXPECT_EQ("Make it readable, or name the place of another with --edict.", outcome.hint);
  EXPECT_TRUE(shop.left().empty());
}

TEST(Build, DamagedSourcesAreFive) {
  for (const char* file : {"edict", "eng-jpn.index"}) {
    Workshop shop;
    test::writeFile(shop.folder.path() + "/" + file, "\xFF\xFE nonsense \n");
    const Outcome outcome = shop.build();
    EXPECT_EQ(kExitDamaged, outcome.status) << file;
    EXPECT_EQ("damaged_input", outcome.code);
    EXPECT_NE(std::string::npos, outcome.message.find(file)) << outcome.message;
    EXPECT_TRUE(shop.left().empty());
  }
}

TEST(Build, ForeignFilesInTheTargetAreNotTouched) {
  Workshop shop;
  fs::create_directories(shop.options.target);
  test::writeFile(shop.options.target + "/letter.txt", "dear");
  const Outcome outcome = shop.build();
  EXPECT_EQ(kExitEnvironment, outcome.status);
  EXPECT_EQ("bad_target", outcome.code);
  EXPECT_EQ("dear", test::readFile(shop.options.target + "/letter.txt"));
}

TEST(Build, InterruptedLeavesNothing) {
  Workshop shop;
  volatile std::sig_atomic_t stop = 1;
  Progress progress;
  progress.watch(&stop);
  const Outcome outcome = mkdict::build(shop.options, progress, &shop.summary);
  EXPECT_EQ(kExitInterrupted, outcome.status);
  EXPECT_TRUE(shop.left().empty());
}

TEST(Build, AFullDiskIsTheEnvironmentAndKeepsTheOldSet) {
  Workshop shop;
  ASSERT_EQ(kExitDone, shop.build().status);
  const std::string before = test::readFile(shop.options.target + "/je.dic");
  test::writeFile(shop.options.edict, "\xB8\xA4 [\xA4\xA4\xA4\xCC] /(n) hound/\n");
  test::FaultyStorage disk;
  const auto failing = [&](const std::string& kind) {
    // The first operation of a kind; what comes before it reads the sources.
    disk.failAt(0);
    Options aside = shop.options;
    aside.target = shop.folder.path() + "/rehearsal";
    Progress progress;
    Summary summary;
    EXPECT_EQ(kExitDone, mkdict::build(aside, progress, &summary).status);
    const auto& all = disk.history();
    const auto first =
        std::find_if(all.begin(), all.end(), [&](const std::string& op) { return op.rfind(kind, 0) == 0; });
    const long n = static_cast<long>(first - all.begin()) + 1;
    fs::remove_all(aside.target);
    return n;
  };
  for (const char* kind : {"writeAt", "sync", "close", "makeFolder"}) {
    disk.failAt(failing(kind));
    const Outcome outcome = shop.build();
    EXPECT_EQ(kExitEnvironment, outcome.status) << kind;
    EXPECT_EQ("write_failed", outcome.code);
    EXPECT_EQ(
        "What stood there before is unchanged. Make room on the disk, or make the folder writable, and try again.",
        outcome.hint);
    EXPECT_EQ(before, test::readFile(shop.options.target + "/je.dic"));
    EXPECT_EQ(std::vector<std::string>{"set"}, shop.left());
  }
}

}  // namespace
}  // namespace zavel::mkdict
