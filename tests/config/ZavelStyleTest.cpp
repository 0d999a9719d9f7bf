#include "config/ZavelStyle.h"

#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"

namespace zavel::test {
namespace {

constexpr char kGeneral[] = "root/Library/Application Support/Tarnwick/ZavelLex";
constexpr char kMedical[] = "root/Library/Application Support/Tarnwick/TarnwickMedical";

Value etoj(int opt1, int opt2, int opt3) {
  return Value::Dict{{"Opt1", opt1}, {"Opt2", opt2}, {"Opt3", opt3}};
}

Value jtoe(int opt1, int opt2, int opt3, bool opt4) {
  return Value::Dict{{"Opt1", opt1}, {"Opt2", opt2}, {"Opt3", opt3}, {"Opt4", opt4}};
}

Value style(int id, const std::string& name) {
  return Value::Dict{{"ID", id},
                     {"Name", name},
                     {"EJ", etoj(id * 10 + 1, id * 10 + 2, id * 10 + 3)},
                     {"JE", jtoe(id * 10 + 4, id * 10 + 5, id * 10 + 6, true)}};
}

// Styles named "S1", "S2", ... with the IDs 1, 2, ...
Value::Array styles(int count) {
  Value::Array list;
  for (int id = 1; id <= count; ++id) list.push_back(style(id, "S" + std::to_string(id)));
  return list;
}

Value file(Value::Array list, Value::Dict selection = {{"QN", 1}}) {
  return Value::Dict{{"Style", std::move(list)}, {"Selection", std::move(selection)}};
}

// A member taken out of a map.
Value without(Value map, const std::string& key) {
  map.asDict()->erase(key);
  return map;
}

Value with(Value map, const std::string& key, Value value) {
  (*map.asDict())[key] = std::move(value);
  return map;
}

class ZavelStyleTest : public ConfigTest {
 protected:
  ZavelStyleTest() {
    makeFolder(at(kGeneral));
    makeFolder(at(kMedical));
    zavelPathLoadDictAndHelper("");  // the general edition
    zavelStyleInitialize();
    zavelStyleSetTStyleUrl(at("user").c_str());
  }
  ~ZavelStyleTest() override {
    zavelStyleTerminate();
    zavelPathLoadDictAndHelper("");
  }

  void writeUserStyles(const Value& content) const { writeTable(at("user"), content); }

  static std::string title(int index) {
    const ZavelStyleTitle record = zavelStyleTitleID(index);
    return std::to_string(record.id) + ":" + std::string(record.text, record.length);
  }

