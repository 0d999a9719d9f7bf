#include "engine/KatuyoKatati.h"

#include <gtest/gtest.h>

#include <utility>

#include "engine/DicFormat.h"
#include "engine/KatuyoForms.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;
using test::tag;

using List = std::vector<std::pair<int, std::string>>;

// A headword; "-" in `syllables` stands for a syllable mark.
DicOneMidasiInfo Word(const std::string& syllables, const std::string& pronunciation = "") {
  DicOneMidasiInfo info;
  info.pronunciation = pronunciation;
  for (const char c : syllables) {
    if (c == '-') {
      info.syllables += '\xA5';
      ++info.markCount;
    } else {
      info.syllables += c;
      info.MidaInfo += c;
    }
  }
  return info;
}

DicOneMidasiInfo Starred(const std::string& word) {
  DicOneMidasiInfo info = Word(word);
  info.star = true;
  return info;
}

List Pairs(const std::vector<KatuyoForm>& forms) {
  List list;
  for (const KatuyoForm& form : forms) list.emplace_back(form.hinnum, form.text);
  return list;
}

List Meisi(const DicOneMidasiInfo& info, const std::string& line) {
  std::vector<KatuyoForm> forms;
  SetMeisi(info, sjis(line), &forms);
  return Pairs(forms);
}

List Dousi(const DicOneMidasiInfo& info, const std::string& line = "") {
  std::vector<KatuyoForm> forms;
  SetDousi(info, sjis(line), &forms);
  return Pairs(forms);
}

List Keiyo(const DicOneMidasiInfo& info, const std::string& line = "") {
  std::vector<KatuyoForm> forms;
  SetKeiyoFukusi(info, sjis(line), &forms);
  return Pairs(forms);
}

// The forms of an entry with these lines, in Shift_JIS; "#" stands for the tag of a part-of-speech line.
List EntryBytes(const std::string& lines, uint8_t SetIrregularFlg, const std::string& word) {
  std::string text = tag(kTagEntry) + tag(kTagMarkerEnd) + word + "\n";
  for (const char c : lines) c == '#' ? text += tag(kTagHinsi) : text += c;
  // A block of exactly this size: a read behind the text is one behind the block.
  const std::vector<char> bytes(text.begin(), text.end());
  DicOneMidasiInfo info;
  GetOneMidasiInfo({bytes.data(), bytes.size()}, &info);
  std::vector<KatuyoForm> forms;
  SetConjugeteInfo(info, SetIrregularFlg, &forms);
  return Pairs(forms);
}

List Entry(const std::string& lines, uint8_t SetIrregularFlg = 0, const std::string& word = "run") {
  return EntryBytes(sjis(lines), SetIrregularFlg, word);
}

// --- CheckES ---

std::string Es(const DicOneMidasiInfo& info) {
  const KatuyoSuffix suffix = CheckES(info);
  return std::to_string(suffix.delta) + std::string(suffix.suffix);
}

TEST(CheckES, AddsSBehindE) {
  EXPECT_EQ(Es(Word("rose")), "0s");
  EXPECT_EQ(Es(Word("rose", "rouz")), "0s");  // whatever it sounds like
}

TEST(CheckES, AddsEsBehindSAndX) {
  EXPECT_EQ(Es(Word("bus")), "0es");
  EXPECT_EQ(Es(Word("box")), "0es");
}

TEST(CheckES, TurnsYIntoIesBehindWhatIsNoVowel) {
  EXPECT_EQ(Es(Word("city")), "-1ies");
  EXPECT_EQ(Es(Word("x-y")), "-1ies");
  EXPECT_EQ(Es(Word("bY'y")), "-1ies");
  for (const char vowel : {'a', 'e', 'i', 'o', 'u'})
    EXPECT_EQ(Es(Word(std::string("d") + vowel + "y")), "0s");
  EXPECT_EQ(Es(Word("dAy")), "-1ies");  // kept: only small letters count as vowels
}

TEST(CheckES, LeavesASingleYAlone) {
  EXPECT_EQ(Es(Word("y")), "0s");
}

