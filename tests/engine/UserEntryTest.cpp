// Serial entries by themselves: sizes are those of the bytes, offsets count from each entry's start.
#include "engine/UserEntry.h"

#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using namespace std::string_literals;

TEST(UserEntry, StartsEmptyAndCanBeGivenBack) {
  UserEntryE english{.word = "x", .kind = 2, .hinsi = 3, .imi = "y", .phrase = "z", .youreis = {{"a", "b"}}};
  InitAddDicE(&english);
  EXPECT_TRUE(english.word.empty() && english.imi.empty() && english.phrase.empty() &&
              english.youreis.empty());
  EXPECT_EQ(english.kind + english.hinsi, 0);
  UserEntryJ japanese{.kana = "x", .kanji = "y", .imi = "z", .kureis = {{"a", "b"}}, .bunreis = {{"c", "d"}}};
  FreeAddDicJ(&japanese);
  EXPECT_TRUE(japanese.kana.empty() && japanese.kanji.empty() && japanese.imi.empty());
  EXPECT_TRUE(japanese.kureis.empty() && japanese.bunreis.empty());
  FreeAddDicE(&english);
  InitAddDicJ(&japanese);
}

TEST(UserEntry, ASecondEntryCountsFromItsOwnStart) {
  const UserEntryE entry{.word = "a", .kind = 1, .hinsi = 2, .imi = "b", .phrase = "", .youreis = {{"c", "d"}}};
  std::string list;
  OutputDataE(entry, &list);
  const std::string one = "a\0\x01\x02\0"s + Le32(47) + Le32(49) + Le16(1) + Le32(50) +
                          std::string(28, '\0') + "b\0\0"s + Le32(58) + Le32(60) + "c\0d\0"s;
  EXPECT_EQ(list, one);
  OutputDataE(entry, &list);
  EXPECT_EQ(list, one + one);
  EXPECT_EQ(GetOutputSizeE(entry), one.size());
}

TEST(UserEntry, JapaneseLikewise) {
  const UserEntryJ entry{.kana = "a", .kanji = "", .imi = "b", .kureis = {{"c", "d"}}, .bunreis = {{"e", "f"}}};
  // The field of the first offset stands at 3; 3 + 72 = 75, 77; 8 + 4 further 89.
  const std::string one = "a\0\0"s + Le32(75) + Le16(1) + Le32(77) + Le16(1) + Le32(89) +
                          std::string(56, '\0') + "b\0"s + Le32(85) + Le32(87) + "c\0d\0"s + Le32(97) +
                          Le32(99) + "e\0f\0"s;
  std::string list;
  OutputDataJ(entry, &list);
  EXPECT_EQ(list, one);
  OutputDataJ(entry, &list);
  EXPECT_EQ(list, one + one);
  EXPECT_EQ(GetOutputSizeJ(entry), one.size());
}

TEST(UserEntry, SizesAreThoseOfTheBytes) {
  for (size_t n = 0; n < 4; ++n) {
    const std::vector<ExamplePair> pairs(n, ExamplePair{std::string(n, 'e'), std::string(2 * n, 'j')});
    for (const uint8_t kind : {1, 2}) {
      const UserEntryE entry{
          .word = std::string(n, 'w'), .kind = kind, .imi = "i", .phrase = "pp", .youreis = pairs};
      std::string list;
      OutputDataE(entry, &list);
      EXPECT_EQ(GetOutputSizeE(entry), list.size());
      EXPECT_EQ(list.size(), 47 + n + 1 + (kind == 1 ? 1 : 3) + 8 * n + (n + 2 * n + 2) * n);
    }
    const UserEntryJ entry{
        .kana = "k", .kanji = std::string(n, 'k'), .imi = "i", .kureis = pairs, .bunreis = pairs};
    std::string list;
    OutputDataJ(entry, &list);
    EXPECT_EQ(GetOutputSizeJ(entry), list.size());
  }
}

}  // namespace
}  // namespace zavel::engine
