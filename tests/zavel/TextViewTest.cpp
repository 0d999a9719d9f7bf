#include "TextView.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zavel::host {
namespace {

Entry entry(const std::string& headword, const std::string& text) {
  Entry made;
  made.headword = headword;
  made.text = text;
  made.spans = {{0, true, false, 0xFF0000}, {headword.size(), false, false, 0}};
  return made;
}

LookResult result(std::vector<Entry> entries) {
  LookResult made;
  made.query = made.origin = entries.empty() ? "" : entries[0].headword;
  made.entries = std::move(entries);
  return made;
}

TEST(AnswerText, ShowsAnEntryAsItIsLaidOut) {
  EXPECT_EQ(answerText(result({entry("go", "go\n-[v]\n    行く")}), {}), "go\n-[v]\n    行く\n");
}

TEST(AnswerText, RaisesHomographNumbersAndShowsStars) {
  Entry made = entry("go", "go\n行く");
  made.homograph = 12;
  made.stars = 3;
  EXPECT_EQ(answerText(result({made}), {}), "go¹² ***\n行く\n");
}

TEST(AnswerText, ColoursFollowTheSpans) {
  TextLook look;
  look.colour = true;
  EXPECT_EQ(answerText(result({entry("go", "go\nx")}), look), "\x1b[0;1;31mgo\x1b[0m\n\x1b[0mx\x1b[0m\n");
}

TEST(AnswerText, TakesAsManySpansAsRowsInItsStride) {
  constexpr size_t kRows = 400000;
  Entry made;
  for (size_t i = 0; i < kRows; ++i) {
    made.spans.push_back({made.text.size(), i % 2 == 0, false, 0});
    made.text += i + 1 < kRows ? "a\n" : "a";
  }
  TextLook look;
  look.colour = true;
  const auto begin = std::chrono::steady_clock::now();
  const std::string text = answerText(result({made}), look);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  EXPECT_EQ(text.substr(0, 22), "\x1b[0;1ma\x1b[0m\n\x1b[0ma\x1b[0m\n");
}

TEST(AnswerText, TellsWhyAnInflectedWordAnswers) {
  Entry made = entry("go", "go");
  made.match = Match::kInflected;
  made.via = {"past"};
  LookResult look = result({made});
  look.query = "went";
  EXPECT_EQ(answerText(look, {}), "went: past of go\n\ngo\n");
}

TEST(AnswerText, TellsOtherSpellings) {
  Entry other = entry("color", "color");
  other.match = Match::kSpelling;
  EXPECT_EQ(answerText(result({entry("colour", "colour"), other}), {}),
            "colour\n\ncolor: other spelling of colour\n\ncolor\n");
}

TEST(AnswerText, RaisesTheNumberOfAReference) {
  EXPECT_EQ(answerText(result({entry("colour", "colour\n色 (1)\n《英》 =color(3) .")}), {}),
            "colour\n色 (1)\n《英》 =color³\n");
}

TEST(AnswerText, ListsFurtherHeadwordsOnce) {
  LookResult look = result({entry("go", "go")});
  look.headwords = {
      {"go [行く]", "go"}, {"goal [目標]", "goal"}, {"goal [門]", "goal"}, {"goat [山羊]", "goat"}};
  EXPECT_EQ(answerText(look, {}), "go\n\nSee also: goal, goat\n");
}

TEST(AnswerText, KeepsTheLimit) {
  TextLook look;
  look.limit = 1;
  EXPECT_EQ(answerText(result({entry("a", "a"), entry("b", "b")}), look), "a\n\n1 more entry (--limit)\n");
}

TEST(AnswerText, WrapsWithTheIndentKept) {
  TextLook look;
  look.width = 20;
  EXPECT_EQ(answerText(result({entry("go", "go\n    aaaa bbbb cccc dddd eeee")}), look),
            "go\n    aaaa bbbb cccc\n    dddd eeee\n");
}

TEST(HeadwordText, IsALineEach) {
  LookResult look;
  look.headwords = {{"go [行く]", "go"}, {"goal [目標]", "goal"}};
  EXPECT_EQ(headwordText(look, {}), "go [行く]\ngoal [目標]\n");
}

TEST(FormsText, AlignsLabels) {
  LookResult look;
  look.query = "went";
  look.forms = {{6, "go", "[動　詞：現在分詞]"}, {8, "went", "[動　詞：過去形]"}};
  EXPECT_EQ(formsText(look, {}), "go    [動　詞：現在分詞]\nwent  [動　詞：過去形]\n");
}

}  // namespace
}  // namespace zavel::host
