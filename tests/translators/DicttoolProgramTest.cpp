// The program as others start it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "support/DictdFiles.h"
#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::test {
namespace {

class DicttoolProgramTest : public ::testing::Test {
 protected:
  DicttoolProgramTest() {
    std::filesystem::create_directories(folder_.file("dictionaries/translation"));
    // The machine's own dictionaries stay out of it.
    const Value::Array names{"small"};
    write("dictionaries/translation/dictionaries.plist", Value::Dict{{"EJ", names}, {"JE", names}});
    DictdFiles files;
    files.entry("cat\n猫\n", {"cat"}).entry("猫 [ねこ]\n(noun) cat\n", {"猫"});
    files.writePacked(folder_.file("dictionaries/translation/small"));
    folder_.write("source", "cat");
  }

  void write(const std::string& name, const Value& value) {
    ASSERT_TRUE(platform().propertyLists().writeFile(folder_.file(name), value, PropertyListFormat::kXml));
  }

  Outcome run(std::vector<std::string> arguments) {
    Outcome outcome = Command(std::move(arguments)).env("ZAVEL_ROOT", folder_.path()).run();
    for (std::string* text : {&outcome.out, &outcome.err}) {
      for (size_t at; (at = text->find(folder_.prefix())) != std::string::npos;) {
        text->erase(at, folder_.prefix().size());
      }
    }
    return outcome;
  }

  Outcome lookUp(std::vector<std::string> more) {
    for (const std::string part : {"-e", "source", "-r", "result"}) {
      more.push_back(part.starts_with('-') ? part : folder_.file(part));
    }
    more.push_back("-w");
    return run(std::move(more));
  }

  Value search() {
    Value result;
    if (!platform().propertyLists().readFile(folder_.file("result"), &result)) return {};
    return *result.find("Search");
  }

  TempFolder folder_;
};

TEST_F(DicttoolProgramTest, AnswersAWord) {
  const Outcome outcome = lookUp({});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(search(), Value(Value::Array{"★small\n    cat 猫\n"}));
}

// In the order in which the lookup front gives them.
TEST_F(DicttoolProgramTest, TakesAllOptionsOfItsCallers) {
  write("ZP.plist", Value::Dict{});
  write("styles.plist", Value::Dict{{"Style", Value::Array{Value::Dict{{"EJ", Value::Dict{}}}}}});
  const std::string style = folder_.file("styles.plist");
  for (const std::vector<std::string>& road :
       {std::vector<std::string>{"-d", folder_.file("ZP.plist"), "-i", style, "-s", "0"},
        std::vector<std::string>{"-m", "-i", style, "-s", "0"}}) {
    folder_.write("result", "old");
    const Outcome outcome = lookUp(road);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(search(), Value(Value::Array{"★small\n    cat 猫\n"}));
  }
}

TEST_F(DicttoolProgramTest, AnswersAWordThatNoneHolds) {
  folder_.write("source", "zebra");
  EXPECT_EQ(lookUp({}).status, 0);
  EXPECT_EQ(search(), Value(Value::Array()));
}

TEST_F(DicttoolProgramTest, SaysThatItDoesNotTranslateYet) {
  const Outcome outcome = run({"-e", folder_.file("source"), "-r", folder_.file("result")});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel-dicttool: sentences can't be translated yet; add -w to look up a word\n");
  EXPECT_EQ(folder_.read("result"), "(none)");
}

TEST_F(DicttoolProgramTest, RefusesWrongUsageInOneLine) {
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"-w"},
      {"-e", "x", "-w"},
      {"-r", "x", "-w"},
      {"-e", "x", "-r", "y", "-w", "-s", "three"},
      {"-e", "x", "-r", "y", "-w", "--nonsense"},
      {"-e", "x", "-r", "y", "-w", "-m", "-d", "z"},
      {"--convert", "x"},
      {"--convert", "x", "y", "-w"},
      {"--convert", "x", "y", "--verify", "x"},
      {"--verify", "x", "-w"},
  };
  for (const std::vector<std::string>& arguments : wrong) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << outcome.err;
    EXPECT_EQ(outcome.err.find("zavel-dicttool: "), 0u) << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
}

