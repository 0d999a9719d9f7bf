#include "user/UserText.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

std::string settled(TextKind kind, std::string text) {
  const std::string wrong = settleText(kind, &text);
  return wrong.empty() ? text : "! " + wrong;
}

TEST(UserTextTest, WidthIsFolded) {
  EXPECT_EQ(settled(TextKind::kEnglishWord, "ｂａｎｋ　ｎｏｔｅ"), "bank note");
  EXPECT_EQ(settled(TextKind::kReading, "ｶﾞｯｺｳ"), "ガッコウ");
  EXPECT_EQ(settled(TextKind::kReading, "ﾊﾟｰﾃｨｰ"), "パーティー");
  EXPECT_EQ(settled(TextKind::kReading, "ｳﾞ"), "ヴ");
  EXPECT_EQ(settled(TextKind::kMixed, "ﾊﾞﾝｸ｡"), "バンク。");
  EXPECT_EQ(settled(TextKind::kMixed, "ｱﾞ"), "ア゛");
}

TEST(UserTextTest, SoundMarksOfTheirOwnAreJoined) {
  EXPECT_EQ(settled(TextKind::kReading, "か\u3099っこう"), "がっこう");
  EXPECT_EQ(settled(TextKind::kReading, "は\u309Aん"), "ぱん");
  EXPECT_EQ(settled(TextKind::kReading, "つ\u3099と\u3099"), "づど");
}

TEST(UserTextTest, TypographyBecomesAscii) {
  EXPECT_EQ(settled(TextKind::kEnglishWord, "don’t"), "don't");
  EXPECT_EQ(settled(TextKind::kAscii, "“well” – so…"), "\"well\" - so...");
  EXPECT_EQ(settled(TextKind::kMixed, "〜"), "～");
}

TEST(UserTextTest, OuterBlanksAreCut) {
  EXPECT_EQ(settled(TextKind::kMixed, "　 銀行 の　"), "銀行 の");
  EXPECT_EQ(settled(TextKind::kMixed, " 　"), "! it is empty");
  EXPECT_EQ(settled(TextKind::kMixed, ""), "! it is empty");
}

TEST(UserTextTest, WhatCantBeHeldIsNamed) {
  EXPECT_EQ(settled(TextKind::kEnglishWord, "café"),
            "! \"é\" (U+00E9) can't stand here: an English word has letters, blanks and & ' , - . / _");
  EXPECT_EQ(settled(TextKind::kEnglishWord, "go2"),
            "! \"2\" (U+0032) can't stand here: an English word has letters, blanks and & ' , - . / _");
  EXPECT_EQ(settled(TextKind::kReading, "犬"),
            "! \"犬\" (U+72AC) can't stand here: a reading has hiragana, katakana and ー － …");
  EXPECT_EQ(settled(TextKind::kWritten, "①"),
            "! \"①\" (U+2460) can't stand here: a written form has kana and kanji of JIS levels 1 and 2");
  EXPECT_EQ(settled(TextKind::kMixed, "😀"),
            "! \"😀\" (U+1F600) can't stand here: the dictionary has no place for it");
  EXPECT_EQ(settled(TextKind::kAscii, "dog犬"),
            "! \"犬\" (U+72AC) can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kAscii, "a\nb"), "! U+000A can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kAscii, std::string("a\0b", 3)),
            "! U+0000 can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kMixed, "\xFF"), "! it is not UTF-8 text");
}

TEST(UserTextTest, LengthEndsAt65534Bytes) {
  EXPECT_EQ(settled(TextKind::kAscii, std::string(65534, 'a')), std::string(65534, 'a'));
  EXPECT_EQ(settled(TextKind::kAscii, std::string(65535, 'a')), "! it is too long");
}

TEST(UserTextTest, AnEntryNamesItsField) {
  UserEntry entry{.word = "bank", .meaning = "銀行"};
  EXPECT_EQ(settleEntry(&entry), "");
  EXPECT_EQ(entry.pos, 1);
  entry.examples = {{"a bank", ""}};
  EXPECT_EQ(settleEntry(&entry), "example: it is empty");
  entry = {.word = "--", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "word: it has no letter");
  entry = {.language = UserLanguage::kJapanese, .word = "ーー", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "word: it has no kana");
  entry = {.language = UserLanguage::kJapanese, .word = "いぬ", .meaning = "犬"};
  EXPECT_EQ(settleEntry(&entry), "meaning: \"犬\" (U+72AC) can't stand here: only ASCII can stand here");
}

TEST(UserTextTest, FieldsOfTheOtherLanguageAreRefused) {
  UserEntry entry{.word = "a", .kanji = "犬", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "kanji: an English entry has none");
  entry = {.word = "a", .meaning = "x", .sentences = {{"a", "b"}}};
  EXPECT_EQ(settleEntry(&entry), "sentence: an English entry has examples only");
  entry = {.word = "a", .pos = 2, .phrase = "a b", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "pos: a phrase has no part of speech");
  entry = {.word = "a", .pos = 10, .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "pos: there is no such one");
  entry = {.language = UserLanguage::kJapanese, .word = "い", .pos = 1, .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "pos: a Japanese entry has no part of speech");
  entry = {.language = UserLanguage::kJapanese, .word = "い", .phrase = "p", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "phrase: a Japanese entry explains no phrase");
}

}  // namespace
}  // namespace zavel::host
