#include <gtest/gtest.h>

#include "OpenBook.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// What an exact index with these flags makes of a key: each candidate is a record, and the one that is found
// tells. Comparisons take hiragana for katakana and small letters for capitals, so that candidates differ in
// more.
bool finds(std::string_view entry, std::string_view key, std::string_view flags, uint16_t kind = 0x60,
           const char* method = "◆") {
  IndexBlock leaf(0xE0);
  const std::string body = place(1, 10);
  leaf.leaf(jis(entry), body, kind == 0x71 || kind == 0x91 ? body : "");
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(kind, 10, leaf.bytes(), flags);
  OpenBook book(writer);
  return book.search(std::string(method) + std::string(key)) == "ok: 1/10";
}

constexpr std::string_view kFoldAll{"\0\0\0\0", 4};
constexpr std::string_view kKeepAll{"\0\x7F\x7F\x7F", 4};

TEST(FormatKey, DropsSigns) {
  EXPECT_TRUE(finds("ＡＢ", "Ａ！Ｂ", kFoldAll));
  EXPECT_TRUE(finds("ＡＢ", "Ａ、。（）Ｂ", kFoldAll));
  EXPECT_TRUE(finds("ＡＢ", "Ａ─Ｂ", kKeepAll));  // 0x2821
}

TEST(FormatKey, KeepsSignsThatAreLetters) {
  for (const char* sign : {"？", "゛", "゜", "ヽ", "ゞ", "〃", "仝", "々", "〆", "ー"})
    EXPECT_FALSE(finds("ＡＢ", std::string("Ａ") + sign + "Ｂ", kKeepAll)) << sign;
}

TEST(FormatKey, DropsDotAndHyphenByFlag) {
  // What is kept is passed over in the comparison all the same; only a key of nothing else shows it.
  EXPECT_TRUE(finds("ＡＢ", "Ａ・Ｂ", kFoldAll));
  EXPECT_TRUE(finds("ＡＢ", "Ａ・Ｂ", kKeepAll));
}

TEST(FormatKey, RefusesAKeyOfNothing) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(0x60, 10, IndexBlock(0xE0).leaf(jis("Ａ"), place(1, 10)).bytes());
  OpenBook book(writer);
  EXPECT_EQ(book.search("◆、。"), "80041009");
  EXPECT_EQ(book.search("◆・"), "80041009");
  EXPECT_EQ(book.search("◆－"), "80041009");
}

struct Fold {
  const char* key;
  const char* entry;
};

// By an index whose flags are 0: everything is folded.
TEST(FormatKey, FoldsKana) {
  const Fold rows[] = {
      {"がぎぐげご", "かきくけこ"},
      {"ざじずぜぞ", "さしすせそ"},
      {"だぢづでど", "たちつてと"},
      {"ばびぶべぼ", "はひふへほ"},
      {"ぱぴぷぺぽ", "はひふへほ"},
      {"ぁぃぅぇぉ", "あいうえお"},
      {"ゃゅょ", "やゆよ"},
      {"っ", "つ"},
      {"ゎ", "わ"},
      {"ヴ", "ウ"},
      {"ヵ", "カ"},
      {"ヶ", "ケ"},
      {"ガギグゲゴ", "かきくけこ"},
      {"ァィゥェォッャュョヮ", "あいうえおつやゆよわ"},
  };
  for (const Fold& row : rows) {
    EXPECT_TRUE(finds(row.entry, row.key, kFoldAll)) << row.key;
    EXPECT_FALSE(finds(row.entry, row.key, kKeepAll)) << row.key;
    EXPECT_TRUE(finds(row.key, row.key, kKeepAll)) << row.key;
  }
}

TEST(FormatKey, FoldsByItsFlags) {
  const auto flags = [](int flag1, int flag2, int flag3) {
    return std::string{'\0', static_cast<char>(flag1), static_cast<char>(flag2), static_cast<char>(flag3)};
  };
  EXPECT_TRUE(finds("つ", "っ", flags(0x7F, 0x3F, 0x7F)));
  EXPECT_FALSE(finds("つ", "っ", flags(0x7F, 0x40, 0x7F)));
  EXPECT_TRUE(finds("や", "ゃ", flags(0x7F, 0x4F, 0x7F)));
  EXPECT_FALSE(finds("や", "ゃ", flags(0x7F, 0x10, 0x7F)));
  EXPECT_TRUE(finds("あ", "ぁ", flags(0x7F, 0x73, 0x7F)));
  EXPECT_FALSE(finds("あ", "ぁ", flags(0x7F, 0x04, 0x7F)));
  EXPECT_TRUE(finds("か", "が", flags(0x7F, 0x7C, 0x7F)));
  EXPECT_FALSE(finds("か", "が", flags(0x7F, 0x01, 0x7F)));
  EXPECT_TRUE(finds("は", "ぱ", flags(0x7F, 0x7F, 0x3F)));
  EXPECT_FALSE(finds("は", "ぱ", flags(0x7F, 0x7F, 0x40)));
}

