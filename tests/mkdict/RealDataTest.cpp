// The dictionary that the distribution's open data compiles to, looked up through the engine: do real words
// get their real forms, and do real forms lead to their words? The compiled set is a fixture of ctest; run by
// hand, the program takes its folder from the environment variable REAL_DICTIONARY.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

#include "engine/EngineAPI.h"
#include "mkdict/FormCode.h"
#include "support/DicWriter.h"

namespace zavel {
namespace {

using Texts = std::vector<std::string>;
using Words = std::set<std::string>;
using Forms = std::map<int, Words>;  // by form code

using namespace mkdict;  // the names of form codes

class RealData : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const char* folder = std::getenv("REAL_DICTIONARY");
    const std::string prefix = std::string(folder != nullptr ? folder : REAL_DICTIONARY) + "/";
    ASSERT_EQ(1, InitAPI(prefix.c_str(), nullptr, nullptr)) << "no dictionary at " << prefix;
  }
  static void TearDownTestSuite() { EndAPI(); }
};

std::vector<std::pair<int, std::string>> recordsOf(const std::string& word) {
  uint32_t size = 0;
  Handle list = nullptr;
  EXPECT_EQ(1, GetKatuyo(word.c_str(), &size, &list)) << word;
  return test::takeForms(list, size);
}

Forms formsOf(const std::string& word) {
  Forms forms;
  for (const auto& [code, text] : recordsOf(word)) forms[code].insert(text);
  return forms;
}

// The form that a lookup goes on with: the first of code 1, 3, 6 or 7.
std::string originOf(const std::string& word) {
  for (const auto& [code, text] : recordsOf(word)) {
    if (code == kSingular || code == kPositive || code == kPresent || code == kThird) return text;
  }
  return {};
}

Texts entriesOf(std::string word) {
  uint32_t size = 0;
  Handle list = nullptr;
  EXPECT_EQ(1, SerchImiE(word.data(), nullptr, 0, &size, &list, 1)) << word;
  return test::takeEntries(list, size);
}

Texts japaneseEntriesOf(const char* utf8) {
  std::string word = test::sjis(utf8);
  uint32_t size = 0;
  Handle list = nullptr;
  EXPECT_EQ(1, SerchImiJ(word.data(), nullptr, 0, &size, &list, 1)) << utf8;
  return test::takeEntries(list, size);
}

// "われわれ\x1B我々" of each entry, in order.
Texts japaneseHeadwordsOf(const char* utf8) {
  Texts out;
  for (const std::string& entry : japaneseEntriesOf(utf8))
    out.push_back(entry.substr(2, entry.find('\n') - 2));
  return out;
}

Texts linesOf(const std::string& word, uint8_t mode = 0) {
  uint32_t size = 0;
  Handle list = nullptr;
  EXPECT_EQ(1, SerchMidasiE(word.c_str(), mode, &size, &list, 1)) << word;
  return test::takeLines(list, size);
}

// The headword of an entry, from its field to "≦" or the line end.
std::string headwordOf(const std::string& entry) {
  const size_t begin = entry.find("\xF4\xD0") + 2;
  return entry.substr(begin, std::min(entry.find("\x81\x85", begin), entry.find('\n', begin)) - begin);
}

Words headwordsOf(const std::string& word) {
  Words out;
  for (const std::string& entry : entriesOf(word)) out.insert(headwordOf(entry));
  return out;
}

// "stop/stay" as two words.
Words alternatives(const std::string& field) {
  Words out;
  std::istringstream in(field);
  for (std::string one; std::getline(in, one, '/');) out.insert(one);
  return out;
}

Texts fieldsOf(const std::string& row) {
  std::istringstream in(row);
  Texts fields;
  for (std::string field; in >> field;) fields.push_back(field);
  return fields;
}

// Every form of a row must lead to the whole paradigm: `codes` names the fields in order, the first the base.
void expectParadigm(const std::string& row, const std::vector<int>& codes) {
  const Texts fields = fieldsOf(row);
  ASSERT_EQ(codes.size(), fields.size()) << row;
  for (const std::string& field : fields) {
    for (const std::string& form : alternatives(field)) {
      const Forms forms = formsOf(form);
      for (size_t i = 0; i < codes.size(); ++i) {
        for (const std::string& wanted : alternatives(fields[i])) {
          EXPECT_TRUE(forms.contains(codes[i]) && forms.at(codes[i]).contains(wanted))
              << form << " does not give " << wanted << " as form " << codes[i];
        }
      }
    }
  }
}

