// What a run tells at its end.
#include "mkdict/Report.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

struct Told {
  Options options;
  Outcome outcome;
  Summary summary;
  Faults faults;
  Report report{options, outcome, summary, faults};
};

TEST(Report, OfABuild) {
  Told told;
  told.options.target = "out";
  told.summary.figure("English entries", 3);
  EXPECT_EQ("          3  English entries\nWritten to out\n", told.report.text());
  EXPECT_EQ(
      "{\"schema\":1,\"status\":\"built\",\"folder\":\"out\",\"figures\":{\"English "
      "entries\":3},\"left_out\":[]}\n",
      told.report.json());
  EXPECT_EQ("", told.report.errors());
  told.options.quiet = true;
  EXPECT_EQ("", told.report.text());
}

TEST(Report, OfASoundSet) {
  Told told;
  told.options.verify = "set";
  EXPECT_EQ("set is sound.\n", told.report.text());
  EXPECT_EQ("{\"schema\":1,\"status\":\"good\",\"folder\":\"set\",\"figures\":{},\"left_out\":[]}\n",
            told.report.json());
}

TEST(Report, OfADamagedSet) {
  Told told;
  told.options.verify = "set";
  told.options.quiet = true;
  for (int i = 0; i < 101; ++i) told.faults.add("ej.ix3", 13, "row 0: \"below\" the row before");
  told.outcome = {kExitDamaged, "damaged_set", "101 faults in set", "Build it anew: mkdict set"};
  const std::string text = told.report.text();
  EXPECT_EQ(0u, text.find("ej.ix3 at 13: row 0: \"below\" the row before\nej.ix3 at 13:"));
  EXPECT_EQ("and 1 more\n", text.substr(text.size() - 11));
  EXPECT_EQ("mkdict: 101 faults in set\nBuild it anew: mkdict set\n", told.report.errors());
  const std::string json = told.report.json();
  EXPECT_EQ(
      0u, json.find("{\"schema\":1,\"status\":\"damaged\",\"folder\":\"set\",\"figures\":{},\"left_out\":[],"
                    "\"fault_count\":101,\"faults\":[{\"file\":\"ej.ix3\",\"offset\":13,"
                    "\"message\":\"row 0: \\\"below\\\" the row before\"},"));
}

TEST(Report, OfAnInterruptionIsOneLine) {
  Told told;
  told.outcome = {kExitInterrupted, "interrupted", "interrupted; nothing was changed", "Run it again."};
  EXPECT_EQ("mkdict: interrupted; nothing was changed\n", told.report.errors());
}

TEST(Report, OfAFailure) {
  Told told;
  told.outcome = {kExitEnvironment, "missing_input", "/x is missing", "Install it."};
  EXPECT_EQ("", told.report.text());
  EXPECT_EQ("mkdict: /x is missing\nInstall it.\n", told.report.errors());
  EXPECT_EQ(
      "{\"schema\":1,\"status\":\"error\",\"error\":{\"code\":\"missing_input\",\"message\":\"/x is "
      "missing\",\"hint\":\"Install it.\"}}\n",
      told.report.json());
}

}  // namespace
}  // namespace zavel::mkdict
