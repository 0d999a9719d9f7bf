// Identifications: their bytes, and headwords out of entry texts.
#include "engine/Sikibetu.h"

#include "engine/DicFormat.h"
#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::sjis;
using namespace std::string_literals;

TEST(PackSikibetu, HasAGapOfTwoBytesAheadOfItsLastField) {
  const sikibetu_data sikibetu{0x04030201, 0x0605, 0x0807, 0x0A09, 0x0C0B,
                               0x100F0E0D, 0x1211, 0x1413, 0x1615, 0x1C1B1A19};
  EXPECT_EQ(
      PackSikibetu(sikibetu),
      "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\x10\x11\x12\x13\x14\x15\x16\0\0\x19\x1A\x1B\x1C"s);
  EXPECT_EQ(kSikibetuSize, 28u);
}

TEST(NoSikibetu, SaysSoInItsFirstPositionAlone) {
  EXPECT_EQ(PackSikibetu(NoSikibetu()), std::string(6, '\0') + "\xFF\xFF" + std::string(20, '\0'));
}

TEST(ChkSikibetu, ComparesWhatItsTypeHas) {
  const index_info info{"word", 1, 2, 3, 4, 5, 6, 7, 8, 2};
  sikibetu_data good{0, 1, 2, 3, 4, 5, 6, 7, 8, 0};
  for (const uint16_t type : {kTypeE, kTypeKana, kTypeKji})
    EXPECT_TRUE(ChkSikibetu(good, info, type)) << type;
  good.ix3Index = 9;
  EXPECT_TRUE(ChkSikibetu(good, info, kTypeE)) << "the last of two rows";
  for (const uint16_t row : {7, 10}) {
    sikibetu_data bad = good;
    bad.ix3Index = row;
    EXPECT_FALSE(ChkSikibetu(bad, info, kTypeE)) << row;
  }
  for (const auto field :
       {&sikibetu_data::pos1, &sikibetu_data::pos3, &sikibetu_data::ix3Size, &sikibetu_data::ix3Count}) {
    sikibetu_data bad = good;
    bad.*field += 1;
    for (const uint16_t type : {kTypeE, kTypeKana, kTypeKji}) EXPECT_FALSE(ChkSikibetu(bad, info, type));
  }
  sikibetu_data bad = good;
  bad.ix3Offset = 6;
  EXPECT_FALSE(ChkSikibetu(bad, info, kTypeKana));
  bad = good;
  bad.pos2 = 0;
  EXPECT_FALSE(ChkSikibetu(bad, info, kTypeE));
  EXPECT_TRUE(ChkSikibetu(bad, info, kTypeKana));
  bad = good;
  bad.fileNo = 0;
  EXPECT_FALSE(ChkSikibetu(bad, info, kTypeKji));
  EXPECT_TRUE(ChkSikibetu(bad, info, kTypeE));
}

class SikibetuTest : public RamDicTest {};

TEST_F(SikibetuTest, WithoutItsRecordsOrOfAnotherTypeNothingIsProved) {
  sikibetu_data any{};
  EXPECT_EQ(CheckOverwirteSikibetu(nullptr, nullptr, kTypeE), 18);
  EXPECT_EQ(CheckOverwirteSikibetu(&any, nullptr, kTypeKana), 18);
  EXPECT_EQ(CheckOverwirteSikibetu(&any, &any, kTypeKji), 18);
  EXPECT_EQ(CheckOverwirteSikibetu(&any, &any, 0), 18);
}

TEST_F(SikibetuTest, TheRowsOfAWrittenFormAreGivenInOrder) {
  for (const char* kana : {"ねこ", "びょう"})
    ASSERT_EQ(Add(EntryJ{.kana = kana, .kanji = "猫", .imi = "cat"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこや", .kanji = "猫屋敷", .imi = "x"}), 1);
  ASSERT_EQ(OpenFsObjsUserJ(false, true), 1);
  std::vector<uint32_t> offsets;
  // Behind the header: 7 + 3 + 6 bytes of ねこ 猫 cat.
  EXPECT_EQ(GetCompleteDicOfset(sjis("猫"), 141, &offsets), 1)
      << "the second block, behind 13 bytes of the first";
  EXPECT_EQ(offsets, (std::vector<uint32_t>{128, 144}));
  EXPECT_EQ(GetCompleteDicOfset(sjis("猫屋"), 128, &offsets), 1)
      << "its remainder is empty, too, but another block's";
  EXPECT_EQ(GetCompleteDicOfset(sjis("猫あい"), 128, &offsets), 1);
  EXPECT_TRUE(offsets.empty());
  EXPECT_EQ(GetCompleteDicOfset(sjis("猫"), 100, &offsets), 20);
  EXPECT_EQ(GetCompleteDicOfset(sjis("猫"), 100000, &offsets), 21);
  CloseFsObjsUserJ();
}

TEST(GetMidasiWord, GivesTheHeadwordUpToItsEnd) {
  std::string word;
  size_t size = 0;
  EXPECT_TRUE(
      GetMidasiWord("\xF5\xD1\xF5\xB1"
                    "cat\xF5\xC1\nmore",
                    &word, &size));
  EXPECT_EQ(word, "cat");
  EXPECT_EQ(size, 4u);
  EXPECT_TRUE(GetMidasiWord("\xF5\xD1" + sjis("ねこ") + "\x1B" + sjis("猫") + "\n", &word, &size));
  EXPECT_EQ(word, sjis("ねこ"));
  EXPECT_EQ(size, 5u);
  EXPECT_TRUE(
      GetMidasiWord("\xF5\xD1"
                    "cat\xF5\xD4x",
                    &word, &size))
      << "a tag ends it";
  EXPECT_EQ(word, "cat");
  EXPECT_TRUE(
      GetMidasiWord("x\xF5\xD4y\xF5\xD1"
                    "cat",
                    &word, &size))
      << "it need not come first";
  EXPECT_EQ(word, "cat");
  EXPECT_FALSE(GetMidasiWord("", &word, &size));
  EXPECT_FALSE(GetMidasiWord("cat\n\xF5\xD4x\n", &word, &size));
}

TEST(GetMidasiWordK, GivesTheWrittenFormAsAKey) {
  std::string key = "old";
  EXPECT_EQ(GetMidasiWordK("\xF5\xD1" + sjis("ねこ") + "\x1B" + sjis("猫ヤー") + "\n", &key), 1);
  EXPECT_EQ(key, sjis("猫や"));
  for (const std::string& text :
       {"\xF5\xD1" + sjis("ねこ") + "\n", "\xF5\xD1" + sjis("ねこ") + "\x1B\n", "x"s}) {
    EXPECT_EQ(GetMidasiWordK(text, &key), 1);
    EXPECT_EQ(key, "") << text;
  }
  EXPECT_EQ(GetMidasiWordK("\xF5\xD1" + sjis("ねこ") + "\x1B" + "cat\n", &key), 18);
}

}  // namespace
}  // namespace zavel::engine