// The base itself must give the row and nothing else of these codes.
void expectExactly(const std::string& row, const std::vector<int>& codes) {
  const Texts fields = fieldsOf(row);
  ASSERT_EQ(codes.size(), fields.size()) << row;
  const Forms forms = formsOf(fields[0]);
  for (size_t i = 0; i < codes.size(); ++i) {
    const auto found = forms.find(codes[i]);
    EXPECT_EQ(alternatives(fields[i]), found == forms.end() ? Words() : found->second) << row;
  }
}

const std::vector<int> kVerbCodes = {kPresent, kThird, kPast, kParticiple, kProgressive};

TEST_F(RealData, InflectsIrregularVerbs) {
  const char* const verbs[] = {
      "arise arises arose arisen arising",
      "become becomes became become becoming",
      "begin begins began begun beginning",
      "bite bites bit bitten biting",
      "blow blows blew blown blowing",
      "break breaks broke broken breaking",
      "breed breeds bred bred breeding",
      "bring brings brought brought bringing",
      "build builds built built building",
      "buy buys bought bought buying",
      "catch catches caught caught catching",
      "choose chooses chose chosen choosing",
      "come comes came come coming",
      "cut cuts cut cut cutting",
      "deal deals dealt dealt dealing",
      "dig digs dug dug digging",
      "do does did done doing",
      "draw draws drew drawn drawing",
      "drink drinks drank drunk drinking",
      "drive drives drove driven driving",
      "eat eats ate eaten eating",
      "fall falls fell fallen falling",
      "feed feeds fed fed feeding",
      "feel feels felt felt feeling",
      "fight fights fought fought fighting",
      "find finds found found finding",
      "flee flees fled fled fleeing",
      "forget forgets forgot forgotten forgetting",
      "forgive forgives forgave forgiven forgiving",
      "freeze freezes froze frozen freezing",
      "get gets got got/gotten getting",
      "give gives gave given giving",
      "go goes went gone going",
      "grind grinds ground ground grinding",
      "grow grows grew grown growing",
      "have has had had having",
      "hear hears heard heard hearing",
      "hide hides hid hidden hiding",
      "hit hits hit hit hitting",
      "hold holds held held holding",
      "hurt hurts hurt hurt hurting",
      "keep keeps kept kept keeping",
      "know knows knew known knowing",
      "lay lays laid laid laying",
      "leave leaves left left leaving",
      "lend lends lent lent lending",
      "let lets let let letting",
      "lose loses lost lost losing",
      "make makes made made making",
      "mean means meant meant meaning",
      "meet meets met met meeting",
      "overcome overcomes overcame overcome overcoming",
      "pay pays paid paid paying",
      "put puts put put putting",
      "read reads read read reading",
      "ride rides rode ridden riding",
      "rise rises rose risen rising",
      "run runs ran run running",
      "say says said said saying",
      "see sees saw seen seeing",
      "seek seeks sought sought seeking",
      "sell sells sold sold selling",
      "send sends sent sent sending",
      "set sets set set setting",
      "shake shakes shook shaken shaking",
      "shoot shoots shot shot shooting",
      "shrink shrinks shrank shrunk/shrunken shrinking",
      "shut shuts shut shut shutting",
      "sit sits sat sat sitting",
      "sleep sleeps slept slept sleeping",
      "speak speaks spoke spoken speaking",
      "spend spends spent spent spending",
      "split splits split split splitting",
      "spread spreads spread spread spreading",
      "spring springs sprang sprung springing",
      "stand stands stood stood standing",
      "steal steals stole stolen stealing",
      "stick sticks stuck stuck sticking",
      "sting stings stung stung stinging",
      "strike strikes struck struck striking",
      "swear swears swore sworn swearing",
      "sweep sweeps swept swept sweeping",
      "swim swims swam swum swimming",
      "swing swings swung swung swinging",
      "take takes took taken taking",
      "teach teaches taught taught teaching",
      "tear tears tore torn tearing",
      "tell tells told told telling",
      "think thinks thought thought thinking",
      "throw throws threw thrown throwing",
      "undergo undergoes underwent undergone undergoing",
      "understand understands understood understood understanding",
      "upset upsets upset upset upsetting",
      "wear wears wore worn wearing",
      "weep weeps wept wept weeping",
      "win wins won won winning",
      "withdraw withdraws withdrew withdrawn withdrawing",
      "write writes wrote written writing",
      // the regular form stands beside the other
      "burn burns burned/burnt burned/burnt burning",
      "dive dives dived/dove dived diving",
      "dream dreams dreamed/dreamt dreamed/dreamt dreaming",
      "learn learns learned/learnt learned/learnt learning",
      "light lights lighted/lit lighted/lit lighting",
      "mow mows mowed mowed/mown mowing",
      "prove proves proved proved/proven proving",
      "sew sews sewed sewn sewing",
      "show shows showed showed/shown showing",
      "spell spells spelled/spelt spelled/spelt spelling",
      "swell swells swelled swelled/swollen swelling",
      "beat beats beat beaten beating",
      "bid bids bade/bid bid/bidden bidding",
  };
  for (const char* row : verbs) {
    expectParadigm(row, kVerbCodes);
    if (!std::string_view(row).starts_with("lay ")) expectExactly(row, kVerbCodes);  // "lay" is of "lie" too
  }
}