TEST(CheckES, AsksThePronunciationOtherwise) {
  EXPECT_EQ(Es(Word("quiz", "kwiz")), "0es");
  EXPECT_EQ(Es(Word("church", "tA\xD8")), "0es");
  EXPECT_EQ(Es(Word("judg", "dA\xD9")), "0es");
  EXPECT_EQ(Es(Word("bush", "bu?\xE9")), "0es");
  EXPECT_EQ(Es(Word("church", "A\xD8")), "0es");
  EXPECT_EQ(Es(Word("bush", "?\xE9")), "0es");
}

TEST(CheckES, AddsSWhenThePronunciationSaysNothing) {
  EXPECT_EQ(Es(Word("cat")), "0s");
  EXPECT_EQ(Es(Word("cat", "k\xD8t")), "0s");
  EXPECT_EQ(Es(Word("cat", "t\xD8")), "0s");  // without the A
  EXPECT_EQ(Es(Word("cat", "t\xD9")), "0s");
  EXPECT_EQ(Es(Word("cat", "A\xE9")), "0s");  // without the ?
  EXPECT_EQ(Es(Word("cat", "?\xD8")), "0s");
  EXPECT_EQ(Es(Word("cat", "z ")), "0s");
  EXPECT_EQ(Es(Word("cat", "A\xDA")), "0s");
}

TEST(CheckES, DoesNotAskAPronunciationOfOneByte) {
  EXPECT_EQ(Es(Word("quiz", "z")), "0s");
}

TEST(CheckES, TakesAnEmptyHeadword) {
  EXPECT_EQ(Es(Word("")), "0s");
}

// --- MakeNewConjugete ---

List Make(const DicOneMidasiInfo& info, KatuyoSuffix suffix) {
  std::vector<KatuyoForm> forms;
  MakeNewConjugete(info, suffix, 41, &forms);
  return Pairs(forms);
}

TEST(MakeNewConjugete, PutsTheSuffixBehindTheHeadword) {
  EXPECT_EQ(Make(Word("cat"), {0, "s"}), (List{{41, "cats"}}));
  EXPECT_EQ(Make(Word("com-put-er"), {0, "s"}), (List{{41, "computers"}}));
}

TEST(MakeNewConjugete, PutsTheSuffixInThePlaceOfTheLastLetter) {
  EXPECT_EQ(Make(Word("city"), {-1, "ies"}), (List{{41, "cities"}}));
  EXPECT_EQ(Make(Word("y"), {-1, "ier"}), (List{{41, "ier"}}));
  EXPECT_EQ(Make(Word(""), {-1, "ies"}), (List{{41, "ies"}}));
}

TEST(MakeNewConjugete, PutsAHyphenedSuffixInThePlaceOfTheLastSyllable) {
  EXPECT_EQ(Make(Word("hap-py"), {0, "-pier"}), (List{{41, "happier"}}));
  EXPECT_EQ(Make(Word("com-put-er"), {0, "-ing"}), (List{{41, "computing"}}));
  EXPECT_EQ(Make(Word("big"), {0, "-ger"}), (List{{41, "ger"}}));
}

// --- Nouns ---

TEST(SetMeisi, MakesTheSingularAlone) {
  EXPECT_EQ(Meisi(Word("water"), ""), (List{{40, "water"}}));
  EXPECT_EQ(Meisi(Word("water"), "[Ｕ]"), (List{{40, "water"}}));
}

TEST(SetMeisi, MakesThePluralOfACountableNoun) {
  EXPECT_EQ(Meisi(Word("cat"), "[Ｃ]"), (List{{40, "cat"}, {41, "cats"}}));
  EXPECT_EQ(Meisi(Word("city"), "《米》[Ｕ] [Ｃ] x"), (List{{40, "city"}, {41, "cities"}}));
  EXPECT_EQ(Meisi(Word("bush", "bu?\xE9"), "[Ｃ]"), (List{{40, "bush"}, {41, "bushes"}}));
}

TEST(SetMeisi, MakesOnePluralHoweverOftenTheNounIsCalledCountable) {
  EXPECT_EQ(Meisi(Word("cat"), "[Ｃ][Ｃ]"), (List{{40, "cat"}, {41, "cats"}}));
}

