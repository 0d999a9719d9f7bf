// The account of a build.
#include "mkdict/Summary.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

TEST(Summary, KeepsFiguresInTheOrderOfFirstMention) {
  Summary summary;
  summary.figure("English entries", 41234);
  summary.count("Japanese entries");
  summary.count("Japanese entries", 999);
  summary.figure("English entries", 5);
  EXPECT_EQ(1000u, summary.valueOf("Japanese entries"));
  EXPECT_EQ(0u, summary.valueOf("unheard of"));
  EXPECT_EQ("          5  English entries\n      1,000  Japanese entries\n", summary.text());
}

TEST(Summary, KeepsFiveSamplesOfAReason) {
  Summary summary;
  for (const char* word : {"a", "b", "c", "d", "e", "f"}) summary.leftOut("too long", word);
  summary.leftOut("empty", "x");
  EXPECT_EQ(6u, summary.leftOutCount("too long"));
  EXPECT_EQ(0u, summary.leftOutCount("unheard of"));
  EXPECT_EQ("Left out or changed:\n          6  too long: a, b, c, d, e, ...\n          1  empty: x\n",
            summary.text());
}

// Equal ones count, and are named once; dots stand where there are others.
TEST(Summary, KeepsEqualSamplesOnce) {
  Summary summary;
  for (const char* word : {"a", "b", "a", "c", "d", "a", "e", "b"}) summary.leftOut("lost", word);
  EXPECT_EQ("Left out or changed:\n          8  lost: a, b, c, d, e\n", summary.text());
  summary.leftOut("lost", "f");
  EXPECT_EQ("Left out or changed:\n          9  lost: a, b, c, d, e, ...\n", summary.text());
}

TEST(Summary, KeepsEverySampleForProgramsWhereAsked) {
  Summary summary;
  for (const char* word : {"a", "b", "c", "d", "e", "f"}) summary.leftOut("gap", word, true);
  EXPECT_EQ("Left out or changed:\n          6  gap: a, b, c, d, e, ...\n", summary.text());
  EXPECT_EQ(
      "{\"figures\":{},\"left_out\":[{\"reason\":\"gap\",\"count\":6,"
      "\"samples\":[\"a\",\"b\",\"c\",\"d\",\"e\",\"f\"]}]}",
      summary.json());
}

TEST(Summary, IsValidJson) {
  Summary summary;
  EXPECT_EQ("{\"figures\":{},\"left_out\":[]}", summary.json());
  summary.figure("rows", 1234567);
  summary.figure("files", 13);
  summary.leftOut("bad \"line\"", "back\\slash\n");
  summary.leftOut("bad \"line\"", "日本");
  EXPECT_EQ(
      "{\"figures\":{\"rows\":1234567,\"files\":13},\"left_out\":[{\"reason\":\"bad "
      "\\\"line\\\"\",\"count\":2,"
      "\"samples\":[\"back\\\\slash\\u000a\",\"日本\"]}]}",
      summary.json());
}

}  // namespace
}  // namespace zavel::mkdict