// Behind each kana its own vowel.
TEST(FormatKey, PutsTheVowelForTheLongMark) {
  const Fold rows[] = {
      {"かー", "かあ"}, {"きー", "きい"}, {"くー", "くう"},     {"けー", "けえ"},        {"こー", "こお"},
      {"がー", "かあ"}, {"ちー", "ちい"}, {"つー", "つう"},     {"のー", "のお"},        {"ぱー", "はあ"},
      {"びー", "ひい"}, {"ふー", "ふう"}, {"へー", "へえ"},     {"ぼー", "ほお"},        {"むー", "むう"},
      {"ゃー", "やあ"}, {"よー", "よお"}, {"れー", "れえ"},     {"わー", "わあ"},        {"ゐー", "ゐい"},
      {"ゑー", "ゑう"}, {"をー", "をお"}, {"んー", "んん"},     {"ヴー", "ウウ"},        {"ヵー", "カア"},
      {"ヶー", "ケエ"}, {"ぁー", "ああ"}, {"かーー", "かああ"}, {"コーヒー", "コオヒイ"}};
  for (const Fold& row : rows) EXPECT_TRUE(finds(row.entry, row.key, kFoldAll)) << row.key;
  EXPECT_TRUE(finds("ーか", "ーか", kFoldAll));  // nothing stands ahead of it
  EXPECT_TRUE(finds("字ー", "字ー", kFoldAll));  // no kana does
}

TEST(FormatKey, DropsOrKeepsTheLongMarkByFlag) {
  const auto flags = [](int flag1) { return std::string{'\0', static_cast<char>(flag1), '\0', '\0'}; };
  EXPECT_TRUE(finds("かく", "かーく", flags(2)));
  EXPECT_TRUE(finds("かーく", "かーく", flags(1)));
  EXPECT_TRUE(finds("かーく", "かーく", flags(3)));
  EXPECT_FALSE(finds("かあく", "かーく", flags(1)));
}

TEST(FormatKey, ReversesKeysOfBackwardIndexes) {
  EXPECT_TRUE(finds("さかな", "なかさ", kKeepAll, 0x71, "■"));
  EXPECT_TRUE(finds("さかな", "かさ", kKeepAll, 0x71, "■"));  // the entry goes on behind it
  EXPECT_FALSE(finds("さかな", "さかな", kKeepAll, 0x71, "■"));
  EXPECT_FALSE(finds("さかな", "なか", kKeepAll, 0x71, "■"));
}

TEST(CompareKey, TakesLettersOfBothCasesForOne) {
  EXPECT_TRUE(finds("abc", "ABC", kKeepAll));
  EXPECT_TRUE(finds("ABC", "abc", kKeepAll));
  EXPECT_TRUE(finds("αω", "ΑΩ", kKeepAll));
  EXPECT_TRUE(finds("яа", "ЯА", kKeepAll));
}

TEST(CompareKey, TakesKanaOfBothKindsForOne) {
  EXPECT_TRUE(finds("カナ", "かな", kKeepAll));
  EXPECT_TRUE(finds("かな", "カナ", kKeepAll));
}

TEST(CompareKey, PassesOverBlanksDotsAndHyphens) {
  EXPECT_TRUE(finds("Ａ　Ｂ", "ＡＢ", kKeepAll));
  EXPECT_TRUE(finds("ＡＢ", "Ａ　Ｂ", kKeepAll));
  EXPECT_TRUE(finds("Ａ・Ｂ’Ｃ－Ｄ　", "ＡＢＣＤ", kKeepAll));
  EXPECT_FALSE(finds("ＡＢ", "ＡＢ　", kKeepAll));  // the entry has run out ahead of the blank
}

}  // namespace
}  // namespace zavel::book
