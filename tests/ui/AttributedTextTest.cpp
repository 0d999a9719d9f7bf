#include "ui/AttributedText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zavel {
namespace {

using Runs = std::vector<AttributedText::Run>;

TextStyle bold() {
  TextStyle style;
  style.bold = true;
  return style;
}
TextStyle linked(int link) {
  TextStyle style;
  style.link = link;
  return style;
}
void makeBold(TextStyle& style) {
  style.bold = true;
}

TEST(AttributedText, IsEmptyToBeginWith) {
  const AttributedText text;
  EXPECT_EQ(text.text(), "");
  EXPECT_EQ(text.length(), 0u);
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.runs(), Runs());
  EXPECT_EQ(text.styleAt(0), nullptr);
  EXPECT_EQ(text.substring({0, 5}), "");
}

TEST(AttributedText, CountsUtf16Units) {
  EXPECT_EQ(AttributedText("go").length(), 2u);
  EXPECT_EQ(AttributedText("go 行く").length(), 5u);  // 9 bytes
  EXPECT_EQ(AttributedText("é").length(), 1u);        // 2 bytes
  EXPECT_EQ(AttributedText("𠮷野家").length(), 4u);   // U+20BB7 is a pair
  EXPECT_EQ(AttributedText("\U0001F600").length(), 2u);
  EXPECT_EQ(AttributedText(std::string("a\0b", 3)).length(), 3u);
  EXPECT_EQ(AttributedText::unitsOf("a\xFF"), 2u);
}

TEST(AttributedText, ShowsWhatIsNoUtf8AsReplacements) {
  const AttributedText text("a\xFFz");
  EXPECT_EQ(text.text(), "a\xEF\xBF\xBDz");
  EXPECT_EQ(text.length(), 3u);
}

TEST(AttributedText, CutsPartsOutByUnits) {
  const AttributedText text("go 𠮷野家 へ");  // g o blank, a pair, 野 家, blank, へ: 9 units
  EXPECT_EQ(text.length(), 9u);
  EXPECT_EQ(text.substring({3, 2}), "𠮷");
  EXPECT_EQ(text.substring({5, 2}), "野家");
  EXPECT_EQ(text.substring({8, 1}), "へ");
  EXPECT_EQ(text.substring({0, 9}), "go 𠮷野家 へ");
  EXPECT_EQ(text.substring({2, 0}), "");
}

TEST(AttributedText, CutsRangesToTheText) {
  const AttributedText text("行く");
  EXPECT_EQ(text.clip({1, 5}), (TextRange{1, 1}));
  EXPECT_EQ(text.clip({2, 1}), (TextRange{2, 0}));
  EXPECT_EQ(text.clip({7, 1}), (TextRange{2, 0}));
  EXPECT_EQ(text.clip({1, static_cast<size_t>(-1)}), (TextRange{1, 1}));
  EXPECT_EQ(text.substring({1, 99}), "く");
  EXPECT_EQ(text.substring({99, 99}), "");
}

TEST(AttributedText, MovesAnEndBetweenTwoHalvesToTheBeginning) {
  const AttributedText text("a𠮷b");  // units: a, high, low, b
  EXPECT_EQ(text.clip({2, 2}), (TextRange{1, 3}));
  EXPECT_EQ(text.clip({0, 2}), (TextRange{0, 1}));
  EXPECT_EQ(text.clip({2, 0}), (TextRange{1, 0}));
  EXPECT_EQ(text.substring({2, 2}), "𠮷b");
  EXPECT_EQ(text.substring({0, 2}), "a");
}

TEST(AttributedText, TellsTheBytesOfARange) {
  const AttributedText text("go 行く");
  EXPECT_EQ(text.bytesOf({3, 1}).first, 3u);
  EXPECT_EQ(text.bytesOf({3, 1}).last, 6u);
  EXPECT_EQ(text.bytesOf({4, 9}).first, 6u);
  EXPECT_EQ(text.bytesOf({4, 9}).last, 9u);
}

