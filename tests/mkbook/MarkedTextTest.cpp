// Marks in text: what they become, and what is wrong with others.
#include "mkbook/MarkedText.h"

#include <gtest/gtest.h>

namespace zavel::mkbook {
namespace {

using Kind = Span::Kind;

// Spans in a line: "e(...)" emphasis, "_" subscript, "^" superscript, "k" keyword, "r" reference, "m" menu,
// "p" picture, "s" sound, with "|target" at the end of what leads; text alone as it is. A complaint: "offset:
// message".
class Marks : public testing::Test {
 protected:
  std::string shown(const std::vector<Span>& spans) {
    std::string out;
    for (const Span& span : spans) {
      const std::string text = span.text + shown(span.inside);
      const bool leads = span.kind == Kind::kReference || span.kind == Kind::kMenu;
      out += span.kind == Kind::kPlain ? text
                                       : "pe_^krmps"[static_cast<size_t>(span.kind)] + ("(" + text) +
                                             (leads ? "|" + span.target : "") + ")";
    }
    return out;
  }
  std::string read(const std::string& text) {
    complaint_.clear();
    const MarkMeanings meanings = {
        [this](size_t offset, const std::string& message) {
          complaint_ += std::to_string(offset) + ": " + message;
        },
        [this](Span*, const std::string& label) { told_ += "label " + label + ";"; },
        [this](Span*, const std::string& menu, size_t offset) {
          told_ += "menu " + menu + " at " + std::to_string(offset) + ";";
        },
        [this](Span*, const std::string& file, size_t offset) {
          told_ += "file " + file + " at " + std::to_string(offset) + ";";
        }};
    const std::string out = shown(MarkedText(text, 12, meanings).spans());
    return complaint_.empty() ? out : complaint_;
  }

  std::string complaint_, told_;
};

TEST_F(Marks, AreNoneInPlainText) {
  EXPECT_EQ(read("see | the @ and # of it"), "see | the @ and # of it");
  EXPECT_EQ(read(""), "");
}

TEST_F(Marks, MakeStyles) {
  EXPECT_EQ(read("a {*strong*} word"), "a e(strong) word");
  EXPECT_EQ(read("H{_2}O, 10{^4}, {=Malus}"), "H_(2)O, 10^(4), k(Malus)");
  EXPECT_EQ(read("{*}"), "");
}

TEST_F(Marks, MayEndWithTheSignThatTheyBeganWith) {
  EXPECT_EQ(read("{_a_b_} {^2^} {=k=} {*a_} {*\\*}"), "_(a_b) ^(2) k(k) e(a_) e(*)");
  EXPECT_EQ(read("{*a{_b_}*}{**}"), "e(a_(b))");
  EXPECT_EQ(read("{>a*}"), "r(a*|a*)");
}

TEST_F(Marks, StandInsideEachOther) {
  EXPECT_EQ(read("{*a{^b{_c}}d}e"), "e(a^(b_(c))d)e");
  EXPECT_EQ(read("{*{>dog}}"), "e(r(dog|dog))");
  EXPECT_EQ(read("{>dog|a {*big} dog}"), "r(a e(big) dog|dog)");
}

TEST_F(Marks, LeadToEntries) {
  EXPECT_EQ(read("see {>dog}."), "see r(dog|dog).");
  EXPECT_EQ(read("{> hot dog |them}"), "r(them|hot dog)");
  EXPECT_EQ(read("{>a\\|b\\}|c|d}"), "r(c|d|a|b})");
  EXPECT_EQ(read("{>dog|}"), "r(dog|dog)");
  EXPECT_EQ(told_, "");
}

TEST_F(Marks, LeadToLabels) {
  EXPECT_EQ(read("{>#here} {>#there|text}"), "r(|here) r(text|there)");
  EXPECT_EQ(told_, "label here;label there;");
  EXPECT_EQ(read("{>\\#1}"), "r(#1|#1)");
}

TEST_F(Marks, LeadToMenus) {
  EXPECT_EQ(read("ab {>>Plants} {>>Animals|beasts}"), "ab m(Plants|Plants) m(beasts|Animals)");
  EXPECT_EQ(told_, "menu Plants at 3;menu Animals at 14;");
}

TEST_F(Marks, NameFiles) {
  EXPECT_EQ(read("{picture a b.png} {picture c.png|a {*leaf}}"), "p() p(a e(leaf))");
  EXPECT_EQ(read("{sound bell.wav} {sound bell.wav|hear}"), "s(♪) s(hear)");
  EXPECT_EQ(told_, "file a b.png at 0;file c.png at 18;file bell.wav at 0;file bell.wav at 17;");
}

TEST_F(Marks, SayTheirLine) {
  const MarkMeanings meanings = {};
  EXPECT_EQ(MarkedText("{>dog}", 12, meanings).spans()[0].line, 12u);
}

TEST_F(Marks, AreWrittenAsSignsBehindABackslash) {
  EXPECT_EQ(read("\\{a\\} \\\\ \\| \\@ \\# \\ "), "{a} \\ | @ #  ");
  const std::string wrong =
      "\\ stands ahead of { } | \\ @ # * _ ^ = and a blank alone. For the sign itself write \\\\";
  EXPECT_EQ(read("ab\\n"), "2: " + wrong);
  EXPECT_EQ(read("\\"), "0: " + wrong);
  EXPECT_EQ(read("{>a\\b}"), "3: " + wrong);
}

TEST_F(Marks, ThatAreWrongAreTold) {
  const std::string unknown =
      "unknown mark; there are {*, {_, {^, {=, {>, {>>, {picture and {sound. For the sign itself write \\{";
  const std::string open = "a { without its }. For the sign itself write \\{";
  EXPECT_EQ(read("a {b} c"), "2: " + unknown);
  EXPECT_EQ(read("a {"), "2: " + unknown);
  EXPECT_EQ(read("{picture}"), "0: " + unknown);
  EXPECT_EQ(read("a {*b"), "2: " + open);
  EXPECT_EQ(read("a {>b"), "2: " + open);
  EXPECT_EQ(read("a {>b|c"), "2: " + open);
  EXPECT_EQ(read("{*a {_b}"), "0: " + open);
  EXPECT_EQ(read("a } b"), "2: a } without its {. For the sign itself write \\}");
  EXPECT_EQ(read("{> }"), "0: a mark that names nothing");
  EXPECT_EQ(read("{>}"), "0: a mark that names nothing");
  EXPECT_EQ(read("{>#|a}"), "0: a mark that names nothing");
  EXPECT_EQ(read("{sound |a}"), "0: a mark that names nothing");
  EXPECT_EQ(read("{>a{*b}}"), "3: a mark where a name is looked for");
  EXPECT_EQ(read("{*a{*b}}"), "3: a mark inside one of its own kind");
  EXPECT_EQ(read("{>a|{>b}}"), "4: a mark inside one of its own kind");
  EXPECT_EQ(read("{>a|{sound b}}"), "4: references, pictures and sounds hold none of each other");
  EXPECT_EQ(read("{a} {b}"), "0: " + unknown);  // one complaint for a line
}

}  // namespace
}  // namespace zavel::mkbook
