#include <optional>
#include <string>

#include "config/ConfigTest.h"
#include "config/ZavelCommonModule.h"
#include "platform/PropertyLists.h"

namespace zavel::test {
namespace {

using Module = ZavelCommonModule;
using namespace std::string_literals;

std::string repeated(const std::string& piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

// --- Conversions ---

TEST(SjisToNSString, ReadsToTheFirstZeroByte) {
  EXPECT_EQ(Module::sjisToNSString("\x93\xFA\x96\x7B go"), "日本 go");
  EXPECT_EQ(Module::sjisToNSString(""), "");
  EXPECT_EQ(Module::sjisToNSString(nullptr), "");
  EXPECT_EQ(Module::sjisDataToNSString("\x93\xFA\x96\x7B"), "日本");
  EXPECT_EQ(Module::sjisDataToNSString("\x93\xFA\0\x96\x7B"s), "日");
  EXPECT_EQ(Module::sjisDataToNSString(""), "");
}

TEST(SjisToNSString, MarksWhatDoesNotDecode) {
  EXPECT_EQ(Module::sjisToNSString("a\x82"), "a\uFFFD");
}

struct BufferRow {
  const char* text;
  size_t maxLength;
  bool cut;
  const char* bytes;
};

TEST(GetSjisFromNSString, TellsWhetherTheTextWasCut) {
  const BufferRow rows[] = {
      {"あ", 4, false, "\x82\xA0"}, {"あ", 3, true, "\x82\xA0"},  // a text that just fits counts as cut
      {"あ", 2, true, "\x82"},                                    // in the middle of the character
      {"あ", 1, true, ""},          {"ab", 4, false, "ab"},      {"abc", 3, true, "ab"},
      {"", 2, false, ""},           {"", 1, true, ""},           {"é", 4, false, "?"},
  };
  for (const BufferRow& row : rows) {
    char buffer[8] = "#######";
    EXPECT_EQ(Module::getSjisFromNSString(row.text, buffer, row.maxLength), row.cut) << row.text;
    EXPECT_STREQ(buffer, row.bytes);
    EXPECT_EQ(buffer[row.maxLength], '#');
  }
}

TEST(GetSjisFromNSString, WritesNothingWithoutRoom) {
  char buffer[2] = "#";
  EXPECT_TRUE(Module::getSjisFromNSString("a", buffer, 0));
  EXPECT_EQ(buffer[0], '#');
  EXPECT_TRUE(Module::getSjisFromNSString("a", nullptr, 4));
}

// --- Trimming ---

std::string trimmed(void (*trim)(std::string*), std::string bytes) {
  trim(&bytes);
  return bytes;
}

TEST(TrimHeadTail, RemovesBytesBelow33AtBothEnds) {
  EXPECT_EQ(trimmed(Module::trimHeadTail, "\x01 \t go\x01 on\x1F\r\n "), "go\x01 on");
  EXPECT_EQ(trimmed(Module::trimHeadTail, "\0a\0"s), "a");
  EXPECT_EQ(trimmed(Module::trimHeadTail, "!\x7F"), "!\x7F");
  EXPECT_EQ(trimmed(Module::trimHeadTail, "\x81\x40 \x81\x40"), "\x81\x40 \x81\x40");
  EXPECT_EQ(trimmed(Module::trimHeadTail, " \t\n"), "");
  EXPECT_EQ(trimmed(Module::trimHeadTail, ""), "");
}

TEST(TrimInsideCheck, MakesControlBytesBlanks) {
  EXPECT_EQ(trimmed(Module::trimInsideCheck, "\x1Fgo\0on\n\x7F\x82\xA0"s), " go on \x7F\x82\xA0");
  EXPECT_EQ(trimmed(Module::trimInsideCheck, " !"), " !");
  EXPECT_EQ(trimmed(Module::trimInsideCheck, ""), "");
}

struct TrimRow {
  std::string bytes;
  std::string expected;
};

TEST(TrimHeadTailCheckMiddleForEnglish, MakesTheMiddlePlain) {
  const TrimRow rows[] = {
      {"", ""},
      {" \x01go on\x1F ", "go on"},
      {"a\tb\nc", "a b c"},
      {"a\rb", "a b"},
      {"a\r\nb", "a b"},
      {"a\n\rb", "a  b"},
      {"a\r\r\nb", "a  b"},
      {"a\r\n", "a"},
      {"a\x01\x1F\x08z", "az"},
      {"a\x7Fz", "a\x7Fz"},
      // Mac Roman: fixed blank, dashes, quotation marks, apostrophes
      {"a\xCAz", "a z"},
      {"a\xD0z\xD1z", "a-z-z"},
      {"\xD2go\xD3", "\"go\""},
      {"\xD4go\xD5", "'go'"},
      {"\xC9\xCB\xCF\xD6", "\xC9\xCB\xCF\xD6"},
      // As second bytes they belong to a character: ひ, ふ
      {"\x82\xD0\x82\xD3", "\x82\xD0\x82\xD3"},
      // UTF-8 dash: its third byte is a first byte and takes "z" along, but not a blank
      {"a\xE2\x80\x93z", "a-\x93z"},
      {"a\xE2\x80\x94 z", "a-\x94 z"},
      {"a\xE2\x80", "a-"},
      {"\x82\xE2\x80z", "\x82\xE2\x80z"},  // や, whose second byte begins no pair
      {"a\xE2z\xE2", "a\xE2z\xE2"},
      // A first byte with no second one behind it
      {"\x82\x01z", "\x82z"},
      {"\x82\tz", "\x82 z"},
  };
  for (const TrimRow& row : rows)
    EXPECT_EQ(trimmed(Module::trimHeadTailCheckMiddleForEnglish, row.bytes), row.expected);
}

TEST(TrimHeadTailCheckMiddleForEnglish, AZeroByteHoldsTheClassOfTheByteBeforeIt) {
  EXPECT_EQ(trimmed(Module::trimHeadTailCheckMiddleForEnglish, "a\0z\tb"s), "az b");
  // Behind "a", 0x82 is a single byte for ever, so that the tab behind it becomes a blank.
  EXPECT_EQ(trimmed(Module::trimHeadTailCheckMiddleForEnglish, "a\0\x82\tb"s), "a\x82 b");
  // Behind a first byte everything is one.
  EXPECT_EQ(trimmed(Module::trimHeadTailCheckMiddleForEnglish, "\x82\0\tb\xD0"s), "\x82\0\tb\xD0"s);
}

// --- Language ---

TEST(JudgeText, TenInAHundredIsEnglishAndOneMoreJapanese) {
  EXPECT_EQ(Module::judgeTextStringEorJ(repeated("あ", 10) + repeated("a", 100)), 1);
  EXPECT_EQ(Module::judgeTextStringEorJ(repeated("あ", 11) + repeated("a", 100)), 2);
  EXPECT_EQ(Module::judgeTextStringEorJ(repeated("あ", 10) + repeated("a", 99)), 2);
}

TEST(JudgeText, EmptyOrBlankTextIsEnglish) {
  EXPECT_EQ(Module::judgeTextStringEorJ(""), 1);
  EXPECT_EQ(Module::judgeTextStringEorJ(" \t\r\n"), 1);
}

TEST(JudgeText, DoubleByteCharactersAloneAreJapanese) {
  EXPECT_EQ(Module::judgeTextStringEorJ("カタカナ"), 2);
  EXPECT_EQ(Module::judgeTextStringEorJ("\u3000"), 2);
  EXPECT_EQ(Module::judgeTextStringEorJ("日本 語"), 2);
}

TEST(JudgeText, HalfWidthKatakanaAndLostCharactersCountAsEnglish) {
  EXPECT_EQ(Module::judgeTextStringEorJ("ｱｲｳ"), 1);
  EXPECT_EQ(Module::judgeTextStringEorJ("\u0E01\u0E02"), 1);
}

TEST(JudgeText, WhiteSpaceIsBytes9To13And32) {
  // One double-byte character: Japanese with 9 others, English with 10.
  const std::string nine = "\x82\xA0" + std::string(9, 'a');
  for (char byte : {9, 10, 11, 12, 13, 32}) EXPECT_EQ(Module::judgeTextDataEorJ(nine + byte), 2) << int(byte);
  for (char byte : {8, 14, 31, 33, 127}) EXPECT_EQ(Module::judgeTextDataEorJ(nine + byte), 1) << int(byte);
}

TEST(JudgeText, TheByteBehindAFirstByteIsSkippedWhateverItIs) {
  EXPECT_EQ(Module::judgeTextDataEorJ("\x82!"), 2);
  EXPECT_EQ(Module::judgeTextDataEorJ("\x82z"), 2);
  EXPECT_EQ(Module::judgeTextDataEorJ("\x82"), 2);
}

TEST(JudgeText, AZeroByteHoldsTheClassOfTheByteBeforeIt) {
  EXPECT_EQ(Module::judgeTextDataEorJ("\x82\0abcdefgh"s), 2);
  EXPECT_EQ(Module::judgeTextDataEorJ("ab\0\x82\xA0\x82\xA0"s), 1);
  EXPECT_EQ(Module::judgeTextDataEorJ("\0\x82\xA0"s), 1);
}

// --- English punctuation ---

class AssistEngTranslateSentence : public ConfigTest {
 protected:
  AssistEngTranslateSentence() {
    platform.fakeBundle.texts = {{"ShortHyphen", "\u2013"},      {"LongHyphen", "\u2014"},
                                 {"HidariApostrophe", "\u2018"}, {"MigiApostrophe", "\u2019"},
                                 {"HidariQuote", "\u201C"},      {"MigiQuote", "\u201D"}};
  }
};

TEST_F(AssistEngTranslateSentence, TakesTheSignsOfTheUsersLanguage) {
  platform.fakeBundle.texts = {{"ShortHyphen", "‐"},     {"LongHyphen", "ー"},  {"HidariApostrophe", "「"},
                               {"MigiApostrophe", "」"}, {"HidariQuote", "『"}, {"MigiQuote", "』"}};
  std::string text = "a‐bーc「d」e『f』\u2013";
  Module::assistEngTranslateSentence(&text);
  EXPECT_EQ(text, "a-b-c'd'e\"f\"\u2013");
}

TEST_F(AssistEngTranslateSentence, TakesTheSignsInWhateverCase) {
  platform.fakeBundle.texts = {{"ShortHyphen", "[Hyphen]"}, {"LongHyphen", "z—Z"}, {"MigiQuote", "Éq"}};
  std::string text = "A[hyphen]B[HYPHEN]C Z—zZ—Zéqé ÉQÉq";
  Module::assistEngTranslateSentence(&text);
  EXPECT_EQ(text, "A-B-C --éqé \"\"");
}

TEST_F(AssistEngTranslateSentence, MakesTheSignsThatAreInstalledPlain) {
  for (const char* language : {"en", "ja"}) {
    const std::string installed = std::string(ZAVEL_RESOURCES) + "/" + language + ".lproj/Localizable.plist";
    Value texts;
    ASSERT_TRUE(platform.propertyLists().readFile(installed, &texts));
    platform.fakeBundle.texts.clear();
    for (const auto& [key, value] : *texts.asDict()) platform.fakeBundle.texts[key] = value.string();
    std::string text = "a‐b—c ‘d’ “e”";
    Module::assistEngTranslateSentence(&text);
    EXPECT_EQ(text, "a-b-c 'd' \"e\"") << language;
  }
}

TEST_F(AssistEngTranslateSentence, AMissingTextReplacesNothing) {
  platform.fakeBundle.texts = {{"LongHyphen", "\u2014"}, {"MigiQuote", ""}};
  std::string text = "ShortHyphen\u2014\u2013MigiApostrophe";
  Module::assistEngTranslateSentence(&text);
  EXPECT_EQ(text, "ShortHyphen-\u2013MigiApostrophe");
}

TEST_F(AssistEngTranslateSentence, MakesPunctuationPlain) {
  const TrimRow rows[] = {
      {"(He said \"no.\") (\"Go.\")", "(He said \"no.\" ) (\"Go.\" )"},
      {"a\u2013b\u2014c\u2013", "a-b-c-"},
      {"\u2018it\u2019s\u2019", "'it's'"},
      {"\u201Cgo\u201D", "\"go\""},
      // The bracket is looked at before the typographic quotation mark is made plain.
      {"(\u201Cgo.\u201D)", "(\"go.\")"},
      {".\" )", ".\" )"},
      {"", ""},
  };
  for (const TrimRow& row : rows) {
    std::string text = row.bytes;
    Module::assistEngTranslateSentence(&text);
    EXPECT_EQ(text, row.expected);
  }
}

// --- Entities ---

class ConvertEntities : public ConfigTest {
 protected:
  static Value row(const char* entity, const char* character) {
    return Value::Dict{{"entity", entity}, {"character", character}};
  }

  Module withRows(const Value::Array& rows) {
    writeTable(at("Entity"), Value::Dict{{"Entity", rows}});
    return Module(at("Entity.plist"));
  }
};

TEST_F(ConvertEntities, ReplacesEveryEntityFromTheFirstRowToTheLast) {
  const Module module = withRows({row("&lt;", "<"), row("&eacute;", "é"), row("&amp;", "&")});
  EXPECT_EQ(module.convertEntities("1 &lt; 2 &lt; caf&eacute; &amp; bar"), "1 < 2 < café & bar");
  EXPECT_EQ(module.convertEntities("&amp;lt;"), "&lt;");
  EXPECT_TRUE(log().empty());
}

TEST_F(ConvertEntities, ALaterRowSeesWhatAnEarlierOneMade) {
  EXPECT_EQ(withRows({row("&amp;", "&"), row("&lt;", "<")}).convertEntities("&amp;lt;"), "<");
}

TEST_F(ConvertEntities, ARowThatMakesItsOwnEntityEnds) {
  EXPECT_EQ(withRows({row("&", "&amp;")}).convertEntities("a & b & c"), "a &amp; b &amp; c");
}

TEST_F(ConvertEntities, NeverStopsEarly) {
  EXPECT_EQ(withRows({row("&a;", "1"), row("word", "2")}).convertEntities("a word"), "a 2");
}

TEST_F(ConvertEntities, IsLiteral) {
  EXPECT_EQ(withRows({row("&Lt;", "<")}).convertEntities("&lt; &LT;"), "&lt; &LT;");
}

TEST_F(ConvertEntities, NothingGivesNothingAndEmptyEmpty) {
  const Module module = withRows({row("&lt;", "<")});
  EXPECT_EQ(module.convertEntities(std::nullopt), std::nullopt);
  EXPECT_EQ(module.convertEntities(""), "");
}

TEST_F(ConvertEntities, RowsThatAreNotWholeArePassedOver) {
  const Value::Array rows = {Value("text"),
                             Value::Dict{{"entity", "&a;"}},
                             Value::Dict{{"character", "x"}},
                             Value::Dict{{"entity", 5}, {"character", "x"}},
                             row("", "y"),
                             row("&b;", "b")};
  EXPECT_EQ(withRows(rows).convertEntities("&a; &b;"), "&a; b");
}

TEST_F(ConvertEntities, AMissingResourceIsLogged) {
  EXPECT_EQ(Module(at("nothing.plist")).convertEntities("&lt;"), "&lt;");
  EXPECT_EQ(log(), std::vector<std::string>{"Error file : Entity.plist"});
}

TEST_F(ConvertEntities, AnUnreadableResourceIsLogged) {
  writeText(at("Entity.plist"), "no property list");
  EXPECT_EQ(Module(at("Entity.plist")).convertEntities("&lt;"), "&lt;");
  EXPECT_EQ(log(), std::vector<std::string>{"Error read : Entity.plist"});
}

TEST_F(ConvertEntities, AMissingListIsLogged) {
  writeTable(at("Entity"), Value::Dict{{"entity", Value::Array()}});
  EXPECT_EQ(Module(at("Entity.plist")).convertEntities("&lt;"), "&lt;");
  EXPECT_EQ(log(), std::vector<std::string>{"Error item : Entity.plist"});
}

TEST_F(ConvertEntities, AListAtTheTopIsLogged) {
  writeTable(at("Entity"), Value::Array{row("&lt;", "<")});
  EXPECT_EQ(Module(at("Entity.plist")).convertEntities("&lt;"), "&lt;");
  EXPECT_EQ(log(), std::vector<std::string>{"Error item : Entity.plist"});
}

TEST_F(ConvertEntities, AListThatIsNoListIsLogged) {
  writeTable(at("Entity"), Value::Dict{{"Entity", "text"}});
  EXPECT_EQ(Module(at("Entity.plist")).convertEntities("&lt;"), "&lt;");
  EXPECT_EQ(log(), std::vector<std::string>{"Error item : Entity.plist"});
}

// --- Colours ---

class StringToNSColor : public ConfigTest {
 protected:
  std::optional<ZavelColor> color(const std::string& text) {
    return Module(at("nothing.plist")).stringToNSColor(text);
  }
};

TEST_F(StringToNSColor, TakesRedGreenBlueAlpha) {
  EXPECT_EQ(color("0.25 0.5 0.75 1"), (ZavelColor{0.25, 0.5, 0.75, 1.0}));
  EXPECT_EQ(color("1.000000 0 .5 +0.5"), (ZavelColor{1.0, 0.0, 0.5, 0.5}));
}

TEST_F(StringToNSColor, NeedsFourPieces) {
  EXPECT_EQ(color(""), std::nullopt);
  EXPECT_EQ(color("1 1 1"), std::nullopt);
  EXPECT_EQ(color("1,1,1,1"), std::nullopt);
  EXPECT_EQ(color("1 0 1 0 0.5"), (ZavelColor{1, 0, 1, 0}));
}

TEST_F(StringToNSColor, APieceThatIsEmptyOrNoNumberReadsAs0) {
  EXPECT_EQ(color("1  1 1"), (ZavelColor{1, 0, 1, 1}));
  EXPECT_EQ(color(" 1 1 1"), (ZavelColor{0, 1, 1, 1}));
  EXPECT_EQ(color("   "), (ZavelColor{0, 0, 0, 0}));
  EXPECT_EQ(color("red 1 nan 1e999"), (ZavelColor{0, 1, 0, 0}));
}

TEST(ZavelColor, IsOneUntilRead) {
  EXPECT_EQ(ZavelColor(), (ZavelColor{1.0, 1.0, 1.0, 1.0}));
}

}  // namespace
}  // namespace zavel::test
