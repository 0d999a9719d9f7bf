#include "mkdict/FreeDict.h"

#include <gtest/gtest.h>

#include <sstream>

#include "mkdict/EntryText.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

EnglishWord read(std::string_view entry) {
  EnglishWord word;
  EXPECT_EQ(FreeDict::Fault::kNone, FreeDict::read(entry, &word)) << entry;
  return word;
}

FreeDict::Fault faultOf(std::string_view entry) {
  EnglishWord word;
  return FreeDict::read(entry, &word);
}

TEST(FreeDict, ReadsTheHeadLine) {
  const EnglishWord word = read("light //laɪt// //lʌɪt// /[ɫɐɪ̯ʔ]/ <adj>\n明るい\n");
  EXPECT_EQ("light", word.word);
  EXPECT_EQ(PartOfSpeech::kAdjective, word.pos);
  EXPECT_EQ((Texts{"laɪt", "lʌɪt"}), word.ipa);
  EXPECT_EQ(Texts{"ɫɐɪ̯ʔ"}, read("light /[ɫɐɪ̯ʔ]/ <adj>\n明るい\n").ipa);  // better than none
}

TEST(FreeDict, ReadsPronunciationsOfSeveralWords) {
  EXPECT_EQ(Texts{"aɪs kɹˈiːm"}, read("ice cream /aɪs kɹˈiːm/ <n>\nアイス\n").ipa);
  EXPECT_TRUE(read("bow <n>\n弓\n").ipa.empty());
  EXPECT_EQ("bow", read("bow <n>\n弓\n").word);
}

TEST(FreeDict, KnowsTheLabelsOfTheSource) {
  // Each label and what an entry shows for it.
  std::istringstream labels(
      "n 名 pn 名][固 v 動 adj 形 adv 副 preposition 前 postposition 前 pronoun 代 conjunction 接 "
      "interjection 間 numeral 数 determiner 限 article 冠 particle 小辞 phraseologicalUnit 成句 idiom 成句 "
      "proverb 諺 symbol 記号");
  int count = 0;
  for (std::string label, shown; labels >> label >> shown; ++count) {
    const PartOfSpeech pos = read("x /a/ <" + label + ">\n犬\n").pos;
    EXPECT_EQ("-[" + shown + "]", toUtf8(EntryText::label(pos))) << label;
  }
  EXPECT_EQ(18, count);
  EXPECT_EQ(PartOfSpeech::kNone, read("x /a/ <verbal root>\n犬\n").pos);
  EXPECT_EQ(PartOfSpeech::kNone, read("at last /at lˈast/\n遂に\n").pos);
}

TEST(FreeDict, ReadsOneSenseWithItsNote) {
  const EnglishWord word = read("dye //daɪ// <v>\n染める, 色\nto colour with dye\n");
  ASSERT_EQ(1u, word.senses.size());
  EXPECT_EQ((Texts{"染める", "色"}), word.senses[0].translations);
  EXPECT_EQ(Texts{"to colour with dye"}, word.senses[0].notes);
}

TEST(FreeDict, ReadsNumberedSenses) {
  const EnglishWord word = read("go //ɡoʊ// <n>\n1. 番\nturn at something\n2. 囲碁, 碁\nboard game\n");
  ASSERT_EQ(2u, word.senses.size());
  EXPECT_EQ(Texts{"番"}, word.senses[0].translations);
  EXPECT_EQ(Texts{"turn at something"}, word.senses[0].notes);
  EXPECT_EQ((Texts{"囲碁", "碁"}), word.senses[1].translations);
}

TEST(FreeDict, ReadsSeveralNotesOfOneSense) {
  const EnglishWord word =
      read("light <adj>\n1. 明るい\nhaving light\n2. 軽い 2.\nof low weight\n 3.\nlow in fat\n");
  ASSERT_EQ(2u, word.senses.size());
  EXPECT_EQ(Texts{"軽い"}, word.senses[1].translations);
  EXPECT_EQ((Texts{"of low weight", "low in fat"}), word.senses[1].notes);
  // The same without numbers of senses.
  const EnglishWord cat = read("cat <n>\n猫 2.\ndomestic species\n 3.\nmember of the family\n");
  ASSERT_EQ(1u, cat.senses.size());
  EXPECT_EQ(Texts{"猫"}, cat.senses[0].translations);
  EXPECT_EQ((Texts{"domestic species", "member of the family"}), cat.senses[0].notes);
}

TEST(FreeDict, TakesASenseWithoutNotes) {
  EXPECT_TRUE(read("make <v>\n1. 作る\n2. 成す\nto succeed\n").senses[0].notes.empty());
}

TEST(FreeDict, DropsRepeatedTranslationsAndEmptySenses) {
  const EnglishWord word = read("x <n>\n1. 犬, 犬\n2. marefikku\nnote\n3. 猫\n");
  ASSERT_EQ(2u, word.senses.size());
  EXPECT_EQ(Texts{"犬"}, word.senses[0].translations);
  EXPECT_EQ(Texts{"猫"}, word.senses[1].translations);
}

