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

TEST(UserTextTest, TypographyThatShiftJisLacksHasStandIns) {
  EXPECT_EQ(settled(TextKind::kMixed, "‘’“”…‐―−′″"), "‘’“”…‐―－′″");
  EXPECT_EQ(settled(TextKind::kMixed, "1–2 — 3‑4 ‒ „a‟"), "1-2 ― 3‐4 - \"a\"");
  EXPECT_EQ(settled(TextKind::kMixed, "a\u00A0b\u2009c • d · e ¥ ‾"), "a b c ・ d ・ e ￥ ￣");
  EXPECT_EQ(settled(TextKind::kAscii, "‚a′ “b″ c―d e\u2003f 〜"), "'a' \"b\" c-d e f ~");
  EXPECT_EQ(settled(TextKind::kReading, "ゔぁいおりん"), "ヴぁいおりん");
  EXPECT_EQ(settled(TextKind::kReading, "う\u3099"), "ヴ");
}

TEST(UserTextTest, MarksThatNobodySeesAreLeftOut) {
  EXPECT_EQ(settled(TextKind::kEnglishWord, "\uFEFFba\u00ADnk\u200B"), "bank");
  EXPECT_EQ(settled(TextKind::kMixed, "銀\u2060行"), "銀行");
}

TEST(UserTextTest, BlanksAreNamedAndPlacesAreThoseOfTheTypedText) {
  EXPECT_EQ(
      settled(TextKind::kReading, "いぬ　ねこ"),
      "! an ideographic blank (U+3000), character 3, can't stand here: a reading has hiragana, katakana "
      "and ー － … ・");
  EXPECT_EQ(
      settled(TextKind::kReading, "い ぬ"),
      "! a blank (U+0020), character 2, can't stand here: a reading has hiragana, katakana and ー － … ・");
  EXPECT_EQ(settled(TextKind::kMixed, "　…ｶﾞ\tb"),
            "! a tab (U+0009), character 5, can't stand here: the dictionary has no place for it");
  EXPECT_EQ(settled(TextKind::kAscii, " …犬"),
            "! \"犬\" (U+72AC), character 3, can't stand here: only ASCII can stand here");
}

// No index has a place for them, but entries have.
TEST(UserTextTest, CharactersThatAreFiledOtherwiseAreHeld) {
  EXPECT_EQ(settled(TextKind::kMixed, "堯槇遙瑤凜熙"), "堯槇遙瑤凜熙");
  EXPECT_EQ(settled(TextKind::kWritten, "堯槇遙瑤凜熙"), "堯槇遙瑤凜熙");
  EXPECT_EQ(settled(TextKind::kWritten, "時々・人々"), "時々・人々");
  EXPECT_EQ(settled(TextKind::kReading, "ｱｲｽ･ｸﾘｰﾑ"), "アイス・クリーム");
  EXPECT_EQ(settled(TextKind::kReading, "々").substr(0, 1), "!");
}

TEST(UserTextTest, OuterBlanksAreCut) {
  EXPECT_EQ(settled(TextKind::kMixed, "　 銀行 の　"), "銀行 の");
  EXPECT_EQ(settled(TextKind::kMixed, "\u2003\u00A0銀行 \u2002"), "銀行");
  EXPECT_EQ(settled(TextKind::kMixed, "\u2003"), "! it is empty");
  EXPECT_EQ(settled(TextKind::kMixed, " 　"), "! it is empty");
  EXPECT_EQ(settled(TextKind::kMixed, ""), "! it is empty");
}

TEST(UserTextTest, WhatCantBeHeldIsNamed) {
  EXPECT_EQ(settled(TextKind::kEnglishWord, "café"),
            "! \"é\" (U+00E9), character 4, can't stand here: an English word has letters, blanks and & ' , "
            "- . / _");
  EXPECT_EQ(settled(TextKind::kEnglishWord, "go2"),
            "! \"2\" (U+0032), character 3, can't stand here: an English word has letters, blanks and & ' , "
            "- . / _");
  EXPECT_EQ(
      settled(TextKind::kReading, "犬"),
      "! \"犬\" (U+72AC), character 1, can't stand here: a reading has hiragana, katakana and ー － … ・");
  EXPECT_EQ(settled(TextKind::kWritten, "①"),
            "! \"①\" (U+2460), character 1, can't stand here: a written form has kana, kanji of JIS "
            "levels 1 and 2, 々 and ・");
  EXPECT_EQ(settled(TextKind::kMixed, "😀"),
            "! \"😀\" (U+1F600), character 1, can't stand here: the dictionary has no place for it");
  EXPECT_EQ(settled(TextKind::kAscii, "dog犬"),
            "! \"犬\" (U+72AC), character 4, can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kAscii, "a\nb"),
            "! a line end (U+000A), character 2, can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kAscii, std::string("a\0b", 3)),
            "! U+0000, character 2, can't stand here: only ASCII can stand here");
  EXPECT_EQ(settled(TextKind::kMixed, "\xFF"), "! it is not UTF-8 text");
}