TEST_F(RealData, InflectsRegularVerbs) {
  const char* const verbs[] = {
      "abuse abuses abused abused abusing",
      "admit admits admitted admitted admitting",
      "agree agrees agreed agreed agreeing",
      "answer answers answered answered answering",
      "apply applies applied applied applying",
      "argue argues argued argued arguing",
      "ask asks asked asked asking",
      "bake bakes baked baked baking",
      "box boxes boxed boxed boxing",
      "carry carries carried carried carrying",
      "change changes changed changed changing",
      "cry cries cried cried crying",
      "decide decides decided decided deciding",
      "die dies died died dying",
      "dye dyes dyed dyed dyeing",
      "enjoy enjoys enjoyed enjoyed enjoying",
      "fix fixes fixed fixed fixing",
      "free frees freed freed freeing",
      "guarantee guarantees guaranteed guaranteed guaranteeing",
      "guess guesses guessed guessed guessing",
      "hope hopes hoped hoped hoping",
      "hop hops hopped hopped hopping",
      "judge judges judged judged judging",
      "kiss kisses kissed kissed kissing",
      "laugh laughs laughed laughed laughing",
      "listen listens listened listened listening",
      "look looks looked looked looking",
      "march marches marched marched marching",
      "occur occurs occurred occurred occurring",
      "offer offers offered offered offering",
      "open opens opened opened opening",
      "panic panics panicked panicked panicking",
      "permit permits permitted permitted permitting",
      "plan plans planned planned planning",
      "plane planes planed planed planing",
      "play plays played played playing",
      "prefer prefers preferred preferred preferring",
      "push pushes pushed pushed pushing",
      "relax relaxes relaxed relaxed relaxing",
      "reply replies replied replied replying",
      "rob robs robbed robbed robbing",
      "stare stares stared stared staring",
      "stop stops stopped stopped stopping",
      "study studies studied studied studying",
      "drop drops dropped dropped dropping",
      "tie ties tied tied tying",
      "transmit transmits transmitted transmitted transmitting",
      "try tries tried tried trying",
      "use uses used used using",
      "visit visits visited visited visiting",
      "walk walks walked walked walking",
      "wash washes washed washed washing",
      "watch watches watched watched watching",
      "worry worries worried worried worrying",
      "travel travels traveled/travelled traveled/travelled traveling/travelling",
      "cancel cancels canceled/cancelled canceled/cancelled canceling/cancelling",
      "kidnap kidnaps kidnapped kidnapped kidnapping",
      "quiz quizzes quizzed quizzed quizzing",
  };
  for (const char* row : verbs) {
    expectParadigm(row, kVerbCodes);
    expectExactly(row, kVerbCodes);
  }
}