TEST(SetMeisi, WantsTheLabelToBeNothingButTheLetter) {
  EXPECT_EQ(Meisi(Word("cat"), "[ＣＵ]"), (List{{40, "cat"}}));
  EXPECT_EQ(Meisi(Word("cat"), "Ｃ"), (List{{40, "cat"}}));
  EXPECT_EQ(Meisi(Word("cat"), "[C]"), (List{{40, "cat"}}));
  EXPECT_EQ(Meisi(Word("cat"), "["), (List{{40, "cat"}}));
}

TEST(SetMeisi, TakesNoSecondHalfOfACharacterForABracket) {
  // 0x81 0x5B is ー; behind it the letter and "]" follow as in a label.
  EXPECT_EQ(Meisi(Word("cat"), "ーＣ]"), (List{{40, "cat"}}));
}

TEST(SetMeisi, StopsAtTheNextPartOfSpeech) {
  EXPECT_EQ(Meisi(Word("cat"), "[Ｕ] -[動][Ｃ]"), (List{{40, "cat"}}));
  EXPECT_EQ(Meisi(Word("cat"), "[Ｃ] -[動]"), (List{{40, "cat"}, {41, "cats"}}));
  EXPECT_EQ(Meisi(Word("cat"), "-[Ｃ]"), (List{{40, "cat"}}));
}

// --- Verbs ---

TEST(SetDousi, MakesFiveForms) {
  EXPECT_EQ(Dousi(Word("walk")),
            (List{{10, "walk"}, {31, "walks"}, {11, "walked"}, {12, "walked"}, {13, "walking"}}));
}

TEST(SetDousi, MakesNothingOfAVerbThatNobodyUses) {
  EXPECT_EQ(Dousi(Word("walk"), "[他]《古》"), List());
  EXPECT_EQ(Dousi(Word("walk"), "《古語》"), List());
  EXPECT_EQ(Dousi(Word("walk"), "《詩》"), List());
  EXPECT_EQ(Dousi(Word("walk"), "《まれ》"), List());
  EXPECT_EQ(Dousi(Word("walk"), "《文》"), List());
  EXPECT_EQ(Dousi(Word("walk"), "《米》《古》"), List());
}

TEST(SetDousi, GoesByTheBeginningOfTheRemark) {
  EXPECT_EQ(Dousi(Word("walk"), "《米》").size(), 5u);
  EXPECT_EQ(Dousi(Word("walk"), "《米古》").size(), 5u);
  EXPECT_EQ(Dousi(Word("walk"), "古").size(), 5u);
  EXPECT_EQ(Dousi(Word("walk"), "《ま》").size(), 5u);
  EXPECT_EQ(Dousi(Word("walk"), "《").size(), 5u);
}

TEST(SetDousi, MakesThePastByTheEnding) {
  const std::pair<const char*, const char*> rows[] = {
      {"bake", "baked"}, {"try", "tried"},   {"play", "played"}, {"key", "keyed"}, {"toy", "toyed"},
      {"buy", "buyed"},  {"skiy", "skiyed"}, {"walk", "walked"}, {"x", "xed"},
  };
  for (const auto& [word, past] : rows) {
    const List forms = Dousi(Word(word));
    ASSERT_EQ(forms.size(), 5u);
    EXPECT_EQ(forms[2], (std::pair<int, std::string>{11, past}));
    EXPECT_EQ(forms[3], (std::pair<int, std::string>{12, past}));
  }
}

TEST(SetDousi, AddsEdToOneLetterAheadOfAnyOtherRule) {
  EXPECT_EQ(Dousi(Word("e")), (List{{10, "e"}, {31, "es"}, {11, "eed"}, {12, "eed"}, {13, "eing"}}));
  EXPECT_EQ(Dousi(Word("y")), (List{{10, "y"}, {31, "ys"}, {11, "yed"}, {12, "yed"}, {13, "ying"}}));
}

TEST(SetDousi, NeverDoublesAConsonant) {
  EXPECT_EQ(Dousi(Word("stop")),
            (List{{10, "stop"}, {31, "stops"}, {11, "stoped"}, {12, "stoped"}, {13, "stoping"}}));
}

std::string Progressive(const std::string& word, const std::string& pronunciation = "") {
  return Dousi(Word(word, pronunciation)).back().second;
}