TEST_F(DicttoolProgramTest, TellsOneLineForEachFailure) {
  Outcome outcome = run({"-e", folder_.file("none"), "-r", folder_.file("result"), "-w"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel-dicttool: the source file none can't be read\n");
  outcome = lookUp({"-d", folder_.file("ZP.plist")});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel-dicttool: the parameter file ZP.plist is missing\n");
  outcome = run({"-e", folder_.file("source"), "-r", folder_.file("none/result"), "-w"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel-dicttool: the result file none/result can't be written\n");
}

TEST_F(DicttoolProgramTest, NamesADamagedPackedText) {
  folder_.write("dictionaries/translation/small.dict.dz", "\x1F\x8B nonsense");
  const Outcome outcome = lookUp({});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "zavel-dicttool: dictionaries/translation/small.dict.dz is damaged: its table of chunks can't be "
            "read\n");
}

TEST_F(DicttoolProgramTest, HelpsAndTellsItsVersion) {
  Outcome outcome = run({"--help"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("Examples:\n  printf cat >word"), std::string::npos);
  EXPECT_NE(outcome.out.find("--convert"), std::string::npos);
  outcome = run({"--version"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.find("zavel-dicttool "), 0u);
}

TEST_F(DicttoolProgramTest, ConvertsAndThenAnswersFromIt) {
  folder_.write("edict", "東京 [とうきょう] /(n) Tokyo/\n");
  const Outcome outcome =
      run({"--convert", folder_.file("edict"), folder_.file("dictionaries/translation/small")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "dictionaries/translation/small.index: 1 entries under 6 words\n");
  folder_.write("source", "Tokyo");
  EXPECT_EQ(lookUp({}).status, 0);
  EXPECT_EQ(search(), Value(Value::Array{"★small\n    東京 [とうきょう] (noun) Tokyo\n"}));
  folder_.write("source", "\x93\x8C\x8B\x9E");  // 東京
  EXPECT_EQ(lookUp({}).status, 0);
  EXPECT_EQ(search(), Value(Value::Array{int64_t{1}, "東京 [とうきょう] (noun) Tokyo"}));
}

TEST_F(DicttoolProgramTest, ChecksWhatItHasConverted) {
  folder_.write("edict", "東京 [とうきょう] /(n) Tokyo/\n");
  const std::string target = folder_.file("dictionaries/translation/small");
  ASSERT_EQ(run({"--convert", folder_.file("edict"), target}).status, 0);
  Outcome outcome = run({"--verify", target});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "dictionaries/translation/small: 6 words lead to their entries\n");
  folder_.write("dictionaries/translation/small.index", "tokyo\tA\tB\n");
  outcome = run({"--verify", target});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "zavel-dicttool: dictionaries/translation/small.index is damaged: the line at byte 0 leads to no "
            "entry\n");
}

TEST_F(DicttoolProgramTest, TakesItsTemporaryFilesAwayWhenInterrupted) {
  std::string many;
  for (int i = 0; i < 400000; ++i) many += "東京" + std::to_string(i) + " [とうきょう] /(n) Tokyo/\n";
  folder_.write("edict", many);
  std::filesystem::create_directory(folder_.file("new"));
  const Outcome outcome = Command({"--convert", folder_.file("edict"), folder_.file("new/d")})
                              .signalAt(folder_.file("edict"), SIGTERM)
                              .run();
  // The signal may come ahead of the program's first look at it.
  EXPECT_TRUE(outcome.status == 130 || outcome.status == 128 + SIGTERM) << outcome.status;
  EXPECT_TRUE(std::filesystem::is_empty(folder_.file("new")));
}

}  // namespace
}  // namespace zavel::test