TEST_F(RealData, InflectsToBeAndTheModals) {
  for (const char* form : {"be", "am", "are", "is", "was", "were", "been", "being"}) {
    const Forms forms = formsOf(form);
    EXPECT_EQ(Words{"be"}, forms.at(kPresent)) << form;
    EXPECT_EQ((Words{"was", "were"}), forms.at(kPast)) << form;
    EXPECT_EQ(Words{"been"}, forms.at(kParticiple)) << form;
    EXPECT_EQ(Words{"being"}, forms.at(kProgressive)) << form;
  }
  EXPECT_TRUE(formsOf("could").at(kPresent).contains("can"));
  EXPECT_TRUE(formsOf("might").at(kPresent).contains("may"));
  EXPECT_TRUE(formsOf("would").at(kPresent).contains("will"));
}

TEST_F(RealData, InflectsNouns) {
  const std::vector<int> codes = {kSingular, kPlural};
  const char* const nouns[] = {
      "address addresses",
      "analysis analyses",
      "apple apples",
      "baby babies",
      "basis bases",
      "bird birds",
      "book books",
      "box boxes",
      "boy boys",
      "brush brushes",
      "bus buses/busses",
      "cat cats",
      "chairman chairmen",
      "child children",
      "church churches",
      "city cities",
      "class classes",
      "country countries",
      "crisis crises",
      "criterion criteria",
      "day days",
      "deer deer",
      "dish dishes",
      "doctor doctors",
      "dog dogs",
      "dress dresses",
      "echo echoes",
      "enemy enemies",
      "eye eyes",
      "family families",
      "fireman firemen",
      "flower flowers",
      "foot feet",
      "fox foxes",
      "friend friends",
      "gentleman gentlemen",
      "girl girls",
      "glass glasses",
      "goose geese",
      "half halves",
      "hand hands",
      "hero heroes",
      "hotel hotels",
      "house houses",
      "human humans",
      "hypothesis hypotheses",
      "idea ideas",
      "journey journeys",
      "key keys",
      "knife knives",
      "lady ladies",
      "leaf leaves",
      "lens lenses",
      "letter letters",
      "library libraries",
      "loaf loaves",
      "louse lice",
      "man men",
      "mouse mice",
      "nurse nurses",
      "oasis oases",
      "ox oxen",
      "pencil pencils",
      "phenomenon phenomena",
      "photo photos",
      "piano pianos",
      "policeman policemen",
      "potato potatoes",
      "queen queens",
      "river rivers",
      "roof roofs",
      "sheep sheep",
      "shelf shelves",
      "ship ships",
      "spaceship spaceships",
      "stomach stomachs",
      "story stories",
      "student students",
      "suitcase suitcases",
      "table tables",
      "thesis theses",
      "thief thieves",
      "tomato tomatoes",
      "tooth teeth",
      "toy toys",
      "tree trees",
      "virus viruses",
      "wife wives",
      "wolf wolves",
      "woman women",
      "word words",
      "year years",
      "zebra zebras",
  };
  for (const char* row : nouns) {
    expectParadigm(row, codes);
    if (std::string_view(row) != "man men" && std::string_view(row) != "basis bases")
      expectExactly(row, codes);
  }
}

TEST_F(RealData, GivesNoPluralToWhatIsNotCounted) {
  for (const char* noun :
       {"information", "furniture", "equipment", "luck", "happiness", "courage", "physics", "oxygen"}) {
    const Forms forms = formsOf(noun);
    EXPECT_TRUE(forms.contains(kSingular)) << noun;
    EXPECT_FALSE(forms.contains(kPlural)) << noun;
  }
}

TEST_F(RealData, ComparesAdjectives) {
  const std::vector<int> codes = {kPositive, kComparative, kSuperlative};
  const char* const adjectives[] = {
      "bad worse worst",        "big bigger biggest",        "bright brighter brightest",
      "busy busier busiest",    "cheap cheaper cheapest",    "clean cleaner cleanest",
      "cold colder coldest",    "deep deeper deepest",       "dry drier/dryer driest/dryest",
      "easy easier easiest",    "fast faster fastest",       "fat fatter fattest",
      "funny funnier funniest", "good better best",          "gray grayer grayest",
      "great greater greatest", "happy happier happiest",    "hard harder hardest",
      "heavy heavier heaviest", "high higher highest",       "hot hotter hottest",
      "kind kinder kindest",    "large larger largest",      "late later latest",
      "lazy lazier laziest",    "long longer longest",       "narrow narrower narrowest",
      "new newer newest",       "nice nicer nicest",         "old elder/older eldest/oldest",
      "poor poorer poorest",    "pretty prettier prettiest", "quick quicker quickest",
      "red redder reddest",     "rich richer richest",       "sad sadder saddest",
      "safe safer safest",      "short shorter shortest",    "simple simpler simplest",
      "slow slower slowest",    "small smaller smallest",    "strong stronger strongest",
      "sweet sweeter sweetest", "tall taller tallest",       "thick thicker thickest",
      "thin thinner thinnest",  "ugly uglier ugliest",       "warm warmer warmest",
      "weak weaker weakest",    "wet wetter wettest",        "wide wider widest",
      "young younger youngest",
  };
  for (const char* row : adjectives) {
    expectParadigm(row, codes);
    expectExactly(row, codes);
  }
}

