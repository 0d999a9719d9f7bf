#include "engine/KatuyoDic.h"

#include <gtest/gtest.h>

#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using namespace std::string_literals;
using test::sjis;

// The records of a plain list, or "status n".
std::string Process(const std::string& list) {
  std::string records;
  const Status status = ProcessKatuyo(sjis(list), &records);
  return status == kOk ? records : "status " + std::to_string(status);
}

TEST(ProcessKatuyo, WritesLengthFormCodeAndText) {
  EXPECT_EQ(Process("{went:過}"), "\x05\x00\x08went\x00"s);
  EXPECT_EQ(Process("{mouse:単,mice:複}"), "\x06\x00\x01mouse\x00\x05\x00\x02mice\x00"s);
}

TEST(ProcessKatuyo, KnowsTheTenLabels) {
  EXPECT_EQ(Process("{a:単,a:複,a:原,a:比,a:最,a:現,a:三,a:過,a:分,a:進}"),
            "\x02\x00\x01"
            "a\x00\x02\x00\x02"
            "a\x00\x02\x00\x03"
            "a\x00\x02\x00\x04"
            "a\x00\x02\x00\x05"
            "a\x00\x02\x00\x06"
            "a\x00\x02\x00\x07"
            "a\x00\x02\x00\x08"
            "a\x00\x02\x00\x09"
            "a\x00\x02\x00\x0A"
            "a\x00"s);
}

TEST(ProcessKatuyo, GivesAnUnknownLabelAStatus) {
  EXPECT_EQ(Process("{went:名}"), "status 257");
  EXPECT_EQ(Process("{went:x過}"), "status 257");
  EXPECT_EQ(Process("{went:}"), "status 257");
  EXPECT_EQ(Process("{went:"), "status 257");
  EXPECT_EQ(Process("{a:過,b:x}"), "status 257");
}

TEST(ProcessKatuyo, EndsAtTheClosingBrace) {
  EXPECT_EQ(Process("{a:過}b:分"),
            "\x02\x00\x08"
            "a\x00"s);
}

TEST(ProcessKatuyo, PassesOverOpeningBraces) {
  EXPECT_EQ(Process("{{a:過,{b:分}"),
            "\x02\x00\x08"
            "a\x00\x02\x00\x09"
            "b\x00"s);
}

TEST(ProcessKatuyo, StartsAWordAtEachComma) {
  EXPECT_EQ(Process("{x,a:過y,b:分}"),
            "\x02\x00\x08"
            "a\x00\x02\x00\x09"
            "b\x00"s);
}

TEST(ProcessKatuyo, EndsAWordAtItsLabel) {
  EXPECT_EQ(Process("{a:過b:分}"),
            "\x02\x00\x08"
            "a\x00\x02\x00\x09"
            "b\x00"s);
}

TEST(ProcessKatuyo, KeepsAnEmptyWord) {
  EXPECT_EQ(Process("{:過}"), "\x01\x00\x08\x00"s);
}

TEST(ProcessKatuyo, WritesNothingForAnEmptyList) {
  EXPECT_EQ(Process("{}"), "");
  EXPECT_EQ(Process(""), "");
}

TEST(AppendKatuyo, CutsWhatTheLengthFieldCantTell) {
  std::string records;
  AppendKatuyo(1, std::string(65535, 'a'), &records);
  EXPECT_EQ(records, "\xFF\xFF\x01" + std::string(65534, 'a') + '\0');
}

TEST(GetMemAddrK, TakesRecordsApart) {
  const std::string first = "\x03\x00\x08go\x00"s;
  const std::string second = "\x01\x00\x09\x00"s;
  const std::string records = first + second;
  EXPECT_EQ(GetMemAddrK(records), (std::vector<std::string_view>{first, second}));
  EXPECT_TRUE(GetMemAddrK("").empty());
}

TEST(CompareOnlyK, OrdersByFormCodeThenByText) {
  const std::string b1 =
      "\x02\x00\x01"
      "b\x00"s;
  const std::string a2 =
      "\x02\x00\x02"
      "a\x00"s;
  const std::string ab2 =
      "\x03\x00\x02"
      "ab\x00"s;
  EXPECT_LT(compare_ONLY_K(b1, a2), 0);
  EXPECT_GT(compare_ONLY_K(a2, b1), 0);
  EXPECT_LT(compare_ONLY_K(a2, ab2), 0);
  EXPECT_EQ(compare_ONLY_K(a2, a2), 0);
}

TEST(CompareOnlyK, DoesNotOrderByLength) {
  EXPECT_GT(compare_ONLY_K("\x02\x00\x01"
                           "b\x00"s,
                           "\x03\x00\x01"
                           "aa\x00"s),
            0);
}

TEST(SortKatuyo, SortsAndKeepsOneOfEach) {
  const std::string gone = "\x05\x00\x09gone\x00"s;
  const std::string went = "\x05\x00\x08went\x00"s;
  const std::string ate =
      "\x04\x00\x08"
      "ate\x00"s;
  EXPECT_EQ(SortKatuyo(gone + went + ate + went + gone), ate + went + gone);
  EXPECT_EQ(SortKatuyo(""), "");
}

TEST(SortKatuyo, KeepsOneTextUnderTwoCodes) {
  const std::string past = "\x04\x00\x08put\x00"s;
  const std::string participle = "\x04\x00\x09put\x00"s;
  EXPECT_EQ(SortKatuyo(participle + past), past + participle);
}

TEST(HinsiOfKatuyo, GoesByTheBaseForms) {
  EXPECT_EQ(HinsiOfKatuyo(sjis("{mouse:単}")), 1);
  EXPECT_EQ(HinsiOfKatuyo(sjis("{good:原}")), 2);
  EXPECT_EQ(HinsiOfKatuyo(sjis("{go:現}")), 4);
  EXPECT_EQ(HinsiOfKatuyo(sjis("{a:単,b:原,c:現}")), 7);
  EXPECT_EQ(HinsiOfKatuyo(sjis("{mice:複,better:比,best:最,goes:三,went:過,gone:分,going:進}")), 0);
  EXPECT_EQ(HinsiOfKatuyo(""), 0);
}

}  // namespace
}  // namespace zavel::engine