TEST(AttributedText, AppendsJoinWhereTheyLookAlike) {
  AttributedText text("行");
  text.append("く");
  text.append("go", bold());
  text.append("");
  text.append("es", bold());
  text.append("", TextStyle());
  EXPECT_EQ(text.text(), "行くgoes");
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, {}}, {{2, 4}, bold()}}));
}

TEST(AttributedText, LinksThatTouchStayTwo) {
  AttributedText text("one", linked(0));
  text.append("two", linked(1));
  EXPECT_EQ(text.runs(), (Runs{{{0, 3}, linked(0)}, {{3, 3}, linked(1)}}));
}

TEST(AttributedText, AppendsAnotherTextWithItsStyles) {
  AttributedText text("a");
  AttributedText other("b");
  other.append("c", bold());
  text.append(other);
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, {}}, {{2, 1}, bold()}}));
  text.append(text);
  EXPECT_EQ(text.text(), "abcabc");
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, {}}, {{2, 1}, bold()}, {{3, 2}, {}}, {{5, 1}, bold()}}));
}

TEST(AttributedText, GivesTheStyleAtAPosition) {
  AttributedText text("行く");
  text.append("go", bold());
  EXPECT_FALSE(text.styleAt(1)->bold);
  EXPECT_TRUE(text.styleAt(2)->bold);
  EXPECT_TRUE(text.styleAt(3)->bold);
  EXPECT_EQ(text.styleAt(4), nullptr);
}

TEST(AttributedText, RestylesARangeAndSplitsWhatItTouches) {
  AttributedText text("012345");
  text.restyle({2, 3}, makeBold);
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, {}}, {{2, 3}, bold()}, {{5, 1}, {}}}));
  text.restyle({0, 2}, makeBold);
  EXPECT_EQ(text.runs(), (Runs{{{0, 5}, bold()}, {{5, 1}, {}}}));
  text.restyle({5, 9}, makeBold);
  EXPECT_EQ(text.runs(), (Runs{{{0, 6}, bold()}}));
}

TEST(AttributedText, RestylesEachRunForItself) {
  AttributedText text("ab", linked(7));
  text.append("cd");
  text.restyle({1, 2}, [](TextStyle& style) { style.color = Color{1, 0, 0, 1}; });
  ASSERT_EQ(text.runs().size(), 4u);
  EXPECT_EQ(text.runs()[1].style.link, 7);
  EXPECT_EQ(text.runs()[1].style.color, (Color{1, 0, 0, 1}));
  EXPECT_EQ(text.runs()[2].style.link, -1);
  text.restyle({0, 4}, [](TextStyle& style) { style.color.reset(); });
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, linked(7)}, {{2, 2}, {}}}));
}

TEST(AttributedText, AnEmptyRangeRestylesNothing) {
  AttributedText text("ab");
  int calls = 0;
  text.restyle({1, 0}, [&](TextStyle&) { ++calls; });
  text.restyle({2, 5}, [&](TextStyle&) { ++calls; });
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(text.runs().size(), 1u);
}

TEST(AttributedText, ReplacesInTheStyleOfWhatItReplaces) {
  AttributedText text("行く");
  text.append("go", bold());
  text.append("。");
  text.replace({2, 2}, "went");
  EXPECT_EQ(text.text(), "行くwent。");
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, {}}, {{2, 4}, bold()}, {{6, 1}, {}}}));
  text.replace({2, 4}, "");
  EXPECT_EQ(text.text(), "行く。");
  EXPECT_EQ(text.runs(), (Runs{{{0, 3}, {}}}));
}

TEST(AttributedText, InsertsInTheStyleOfWhatStandsAhead) {
  AttributedText text("a", bold());
  text.append("b");
  text.replace({1, 0}, "x");
  EXPECT_EQ(text.runs(), (Runs{{{0, 2}, bold()}, {{2, 1}, {}}}));
  text.replace({0, 0}, "y");
  EXPECT_EQ(text.text(), "yaxb");
  EXPECT_EQ(text.runs(), (Runs{{{0, 3}, bold()}, {{3, 1}, {}}}));
  text.replace({9, 0}, "z");
  EXPECT_EQ(text.text(), "yaxbz");
  EXPECT_EQ(text.runs(), (Runs{{{0, 3}, bold()}, {{3, 2}, {}}}));
}