TEST_F(RealData, ComparesLongAdjectivesByMore) {
  for (const char* word :
       {"beautiful", "important", "interesting", "dangerous", "tired", "boring", "useful", "careful"}) {
    const Forms forms = formsOf(word);
    EXPECT_EQ(Words{std::string("more ") + word}, forms.at(kComparative)) << word;
    EXPECT_EQ(Words{std::string("most ") + word}, forms.at(kSuperlative)) << word;
  }
}

TEST_F(RealData, LeadsFormsWithoutAnEntryToTheirWord) {
  const std::pair<const char*, const char*> table[] = {
      {"went", "go"},           {"children", "child"},
      {"mice", "mouse"},        {"oxen", "ox"},
      {"leaves", "leaf"},       {"knives", "knife"},
      {"ate", "eat"},           {"stopped", "stop"},
      {"carried", "carry"},     {"was", "be"},
      {"were", "be"},           {"caught", "catch"},
      {"geese", "goose"},       {"analyses", "analysis"},
      {"happier", "happy"},     {"sadder", "sad"},
      {"planing", "plane"},     {"policemen", "policeman"},
      {"took off", "take off"}, {"gave up", "give up"},
      {"shod", "shoe"},         {"brought", "bring"},
      {"churches", "church"},   {"harbours", "harbour"},
  };
  for (const auto& [form, base] : table) {
    EXPECT_TRUE(entriesOf(form).empty()) << form << " has an entry of its own";
    EXPECT_EQ(base, originOf(form)) << form;
    EXPECT_FALSE(entriesOf(base).empty()) << base;
  }
}

TEST_F(RealData, TellsHomographsOfAFormApart) {
  const Forms found = formsOf("found"), saw = formsOf("saw"), lay = formsOf("lay"), lying = formsOf("lying");
  EXPECT_EQ((Words{"find", "found"}), found.at(kPresent));
  EXPECT_EQ((Words{"founded", "found"}), found.at(kPast));
  EXPECT_EQ((Words{"saw", "see"}), saw.at(kPresent));
  EXPECT_EQ((Words{"lay", "lie"}), lay.at(kPresent));
  EXPECT_TRUE(lay.at(kPast).contains("lay"));
  EXPECT_TRUE(lay.at(kPast).contains("laid"));
  EXPECT_EQ(Words{"lie"}, lying.at(kPresent));
  EXPECT_TRUE(formsOf("axes").at(kSingular).contains("ax"));
  EXPECT_TRUE(formsOf("axes").at(kSingular).contains("axis"));
  EXPECT_TRUE(formsOf("better").at(kPositive).contains("good"));
  EXPECT_TRUE(formsOf("better").at(kPositive).contains("well"));
}

