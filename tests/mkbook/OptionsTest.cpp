// The command line.
#include "mkbook/Options.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zavel::mkbook {
namespace {

struct Parsed {
  explicit Parsed(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "mkbook");
    go = parseOptions(static_cast<int>(arguments.size()), arguments.data(), &options, out, err, &status);
  }
  Options options;
  std::ostringstream out, err;
  int status = -1;
  bool go = false;
};

TEST(Options, NameFormSourceAndFolder) {
  const Parsed parsed({"dictd", "wn.index", "out"});
  ASSERT_TRUE(parsed.go) << parsed.err.str();
  EXPECT_EQ(parsed.options.form, "dictd");
  EXPECT_EQ(parsed.options.source, "wn.index");
  EXPECT_EQ(parsed.options.target, "out");
  EXPECT_EQ(parsed.options.unifont, "/usr/share/unifont/unifont.hex");
  EXPECT_EQ(parsed.options.progress, "auto");
  EXPECT_EQ(parsed.options.number, 0u);
  EXPECT_FALSE(parsed.options.verify || parsed.options.json || parsed.options.quiet);
}

TEST(Options, MayStandAnywhere) {
  const Parsed parsed({"--title", "My words", "edict", "--id", "77", "e", "--verify", "out", "--unifont=u",
                       "--progress", "json", "-j", "-q"});
  ASSERT_TRUE(parsed.go) << parsed.err.str();
  EXPECT_EQ(parsed.options.form, "edict");
  EXPECT_EQ(parsed.options.title, "My words");
  EXPECT_EQ(parsed.options.number, 77u);
  EXPECT_EQ(parsed.options.unifont, "u");
  EXPECT_EQ(parsed.options.progress, "json");
  EXPECT_TRUE(parsed.options.verify && parsed.options.json && parsed.options.quiet);
}

TEST(Options, WrongUsageIsTold) {
  for (const std::vector<const char*>& arguments : {std::vector<const char*>{},
                                                    {"dictd"},
                                                    {"dictd", "i"},
                                                    {"other", "i", "o"},
                                                    {"dictd", "i", "o", "more"},
                                                    {"dictd", "i", "o", "--id", "0"},
                                                    {"dictd", "i", "o", "--id", "4294967296"},
                                                    {"dictd", "i", "o", "--nonsense"},
                                                    {"dictd", "i", "o", "--progress", "loud"}}) {
    const Parsed parsed(arguments);
    EXPECT_FALSE(parsed.go);
    EXPECT_EQ(parsed.status, 2);
    EXPECT_NE(parsed.err.str(), "");
  }
}

TEST(Options, HelpLeadsWithExamples) {
  const Parsed parsed({"--help"});
  EXPECT_FALSE(parsed.go);
  EXPECT_EQ(parsed.status, 0);
  EXPECT_LT(parsed.out.str().find("Examples:"), parsed.out.str().find("--title"));
  EXPECT_NE(parsed.out.str().find("Exit status:"), std::string::npos);
}

}  // namespace
}  // namespace zavel::mkbook