  // Style, They, Learning; Shugo, Kanshi, Ukemi, Learning.
  static std::vector<int> values() {
    return {zavelStyleEtojStyle(),  zavelStyleEtojThey(),  zavelStyleEtojLearning(), zavelStyleJtoeShugo(),
            zavelStyleJtoeKanshi(), zavelStyleJtoeUkemi(), zavelStyleJtoeLearning()};
  }
  using Values = std::vector<int>;
};

// --- Default files and folders ---

TEST_F(ZavelStyleTest, TheGeneralDefaultIsThatOf2009WhereItIsThere) {
  EXPECT_EQ(zavelStyleBaseURL(), at(kGeneral) + "/ZavelStyle2008");
  writeText(at(kGeneral) + "/ZavelStyle2009.plist", "");
  zavelStyleInitialize();
  EXPECT_EQ(zavelStyleBaseURL(), at(kGeneral) + "/ZavelStyle2009");
}

TEST_F(ZavelStyleTest, TheMedicalDefaultIsTheNewestOfSevenYears) {
  zavelPathLoadDictAndHelper("/Medical/x");
  zavelStyleInitialize();
  EXPECT_EQ(zavelStyleBaseURL(), at(kMedical) + "/TarnwickStyle2008");
  for (const char* year : {"2009", "2010", "2011", "2012", "2013", "2014"}) {
    writeText(at(kMedical) + "/TarnwickStyle" + year + ".plist", "");
    zavelStyleInitialize();
    EXPECT_EQ(zavelStyleBaseURL(), at(kMedical) + "/TarnwickStyle" + year);
  }
  writeText(at(kMedical) + "/TarnwickStyle2015.plist", "");
  zavelStyleInitialize();
  EXPECT_EQ(zavelStyleBaseURL(), at(kMedical) + "/TarnwickStyle2014");
}

TEST_F(ZavelStyleTest, TechnicalFoldersAreThoseOfTheEdition) {
  ZavelStyle edition;
  EXPECT_EQ(edition.techDictEJ(), at("root/Applications/ZavelLex.localized/Contents/TechDic.localized/EJ"));
  EXPECT_EQ(edition.techDictJE(), at("root/Applications/ZavelLex.localized/Contents/TechDic.localized/JE"));
  edition.setZavelType(0);
  EXPECT_EQ(edition.techDictEJ(), at("root/Applications/ZavelLex.localized/Contents/TechDic.localized/EJ"));
  edition.setZavelType(1);
  EXPECT_EQ(edition.techDictEJ(),
            at("root/Applications/TarnwickMedical.localized/Contents/TechDic.localized/EJi"));
  EXPECT_EQ(edition.techDictJE(),
            at("root/Applications/TarnwickMedical.localized/Contents/TechDic.localized/JE"));
  EXPECT_EQ(edition.baseUrl(), at(kMedical) + "/TarnwickStyle2008");
}

TEST_F(ZavelStyleTest, TheSameEditionAgainKeepsTheFoldersThatWereSet) {
  ZavelStyle edition;
  edition.setTechDictUrl("/ej", "/je");
  edition.setZavelType(0);
  EXPECT_EQ(edition.techDictEJ(), "/ej");
  edition.setZavelType(1);
  edition.setTechDictUrl("/ej", "/je");
  edition.setZavelType(1);
  EXPECT_EQ(edition.techDictJE(), "/je");
}

TEST_F(ZavelStyleTest, FromTheMedicalEditionTooAnotherOneIsTheMedicalOne) {
  ZavelStyle edition;
  edition.setZavelType(1);
  edition.setTechDictUrl("/ej", "/je");
  edition.setZavelType(0);
  EXPECT_EQ(edition.techDictEJ(),
            at("root/Applications/TarnwickMedical.localized/Contents/TechDic.localized/EJi"));
  EXPECT_EQ(edition.techDictJE(),
            at("root/Applications/TarnwickMedical.localized/Contents/TechDic.localized/JE"));
  EXPECT_EQ(edition.baseUrl(), at(kMedical) + "/TarnwickStyle2008");
}

TEST_F(ZavelStyleTest, FoldersAreReplacedAndTheUsersOneCanBeTakenAway) {
  ZavelStyle edition;
  EXPECT_EQ(edition.userDict(), std::nullopt);
  edition.setUserDictUrl("/user");
  EXPECT_EQ(edition.userDict(), "/user");
  edition.setUserDictUrl(nullptr);
  EXPECT_EQ(edition.userDict(), std::nullopt);
  edition.setTechDictUrl("/ej", "/je");
  edition.setTechDictUrl(nullptr, "/other");
  EXPECT_EQ(edition.techDictEJ() + edition.techDictJE(), "/ej/other");
}

// --- The choice of file ---

TEST_F(ZavelStyleTest, WithoutAUserFileSetEveryLoadFails) {
  writeTable(at(kGeneral) + "/ZavelStyle2008", file(styles(1)));
  zavelStyleInitialize();
  int current = 7;
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, &current));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
  EXPECT_EQ(current, 7);
}

TEST_F(ZavelStyleTest, WithoutAUserFileOnDiskTheDefaultFileServes) {
  writeTable(at(kGeneral) + "/ZavelStyle2008", file(styles(2)));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(2));
  EXPECT_EQ(values(), (Values{21, 22, 23, 24, 26, 25, 1}));
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(1), "2:S2");
}

