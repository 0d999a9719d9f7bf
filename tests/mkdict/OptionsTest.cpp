// The command line.
#include "mkdict/Options.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zavel::mkdict {
namespace {

struct Parsed {
  explicit Parsed(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "mkdict");
    go = parseOptions(static_cast<int>(arguments.size()), arguments.data(), &options, out, err, &status);
  }
  Options options;
  std::ostringstream out, err;
  int status = -1;
  bool go = false;
};

TEST(Options, DefaultsAreTheDebianPackagesPlaces) {
  const Parsed parsed({"out"});
  EXPECT_TRUE(parsed.go);
  EXPECT_EQ("out", parsed.options.target);
  EXPECT_EQ("/usr/share/edict/edict", parsed.options.edict);
  EXPECT_EQ("/usr/share/dictd/freedict-eng-jpn.index", parsed.options.english.freedictIndex);
  EXPECT_EQ("/usr/share/dictd/freedict-eng-jpn.dict.dz", parsed.options.english.freedictText);
  EXPECT_EQ("/usr/share/wordnet", parsed.options.english.wordnetFolder);
  EXPECT_EQ("auto", parsed.options.progress);
  EXPECT_FALSE(parsed.options.json);
  EXPECT_FALSE(parsed.options.quiet);
}

TEST(Options, EveryPlaceCanBeNamed) {
  const Parsed parsed({"--edict", "e", "out", "--freedict-index=i", "--freedict-dict", "d", "--wordnet", "w",
                       "--progress", "json", "-j", "-q"});
  EXPECT_TRUE(parsed.go);
  EXPECT_EQ("out", parsed.options.target);
  EXPECT_EQ("e", parsed.options.edict);
  EXPECT_EQ("i", parsed.options.english.freedictIndex);
  EXPECT_EQ("d", parsed.options.english.freedictText);
  EXPECT_EQ("w", parsed.options.english.wordnetFolder);
  EXPECT_EQ("json", parsed.options.progress);
  EXPECT_TRUE(parsed.options.json);
  EXPECT_TRUE(parsed.options.quiet);
}

TEST(Options, TheLastOfSeveralWins) {
  const Parsed parsed({"out", "--edict", "a", "--edict", "b"});
  EXPECT_TRUE(parsed.go);
  EXPECT_EQ("b", parsed.options.edict);
}

TEST(Options, VerifyNeedsNoTarget) {
  const Parsed parsed({"--verify", "set", "--json"});
  EXPECT_TRUE(parsed.go);
  EXPECT_EQ("set", parsed.options.verify);
}

TEST(Options, WrongUsageIsTwo) {
  for (const std::vector<const char*>& arguments :
       std::vector<std::vector<const char*>>{{},
                                             {"a", "b"},
                                             {"a", "--verify", "b"},
                                             {"--verify"},
                                             {"a", "--progress", "loud"},
                                             {"a", "--bogus"}}) {
    const Parsed parsed(arguments);
    EXPECT_FALSE(parsed.go);
    EXPECT_EQ(2, parsed.status);
    EXPECT_EQ("", parsed.out.str());
    EXPECT_NE("", parsed.err.str());
  }
}

TEST(Options, HelpLeadsWithExamplesAndIsNoError) {
  const Parsed parsed({"--help"});
  EXPECT_FALSE(parsed.go);
  EXPECT_EQ(0, parsed.status);
  const std::string text = parsed.out.str();
  EXPECT_LT(text.find("Examples:"), text.find("--edict"));
  EXPECT_NE(std::string::npos, text.find("Exit status:"));
  EXPECT_EQ("", parsed.err.str());
}

TEST(Options, TellsItsVersion) {
  const Parsed parsed({"--version"});
  EXPECT_EQ(0, parsed.status);
  EXPECT_EQ(0u, parsed.out.str().find("mkdict "));
}

}  // namespace
}  // namespace zavel::mkdict