TEST(SetDousi, DropsASilentEBeforeIng) {
  EXPECT_EQ(Progressive("make"), "making");
  EXPECT_EQ(Progressive("make", "meik"), "making");
  EXPECT_EQ(Progressive("make", "\xC5"), "making");  // without the A
  EXPECT_EQ(Progressive("make", "e\xC5"), "making");
  EXPECT_EQ(Progressive("make", "A"), "making");
  EXPECT_EQ(Progressive("make", "ek"), "making");
}

TEST(SetDousi, KeepsASoundedEBeforeIng) {
  EXPECT_EQ(Progressive("bake", "e"), "bakeing");
  EXPECT_EQ(Progressive("karate", "karate"), "karateing");
  EXPECT_EQ(Progressive("be", "bA\xC5"), "being");
  EXPECT_EQ(Progressive("be", "A\xC5"), "being");
}

// --- Adjectives ---

TEST(SetKeiyoFukusi, AddsErAndEst) {
  EXPECT_EQ(Keiyo(Word("long")), (List{{20, "long"}, {21, "longer"}, {22, "longest"}}));
  EXPECT_EQ(Keiyo(Word("large")), (List{{20, "large"}, {21, "larger"}, {22, "largest"}}));
  EXPECT_EQ(Keiyo(Word("dry")), (List{{20, "dry"}, {21, "drier"}, {22, "driest"}}));
}

TEST(SetKeiyoFukusi, TurnsYIntoIAlsoBehindAVowel) {
  EXPECT_EQ(Keiyo(Word("boy")), (List{{20, "boy"}, {21, "boier"}, {22, "boiest"}}));
  EXPECT_EQ(Keiyo(Word("coy")), (List{{20, "coy"}, {21, "coier"}, {22, "coiest"}}));
  EXPECT_EQ(Keiyo(Word("y")), (List{{20, "y"}, {21, "ier"}, {22, "iest"}}));
}

TEST(SetKeiyoFukusi, NeverDoublesAConsonant) {
  EXPECT_EQ(Keiyo(Word("big")), (List{{20, "big"}, {21, "biger"}, {22, "bigest"}}));
}

TEST(SetKeiyoFukusi, ComparesAWordWithSyllableMarksByMore) {
  EXPECT_EQ(Keiyo(Word("hap-py")), (List{{20, "happy"}, {21, "more happy"}, {22, "most happy"}}));
}

TEST(SetKeiyoFukusi, ComparesByMoreWhenTheEntrySaysSo) {
  const List forms = {{20, "ill"}, {21, "more ill"}, {22, "most ill"}};
  EXPECT_EQ(Keiyo(Word("ill"), "(more～, most～)"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "[限定] (more ～;most ～)x"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "(～more,most"), forms);  // an open bracket runs to the end of the line
}

TEST(SetKeiyoFukusi, TakesTheSecondFormAsItStands) {
  EXPECT_EQ(Keiyo(Word("ill"), "(more～, most-x9 z～, q)"),
            (List{{20, "ill"}, {21, "more ill"}, {22, "most-xz ill"}}));
  EXPECT_EQ(Keiyo(Word("ill"), "(more～)"), (List{{20, "ill"}, {21, "more ill"}, {22, " ill"}}));
}

TEST(SetKeiyoFukusi, EndsCollectingAtASlash) {
  EXPECT_EQ(Keiyo(Word("ill"), "(more～, mo/st)"), (List{{20, "ill"}, {21, "more ill"}, {22, "mo ill"}}));
  EXPECT_EQ(Keiyo(Word("ill"), "(/more～, most～)"), (List{{20, "ill"}, {21, "iller"}, {22, "illest"}}));
}

TEST(SetKeiyoFukusi, PassesOverAPronunciation) {
  EXPECT_EQ(Keiyo(Word("ill"), "(more≦ab,c≧～, mo≦x≧st)"),
            (List{{20, "ill"}, {21, "more ill"}, {22, "most ill"}}));
}

TEST(SetKeiyoFukusi, WantsBothMoreAndTheSwungDash) {
  const List forms = {{20, "ill"}, {21, "iller"}, {22, "illest"}};
  EXPECT_EQ(Keiyo(Word("ill"), "(more, most)"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "(worse～, worst～)"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "(More～, most～)"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "more～, most～"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "(worse, worst) (more～, most～)"), forms);  // the first brackets count
  EXPECT_EQ(Keiyo(Word("ill"), "()"), forms);
  EXPECT_EQ(Keiyo(Word("ill"), "("), forms);
}

