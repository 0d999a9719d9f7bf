#include "engine/UsualLine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "engine/DicFormat.h"
#include "engine/IndexLine.h"

namespace zavel::engine {
namespace {

constexpr size_t kCap = 65533;

// What it builds of `text`; "-" when it leaves the entry to BuildIndexLine.
std::string Usual(std::string_view text, size_t cap = kCap) {
  std::string line;
  return BuildUsualLine(text, cap, &line) ? line : "-";
}

TEST(UsualLineTest, TakesHeadwordAndFirstGloss) {
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD3-[v]\n\xF5\xD4\x91\x96\x82\xE9 (move)\n"), "run [\x91\x96\x82\xE9]");
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go\n"), "run [go]");
}

TEST(UsualLineTest, KeepsStarsAndDropsNumberAndPronunciation) {
  EXPECT_EQ(Usual("\xF5\xD1***\xF4\xB5"
                  "2\xF4\xD0"
                  "ant\x81\x85{nt\x81\x86\n\xF5\xD4\x83"
                  "A,\x83"
                  "C\n"),
            "***ant [\x83"
            "A]");
}

TEST(UsualLineTest, SkipsASenseNumberAndTakesSignsThatAreNoBrackets) {
  EXPECT_EQ(Usual("\xF5\xD1knife\n\xF5\xD4\xF5\xBD"
                  "1\xF5\xC1 \x83i\x81[\x83t,\x8F\xAC\x93\x81 (tool)\n"),
            "knife [\x83i\x81[\x83t]");
}

TEST(UsualLineTest, LeavesTheRestToBuildIndexLine) {
  EXPECT_EQ(Usual(""), "-");
  EXPECT_EQ(Usual("run\n\xF5\xD4go\n"), "-") << "no entry tag";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go"), "-") << "the line is not whole";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4\n\xF5\xD4go\n"), "-") << "the first meaning leaves nothing";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4[x] go\n"), "-") << "a bracket first";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go\xF5\xD1\n"), "-") << "a tag in the gloss";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go, \xF5\xD1\n"), "-") << "a tag behind the gloss";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go, \xF4\nx\n"), "-") << "a marker takes the line end along";
  EXPECT_EQ(Usual("\xF5\xD1run\x81\x85x\n\xF5\xD4go\n"), "-") << "an open pronunciation";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD5go\n"), "-") << "an example instead of a meaning";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go\n", 3), "-") << "capped";
  EXPECT_EQ(Usual("\xF5\xD1run\n\xF5\xD4go\n", 4), "run [go]");
}

TEST(UsualLineTest, LeavesTheLineAloneWhenItLeavesTheEntry) {
  std::string line = "before";
  EXPECT_FALSE(BuildUsualLine("\xF5\xD1run\n\xF5\xD5go\n", kCap, &line));
  EXPECT_EQ(line, "before");
}

// The same entries in a shape that the quick scan leaves to the general one give the same lines.
TEST(UsualLineTest, AgreesWithTheGeneralScanOnTheHeadword) {
  const char* const pieces[] = {"a",
                                "B c",
                                "-",
                                "'",
                                "\xF4\xB5"
                                "1\xF4\xD0",
                                "\x81\x85x\x81\x86",
                                "**"};
  std::mt19937 random(7);
  int built = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text = "\xF5\xD1";
    for (unsigned count = random() % 5; count > 0; --count) text += pieces[random() % std::size(pieces)];
    text += "\n\xF5\xD4g\n";
    std::string usual, general;
    if (!BuildUsualLine(text, kCap, &usual)) continue;
    ++built;
    // A blank ahead of the meaning's tag is a shape that only the general scan takes.
    std::string other = text;
    other.insert(other.find("\n\xF5\xD4") + 1, " ");
    std::string untouched;
    ASSERT_FALSE(BuildUsualLine(other, kCap, &untouched));
    ASSERT_EQ(BuildIndexLine(other, true, kTypeE, kCap, &general), LineResult::kLine);
    ASSERT_EQ(usual, general) << text;
  }
  EXPECT_GT(built, 5000);
}

}  // namespace
}  // namespace zavel::engine
