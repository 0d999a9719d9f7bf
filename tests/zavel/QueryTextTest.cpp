#include "QueryText.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

TEST(FoldedQuery, LeavesPlainWordsAlone) {
  for (const char* word : {"", "go", "Cape Town", "run-up", "行く", "ビール", "can't", "\xFF"}) {
    EXPECT_EQ(foldedQuery(word), word);
  }
}

TEST(FoldedQuery, BringsWidthsTogether) {
  EXPECT_EQ(foldedQuery("ｇｏ"), "go");
  EXPECT_EQ(foldedQuery("ＣＤ"), "CD");
  EXPECT_EQ(foldedQuery("Ｃａｐｅ　Ｔｏｗｎ"), "Cape Town");
  EXPECT_EQ(foldedQuery("ﾈｺ"), "ネコ");
  EXPECT_EQ(foldedQuery("ｺﾝﾋﾟｭｰﾀ"), "コンピュータ");
  EXPECT_EQ(foldedQuery("ｳﾞｧｲｵﾘﾝ"), "ヴァイオリン");
  EXPECT_EQ(foldedQuery("ｱﾞ"), "アﾞ");  // no sound of that kind
}

TEST(FoldedQuery, JoinsCombiningSoundMarks) {
  EXPECT_EQ(foldedQuery("か\xE3\x82\x99っこう"), "がっこう");
  EXPECT_EQ(foldedQuery("ハ\xE3\x82\x9Aン"), "パン");
}

TEST(WithSoundMarksJoined, ChangesNothingElse) {
  EXPECT_EQ(withSoundMarksJoined("か゛"), "が");
  EXPECT_EQ(withSoundMarksJoined("き゛んこう"), "ぎんこう");
  EXPECT_EQ(withSoundMarksJoined("ハ゜ン"), "パン");
  EXPECT_EQ(withSoundMarksJoined("「か゛」"), "「が」");
  EXPECT_EQ(withSoundMarksJoined("あ゛"), "あ゛");
  EXPECT_EQ(withSoundMarksJoined("゛"), "゛");
  EXPECT_EQ(withSoundMarksJoined("café １月"), "café １月");
  EXPECT_EQ(withSoundMarksJoined("か゛\xFF"), "か゛\xFF");
}

TEST(FoldedQuery, TakesAccentsOff) {
  EXPECT_EQ(foldedQuery("café"), "cafe");
  EXPECT_EQ(foldedQuery("naïve"), "naive");
  EXPECT_EQ(foldedQuery("résumé"), "resume");
  EXPECT_EQ(foldedQuery("cafe\xCC\x81"), "cafe");
  EXPECT_EQ(foldedQuery("œuvre"), "oeuvre");
  EXPECT_EQ(foldedQuery("Ångström"), "Angstrom");
  EXPECT_EQ(foldedQuery("Łódź"), "Lodz");
  EXPECT_EQ(foldedQuery("Žižek"), "Zizek");
  EXPECT_EQ(foldedQuery("Straße"), "Strasse");
}

TEST(FoldedQuery, TypographicSignsAreAscii) {
  EXPECT_EQ(foldedQuery("don’t"), "don't");
  EXPECT_EQ(foldedQuery("run‐up"), "run-up");
}

TEST(FoldedQuery, TakesSignsOffBothEnds) {
  EXPECT_EQ(foldedQuery("go?"), "go");
  EXPECT_EQ(foldedQuery("\"go\""), "go");
  EXPECT_EQ(foldedQuery("“go”,"), "go");
  EXPECT_EQ(foldedQuery("'go'"), "go");
  EXPECT_EQ(foldedQuery("行く。"), "行く");
  EXPECT_EQ(foldedQuery("「猫」"), "猫");
  EXPECT_EQ(foldedQuery("dogs'"), "dogs'");
  EXPECT_EQ(foldedQuery("?!"), "");
}

TEST(FoldedQuery, WritesRepeatedKanjiOut) {
  EXPECT_EQ(foldedQuery("人々"), "人人");
  EXPECT_EQ(foldedQuery("アイス・クリーム"), "アイスクリーム");
  EXPECT_EQ(foldedQuery("ｱｲｽ･ｸﾘｰﾑ"), "アイスクリーム");
  EXPECT_EQ(wordAsFiled("一杯々々・人々"), "一杯一杯人人");
  EXPECT_EQ(wordAsFiled("々月"), "月");
  EXPECT_EQ(foldedQuery("我々は"), "我我は");
  EXPECT_EQ(foldedQuery("部分々々"), "部分部分");
  EXPECT_EQ(foldedQuery("々"), "々");  // nothing to repeat
}