TEST(SetKeiyoFukusi, MakesNothingOfWhatCantBeCompared) {
  EXPECT_EQ(Keiyo(Word("dead"), "(比較なし)"), List());
  EXPECT_EQ(Keiyo(Word("dead"), "[限定](比較なし)"), List());
  EXPECT_EQ(Keiyo(Word("dead"), "(more～, most～; 比較なし)"), List());
  EXPECT_EQ(Keiyo(Word("dead"), "比較なし").size(), 3u);
}

TEST(SetKeiyoFukusi, MakesNothingOfAStarredWord) {
  EXPECT_EQ(Keiyo(Starred("big")), List());
}

TEST(SetKeiyoFukusi, ComparesAStarredWordByMoreWhenTheEntrySaysSo) {
  EXPECT_EQ(Keiyo(Starred("ill"), "(more～, most～)"),
            (List{{20, "ill"}, {21, "more ill"}, {22, "most ill"}}));
}

// --- Whole entries ---

TEST(GetHinsiInfo, KnowsThreePartsOfSpeech) {
  uint8_t seen = 0;
  EXPECT_EQ(GetHinsiInfo(sjis("名"), &seen), kHinsiMeisi);
  EXPECT_EQ(GetHinsiInfo(sjis("形"), &seen), kHinsiKeiyo);
  EXPECT_EQ(GetHinsiInfo(sjis("動"), &seen), kHinsiDousi);
}

TEST(GetHinsiInfo, GivesEachPartOfSpeechOnce) {
  uint8_t seen = 0;
  EXPECT_EQ(GetHinsiInfo(sjis("動"), &seen), kHinsiDousi);
  EXPECT_EQ(GetHinsiInfo(sjis("動"), &seen), 0);
  EXPECT_EQ(GetHinsiInfo(sjis("名"), &seen), kHinsiMeisi);
}

TEST(GetHinsiInfo, PassesOverOtherLabels) {
  uint8_t seen = 0;
  for (const char* label : {"", "副", "助動", "名詞", "n"}) EXPECT_EQ(GetHinsiInfo(sjis(label), &seen), 0);
  EXPECT_EQ(seen, 0);
}

TEST(SetConjugeteInfo, MakesFormsOfEachPartOfSpeechInTheOrderOfTheEntry) {
  EXPECT_EQ(Entry("#-[動][自]\n#-[名][Ｃ]\n#-[形]\n"), (List{{10, "run"},
                                                             {31, "runs"},
                                                             {11, "runed"},
                                                             {12, "runed"},
                                                             {13, "runing"},
                                                             {40, "run"},
                                                             {41, "runs"},
                                                             {20, "run"},
                                                             {21, "runer"},
                                                             {22, "runest"}}));
}

TEST(SetConjugeteInfo, MakesFormsOfTheFirstLineOfAPartOfSpeechOnly) {
  EXPECT_EQ(Entry("#-[名]\n#-[名][Ｃ]\n"), (List{{40, "run"}}));
  EXPECT_EQ(Entry("#-[動]《古》\n#-[動]\n"), List());
}

TEST(SetConjugeteInfo, LooksForLabelsBehindTheTagOnly) {
  EXPECT_EQ(Entry("-[名]\n"), List());
  EXPECT_EQ(Entry("#-[副]\nx-[名]\n"), List());
}

TEST(SetConjugeteInfo, WantsAHyphenAheadOfALabel) {
  EXPECT_EQ(Entry("#[名]\n"), List());
  EXPECT_EQ(Entry("#[形]-[名]\n"), (List{{40, "run"}}));
  EXPECT_EQ(Entry("#- [名]\n"), List());
}

TEST(SetConjugeteInfo, TakesSeveralLabelsOfOneLine) {
  EXPECT_EQ(Entry("#-[名] -[形](比較なし)\n"), (List{{40, "run"}}));
  EXPECT_EQ(Entry("#-[形](比較なし) -[名][Ｃ]\n"), (List{{40, "run"}, {41, "runs"}}));
}