TEST_F(ZavelStyleTest, TheUsersFileComesFirst) {
  writeTable(at(kGeneral) + "/ZavelStyle2008", file(styles(2)));
  writeUserStyles(file({style(2, "Mine")}));
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0), "2:Mine");
}

TEST_F(ZavelStyleTest, ADamagedUserFileIsNotPassedOver) {
  writeTable(at(kGeneral) + "/ZavelStyle2008", file(styles(2)));
  writeText(at("user.plist"), "damaged");
  EXPECT_FALSE(zavelStyleSetTStyleUrl(at("user").c_str()));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(readText(at("user.plist")), "damaged");
}

TEST_F(ZavelStyleTest, SettingTheUsersFileTellsWhetherItCanBeRead) {
  EXPECT_TRUE(zavelStyleSetTStyleUrl(at("not there").c_str()));
  writeUserStyles(Value::Dict{});
  EXPECT_TRUE(zavelStyleSetTStyleUrl(at("user").c_str()));
  writeUserStyles(Value::Array{});
  EXPECT_FALSE(zavelStyleSetTStyleUrl(at("user").c_str()));
  EXPECT_FALSE(zavelStyleSetTStyleUrl(nullptr));
  EXPECT_FALSE(zavelStyleSetTStyleUrl(""));
}

// --- Titles ---

TEST_F(ZavelStyleTest, TitlesAreFreeBeforeTheFirstLoad) {
  for (int index = 0; index < 10; ++index) EXPECT_EQ(title(index), "-1:");
}

TEST_F(ZavelStyleTest, LoadsTitlesAndTheApplicationsChoice) {
  writeUserStyles(file({style(4, "General"), style(9, "News")}, {{"QN", 9}, {"VX", 4}}));
  int current = 0;
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, &current));
  EXPECT_EQ(current, 9);
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(17, &current));
  EXPECT_EQ(current, 4);
  EXPECT_EQ(title(0), "4:General");
  EXPECT_EQ(title(1), "9:News");
  EXPECT_EQ(title(2), "-1:");
}

TEST_F(ZavelStyleTest, TitlesBeyondTheTenthOrBelowTheFirstAreFree) {
  writeUserStyles(file(styles(10)));
  ASSERT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(9), "10:S10");
  EXPECT_EQ(title(10), "-1:");
  EXPECT_EQ(title(11), "-1:");
  EXPECT_EQ(title(-1), "-1:");
}

TEST_F(ZavelStyleTest, TitlesAreShiftJisOf255BytesAtMost) {
  writeUserStyles(file({style(1, "一般"), style(2, std::string(254, 'a') + "表"),
                        style(3, std::string(300, 'b')), style(4, std::string(253, 'c') + "表")}));
  ASSERT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0), "1:\x88\xEA\x94\xCA");
  EXPECT_EQ(zavelStyleTitleID(0).length, 4);
  EXPECT_EQ(title(1), "2:" + std::string(254, 'a'));  // no character is cut in two
  EXPECT_EQ(title(2), "3:" + std::string(255, 'b'));
  EXPECT_EQ(zavelStyleTitleID(2).length, 255);
  EXPECT_EQ(title(3), "4:" + std::string(253, 'c') + "\x95\x5C");
}

TEST_F(ZavelStyleTest, SlotsBeyondAShorterListKeepWhatTheyHeld) {
  writeUserStyles(file(styles(3)));
  ASSERT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  writeUserStyles(file({style(5, "Only")}));
  ASSERT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0) + " " + title(1) + " " + title(2), "5:Only 2:S2 3:S3");
}

