#include "engine/ChangeMidasi.h"

#include <gtest/gtest.h>

#include "engine/DicFormat.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;

std::string Kana(const std::string& word) {
  std::string key;
  EXPECT_EQ(ChangeMidasiStrJ(word, false, &key), 1);
  return key;
}

std::string Kanji(const std::string& word) {
  std::string key;
  EXPECT_EQ(ChangeMidasiStrJ(word, true, &key), 1);
  return key;
}

TEST(ChangeMidasiStrE, LowersLettersAndDropsMarks) {
  EXPECT_EQ(ChangeMidasiStrE("Run-up"), "runup");
  EXPECT_EQ(ChangeMidasiStrE("R&B"), "randb");
  EXPECT_EQ(ChangeMidasiStrE("&&"), "andand");
  EXPECT_EQ(ChangeMidasiStrE("o'clock, a.m./p_m"), "oclockampm");
  EXPECT_EQ(ChangeMidasiStrE("AZaz"), "azaz");
}

TEST(ChangeMidasiStrE, LeavesOtherBytes) {
  EXPECT_EQ(ChangeMidasiStrE("a1!\xA5"), "a1!\xA5");
  EXPECT_EQ(ChangeMidasiStrE("@[`{"), "@[`{");
}

TEST(ChangeMidasiStrE, MayLeaveNothing) {
  EXPECT_EQ(ChangeMidasiStrE("-"), "");
  EXPECT_EQ(ChangeMidasiStrE(""), "");
}

TEST(ChangeMidasiStrJ, KanaKeepTheirLowBytes) {
  EXPECT_EQ(Kana(sjis("くだもの")), "\xAD\xBE\xE0\xCC");
  EXPECT_EQ(Kana(sjis("クダモノ")), "\xAD\xBE\xE0\xCC");
}

TEST(ChangeMidasiStrJ, KanjiKeepBothBytes) {
  EXPECT_EQ(Kanji("\x97\xD1\x8C\xE7"), "\x97\xD1\x8C\xE7");  // 林檎
  EXPECT_EQ(Kanji(sjis("ア")), "\x82\xA0");
}

TEST(ChangeMidasiStrJ, DropsLongSoundMinusAndEllipsis) {
  EXPECT_EQ(Kana(sjis("カード")), Kana(sjis("かど")));
  EXPECT_EQ(Kana(sjis("…あ－い")), "\xA0\xA2");
  EXPECT_EQ(Kana(sjis("ー")), "");
  EXPECT_EQ(Kana(""), "");
}

TEST(ChangeMidasiStrJ, ReplacesRareKanaAmongTheFirstTwoCharactersOfTheOutput) {
  EXPECT_EQ(Kana(sjis("ヴあ")), "\xA4\xA0");
  EXPECT_EQ(Kana(sjis("あヵ")), "\xA0\xA9");
  EXPECT_EQ(Kana(sjis("ヶヶ")), "\xAF\xAF");
  EXPECT_EQ(Kana("\x88\x68\x82\xA0"), "\xA4\xA0");
  EXPECT_EQ(Kana(sjis("ーーヴあ")), "\xA4\xA0");
  EXPECT_EQ(Kanji(sjis("ヴ")), "\x82\xA4");
}

TEST(ChangeMidasiStrJ, LeavesRareKanaBehindThePrefix) {
  EXPECT_EQ(Kana(sjis("ああヴ")), "\xA0\xA0\x94");
  EXPECT_EQ(Kanji(sjis("ああヶ")), "\x82\xA0\x82\xA0\x83\x96");
  EXPECT_EQ(Kana("\x82\xA0\x82\xA0\x88\x68"), "\xA0\xA0\x68");
}

TEST(ChangeMidasiStrJ, RefusesWhatIsNoLeadByteOrLacksItsTrail) {
  std::string key;
  EXPECT_EQ(ChangeMidasiStrJ("a", false, &key), 18);
  EXPECT_EQ(ChangeMidasiStrJ("\x82\xA0 ", false, &key), 18);
  EXPECT_EQ(ChangeMidasiStrJ("\xB1\xB2", false, &key), 18);
  EXPECT_EQ(ChangeMidasiStrJ("\x82\xA0\x82", true, &key), 18);
}

TEST(ChangeMidasi, DispatchesByIndexType) {
  std::string key;
  for (const uint16_t type : {kTypeE, kTypeHase, kTypeKatu}) {
    EXPECT_EQ(ChangeMidasi("A-b", type, &key), 1);
    EXPECT_EQ(key, "ab");
  }
  EXPECT_EQ(ChangeMidasi(sjis("ア"), kTypeKana, &key), 1);
  EXPECT_EQ(key, "\xA0");
  EXPECT_EQ(ChangeMidasi(sjis("ア"), kTypeKji, &key), 1);
  EXPECT_EQ(key, "\x82\xA0");
  EXPECT_EQ(ChangeMidasi("a", 0, &key), 18);
  EXPECT_EQ(ChangeMidasi("a", 6, &key), 18);
}

}  // namespace
}  // namespace zavel::engine