TEST(FoldedQuery, WritesNumbersInKanjiInJapaneseWords) {
  EXPECT_EQ(foldedQuery("１月"), "一月");
  EXPECT_EQ(foldedQuery("1月"), "一月");
  EXPECT_EQ(foldedQuery("10月"), "十月");
  EXPECT_EQ(foldedQuery("12月"), "十二月");
  EXPECT_EQ(foldedQuery("20日"), "二十日");
  EXPECT_EQ(foldedQuery("100円"), "100円");
  EXPECT_EQ(foldedQuery("１２"), "12");
}

TEST(FoldedQuery, TakesTheShapesOfKanjiThatHeadwordsHave) {
  EXPECT_EQ(foldedQuery("𠮷野家"), "吉野家");
  EXPECT_EQ(foldedQuery("𠮟る"), "叱る");
  EXPECT_EQ(foldedQuery("頰"), "頬");
  EXPECT_EQ(foldedQuery("醬油"), "醤油");
  EXPECT_EQ(foldedQuery("鷗"), "鴎");
  EXPECT_EQ(foldedQuery("麴"), "麹");
  EXPECT_EQ(foldedQuery("葛"), "葛");
}

TEST(FoldedQuery, TakesTheShapesOfKanjiOfNamesThatHeadwordsHave) {
  const std::pair<const char*, const char*> names[] = {
      {"髙橋", "高橋"}, {"濵田", "濱田"}, {"山﨑", "山崎"},     {"德川", "徳川"},     {"\uFA10本", "塚本"},
      {"廣瀨", "廣瀬"}, {"黑田", "黒田"}, {"靑木", "青木"},     {"淸水", "清水"},     {"橫山", "横山"},
      {"增田", "増田"}, {"栁田", "柳田"}, {"本鄕", "本郷"},     {"賴山", "頼山"},     {"五郞", "五郎"},
      {"桒原", "桑原"}, {"上杦", "上杉"}, {"\uFA19戸", "神戸"}, {"美\uFA30", "美侮"}, {"音\uFA69", "音響"}};
  for (const auto& [typed, headword] : names) EXPECT_EQ(foldedQuery(typed), headword);
  EXPECT_EQ(foldedQuery("\uFA0F"), "\uFA0F");  // a kanji of its own
  EXPECT_EQ(foldedQuery("\uFA13"), "\uFA13");  // so is this one, among those that repeat others
  EXPECT_EQ(foldedQuery("\uFA6B"), "\uFA6B");
  EXPECT_EQ(foldedQuery("渡邊"), "渡邊");  // headwords have it
}

TEST(FoldedQuery, LeavesOutWhatCannotBeSeen) {
  EXPECT_EQ(foldedQuery("go\u200B"), "go");
  EXPECT_EQ(foldedQuery("葛\U000E0100"), "葛");
  EXPECT_EQ(foldedQuery("dic\u00ADtionary"), "dictionary");
  EXPECT_EQ(foldedQuery("go😀"), "go😀");
}

TEST(PlainCharacters, KeepTheSignsAtBothEnds) {
  EXPECT_EQ(plainCharacters("「Ｃ＋＋」"), "「C++」");
}

TEST(WithoutSigns, LeavesLettersDigitsAndBlanks) {
  EXPECT_EQ(withoutSigns("C++"), "C");
  EXPECT_EQ(withoutSigns("AC/DC 2"), "ACDC 2");
  EXPECT_EQ(withoutSigns("don’t"), "dont");
  EXPECT_EQ(withoutSigns("Ｃ＃"), "Ｃ");
  EXPECT_EQ(withoutSigns("インターネット・カフェ"), "インターネットカフェ");
  EXPECT_EQ(withoutSigns("人々 ビール"), "人々 ビール");
}

TEST(WithoutOuterBlanks, CutsAllKindsOfBlank) {
  EXPECT_EQ(withoutOuterBlanks("　猫　"), "猫");
  EXPECT_EQ(withoutOuterBlanks(" \tgo on\r\n"), "go on");
  EXPECT_EQ(withoutOuterBlanks("\xEF\xBB\xBFgo"), "go");
  EXPECT_EQ(withoutOuterBlanks("　 "), "");
  EXPECT_EQ(withoutOuterBlanks("\xFF "), "\xFF");
}

}  // namespace
}  // namespace zavel::host