TEST_F(ZavelStyleTest, AnIncompleteStyleEndsTheTitlesWhereItStands) {
  const Value incomplete[] = {without(style(2, "x"), "ID"), without(style(2, "x"), "Name"),
                              with(style(2, "x"), "ID", "2"), with(style(2, "x"), "Name", 2),
                              Value("no map")};
  for (const Value& second : incomplete) {
    zavelStyleInitialize();
    zavelStyleSetTStyleUrl(at("user").c_str());
    writeUserStyles(file({style(1, "One"), second, style(3, "Three")}));
    EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
    EXPECT_EQ(title(0) + " " + title(1) + " " + title(2), "1:One -1: -1:");
  }
}

TEST_F(ZavelStyleTest, AnEleventhStyleIsNotLookedAtForTitles) {
  Value::Array list = styles(10);
  list.push_back(without(style(11, "S11"), "ID"));
  writeUserStyles(file(list));
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0) + " " + title(9), "1:S1 10:S10");
  list.back() = "no map";
  writeUserStyles(file(list));
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
}

TEST_F(ZavelStyleTest, AnEmptyListHasNoTitlesAndChangesNone) {
  writeUserStyles(file(styles(2), {{"QN", 2}}));
  ASSERT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  writeUserStyles(file({}, {{"QN", 5}}));
  int current = 7;
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, &current));
  EXPECT_EQ(current, 5);
  EXPECT_EQ(title(0) + " " + title(1) + " " + title(2), "1:S1 2:S2 -1:");
}

TEST_F(ZavelStyleTest, ASelectionThatIsNoMapFailsForEveryone) {
  for (const Value& selection : {Value("QN"), Value(Value::Array{1}), Value(1)}) {
    writeUserStyles(with(file(styles(1)), "Selection", selection));
    int current = 7;
    EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
    EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, &current));
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
    EXPECT_EQ(current, 7);
  }
}

TEST_F(ZavelStyleTest, TitlesNeedStyleAndSelection) {
  writeUserStyles(without(file(styles(1)), "Style"));
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  writeUserStyles(with(file(styles(1)), "Style", "none"));
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0), "-1:");
  writeUserStyles(without(file(styles(1)), "Selection"));
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0), "1:S1");  // the titles were read before
}

TEST_F(ZavelStyleTest, AMissingChoiceFailsOnlyForThoseWhoAsk) {
  writeUserStyles(file(styles(1), {{"VX", 1}}));
  int current = 7;
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, &current));
  EXPECT_EQ(current, 7);
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(0), "1:S1");
}

TEST_F(ZavelStyleTest, AChoiceThatIsNoNumberIsMissing) {
  writeUserStyles(file(styles(1), {{"QN", "1"}}));
  int current = 7;
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, &current));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
  EXPECT_EQ(current, 7);
}

// --- Values ---

