#include "engine/KatuyoForms.h"

#include <gtest/gtest.h>

#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;

struct Row {
  uint16_t hinnum;
  uint8_t code;
  const char* label;
  uint8_t hinsi;
  bool last;
};

constexpr Row kRows[] = {
    {40, 1, "単", 1, false}, {41, 2, "複", 1, true},  {20, 3, "原", 2, false}, {21, 4, "比", 2, false},
    {22, 5, "最", 2, true},  {10, 6, "現", 4, false}, {31, 7, "三", 4, false}, {11, 8, "過", 4, false},
    {12, 9, "分", 4, false}, {13, 10, "進", 4, true},
};

TEST(ConvHinnum, GivesTheFormCode) {
  for (const Row& row : kRows) EXPECT_EQ(ConvHinnum(row.hinnum), row.code) << row.hinnum;
}

TEST(ConvHinnum, IsZeroForAnythingElse) {
  for (const int hinnum : {0, 1, 9, 14, 19, 23, 30, 32, 39, 42, 65535}) {
    EXPECT_EQ(ConvHinnum(static_cast<uint16_t>(hinnum)), 0) << hinnum;
  }
}

TEST(ConvLabel, GivesTheFormCode) {
  for (const Row& row : kRows) EXPECT_EQ(ConvLabel(sjis(row.label)), row.code) << row.label;
}

TEST(ConvLabel, IsZeroForAnythingElse) {
  EXPECT_EQ(ConvLabel(sjis("名")), 0);
  EXPECT_EQ(ConvLabel("\x92"), 0);  // half of 単
  EXPECT_EQ(ConvLabel(""), 0);
}

TEST(HinsiOfForm, GroupsTheCodes) {
  for (const Row& row : kRows) EXPECT_EQ(HinsiOfForm(row.code), row.hinsi) << int{row.code};
  EXPECT_EQ(HinsiOfForm(0), 0);
  EXPECT_EQ(HinsiOfForm(11), 0);
  EXPECT_EQ(HinsiOfForm(255), 0);
}

TEST(IsLastForm, IsTrueForPluralSuperlativeAndProgressive) {
  for (const Row& row : kRows) EXPECT_EQ(IsLastForm(row.code), row.last) << int{row.code};
  EXPECT_FALSE(IsLastForm(0));
  EXPECT_FALSE(IsLastForm(11));
}

}  // namespace
}  // namespace zavel::engine
