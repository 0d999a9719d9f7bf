#include "engine/MidasiCheck.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/DicFormat.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;

TEST(ChkMidasiStrE, AcceptsLettersAndEightMarks) {
  EXPECT_EQ(ChkMidasiStrE("apple"), 1);
  EXPECT_EQ(ChkMidasiStrE("AZaz &',-./_"), 1);
  for (int c = 1; c < 256; ++c) {
    const char word[] = {static_cast<char>(c), 0};
    const bool good = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                      std::string(" &',-./_").find(word) != std::string::npos;
    EXPECT_EQ(ChkMidasiStrE(word), good ? 1 : 18) << c;
  }
}

TEST(ChkMidasiStrE, RefusesNullEmptyLeadBytesAndWordsTooLong) {
  EXPECT_EQ(ChkMidasiStrE(nullptr), 18);
  EXPECT_EQ(ChkMidasiStrE(""), 18);
  EXPECT_EQ(ChkMidasiStrE("a\x88\x9F"), 18);
  EXPECT_EQ(ChkMidasiStrE(std::string(65534, 'a').c_str()), 1);
  EXPECT_EQ(ChkMidasiStrE(std::string(65535, 'a').c_str()), 18);
}

TEST(ChkMidasiStrJ, AcceptsKanaAndThreeMarks) {
  EXPECT_EQ(ChkMidasiStrJ(sjis("りんご").c_str()), 1);
  EXPECT_EQ(ChkMidasiStrJ(sjis("リンゴヴヵヶ").c_str()), 1);
  EXPECT_EQ(ChkMidasiStrJ(sjis("カード－…").c_str()), 1);
  EXPECT_EQ(ChkMidasiStrJ("\x88\x68"), 1);
}

TEST(ChkMidasiStrJ, RefusesAllElse) {
  EXPECT_EQ(ChkMidasiStrJ(nullptr), 18);
  EXPECT_EQ(ChkMidasiStrJ(""), 18);
  EXPECT_EQ(ChkMidasiStrJ("a"), 18);
  EXPECT_EQ(ChkMidasiStrJ(sjis("林").c_str()), 18);
  EXPECT_EQ(ChkMidasiStrJ(sjis("あ、").c_str()), 18);
  EXPECT_EQ(ChkMidasiStrJ(sjis("Ａ").c_str()), 18);
  EXPECT_EQ(ChkMidasiStrJ("\xB1"), 18);          // half-width kana
  EXPECT_EQ(ChkMidasiStrJ("\x82\xA0\x82"), 18);  // the trail byte is missing
  EXPECT_EQ(ChkMidasiStrJ("\x83\x7F"), 18);      // no character
}

TEST(ChkMidasiStrK, AcceptsKanjiBesideKanaAndNull) {
  EXPECT_EQ(ChkMidasiStrK(nullptr), 1);
  EXPECT_EQ(ChkMidasiStrK(sjis("林檎").c_str()), 1);
  EXPECT_EQ(ChkMidasiStrK(sjis("お茶ー").c_str()), 1);
  EXPECT_EQ(ChkMidasiStrK("\x88\x9F\x98\x72\x98\x9F\xEA\x9E"), 1);
}

TEST(ChkMidasiStrK, RefusesAllElse) {
  EXPECT_EQ(ChkMidasiStrK(""), 18);
  EXPECT_EQ(ChkMidasiStrK("\x98\x73"), 18);
  EXPECT_EQ(ChkMidasiStrK("\xEA\x9F"), 18);
  EXPECT_EQ(ChkMidasiStrK("\x89\x30"), 18);  // in the range, but no trail byte
  EXPECT_EQ(ChkMidasiStrK("\x97\xD1\x8C"), 18);
  EXPECT_EQ(ChkMidasiStrK(sjis("々").c_str()), 18);
}

TEST(ChkMixStr, AcceptsPrintingCharactersOfBothKinds) {
  EXPECT_EQ(ChkMixStr(sjis("りんご、林檎 (apple)").c_str()), 1);
  EXPECT_EQ(ChkMixStr(" ~"), 1);
  EXPECT_EQ(ChkMixStr(nullptr), 18);
  EXPECT_EQ(ChkMixStr(""), 18);
  EXPECT_EQ(ChkMixStr("a\n"), 18);
  EXPECT_EQ(ChkMixStr("\x7F"), 18);
  EXPECT_EQ(ChkMixStr("\xB1"), 18);
  EXPECT_EQ(ChkMixStr("\xF5\xD1"), 18);  // a tag
  EXPECT_EQ(ChkMixStr("a\x82"), 18);
  EXPECT_EQ(ChkMixStr(std::string(65534, 'a').c_str()), 1);
  EXPECT_EQ(ChkMixStr(std::string(65535, 'a').c_str()), 18);
}

TEST(Chk1ByteStr, AcceptsPrintingAscii) {
  for (int c = 1; c < 256; ++c) {
    const char text[] = {static_cast<char>(c), 0};
    EXPECT_EQ(Chk1ByteStr(text), c >= 0x20 && c <= 0x7E ? 1 : 18) << c;
  }
  EXPECT_EQ(Chk1ByteStr(nullptr), 18);
  EXPECT_EQ(Chk1ByteStr(""), 18);
  EXPECT_EQ(Chk1ByteStr(std::string(65534, 'a').c_str()), 1);
  EXPECT_EQ(Chk1ByteStr(std::string(65535, 'a').c_str()), 18);
}

// The three kinds of examples share their rule.
template <typename Pair>
void CheckExamples(Status (*check)(uint16_t count, Pair* const* pairs)) {
  std::string eng = "an apple", jpn = sjis("りんご"), tagged = "\xF5\xD1";
  Pair good{eng.data(), jpn.data()}, noEng{nullptr, jpn.data()}, noJpn{eng.data(), nullptr};
  Pair badEng{jpn.data(), jpn.data()}, badJpn{eng.data(), tagged.data()};
  EXPECT_EQ(check(0, nullptr), 1);
  EXPECT_EQ(check(1, nullptr), 18);
  Pair* two[] = {&good, &good};
  EXPECT_EQ(check(2, two), 1);
  for (Pair* bad : {&noEng, &noJpn, &badEng, &badJpn, static_cast<Pair*>(nullptr)}) {
    Pair* pairs[] = {&good, bad};
    EXPECT_EQ(check(2, pairs), 18);
    EXPECT_EQ(check(1, pairs), 1);
  }
}

TEST(ChkExamples, WantEnglishAndJapaneseSides) {
  CheckExamples<yourei>(ChkYurei);
  CheckExamples<kurei>(ChkKurei);
  CheckExamples<bunrei>(ChkBunrei);
}

TEST(CheckInput, WantsBytesOrPairsByIndexType) {
  EXPECT_EQ(CheckInput("apple!", kTypeE), 1);
  EXPECT_EQ(CheckInput("\xB1", kTypeE), 1);
  EXPECT_EQ(CheckInput(sjis("あ").c_str(), kTypeE), 18);
  for (const uint16_t type : {kTypeKana, kTypeKji}) {
    EXPECT_EQ(CheckInput(sjis("あ林").c_str(), type), 1);
    EXPECT_EQ(CheckInput(sjis("あa").c_str(), type), 18);
    EXPECT_EQ(CheckInput("\x82\xA0\x82", type), 18);
  }
  EXPECT_EQ(CheckInput("a", kTypeHase), 18);
  EXPECT_EQ(CheckInput(nullptr, kTypeE), 18);
}

}  // namespace
}  // namespace zavel::engine