TEST_F(ZavelStyleTest, ValuesAre0BeforeTheFirstLoad) {
  EXPECT_EQ(values(), (Values{0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ZavelStyleTest, ThePassiveIsTheSecondOptionAndTheArticleTheThird) {
  writeUserStyles(
      file({Value::Dict{{"ID", 5}, {"Name", "x"}, {"EJ", etoj(1, 2, 3)}, {"JE", jtoe(10, 20, 30, false)}}}));
  ASSERT_TRUE(zavelStyleLoadTranslationStyleWithID(5));
  EXPECT_EQ(zavelStyleEtojStyle(), 1);
  EXPECT_EQ(zavelStyleEtojThey(), 2);
  EXPECT_EQ(zavelStyleEtojLearning(), 3);
  EXPECT_EQ(zavelStyleJtoeShugo(), 10);
  EXPECT_EQ(zavelStyleJtoeUkemi(), 20);
  EXPECT_EQ(zavelStyleJtoeKanshi(), 30);
  EXPECT_EQ(zavelStyleJtoeLearning(), 0);
}

TEST_F(ZavelStyleTest, TenStylesLoadAndElevenDoNot) {
  writeUserStyles(file(styles(10)));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(10));
  EXPECT_EQ(zavelStyleEtojStyle(), 101);
  writeUserStyles(file(styles(11)));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(zavelStyleEtojStyle(), 101);
  EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_EQ(title(9), "10:S10");
}

TEST_F(ZavelStyleTest, AnUnknownIdKeepsTheValuesAndSucceeds) {
  writeUserStyles(file(styles(2)));
  ASSERT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(3));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(-1));
  EXPECT_EQ(values(), (Values{11, 12, 13, 14, 16, 15, 1}));
  writeUserStyles(file({}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(values(), (Values{11, 12, 13, 14, 16, 15, 1}));
}

TEST_F(ZavelStyleTest, TheFirstStyleOfAnIdCounts) {
  writeUserStyles(file({style(1, "a"), with(style(1, "b"), "EJ", etoj(7, 7, 7))}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(zavelStyleEtojStyle(), 11);
}

TEST_F(ZavelStyleTest, AnUnreadableStyleFailsAheadOfTheMatchOnly) {
  writeUserStyles(file({without(style(1, "a"), "ID"), style(2, "b")}));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(2));
  writeUserStyles(file({"no map", style(2, "b")}));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(2));
  writeUserStyles(file({style(2, "b"), "no map"}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(2));
}

TEST_F(ZavelStyleTest, AnIdThatIsNoNumberFailsAheadOfTheMatchOnly) {
  for (const Value& id : {Value("1"), Value(int64_t{4294967298}), Value(Value::Array{1})}) {
    writeUserStyles(file({with(style(1, "a"), "ID", id), style(2, "b")}));
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(2));
    EXPECT_EQ(values(), (Values{0, 0, 0, 0, 0, 0, 0}));
  }
  writeUserStyles(file({style(2, "b"), with(style(1, "a"), "ID", "1")}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(2));
}

TEST_F(ZavelStyleTest, OptionsThatAreNoMapFail) {
  writeUserStyles(file({with(style(1, "a"), "EJ", "options")}));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(values(), (Values{0, 0, 0, 0, 0, 0, 0}));
  writeUserStyles(file({with(style(1, "a"), "JE", Value::Array{1, 2, 3, true})}));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(values(), (Values{11, 12, 13, 0, 0, 0, 0}));
}

TEST_F(ZavelStyleTest, AStyleNeedsNoNameForItsValues) {
  writeUserStyles(file({without(style(1, "a"), "Name")}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
}

struct MissingRow {
  const char* map;
  const char* option;  // null: the map itself
  std::vector<int> values;
};

TEST_F(ZavelStyleTest, AMissingOptionFailsWithTheValuesBeforeItChanged) {
  const MissingRow rows[] = {
      {"EJ", nullptr, {0, 0, 0, 0, 0, 0, 0}},      {"EJ", "Opt1", {0, 0, 0, 0, 0, 0, 0}},
      {"EJ", "Opt2", {11, 0, 0, 0, 0, 0, 0}},      {"EJ", "Opt3", {11, 12, 0, 0, 0, 0, 0}},
      {"JE", nullptr, {11, 12, 13, 0, 0, 0, 0}},   {"JE", "Opt1", {11, 12, 13, 0, 0, 0, 0}},
      {"JE", "Opt2", {11, 12, 13, 14, 0, 0, 0}},   {"JE", "Opt3", {11, 12, 13, 14, 0, 15, 0}},
      {"JE", "Opt4", {11, 12, 13, 14, 16, 15, 0}},
  };
  for (const MissingRow& row : rows) {
    const Value whole = style(1, "a");
    const Value options = *whole.find(row.map);
    writeUserStyles(
        file({row.option ? with(whole, row.map, without(options, row.option)) : without(whole, row.map)}));
    zavelStyleInitialize();
    zavelStyleSetTStyleUrl(at("user").c_str());
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1)) << row.map << " " << (row.option ? row.option : "");
    EXPECT_EQ(values(), row.values) << row.map << " " << (row.option ? row.option : "");
  }
}

TEST_F(ZavelStyleTest, NumbersAndBooleansServeAsEachOther) {
  Value mixed = style(1, "a");
  mixed = with(mixed, "EJ", Value::Dict{{"Opt1", true}, {"Opt2", 2.9}, {"Opt3", false}});
  mixed = with(mixed, "JE", Value::Dict{{"Opt1", 1}, {"Opt2", 2}, {"Opt3", 3}, {"Opt4", 5}});
  writeUserStyles(file({mixed}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(values(), (Values{1, 2, 0, 1, 3, 2, 1}));
}

TEST_F(ZavelStyleTest, ANumberOfMoreThan32BitsIsMissing) {
  for (const Value& number :
       {Value(int64_t{2147483648}), Value(int64_t{-2147483649}), Value(1e300), Value("1")}) {
    writeUserStyles(
        file({with(style(1, "a"), "EJ", Value::Dict{{"Opt1", number}, {"Opt2", 2}, {"Opt3", 3}})}));
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  }
  writeUserStyles(file({with(style(1, "a"), "EJ", etoj(2147483647, -2147483647 - 1, 0))}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_EQ(zavelStyleEtojStyle(), 2147483647);
  EXPECT_EQ(zavelStyleEtojThey(), -2147483647 - 1);
}

TEST_F(ZavelStyleTest, ListsOfDictionariesDoNotCount) {
  Value plain = etoj(1, 2, 3);
  plain = with(plain, "TD", Value::Array{"a", 5});
  plain = with(plain, "UD", "no list");
  writeUserStyles(file({with(style(1, "a"), "EJ", plain)}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithID(1));
}

TEST_F(ZavelStyleTest, LoadsTheStyleThatTheApplicationHasChosen) {
  writeUserStyles(file(styles(3), {{"QN", 3}, {"FQ", 2}}));
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithApp(1));
  EXPECT_EQ(zavelStyleEtojStyle(), 31);
  EXPECT_TRUE(zavelStyleLoadTranslationStyleWithApp(6));
  EXPECT_EQ(zavelStyleEtojStyle(), 21);
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(17));
  EXPECT_EQ(zavelStyleEtojStyle(), 21);
  writeUserStyles(without(file(styles(3)), "Selection"));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
}

// --- Keys, and life ---

TEST_F(ZavelStyleTest, EachApplicationHasItsKey) {
  ZavelStyle keys;
  const char* const expected[] = {nullptr, "QN",   "HG",    "OSL",   "VN",    "GX",    "FQ",    "PXW",
                                  nullptr, "QUIR", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                  nullptr, "VX",   nullptr, nullptr, "WZ",    "YPH",   nullptr, nullptr};
  for (int applet = 0; applet < 24; ++applet)
    EXPECT_STREQ(keys.appKeyWithEnum(applet), expected[applet]) << applet;
  EXPECT_EQ(keys.appKeyWithEnum(-1), nullptr);
}

TEST_F(ZavelStyleTest, ApplicationsWithoutAKeyHaveNoChoice) {
  writeUserStyles(file(styles(1), {{"XJ", 1}, {"BLT", 1}, {"DRN", 1}}));
  for (int applet : {15, 16, 18, 0, 8, 22}) {
    int current = 7;
    EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(applet, &current)) << applet;
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(applet)) << applet;
    EXPECT_EQ(current, 7);
    EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(applet, nullptr)) << applet;
  }
}

TEST_F(ZavelStyleTest, WithoutStylesEverythingIsEmpty) {
  zavelStyleTerminate();
  zavelStyleTerminate();
  EXPECT_FALSE(zavelStyleSetTStyleUrl(at("user").c_str()));
  zavelStyleSetTechDictUrl("/ej", "/je");
  zavelStyleSetUserDictUrl("/user");
  EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, nullptr));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
  EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
  EXPECT_EQ(zavelStyleBaseURL(), nullptr);
  EXPECT_EQ(title(0), "-1:");
  EXPECT_EQ(values(), (Values{0, 0, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace zavel::test