TEST(UserTextTest, LengthEndsAt65534Bytes) {
  EXPECT_EQ(settled(TextKind::kAscii, std::string(65534, 'a')), std::string(65534, 'a'));
  EXPECT_EQ(settled(TextKind::kAscii, std::string(65535, 'a')),
            "! it is too long: it has 65,535 bytes in Shift_JIS, 65,534 at most");
  EXPECT_EQ(settled(TextKind::kMixed, std::string(65533, 'a') + "犬"),
            "! it is too long: it has 65,535 bytes in Shift_JIS, 65,534 at most");
}

TEST(UserTextTest, AnEntryNamesItsField) {
  UserEntry entry{.word = "bank", .meaning = "銀行"};
  EXPECT_EQ(settleEntry(&entry), "");
  EXPECT_EQ(entry.pos, 1);
  entry.examples = {{"a bank", ""}};
  EXPECT_EQ(settleEntry(&entry), "example 1, Japanese side: it is empty");
  entry = {.word = "--", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "word: it has no letter");
  entry = {.language = UserLanguage::kJapanese, .word = "ーー", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "word: it has no kana");
  entry = {.language = UserLanguage::kJapanese, .word = "い", .kanji = "ーー", .meaning = "x"};
  EXPECT_EQ(settleEntry(&entry), "kanji: it has neither kanji nor kana");
  entry = {.language = UserLanguage::kJapanese, .word = "いぬ", .meaning = "犬"};
  EXPECT_EQ(settleEntry(&entry),
            "meaning: \"犬\" (U+72AC), character 1, can't stand here: only ASCII can stand here");
}

TEST(UserTextTest, AnExampleNamesItsSide) {
  UserEntry entry{.word = "bank", .meaning = "銀行", .examples = {{"a", "あ"}, {"銀", "行"}}};
  EXPECT_EQ(settleEntry(&entry),
            "example 2, English side: \"銀\" (U+9280), character 1, can't stand here: only ASCII can stand "
            "here");
  entry.examples = {{"銀行で", "at the bank"}};
  EXPECT_EQ(settleEntry(&entry), "example 1: English stands first, then Japanese");
  entry = {.language = UserLanguage::kJapanese, .word = "い", .meaning = "x", .sentences = {{"a", "😀"}}};
  EXPECT_EQ(
      settleEntry(&entry),
      "sentence 1, Japanese side: \"😀\" (U+1F600), character 1, can't stand here: the dictionary has no "
      "place for it");
}

// With the marks between them: 11 bytes and the texts of an English word with a meaning, and 8 of its part of
// speech. A Japanese one has 6 and the texts; the written form one more.
TEST(UserTextTest, AllTextsTogetherHave65534Bytes) {
  UserEntry entry{.word = "bank", .meaning = std::string(65512, 'x')};
  EXPECT_EQ(settleEntry(&entry), "");
  entry.meaning += 'x';
  EXPECT_EQ(
      settleEntry(&entry),
      "the entry is too long: with all its texts it has 65,535 bytes in Shift_JIS, 65,534 at most; leave "
      "examples out, or make two entries of it");
  entry = {.language = UserLanguage::kJapanese, .word = "いぬ", .meaning = std::string(65524, 'x')};
  EXPECT_EQ(settleEntry(&entry), "");
  entry.kanji = "犬";
  EXPECT_EQ(
      settleEntry(&entry),
      "the entry is too long: with all its texts it has 65,537 bytes in Shift_JIS, 65,534 at most; leave "
      "examples out, or make two entries of it");
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