TEST_F(RealData, TranslatesBasicWords) {
  const std::pair<const char*, const char*> table[] = {
      {"apple", "林檎"},   {"beautiful", "美しい"}, {"bird", "鳥"},         {"book", "本"},
      {"buy", "買う"},     {"cat", "猫"},           {"child", "子供"},      {"cold", "寒い"},
      {"come", "来る"},    {"day", "日"},           {"dog", "犬"},          {"drink", "飲む"},
      {"eat", "食べる"},   {"eye", "目"},           {"father", "父"},       {"fire", "火"},
      {"fish", "魚"},      {"flower", "花"},        {"foot", "足"},         {"friend", "友達"},
      {"give", "与える"},  {"go", "行く"},          {"good", "良い"},       {"hand", "手"},
      {"happy", "幸せ"},   {"head", "頭"},          {"hear", "聞く"},       {"heart", "心"},
      {"house", "家"},     {"interest", "興味"},    {"know", "知る"},       {"language", "言語"},
      {"life", "生命"},    {"light", "光"},         {"long", "長い"},       {"love", "愛"},
      {"man", "男"},       {"money", "金"},         {"mother", "母"},       {"mountain", "山"},
      {"mouth", "口"},     {"name", "名前"},        {"new", "新しい"},      {"night", "夜"},
      {"old", "古い"},     {"people", "人々"},      {"question", "質問"},   {"rain", "雨"},
      {"read", "読む"},    {"red", "赤い"},         {"river", "川"},        {"run", "走る"},
      {"school", "学校"},  {"sea", "海"},           {"see", "見る"},        {"sleep", "眠る"},
      {"small", "小さい"}, {"speak", "話す"},       {"star", "星"},         {"stone", "石"},
      {"strong", "強い"},  {"student", "学生"},     {"sun", "太陽"},        {"teacher", "先生"},
      {"think", "思う"},   {"time", "時間"},        {"tree", "木"},         {"walk", "歩く"},
      {"war", "戦争"},     {"water", "水"},         {"white", "白い"},      {"wind", "風"},
      {"window", "窓"},    {"woman", "女"},         {"word", "単語"},       {"work", "働く"},
      {"world", "世界"},   {"write", "書く"},       {"year", "年"},         {"yesterday", "昨日"},
      {"Japan", "日本"},   {"look after", "世話"},  {"in general", "一般"}, {"of", "の"},
      {"and", "と"},
  };
  for (const auto& [word, translation] : table) {
    std::string all;
    for (const std::string& entry : entriesOf(word)) all += entry;
    EXPECT_NE(std::string::npos, all.find(test::sjis(translation))) << word;
  }
}

TEST_F(RealData, PutsTheMainTranslationIntoTheLine) {
  const std::pair<const char*, const char*> table[] = {
      {"apple", "林檎"}, {"run", "走る"},  {"color", "色"},      {"work", "働く"},
      {"head", "頭"},    {"dog", "犬"},    {"eat", "食べる"},    {"go", "行く"},
      {"red", "赤い"},   {"life", "生命"}, {"interest", "興味"}, {"light", "光"}};
  for (const auto& [word, translation] : table) {
    // Two-letter words search for themselves alone, longer ones list all that begin so.
    Words lines;
    for (std::string line : linesOf(word)) {
      line.erase(0, line.find_first_not_of('*'));
      lines.insert(line);
    }
    EXPECT_TRUE(lines.contains(std::string(word) + " [" + test::sjis(translation) + "]")) << word;
  }
}

TEST_F(RealData, LetsSpellingsLeadToEachOther) {
  const std::pair<const char*, const char*> table[] = {
      {"colour", "color"},
      {"centre", "center"},
      {"theatre", "theater"},
      {"realise", "realize"},
      {"organise", "organize"},
      {"defence", "defense"},
      {"catalogue", "catalog"},
      {"traveller", "traveler"},
      {"grey", "gray"},
      {"aluminium", "aluminum"},
      {"honour", "honor"},
      {"labour", "labor"},
      {"neighbour", "neighbor"},
      {"favourite", "favorite"},
      {"analyse", "analyze"},
      {"anaemia", "anemia"},
      {"encyclopaedia", "encyclopedia"},
      {"manoeuvre", "maneuver"},
      {"plough", "plow"},
      {"mould", "mold"},
      {"jewellery", "jewelry"},
      {"pyjama", "pajama"},
      {"sceptic", "skeptic"},
      {"sulphur", "sulfur"},
      {"fulfil", "fulfill"},
      {"enrol", "enroll"},
      {"programme", "program"},
      {"dialogue", "dialog"},
      {"metre", "meter"},
      {"litre", "liter"},
      {"fibre", "fiber"},
      {"harbour", "harbor"},
  };
  // A word that is known by its other spelling alone names it without leading there.
  const auto leads = [](const std::string& from, const std::string& to, const char* region) {
    const Words found = headwordsOf(from);
    EXPECT_TRUE(found.contains(from)) << from;
    std::string all;
    for (const std::string& entry : entriesOf(from)) all += entry;
    const bool named = all.find(test::sjis(std::string("《") + region + "》 ") + to) != std::string::npos;
    EXPECT_TRUE(found.contains(to) || named) << from << " does not tell of " << to;
    return found.contains(to);
  };
  for (const auto& [british, american] : table) {
    const bool there = leads(british, american, "米"), back = leads(american, british, "英");
    EXPECT_TRUE(there || back) << british;
  }
}

