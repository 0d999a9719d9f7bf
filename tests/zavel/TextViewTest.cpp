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

TEST(AnswerText, AQuerySteersNoTerminal) {
  Entry made = entry("go", "go");
  made.match = Match::kDerived;
  LookResult look = result({made});
  look.query = "go\x1b[1mer";
  EXPECT_EQ(answerText(look, {}), "go\uFFFD[1mer: derived from go\n\ngo\n");
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

TEST(AnswerText, SensesAreWrappedBehindTheirNumber) {
  TextLook look;
  look.width = 20;
  EXPECT_EQ(answerText(result({entry("go", "go\n    1 aaaa bbbb cccc dddd\n\n    2 eeee")}), look),
            "go\n    1 aaaa bbbb cccc\n      dddd\n\n    2 eeee\n");
}

TEST(AnswerText, EverySenseStandsByItself) {
  EXPECT_EQ(answerText(result({entry("go", "go\n    8 a\n\n    9 b\n    10 c\n    11 d")}), {}),
            "go\n    8 a\n\n    9 b\n\n    10 c\n\n    11 d\n");
  // A number that does not count on begins no sense.
  EXPECT_EQ(answerText(result({entry("go", "go\n    1 a\n    1990 b")}), {}), "go\n    1 a\n    1990 b\n");
}

TEST(AnswerText, AJapaneseChainIsReadFromItsEnd) {
  Entry made = entry("食べる", "たべる 食べる");
  made.match = Match::kInflected;
  made.via = {"past", "negative"};
  made.base = "食べる";
  LookResult look = result({made});
  look.query = "食べなかった";
  look.english = false;
  EXPECT_EQ(answerText(look, {}), "食べなかった: past of negative of 食べる\n\nたべる 食べる\n");
}

TEST(AnswerText, TellsTheBaseOfEachEntry) {
  Entry own = entry("saw", "saw"), see = entry("see", "see");
  see.match = Match::kInflected;
  see.via = {"past"};
  see.base = "see";
  EXPECT_EQ(answerText(result({own, see}), {}), "saw\n\nsaw: past of see\n\nsee\n");
}

TEST(AnswerText, TellsWhatIsNear) {
  Entry near = entry("ビル", "ビル");
  near.match = Match::kNear;
  EXPECT_EQ(answerText(result({entry("ビール", "ビール"), near}), {}),
            "ビール\n\nビル: near ビール\n\nビル\n");
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

TEST(FormsText, PartsTheTablesOfSeveralWords) {
  LookResult look;
  look.query = "saw";
  look.forms = {{6, "saw", "[現]", "saw"}, {6, "see", "[現]", "see"}, {8, "saw", "[過]", "see"}};
  EXPECT_EQ(formsText(look, {}), "saw  [現]\n\nsee  [現]\nsaw  [過]\n");
}

LookResult translated() {
  LookResult made;
  made.query = made.origin = "R&D";
  made.kinds = {RowKind::kTranslation};
  made.rows = {{RowKind::kTranslation, "R&D", true, "★a\n    rd\n    RD", {}, "RD"}};
  return made;
}

TEST(AnswerText, TellsWhatTheTranslationDictionaryWasAskedFor) {
  EXPECT_EQ(answerText(translated(), {}),
            "── Translation dictionary ──\nR&D: looked up as RD\n\n★a\n    rd\n    RD\n");
}

TEST(AnswerText, TheLimitHoldsForTheTranslationDictionaryToo) {
  TextLook look;
  look.limit = 1;
  LookResult made = translated();
  made.rows[0].lookedUp = "";
  EXPECT_EQ(answerText(made, look), "── Translation dictionary ──\n★a\n    rd\n\nmore entries (--limit)\n");
}

TEST(AnswerText, HeadingsAndReasonsWrap) {
  TextLook look;
  look.width = 16;
  EXPECT_EQ(answerText(translated(), look),
            "── Translation\ndictionary ──\nR&D: looked up\nas RD\n\n★a\n    rd\n    RD\n");
}

}  // namespace
}  // namespace zavel::host
