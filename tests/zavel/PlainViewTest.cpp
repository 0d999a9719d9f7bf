#include "PlainView.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

LookResult iku() {
  Entry entry;
  entry.headword = "行く";
  entry.reading = "いく";
  entry.senses = {{{"v", "vi"}, "1", {"to go", "to move"}, "a\tnote\nof two lines", {{"source", "target"}}},
                  {{}, "", {}, "", {{"alone", ""}}}};
  LookResult result;
  result.query = "いく";
  result.entries = {entry, entry};
  return result;
}

TEST(PlainEntries, ARecordForEachSenseAndEachExample) {
  EXPECT_EQ(plainEntries(iku(), 1),
            "いく\t行く\tいく\tv,vi\tto go; to move\ta note of two lines\n"
            "いく\t行く\tいく\texample\tsource\ttarget\n"
            "いく\t行く\tいく\texample\talone\t\n");
}

TEST(PlainEntries, AFieldSteersNoTerminal) {
  LookResult result = iku();
  result.query = "i\x1b[1mku\x7F";
  result.entries[0].senses = {{{}, "1", {"\u009B to go"}, "a\rb", {}}};
  EXPECT_EQ(plainEntries(result, 1), "i\uFFFD[1mku\uFFFD\t行く\tいく\t\t\uFFFD to go\ta\uFFFDb\n");
}

TEST(PlainEntries, TheLimitHoldsForTheTranslationDictionaryToo) {
  LookResult result;
  result.query = "R&D";
  result.rows = {{RowKind::kTranslation, "R&D", true, "★a\n    rd\n    RD", {}, "RD"}};
  EXPECT_EQ(plainEntries(result, 1), "R&D\tRD\t\ttranslation\t★a\t\nR&D\tRD\t\ttranslation\trd\t\n");
}

TEST(PlainEntries, WithoutALimitAllEntries) {
  EXPECT_EQ(plainEntries(iku(), 0).size(), 2 * plainEntries(iku(), 1).size());
  EXPECT_EQ(plainEntries({}, 0), "");
}

TEST(PlainHeadwords, WordAndLine) {
  LookResult result;
  result.headwords = {{"**go [行く]", "go"}, {"goal [門]", "goal"}};
  EXPECT_EQ(plainHeadwords(result, 0), "go\t**go [行く]\ngoal\tgoal [門]\n");
  EXPECT_EQ(plainHeadwords(result, 1), "go\t**go [行く]\n");
}

TEST(PlainForms, FormNameAndLabel) {
  LookResult result;
  result.forms = {{8, "went", "[動　詞：過去形]"}, {1, "go", "[名　詞：単数形]"}};
  EXPECT_EQ(plainForms(result), "went\tpast\t[動　詞：過去形]\ngo\tsingular\t[名　詞：単数形]\n");
}

}  // namespace
}  // namespace zavel::host