TEST_F(RealData, KeepsUnrelatedSynonymsApart) {
  EXPECT_FALSE(headwordsOf("lift").contains("elevator"));
  EXPECT_FALSE(headwordsOf("autumn").contains("fall"));
  EXPECT_FALSE(headwordsOf("big").contains("large"));
}

TEST_F(RealData, RefersToNoOtherWordForASpelling) {
  for (const auto& [word, other] :
       {std::pair("timber", "timbre"), std::pair("humorous", "humourous"), std::pair("partisan", "partizan"),
        std::pair("deodorant", "deodourant")}) {
    for (const std::string& entry : entriesOf(word)) {
      EXPECT_EQ(std::string::npos, entry.find(other)) << word;
    }
  }
}

// Headword, part of speech and pronunciation of its first entry in that part.
TEST_F(RealData, ShowsThePronunciationThatMostOfEnglishHas) {
  const char* const table[][3] = {{"have", "動", "h{v"},
                                  {"bad", "形", "b{d"},
                                  {"fish", "名", "fIA\xD8"},
                                  {"love", "名", "lVv"},
                                  {"bread", "名", "brEd"},
                                  {"one", "数", "wVn"},
                                  {"and", "接", "{nd"},
                                  {"him", "代", "'hIm"},
                                  {"use", "名", "jus"},
                                  {"use", "動", "juz"},
                                  {"my", "限", "maI"},
                                  {"with", "前", "wID"},
                                  {"object", "名", "'AbdZEkt"},
                                  {"object", "動", "@b'dZEkt"},
                                  {"abacus", "名", "'{b@k@s"},
                                  {"wash", "動", "wAA\xD8"},
                                  {"separate", "動", "'sEp@reIt"},
                                  {"separate", "形", "'sEp@r@t"}};
  for (const auto& [word, pos, sound] : table) {
    std::string first;
    for (const std::string& entry : entriesOf(word)) {
      const bool here =
          headwordOf(entry) == word && entry.find(test::sjis(std::string("-[") + pos)) != std::string::npos;
      if (here && first.empty()) first = entry;
    }
    EXPECT_NE(std::string::npos, first.find(std::string("\x81\x85") + sound + "\x81\x86"))
        << word << " " << first;
  }
}

// "FAR", the floor area ratio; "HE"; "Be", beryllium.
TEST_F(RealData, MakesNoWordsOfAbbreviationsAndNames) {
  for (const auto& [word, foreign] : {std::pair("far", "容積率"), std::pair("he", "ヒューマン"),
                                      std::pair("may", "５月"), std::pair("japan", "大和")}) {
    for (const std::string& entry : entriesOf(word)) {
      if (headwordOf(entry) != word) continue;
      EXPECT_EQ(std::string::npos, entry.find(test::sjis(foreign))) << word;
    }
  }
  EXPECT_EQ(1u, entriesOf("be").size());
}

TEST_F(RealData, PutsModalVerbsFirst) {
  for (const char* word : {"can", "may", "must", "will"}) {
    EXPECT_NE(std::string::npos, entriesOf(word).at(0).find(test::sjis("-[動]"))) << word;
  }
}

TEST_F(RealData, LeadsDerivedWordsToTheirBase) {
  const std::pair<const char*, const char*> table[] = {
      {"thoughtfully", "thoughtful"},
      {"vocational", "vocation"},
      {"bluntness", "blunt"},
      {"attractively", "attractive"},
      {"nineteenth", "nineteen"},
      {"disgracefulness", "disgraceful"},
      {"gloriously", "glorious"},
      {"electronically", "electronic"},
      {"fantastically", "fantastic"},
      {"genealogist", "genealogy"},
      {"whom", "who"},
      {"towards", "toward"},
  };
  for (const auto& [derived, base] : table) {
    EXPECT_TRUE(headwordsOf(derived).contains(base)) << derived;
    EXPECT_FALSE(headwordsOf(derived).contains(derived)) << derived;
  }
}