TEST(FreeDict, KeepsAffixesOut) {
  EXPECT_EQ(FreeDict::Fault::kAffix, faultOf("phobia //ˈfoʊ.bi.ə// <suffix>\n, 怖症\n"));
  EXPECT_EQ(FreeDict::Fault::kAffix, faultOf("un- /ˈʌn/ <prefix>\n不-\n"));
}

TEST(FreeDict, TellsWhatIsNoEntry) {
  EXPECT_EQ(FreeDict::Fault::kNoWord, faultOf(""));
  EXPECT_EQ(FreeDict::Fault::kNoWord, faultOf("\n犬\n"));
  EXPECT_EQ(FreeDict::Fault::kNoWord, faultOf("00-database-dictfmt-1.13.0\n"));
  EXPECT_EQ(FreeDict::Fault::kNoWord, faultOf("Unsupported titles/C sharp /x/ <pn>\nシーシャープ\n"));
  EXPECT_EQ(FreeDict::Fault::kNoTranslation, faultOf("x <n>\n"));
  EXPECT_EQ(FreeDict::Fault::kNoTranslation, faultOf("x <n>\n \nproducer of something\n"));
  EXPECT_EQ(FreeDict::Fault::kNoTranslation, faultOf("x <n>\n, , \nregular plurals\n"));
  EXPECT_EQ(FreeDict::Fault::kNoTranslation, faultOf("Geronimo <pn>\nג׳רונימו\n"));
}

TEST(FreeDict, NamesWhatItDropped) {
  EnglishWord word;
  Texts dropped;
  EXPECT_EQ(FreeDict::Fault::kNone, FreeDict::read("salt <n>\n塩, shio\n", &word, &dropped));
  EXPECT_EQ(Texts{"shio"}, dropped);
}

TEST(FreeDict, CleansTranslations) {
  const std::pair<const char*, const char*> table[] = {
      {" 犬 ", "犬"},
      {"活性化する (かっせいかする, kasseika suru)", "活性化する"},  // reading and romanised form
      {"熱意（ねつい, netsui）", "熱意"},
      {"過ぎる (すぎる）", "過ぎる"},  // a reading alone, brackets of two widths
      {"トング(tongu)", "トング"},
      {"長 (ちょう, chō) (1,2)", "長"},  // numbers of senses elsewhere
      {"過重労働(する) (kajū rōdō (suru))", "過重労働(する)"},
      {"感染性(の)", "感染性(の)"},
      {"（羊が）鳴く", "(羊が)鳴く"},
      {"(血の)塊", "(血の)塊"},
      {"(犬", "犬"},  // no partner
      {"犬)", "犬"},
      {"[[グレイ・カップ]]", "グレイ・カップ"},
      {"分かった[[か？]]", "分かったか？"},
      {"もし...でなければ", "もし…でなければ"},
      {".婚外性交", "婚外性交"},
      {"俗っぽい.", "俗っぽい"},
      {"ワールド ワイド ウェブ", "ワールド・ワイド・ウェブ"},
      {"道化 師", "道化師"},
      {"バチェラー·パーティ", "バチェラー・パーティ"},
      {"SDのキャラクター", "SDのキャラクター"},
      {"ATM", "ATM"},
      {"101", "101"},
      {"4,000", "4,000"},
      {"1000", "1000"},
  };
  for (const auto& [raw, clean] : table) EXPECT_EQ(clean, FreeDict::cleanTranslation(raw)) << raw;
}

TEST(FreeDict, RefusesTranslationsThatSayNothing) {
  // Nothing, romanised words, powers of ten whose height was lost, broken bytes.
  for (const char* raw : {"", " ", "shio", "ainiku no", "1036", "10−24", "10-2", "\xE3\x81"}) {
    EXPECT_FALSE(FreeDict::cleanTranslation(raw)) << raw;
  }
}

TEST(FreeDict, KeepsACommaInsideBrackets) {
  EXPECT_EQ((Texts{"反対", "抗議"}), read("x <n>\n反対 (はんたい, hantai), 抗議\n").senses[0].translations);
}

TEST(FreeDict, MakesNotesFitForBrackets) {
  EXPECT_EQ("to make [a specified sound]", FreeDict::cleanNote("to make (a specified sound)"));
  EXPECT_EQ("a b", FreeDict::cleanNote(" a\tb "));
  EXPECT_EQ("order theory", FreeDict::cleanNote("(order theory)"));
  EXPECT_EQ("[a] b [c]", FreeDict::cleanNote("(a) b (c)"));
}

TEST(FreeDict, DropsWhatIsLeftOfWikiMarks) {
  const std::pair<const char*, const char*> notes[] = {
      {"transliteration of }}", ""},
      {"bleak, barren}} and desolate", "bleak, barren and desolate"},
      {"peace be upon you }}", "peace be upon you"},
      {"between a [[limited-access highway]] and a street", "between a limited-access highway and a street"},
      {"titled [[w:Moby-Dick|The Whale]], a story", "titled The Whale, a story"},
      {"no [[end", "no end"},
  };
  for (const auto& [raw, clean] : notes) EXPECT_EQ(clean, FreeDict::cleanNote(raw)) << raw;
  EXPECT_EQ("～から見た", FreeDict::cleanTranslation("}}から見た"));
}

}  // namespace
}  // namespace zavel::mkdict