TEST(AttributedText, ReplacesAcrossRunsInTheStyleOfTheFirst) {
  AttributedText text("ab", bold());
  text.append("cd");
  text.replace({1, 2}, "𠮷");
  EXPECT_EQ(text.text(), "a𠮷d");
  EXPECT_EQ(text.length(), 4u);
  EXPECT_EQ(text.runs(), (Runs{{{0, 3}, bold()}, {{3, 1}, {}}}));
}

TEST(AttributedText, ReplacesInAGivenStyle) {
  AttributedText text("abc");
  text.replace({1, 1}, "B", bold());
  EXPECT_EQ(text.runs(), (Runs{{{0, 1}, {}}, {{1, 1}, bold()}, {{2, 1}, {}}}));
}

TEST(AttributedText, AReplacementOfNothingByNothingChangesNothing) {
  AttributedText text("ab");
  text.replace({1, 0}, "", bold());
  EXPECT_EQ(text, AttributedText("ab"));
}

TEST(AttributedText, LosesAllByAReplacementOfAll) {
  AttributedText text("ab", bold());
  text.replace({0, 2}, "");
  EXPECT_EQ(text, AttributedText());
}

// The same edits on one style per unit, in plain UTF-16.
struct Reference {
  std::u16string units;
  std::vector<int> links;
};

std::string utf8Of(const std::u16string& units) {
  std::string out;
  for (const char16_t unit : units) {
    if (unit < 0x80) {
      out += static_cast<char>(unit);
    } else {
      out += static_cast<char>(0xE0 | (unit >> 12));
      out += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return out;
}

TEST(AttributedText, AgreesWithOneStylePerUnitOverRandomEdits) {
  std::mt19937 random(20240601);
  const auto below = [&](size_t n) { return static_cast<size_t>(random()) % n; };
  for (int round = 0; round < 200; ++round) {
    AttributedText text;
    Reference reference;
    for (int step = 0; step < 30; ++step) {
      const size_t size = reference.units.size();
      const TextRange range{below(size + 1), below(4)};
      const size_t start = range.start;
      const size_t length = std::min(range.length, size - start);
      const int link = static_cast<int>(below(3));
      if (below(2) == 0) {
        const std::u16string inserted = std::u16string(u"a行bく").substr(below(4), below(4));
        text.replace(range, utf8Of(inserted), linked(link));
        reference.units.replace(start, length, inserted);
        const auto at = reference.links.begin() + static_cast<ptrdiff_t>(start);
        reference.links.insert(reference.links.erase(at, at + static_cast<ptrdiff_t>(length)),
                               inserted.size(), link);
      } else {
        text.restyle(range, [&](TextStyle& style) { style.link = link; });
        for (size_t i = start; i < start + length; ++i) reference.links[i] = link;
      }
      ASSERT_EQ(text.text(), utf8Of(reference.units));
      ASSERT_EQ(text.length(), reference.units.size());
      size_t at = 0;
      for (const AttributedText::Run& run : text.runs()) {
        ASSERT_EQ(run.range.start, at);
        ASSERT_GT(run.range.length, 0u);
        if (at > 0) {
          ASSERT_NE(reference.links[at - 1], run.style.link);
        }
        for (; at < run.range.end(); ++at) ASSERT_EQ(reference.links.at(at), run.style.link);
      }
      ASSERT_EQ(at, reference.units.size());
    }
  }
}

TEST(TextRange, HoldsItsPositionsButNotItsEnd) {
  const TextRange range{2, 3};
  EXPECT_FALSE(range.contains(1));
  EXPECT_TRUE(range.contains(2));
  EXPECT_TRUE(range.contains(4));
  EXPECT_FALSE(range.contains(5));
  EXPECT_EQ(range.end(), 5u);
  EXPECT_FALSE((TextRange{2, 0}).contains(2));
}

}  // namespace
}  // namespace zavel