TEST(SetConjugeteInfo, TakesALabelOfTwoCharactersAtMost) {
  EXPECT_EQ(Entry("#-[助動]\n"), List());
  EXPECT_EQ(Entry("#-[名詞]\n"), List());
  EXPECT_EQ(Entry("#-[動名詞]\n"), List());
  EXPECT_EQ(Entry("#-[n名]\n"), (List{{40, "run"}}));  // single bytes don't count
  EXPECT_EQ(Entry("#-[名\n"), (List{{40, "run"}}));
}

TEST(SetConjugeteInfo, LooksForTheCountableLabelOnThatLineOnly) {
  EXPECT_EQ(Entry("#-[名]\n[Ｃ]\n"), (List{{40, "run"}}));
}

TEST(SetConjugeteInfo, PassesOverWhatTheConjugationDictionaryServes) {
  const std::string lines = "#-[名]\n#-[形](more～,most～)\n#-[動]\n";
  EXPECT_EQ(Entry(lines, kHinsiKeiyo | kHinsiDousi), (List{{40, "run"}}));
  EXPECT_EQ(Entry(lines, kHinsiMeisi | kHinsiDousi), (List{{20, "run"}, {21, "more run"}, {22, "most run"}}));
  EXPECT_EQ(Entry(lines, kHinsiMeisi | kHinsiKeiyo),
            (List{{10, "run"}, {31, "runs"}, {11, "runed"}, {12, "runed"}, {13, "runing"}}));
  EXPECT_EQ(Entry(lines, kHinsiAll), List());
}

TEST(SetConjugeteInfo, MakesNothingWithoutAHeadword) {
  EXPECT_EQ(Entry("#-[名][Ｃ]\n#-[動]\n#-[形]\n", 0, ""), List());
  EXPECT_EQ(Entry("#-[名][Ｃ]\n#-[動]\n#-[形]\n", 0, "123"), List());
}

TEST(SetConjugeteInfo, ReadsNothingBehindALineCutAnywhere) {
  const std::string line = sjis("#-[動][他]《まれ》\n#-[形](more≦x≧～, most～)\n#-[名][Ｃ]");
  for (size_t length = 0; length <= line.size(); ++length) {
    EXPECT_LE(EntryBytes(line.substr(0, length), 0, "run").size(), 5u) << length;
  }
}

// --- Output ---

TEST(OutputKatuyo, WritesMadeFormsAloneAsTheyStand) {
  std::string records;
  OutputKatuyo({{41, "as"}, {41, "bs"}, {13, "c"}}, 0, &records);
  EXPECT_EQ(records, std::string("\x03\x00\x02"
                                 "as\x00\x03\x00\x02"
                                 "bs\x00\x02\x00\x0A"
                                 "c\x00",
                                 17));
}

// The form codes behind one irregular record.
std::string CodesBehind(const std::vector<KatuyoForm>& forms, uint8_t SetIrregularFlg) {
  std::string records("\x01\x00\x08\x00", 4);
  OutputKatuyo(forms, SetIrregularFlg, &records);
  std::string codes;
  for (size_t at = 4; at < records.size(); at += 5)
    codes += std::to_string(records[at + 2]) + records[at + 3];
  return codes;
}

TEST(OutputKatuyo, LeavesOutServedPartsBehindIrregularForms) {
  const std::vector<KatuyoForm> forms = {{40, "a"}, {20, "b"}, {21, "c"}, {10, "d"}, {31, "e"}};
  EXPECT_EQ(CodesBehind(forms, 0), "1a3b4c6d7e");
  EXPECT_EQ(CodesBehind(forms, kHinsiMeisi), "3b4c6d7e");
  EXPECT_EQ(CodesBehind(forms, kHinsiKeiyo), "1a6d7e");
  EXPECT_EQ(CodesBehind(forms, kHinsiDousi), "1a3b4c");
}

TEST(OutputKatuyo, ClosesAPartWithItsLastFormBehindIrregularForms) {
  EXPECT_EQ(CodesBehind({{40, "a"}, {40, "b"}, {41, "c"}, {40, "d"}, {41, "e"}, {20, "f"}}, 0), "1a1b2c3f");
  EXPECT_EQ(CodesBehind({{22, "a"}, {20, "b"}, {10, "c"}}, 0), "5a6c");
  EXPECT_EQ(CodesBehind({{13, "a"}, {10, "b"}, {40, "c"}}, 0), "10a1c");
}

}  // namespace
}  // namespace zavel::engine