TEST_F(RealData, FiltersLinesByStars) {
  Words three, two;
  for (const std::string& line : linesOf("tak", 1)) three.insert(line.substr(0, line.find(" [")));
  for (const std::string& line : linesOf("tak", 2)) two.insert(line.substr(0, line.find(" [")));
  EXPECT_TRUE(three.contains("***take"));
  for (const std::string& line : three) EXPECT_EQ("***", line.substr(0, 3));
  EXPECT_FALSE(two.empty());
  for (const std::string& line : two) {
    EXPECT_EQ("**", line.substr(0, 2));
    EXPECT_NE('*', line[2]);
  }
}

// The source's "-able" reads "れる", its "-phobia" "怖症", "un-" "不": the first characters were lost.
TEST_F(RealData, KeepsAffixesOut) {
  for (const auto& [word, cut] :
       {std::pair("able", "れる"), std::pair("phobia", "怖症"), std::pair("un", "不")}) {
    for (const std::string& entry : entriesOf(word)) {
      EXPECT_EQ(std::string::npos, entry.find("\xF5\xD4" + test::sjis(cut))) << word;
    }
  }
}

// A search takes no 々, so hosts ask for the kanji twice.
TEST_F(RealData, FindsWordsWithTheRepetitionMarkByBothForms) {
  const struct {
    const char *reading, *marked, *repeated;
  } words[] = {
      {"われわれ", "我々", "我我"},
      {"さまざま", "様々", "様様"},
      {"ひとびと", "人々", "人人"},
      {"ときどき", "時々", "時時"},
      {"いろいろ", "色々", "色色"},
      {"くにぐに", "国々", "国国"},
      {"しょうしょう", "少々", "少少"},
      {"なかなか", "中々", "中中"},
      {"べつべつ", "別々", "別別"},
      {"ますます", "益々", "益益"},
      {"ずうずうしい", "図々しい", "図図しい"},
  };
  for (const auto& word : words) {
    const std::string head = test::sjis(word.reading) + '\x1B';
    const Texts byReading = japaneseHeadwordsOf(word.reading);
    EXPECT_EQ(1, std::count(byReading.begin(), byReading.end(), head + test::sjis(word.marked)))
        << word.marked;
    EXPECT_EQ(0, std::count(byReading.begin(), byReading.end(), head + test::sjis(word.repeated)))
        << word.marked;
    EXPECT_EQ(head + test::sjis(word.repeated), japaneseHeadwordsOf(word.repeated).at(0)) << word.marked;
    EXPECT_NE(std::string::npos,
              japaneseEntriesOf(word.repeated).at(0).find(" written " + test::sjis(word.marked) + ")\n"))
        << word.marked;
  }
}

TEST_F(RealData, PutsTheUsualReadingFirst) {
  const std::pair<const char*, const char*> table[] = {
      {"本", "ほん"},       {"私", "わたし"},       {"今日", "きょう"},   {"日本", "にほん"},
      {"明日", "あした"},   {"人", "ひと"},         {"上手", "じょうず"}, {"今", "いま"},
      {"家", "いえ"},       {"何", "なに"},         {"昨日", "きのう"},   {"大人", "おとな"},
      {"生", "なま"},       {"一日", "いちにち"},   {"三", "さん"},       {"風", "かぜ"},
      {"空", "そら"},       {"上", "うえ"},         {"下", "した"},       {"中", "なか"},
      {"音", "おと"},       {"心", "こころ"},       {"年", "とし"},       {"日", "ひ"},
      {"店", "みせ"},       {"入る", "はいる"},     {"行く", "いく"},     {"言う", "いう"},
      {"得る", "える"},     {"避ける", "さける"},   {"下手", "へた"},     {"文字", "もじ"},
      {"毎年", "まいとし"}, {"工場", "こうじょう"}, {"白髪", "しらが"},   {"日日", "ひび"},
  };
  for (const auto& [written, reading] : table) {
    const std::string first = japaneseHeadwordsOf(written).at(0);
    EXPECT_EQ(test::sjis(reading), first.substr(0, first.find('\x1B'))) << written;
  }
}

TEST_F(RealData, FindsWordsOfOtherAlphabetsInAscii) {
  for (const char* word : {"cafe", "deja vu", "San Jose"}) {
    EXPECT_TRUE(headwordsOf(word).contains(word)) << word;
  }
}

}  // namespace
}  // namespace zavel
