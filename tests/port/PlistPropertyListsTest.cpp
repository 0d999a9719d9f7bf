#include "base/PlistPropertyLists.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/BinaryPlistCheck.h"
#include "base/XmlPlistCheck.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using namespace std::string_literals;
using test::FaultyStorage;
using test::TempFolder;

constexpr PropertyListFormat kXml = PropertyListFormat::kXml;
constexpr PropertyListFormat kBinary = PropertyListFormat::kBinary;

std::string repeated(const std::string& piece, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += piece;
  return all;
}

// A list in XML around `value`.
std::string xml(const std::string& value) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" + value + "\n</plist>\n";
}

// "Refused" for what can't be read.
Value parse(const std::string& bytes) {
  Value value("Untouched");
  if (PlistPropertyLists().parse(bytes, &value)) return value;
  EXPECT_EQ(value, Value("Untouched"));
  return Value("Refused");
}

Value parseXml(const std::string& value) {
  return parse(xml(value));
}
const Value kRefused("Refused");

// ---- reading XML ----

TEST(PlistXml, ReadsStrings) {
  EXPECT_EQ(parseXml("<string>a b</string>"), Value("a b"));
  EXPECT_EQ(parseXml("<string> あ\n\t</string>"), Value(" あ\n\t"));
  EXPECT_EQ(parseXml("<string></string>"), Value(""));
  EXPECT_EQ(parseXml("<string/>"), Value(""));
}

TEST(PlistXml, ReadsReferencesSectionsAndComments) {
  EXPECT_EQ(parseXml("<string>&lt;&gt;&amp;&apos;&quot;</string>"), Value("<>&'\""));
  EXPECT_EQ(parseXml("<string>&#65;&#x3042;&#13;&#x20B9F;</string>"), Value("Aあ\r\U00020B9F"));
  EXPECT_EQ(parseXml("<string>a<![CDATA[<b>&c;]]>d</string>"), Value("a<b>&c;d"));
  EXPECT_EQ(parseXml("<string>a<!-- <b> -->c</string>"), Value("ac"));
  EXPECT_EQ(parseXml("<!-- <array> --><true/><!-- x -->"), Value(true));
}

TEST(PlistXml, ReadsReferencesBesideAndInsideSections) {
  EXPECT_EQ(parseXml("<string>a]]&gt;b</string>"), Value("a]]>b"));
  EXPECT_EQ(parseXml("<string>]]&gt;]]&gt;&#93;]></string>"), Value("]]>]]>]]>"));
  EXPECT_EQ(parseXml("<string>&amp;lt;<![CDATA[&lt;]]>&lt;</string>"), Value("&lt;&lt;<"));
  EXPECT_EQ(parseXml("<dict><key>&lt;<!-- & -->&gt;</key><string>&amp;</string></dict>"),
            Value(Value::Dict{{"<>", "&"}}));
}

TEST(PlistXml, TakesNoTimeByTheSquareOfTheReferences) {
  EXPECT_EQ(parseXml("<string>" + repeated("a&lt;", 300000) + "</string>"), Value(repeated("a<", 300000)));
}

TEST(PlistXml, RefusesMapsOfTooManyKeys) {
  std::string members;
  for (int i = 0; i < 65536; ++i) members += "<key>" + std::to_string(i) + "</key><true/>";
  EXPECT_TRUE(safeXmlPlist("<dict>" + members + "</dict>").has_value());
  EXPECT_FALSE(safeXmlPlist("<dict>" + members + "<key>x</key><true/></dict>").has_value());
}

TEST(PlistXml, ReadsIntegers) {
  EXPECT_EQ(parseXml("<integer>0</integer>"), Value(0));
  EXPECT_EQ(parseXml("<integer> -5\n</integer>"), Value(-5));
  EXPECT_EQ(parseXml("<integer>+7</integer>"), Value(7));
  EXPECT_EQ(parseXml("<integer>0x1F</integer>"), Value(31));
  EXPECT_EQ(parseXml("<integer>9223372036854775807</integer>"), Value(int64_t{INT64_MAX}));
  EXPECT_EQ(parseXml("<integer>-9223372036854775808</integer>"), Value(int64_t{INT64_MIN}));
}

TEST(PlistXml, ReadsRealsAndBooleans) {
  EXPECT_EQ(parseXml("<real>1.5</real>"), Value(1.5));
  EXPECT_EQ(parseXml("<real> -2.5e3 </real>"), Value(-2500.0));
  EXPECT_EQ(parseXml("<real>3</real>"), Value(3.0));
  EXPECT_EQ(parseXml("<real>-inf</real>"), Value(-std::numeric_limits<double>::infinity()));
  EXPECT_TRUE(std::isnan(parseXml("<real>nan</real>").real()));
  EXPECT_EQ(parseXml("<true/>"), Value(true));
  EXPECT_EQ(parseXml("<false></false>"), Value(false));
}

TEST(PlistXml, ReadsDatesInSecondsFrom2001) {
  EXPECT_EQ(parseXml("<date>2001-01-01T00:00:00Z</date>"), Value(Value::Date{0}));
  EXPECT_EQ(parseXml("<date>2001-01-02T01:02:03Z</date>"), Value(Value::Date{86400 + 3723}));
  EXPECT_EQ(parseXml("<date>2000-12-31T23:59:59Z</date>"), Value(Value::Date{-1}));
  EXPECT_EQ(parseXml("<date>2004-02-29T00:00:00Z</date>"),
            Value(Value::Date{1154.0 * 86400}));  // 3 x 365 + 59
  EXPECT_EQ(parseXml("<date>1970-01-01T00:00:00Z</date>"), Value(Value::Date{-978307200}));
}

TEST(PlistXml, ReadsDatesToTheEndsOfTheirRange) {
  // 2^31 seconds are 24,855 days, 3 hours, 14 minutes, 8 seconds.
  EXPECT_EQ(parseXml("<date>2069-01-19T03:14:07Z</date>"), Value(Value::Date{2147483647}));
  EXPECT_EQ(parseXml("<date>1932-12-13T20:45:52Z</date>"), Value(Value::Date{-2147483648.0}));
  EXPECT_EQ(parseXml("<date>2069-01-19T03:14:08Z</date>"), kRefused);
  EXPECT_EQ(parseXml("<date>1932-12-13T20:45:51Z</date>"), kRefused);
}

TEST(PlistXml, ReadsData) {
  EXPECT_EQ(parseXml("<data>\n\tAAH/\n\tQQ==\n</data>"), Value(Value::Data{"\0\1\xFF"s + "A"}));
  EXPECT_EQ(parseXml("<data></data>"), Value(Value::Data{}));
  EXPECT_EQ(parseXml("<data/>"), Value(Value::Data{}));
}

TEST(PlistXml, ReadsListsAndMaps) {
  EXPECT_EQ(parseXml("<array/>"), Value(Value::Array{}));
  EXPECT_EQ(parseXml("<dict></dict>"), Value(Value::Dict{}));
  EXPECT_EQ(parseXml("<array> <true/> <string>a</string><array><integer>1</integer></array></array>"),
            Value(Value::Array{true, "a", Value(Value::Array{1})}));
  EXPECT_EQ(
      parseXml(
          "<dict><key>b&amp;</key><integer>1</integer><key></key><dict><key>あ</key><true/></dict></dict>"),
      Value(Value::Dict{{"b&", 1}, {"", Value(Value::Dict{{"あ", true}})}}));
}

TEST(PlistXml, KeepsTheLastOfTwoEqualKeys) {
  EXPECT_EQ(parseXml("<dict><key>a</key><true/><key>a</key><integer>2</integer></dict>"),
            Value(Value::Dict{{"a", 2}}));
}

TEST(PlistXml, TakesEveryUsualFrame) {
  EXPECT_EQ(parse("<true/>"), Value(true));
  EXPECT_EQ(parse("\xEF\xBB\xBF<plist><true/></plist>"), Value(true));
  EXPECT_EQ(parse("<?xml version='1.0' encoding='utf-8'?><plist version='1.0'><true/></plist>"), Value(true));
  EXPECT_EQ(parse("<?xml version=\"1.0\"?>\r\n<!DOCTYPE plist PUBLIC \"-//Example//DTD PLIST 1.0//EN\" "
                  "\"http://example.org/p.dtd\">\r\n<plist><true/></plist>"),
            Value(true));
  EXPECT_EQ(parse("<plist><?keep this?><true /></plist ><!-- end -->\n"), Value(true));
}

TEST(PlistXml, RefusesWhatIsNotWellFormed) {
  for (const char* text : {"",
                           " ",
                           "text",
                           "<",
                           "<plist",
                           "<plist>",
                           "<plist/>",
                           "<plist></plist>",
                           "<plist><true/>",
                           "<true>",
                           "<true/></plist>",
                           "<plist><true/></dict>",
                           "<plist><true/><true/></plist>",
                           "<true/><true/>",
                           "<true/>x",
                           "x<true/>",
                           "<plist>x<true/></plist>",
                           "<plist><plist><true/></plist></plist>",
                           "<array><true/></plist>",
                           "<array>x</array>",
                           "<array></array x='>'>",
                           "<array a='>'/>",
                           "<string>",
                           "<string>a",
                           "<string>a</key>",
                           "<string>a<b/></string>",
                           "<string>a</string",
                           "<string><![CDATA[a</string>",
                           "<string><!-- a</string>",
                           "<nothing/>",
                           "<String>a</String>",
                           "<true>yes</true>",
                           "<!-- a",
                           "<?a",
                           "<?a><true/>",
                           "<!DOCTYPE plist",
                           "<true/><!DOCTYPE plist>",
                           "<plist><!DOCTYPE plist><true/></plist>",
                           "</plist>",
                           "<array></array/>"}) {
    EXPECT_EQ(parse(text), kRefused) << text;
  }
}

TEST(PlistXml, RefusesMapsThatAreNotKeyAndValueInTurn) {
  for (const char* members :
       {"<key>a</key>", "<true/>", "<key>a</key><key>b</key><true/>", "<key>a</key><true/><true/>",
        "<key>a</key><true/><key>b</key>", "<key/><true/>"}) {
    EXPECT_EQ(parseXml("<dict>"s + members + "</dict>"), kRefused) << members;
    EXPECT_EQ(parseXml("<array><dict>"s + members + "</dict></array>"), kRefused) << members;
  }
  EXPECT_EQ(parseXml("<key>a</key>"), kRefused);
  EXPECT_EQ(parseXml("<array><key>a</key></array>"), kRefused);
}

TEST(PlistXml, RefusesNumbersThatWouldBeBent) {
  for (const char* number :
       {"", " ", "x", "1x", "1 2", "--1", "+-1", "1.5", "9223372036854775808", "-9223372036854775809", "0x",
        "0x8000000000000000", "99999999999999999999", "010", "1<!-- -->2", "&#49;"}) {
    EXPECT_EQ(parseXml("<integer>"s + number + "</integer>"), kRefused) << number;
  }
  EXPECT_EQ(parseXml("<integer/>"), kRefused);
  for (const char* number : {"", "x", "1,5", "1.5x", "+-1", "0x10", "1e999"})
    EXPECT_EQ(parseXml("<real>"s + number + "</real>"), kRefused) << number;
  EXPECT_EQ(parseXml("<real/>"), kRefused);
}

TEST(PlistXml, RefusesDatesThatAreNone) {
  for (const char* date :
       {"", "x", "2001-01-01", "2001-01-01T00:00:00", "2001-01-01 00:00:00Z", "2001-00-01T00:00:00Z",
        "2001-13-01T00:00:00Z", "2001-01-00T00:00:00Z", "2001-01-32T00:00:00Z", "2001-02-29T00:00:00Z",
        "1900-02-29T00:00:00Z", "2001-04-31T00:00:00Z", "2001-01-01T24:00:00Z", "2001-01-01T00:60:00Z",
        "2001-01-01T00:00:60Z", "+001-01-01T00:00:00Z", "0000-01-01T00:00:00Z", "9999-12-31T23:59:59Z"}) {
    EXPECT_EQ(parseXml("<date>"s + date + "</date>"), kRefused) << date;
  }
}

TEST(PlistXml, RefusesDataThatIsNoBase64) {
  for (const char* data : {"A", "AA", "AAA", "AA=", "AA=A", "A===", "====", "AAA*", "AA<!-- -->AA", "AAA&"})
    EXPECT_EQ(parseXml("<data>"s + data + "</data>"), kRefused) << data;
}

TEST(PlistXml, RefusesReferencesToWhatIsNoCharacter) {
  for (const char* reference : {"&", "&;", "&#;", "&#x;", "&foo;", "&lt", "&#0;", "&#1;", "&#xB;", "&#xD800;",
                                "&#xFFFE;", "&#x110000;", "&#99999999999999999999;", "&#-1;", "& lt;"}) {
    EXPECT_EQ(parseXml("<string>"s + reference + "</string>"), kRefused) << reference;
    EXPECT_EQ(parseXml("<dict><key>"s + reference + "</key><true/></dict>"), kRefused) << reference;
  }
}

TEST(PlistXml, RefusesBytesThatXmlCanNotHold) {
  for (const std::string& bytes : {"\0"s, "\1"s, "\x0B"s, "\x1F"s, "\xFF"s, "\x80"s, "\xE3\x81"s,
                                   "\xED\xA0\x80"s, "\xEF\xBF\xBE"s, "\xEF\xBF\xBF"s}) {
    EXPECT_EQ(parseXml("<string>" + bytes + "</string>"), kRefused);
    EXPECT_EQ(parseXml("<!-- " + bytes + " --><true/>"), kRefused);
  }
  EXPECT_EQ(parseXml("<string>\t\r\n\x7F</string>"), Value("\t\r\n\x7F"));
}

TEST(PlistXml, RefusesOtherEncodings) {
  for (const char* label : {"Shift_JIS", "UTF-16", "EUC-JP", "", "utf8"})
    EXPECT_EQ(parse("<?xml version=\"1.0\" encoding=\""s + label + "\"?><plist><true/></plist>"), kRefused)
        << label;
  EXPECT_EQ(parse("<?xml version=\"1.0\" encoding?><plist><true/></plist>"), kRefused);
  EXPECT_EQ(parse("\xFF\xFE<\0p\0"s), kRefused);
}

TEST(PlistXml, RefusesEntitiesOfTheDocumentsOwn) {
  EXPECT_EQ(parse("<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>"), kRefused);
  EXPECT_EQ(parse("<!DOCTYPE plist [ ]><plist><true/></plist>"), kRefused);
}

TEST(PlistXml, NestsAsDeepAs512AndNoDeeper) {
  const auto nested = [](int depth) { return repeated("<array>", depth) + repeated("</array>", depth); };
  EXPECT_TRUE(parseXml(nested(512)).isArray());
  EXPECT_EQ(parseXml(nested(513)), kRefused);
  EXPECT_TRUE(parse(nested(512)).isArray());
  EXPECT_EQ(parse(nested(513)), kRefused);
  EXPECT_EQ(parse(nested(300000)), kRefused);
  EXPECT_TRUE(parseXml(repeated("<dict><key>a</key>", 512) + "<true/>" + repeated("</dict>", 512)).isDict());
  EXPECT_EQ(parseXml(repeated("<dict><key>a</key>", 513) + "<true/>" + repeated("</dict>", 513)), kRefused);
  EXPECT_EQ(parseXml("<array>" + repeated("<array></array>", 2000) + "</array>").asArray()->size(), 2000u);
}

TEST(PlistXml, RefusesMoreThan64MiB) {
  std::string bytes = xml("<true/>");
  bytes.resize(64 * 1024 * 1024 + 1, ' ');
  EXPECT_EQ(parse(bytes), kRefused);
}

// ---- reading binary lists ----

// A binary list of the given objects, each as its bytes; offsets take two bytes, references one.
std::string binary(const std::vector<std::string>& objects, uint64_t top = 0) {
  std::string file = "bplist00", table;
  for (const std::string& object : objects) {
    appendBE16(table, static_cast<uint16_t>(file.size()));
    file += object;
  }
  const size_t tableAt = file.size();
  file += table + "\0\0\0\0\0\0\2\1"s;
  for (uint64_t number : {uint64_t{objects.size()}, top, uint64_t{tableAt}}) {
    appendBE32(file, static_cast<uint32_t>(number >> 32));
    appendBE32(file, static_cast<uint32_t>(number));
  }
  return file;
}

// The list [true, true] with offsets and references of the given widths.
std::string withWidths(size_t offsetWidth, size_t referenceWidth) {
  const auto sized = [](uint64_t number, size_t width) {
    std::string bytes;
    for (size_t i = 0; i < width; ++i)
      bytes += static_cast<char>(width - i > 8 ? 0 : number >> 8 * (width - i - 1));
    return bytes;
  };
  std::string file = "bplist00\xA2" + sized(1, referenceWidth) + sized(1, referenceWidth) + "\x09";
  const size_t tableAt = file.size();
  file += sized(8, offsetWidth) + sized(tableAt - 1, offsetWidth) + std::string(6, '\0');
  file += {static_cast<char>(offsetWidth), static_cast<char>(referenceWidth)};
  return file + sized(2, 8) + sized(0, 8) + sized(tableAt, 8);
}

TEST(PlistBinary, ReadsOffsetsAndReferencesOfOneToEightBytes) {
  for (size_t width = 1; width <= 8; ++width) {
    EXPECT_TRUE(isSafeBinaryPlist(withWidths(width, 1))) << width;
    EXPECT_TRUE(isSafeBinaryPlist(withWidths(1, width))) << width;
  }
  EXPECT_EQ(parse(withWidths(8, 8)), Value(Value::Array{true, true}));
  EXPECT_EQ(parse(withWidths(1, 2)), Value(Value::Array{true, true}));
  for (size_t width : {0, 9, 255}) {
    EXPECT_EQ(parse(withWidths(width, 1)), kRefused) << width;
    EXPECT_EQ(parse(withWidths(1, width)), kRefused) << width;
  }
}

TEST(PlistBinary, ReadsLeaves) {
  EXPECT_EQ(parse(binary({"\x09"s})), Value(true));
  EXPECT_EQ(parse(binary({"\x08"s})), Value(false));
  EXPECT_EQ(parse(binary({"\x10\xFF"s})), Value(255));
  EXPECT_EQ(parse(binary({"\x11\x80\x01"s})), Value(0x8001));
  EXPECT_EQ(parse(binary({"\x12\xFF\xFF\xFF\xFE"s})), Value(int64_t{0xFFFFFFFE}));
  EXPECT_EQ(parse(binary({"\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFB"s})), Value(-5));
  EXPECT_EQ(parse(binary({"\x22\x3F\xC0\0\0"s})), Value(1.5));
  EXPECT_EQ(parse(binary({"\x23\xBF\xF8\0\0\0\0\0\0"s})), Value(-1.5));
  EXPECT_EQ(parse(binary({"\x33\x40\x14\0\0\0\0\0\0"s})), Value(Value::Date{5}));
  EXPECT_EQ(parse(binary({"\x33\xC0\x16\0\0\0\0\0\0"s})), Value(Value::Date{-5.5}));
  EXPECT_EQ(parse(binary({"\x43\0\1\xFF"s})), Value(Value::Data{"\0\1\xFF"s}));
  EXPECT_EQ(parse(binary({"\x53"
                          "abc"s})),
            Value("abc"));
  EXPECT_EQ(parse(binary({"\x63\x30\x42\xD8\x42\xDF\x9F"s})), Value("あ\U00020B9F"));
  EXPECT_EQ(parse(binary({"\x5F\x10\x10"
                          "0123456789abcdef"s})),
            Value("0123456789abcdef"));
}

TEST(PlistBinary, ReadsSharedMembersAtEveryPlace) {
  EXPECT_EQ(parse(binary({"\xA3\1\1\2"s, "\x09"s, "\xA1\1"s})),
            Value(Value::Array{true, true, Value(Value::Array{true})}));
  EXPECT_EQ(parse(binary({"\x51"
                          "k"s,
                          "\xD1\0\2"s, "\x10\7"s},
                         1)),
            Value(Value::Dict{{"k", 7}}));
}

TEST(PlistBinary, RefusesMapsOfTooManyKeys) {
  const auto map = [](uint32_t keys) {
    std::string object = "\xDF\x12";
    appendBE32(object, keys);
    return binary({"\x50"s, object + std::string(keys * 2, '\0')}, 1);
  };
  EXPECT_EQ(parse(map(3)), Value(Value::Dict{{"", ""}}));
  EXPECT_TRUE(isSafeBinaryPlist(map(65536)));
  EXPECT_FALSE(isSafeBinaryPlist(map(65537)));
}

TEST(PlistBinary, RefusesUnknownAndUnfitObjects) {
  for (const std::string& object :
       {"\0"s, "\x0F"s, "\x20\0"s, "\x24"s + std::string(16, '\0'), "\x15"s + std::string(32, '\0'),
        "\x32\0\0\0\0"s, "\x80\1"s, "\xC1\0"s, "\x70"s, "\x90"s, "\xB0"s, "\xE0"s, "\xF0"s}) {
    EXPECT_EQ(parse(binary({object})), kRefused) << static_cast<int>(static_cast<uint8_t>(object[0]));
  }
  // 2^63 and 2^64, which no signed integer of 64 bits holds; below them 16 bytes are read.
  EXPECT_EQ(parse(binary({"\x14\0\0\0\0\0\0\0\0\x80\0\0\0\0\0\0\0"s})), kRefused);
  EXPECT_EQ(parse(binary({"\x14\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0"s})), kRefused);
  EXPECT_EQ(parse(binary({"\x14\0\0\0\0\0\0\0\0\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s})),
            Value(int64_t{INT64_MAX}));
}

TEST(PlistBinary, RefusesTextThatXmlCanNotHold) {
  for (const std::string& object : {"\x51\x80"s, "\x51\0"s, "\x51\x1F"s, "\x61\0\1"s, "\x61\xD8\0"s,
                                    "\x61\xDC\0"s, "\x62\xD8\0\0A"s, "\x61\xFF\xFE"s}) {
    EXPECT_FALSE(isSafeBinaryPlist(binary({object})));
    EXPECT_EQ(parse(binary({object})), kRefused);
    EXPECT_EQ(parse(binary({"\xD1\1\1"s, object})), kRefused);
  }
}

TEST(PlistBinary, ReadsTheFirstAndLastCharactersOfTwoUnits) {
  EXPECT_EQ(parse(binary({"\x62\xD8\0\xDC\0"s})), Value("\U00010000"));
  EXPECT_EQ(parse(binary({"\x62\xDB\xFF\xDF\xFF"s})), Value("\U0010FFFF"));
}

TEST(PlistBinary, ReadsCountsOfEveryWidth) {
  for (const std::string& count : {"\x10\3"s, "\x11\0\3"s, "\x12\0\0\0\3"s, "\x13\0\0\0\0\0\0\0\3"s})
    EXPECT_EQ(parse(binary({"\x5F" + count + "abc"})), Value("abc"));
  EXPECT_EQ(parse(binary({"\x5F\x10\0"s})), Value(""));
  EXPECT_FALSE(isSafeBinaryPlist(binary({"\x5F\x14" + std::string(15, '\0') + "\3" + "abc"})));
  EXPECT_FALSE(isSafeBinaryPlist(binary({"\x5F\x10"s})));
}

TEST(PlistBinary, ReadsAnEmptyTextInItsUsualFormOnly) {
  EXPECT_EQ(parse(binary({"\x50"s})), Value(""));
  EXPECT_EQ(parse(binary({"\x60"s})), kRefused);
}

TEST(PlistBinary, RefusesDatesThatAreNone) {
  EXPECT_EQ(parse(binary({"\x33\x7F\xF8\0\0\0\0\0\0"s})), kRefused);  // not a number
  EXPECT_EQ(parse(binary({"\x33\x7F\xF0\0\0\0\0\0\0"s})), kRefused);  // infinite
  EXPECT_EQ(parse(binary({"\x33\x41\xE0\0\0\0\0\0\0"s})), kRefused);  // 2^31
  EXPECT_EQ(parse(binary({"\x33\x41\xDF\xFF\xFF\xFF\xC0\0\0"s})), Value(Value::Date{2147483647}));
  EXPECT_EQ(parse(binary({"\x33\xC1\xE0\0\0\0\0\0\0"s})), Value(Value::Date{-2147483648.0}));
}

TEST(PlistBinary, RefusesListsThatHoldThemselves) {
  EXPECT_EQ(parse(binary({"\xA1\0"s})), kRefused);
  EXPECT_EQ(parse(binary({"\xA2\1\1"s, "\xA1\0"s})), kRefused);
  EXPECT_EQ(parse(binary({"\xD1\1\0"s,
                          "\x51"
                          "k"s})),
            kRefused);
}

TEST(PlistBinary, RefusesWhatUnfoldsWithoutBound) {
  // Each list names the next one ten times: 10 to the power of the number of lists.
  const auto bomb = [](int lists) {
    std::vector<std::string> objects;
    for (int i = 1; i <= lists; ++i) objects.push_back("\xAA" + std::string(10, static_cast<char>(i)));
    objects.push_back("\x09"s);
    return binary(objects);
  };
  EXPECT_EQ(parse(bomb(30)), kRefused);
  EXPECT_EQ(parse(bomb(7)), kRefused);
  EXPECT_TRUE(parse(bomb(3)).isArray());
  // A text of 60,000 bytes named 8 x 15 x 15 times: over 100 MB in all.
  const std::string text = "\x5F\x11\xEA\x60" + std::string(60000, 'x');
  EXPECT_EQ(parse(binary({"\xA8" + std::string(8, '\1'), "\xAF\x10\x0F" + std::string(15, '\2'),
                          "\xAF\x10\x0F" + std::string(15, '\3'), text})),
            kRefused);
  EXPECT_TRUE(parse(binary({"\xA8" + std::string(8, '\1'), text})).isArray());
}

TEST(PlistBinary, NestsAsDeepAs512AndNoDeeper) {
  const auto nested = [](int depth) {
    // References of two bytes: list i holds list i + 1 alone, the last one nothing.
    std::string file = "bplist00", table;
    for (int i = 0; i < depth; ++i) {
      appendBE16(table, static_cast<uint16_t>(file.size()));
      file += i + 1 == depth ? "\xA0"s : "\xA1"s;
      if (i + 1 < depth) appendBE16(file, static_cast<uint16_t>(i + 1));
    }
    const size_t tableAt = file.size();
    file += table + "\0\0\0\0\0\0\2\2\0\0\0\0"s;
    appendBE32(file, static_cast<uint32_t>(depth));
    file += std::string(8, '\0') + "\0\0\0\0"s;
    appendBE32(file, static_cast<uint32_t>(tableAt));
    return file;
  };
  EXPECT_TRUE(parse(nested(512)).isArray());
  EXPECT_EQ(parse(nested(513)), kRefused);
  EXPECT_EQ(parse(nested(20000)), kRefused);
}

TEST(PlistBinary, CountsTheDepthOfSharedListsAtTheirDeepestPlace) {
  // List 1 is 300 deep and stands in list 0 and again below 250 further lists: 550.
  std::vector<std::string> objects(1);
  std::string file = "bplist00", table;
  const int inner = 300, outer = 250;
  std::vector<std::string> lists;
  const auto listOf = [](std::initializer_list<int> members) {
    std::string object(1, static_cast<char>(0xA0 | members.size()));
    for (int member : members) appendBE16(object, static_cast<uint16_t>(member));
    return object;
  };
  lists.push_back(listOf({1, 1 + inner}));
  for (int i = 1; i < inner; ++i) lists.push_back(listOf({i + 1}));
  lists.push_back(listOf({}));
  for (int i = 1; i < outer; ++i) lists.push_back(listOf({inner + i + 1}));
  lists.push_back(listOf({1}));
  for (const std::string& list : lists) {
    appendBE16(table, static_cast<uint16_t>(file.size()));
    file += list;
  }
  const size_t tableAt = file.size();
  file += table + "\0\0\0\0\0\0\2\2\0\0\0\0"s;
  appendBE32(file, static_cast<uint32_t>(lists.size()));
  file += std::string(12, '\0');
  appendBE32(file, static_cast<uint32_t>(tableAt));
  EXPECT_EQ(parse(file), kRefused);
}

TEST(PlistBinary, RefusesMapsWhoseKeysAreNoText) {
  EXPECT_EQ(parse(binary({"\xD1\1\1"s, "\x10\1"s})), kRefused);
  EXPECT_EQ(parse(binary({"\xD1\1\1"s, "\xA0"s})), kRefused);
}

TEST(PlistBinary, RefusesSpansOutsideTheFile) {
  EXPECT_EQ(parse(binary({"\x5E"
                          "abc"s})),
            kRefused);
  EXPECT_EQ(parse(binary({"\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                          "abc"s})),
            kRefused);
  EXPECT_EQ(parse(binary({"\xA1\5"s})), kRefused);
  EXPECT_EQ(parse(binary({"\x09"s}, 1)), kRefused);
  EXPECT_EQ(parse("bplist00"), kRefused);
  EXPECT_EQ(parse("bplist00" + std::string(32, '\0')), kRefused);
  EXPECT_EQ(parse("bplist00" + std::string(32, '\xFF')), kRefused);
  EXPECT_EQ(parse("bplist01" + binary({"\x09"s}).substr(8)), kRefused);
}

// ---- writing ----

Value everyKind() {
  return Value(Value::Dict{{"array", Value(Value::Array{1, "two", Value(Value::Array{})})},
                           {"boolean", true},
                           {"data", Value::Data{"\0\1\xFF"s}},
                           {"date", Value::Date{700000000}},
                           {"dict", Value(Value::Dict{{"あ<&>", "い<&>\"'"}})},
                           {"integer", -5},
                           {"large", int64_t{INT64_MAX}},
                           {"real", 0.1},
                           {"string", "a\r\nb\tc \U00020B9F"}});
}

TEST(PlistWriting, ReadsBackEveryKindFromBothForms) {
  PlistPropertyLists lists;
  EXPECT_EQ(parse(lists.serialize(everyKind(), kXml)), everyKind());
  EXPECT_EQ(parse(lists.serialize(everyKind(), kBinary)), everyKind());
  for (const Value& value :
       {Value(""), Value(false), Value(int64_t{INT64_MIN}), Value(1e300), Value(Value::Dict{}),
        Value(Value::Array{}), Value(Value::Data{}), Value(Value::Date{-978307200})}) {
    EXPECT_EQ(parse(lists.serialize(value, kXml)), value);
    EXPECT_EQ(parse(lists.serialize(value, kBinary)), value);
  }
}

TEST(PlistWriting, WritesTheFormThatIsAskedFor) {
  PlistPropertyLists lists;
  EXPECT_TRUE(lists.serialize(Value(1), kXml).starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
  EXPECT_TRUE(lists.serialize(Value(1), kBinary).starts_with("bplist00"));
  EXPECT_NE(lists.serialize(everyKind(), kXml).find("<key>あ&lt;&amp;&gt;</key>"), std::string::npos);
}

TEST(PlistWriting, WritesCarriageReturnsAsReferences) {
  const std::string text = PlistPropertyLists().serialize(Value("a\r\nb\r"), kXml);
  EXPECT_NE(text.find("<string>a&#13;\nb&#13;</string>"), std::string::npos) << text;
}

TEST(PlistWriting, TakesOutWhatXmlCanNotHold) {
  PlistPropertyLists lists;
  const Value value(Value::Dict{{"k\1\xFF", "a\0b\x1F\xE3\x81z\xEF\xBF\xBE\t"s}});
  for (const auto format : {kXml, kBinary})
    EXPECT_EQ(parse(lists.serialize(value, format)), Value(Value::Dict{{"k", "abz\t"}}));
}

TEST(PlistWriting, LeavesNullMembersOfMapsOut) {
  PlistPropertyLists lists;
  EXPECT_EQ(parse(lists.serialize(Value(Value::Dict{{"a", Value()}, {"b", 1}}), kXml)),
            Value(Value::Dict{{"b", 1}}));
  EXPECT_EQ(lists.serialize(Value(), kXml), "");
  EXPECT_EQ(lists.serialize(Value(Value::Array{1, Value()}), kXml), "");
}

TEST(PlistWriting, CutsDatesToSecondsAndToTheirRange) {
  PlistPropertyLists lists;
  const auto through = [&](double seconds, PropertyListFormat format) {
    return parse(lists.serialize(Value(Value::Date{seconds}), format));
  };
  for (const auto format : {kXml, kBinary}) {
    EXPECT_EQ(through(1.75, format), Value(Value::Date{1}));
    EXPECT_EQ(through(-1.25, format), Value(Value::Date{-2}));
    EXPECT_EQ(through(1e12, format), Value(Value::Date{2147483647}));
    EXPECT_EQ(through(-1e12, format), Value(Value::Date{-2147483648.0}));
  }
  EXPECT_EQ(lists.serialize(Value(Value::Date{std::nan("")}), kXml), "");
}

Value nested(int depth) {
  Value value(Value::Array{});
  for (int i = 1; i < depth; ++i) {
    Value::Array outer;
    outer.push_back(std::move(value));
    value = Value(std::move(outer));
  }
  return value;
}

TEST(PlistWriting, NestsAsDeepAs512AndNoDeeper) {
  PlistPropertyLists lists;
  for (const auto format : {kXml, kBinary}) {
    EXPECT_EQ(parse(lists.serialize(nested(512), format)), nested(512));
    EXPECT_EQ(lists.serialize(nested(513), format), "");
    EXPECT_EQ(lists.serialize(nested(5000), format), "");
  }
}

TEST(PlistWriting, WritesNothingThatIsTooLargeToReadBack) {
  const Value large(Value::Data{std::string(64 * 1024 * 1024, 'x')});  // a third longer in base64
  Value::Dict keys;
  for (int i = 0; i <= 65536; ++i) keys[std::to_string(i)] = true;
  EXPECT_EQ(PlistPropertyLists().serialize(Value(std::move(keys)), kXml), "");
  EXPECT_EQ(PlistPropertyLists().serialize(large, kXml), "");
  EXPECT_EQ(PlistPropertyLists().serialize(large, kBinary), "");
}

// Puts the process into a locale with a decimal comma, made for the purpose. False where none can be made.
bool enterCommaLocale(const TempFolder& folder) {
  folder.write("comma.src",
               "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
  const std::string command =
      "cd " + folder.path() + " && localedef -c -i comma.src -f UTF-8 ./comma 2>/dev/null";
  [[maybe_unused]] const int warned = std::system(command.c_str());  // it has no other categories
  ::setenv("LOCPATH", folder.path().c_str(), 1);
  return ::setlocale(LC_NUMERIC, "comma") != nullptr;
}

TEST(PlistWriting, KeepsThePointInEveryLocale) {
  TempFolder folder;
  if (!enterCommaLocale(folder)) GTEST_SKIP() << "no locale can be made here";
  EXPECT_STREQ(::localeconv()->decimal_point, ",");
  const std::string text = PlistPropertyLists().serialize(Value(1.5), kXml);
  const Value read = parseXml("<real>2.5</real>");
  EXPECT_STREQ(::localeconv()->decimal_point, ",");
  ::setlocale(LC_NUMERIC, "C");
  ::unsetenv("LOCPATH");
  EXPECT_NE(text.find("<real>1.5</real>"), std::string::npos) << text;
  EXPECT_EQ(read, Value(2.5));
}

// ---- files ----

TEST(PlistFiles, WritesAndReadsBack) {
  TempFolder folder;
  PlistPropertyLists lists;
  for (const auto format : {kXml, kBinary}) {
    EXPECT_TRUE(lists.writeFile(folder.file("a.plist"), everyKind(), format));
    Value value;
    EXPECT_TRUE(lists.readFile(folder.file("a.plist"), &value));
    EXPECT_EQ(value, everyKind());
  }
  EXPECT_EQ(folder.names(), std::vector<std::string>{"a.plist"});
}

TEST(PlistFiles, LeavesTheOldFileWhenTheNewOneCanNotBeWritten) {
  TempFolder folder;
  PlistPropertyLists lists;
  const std::string old = xml("<true/>");
  FaultyStorage disk;
  for (long n = 1; n <= 5; ++n) {
    folder.write("a.plist", old);
    disk.failAt(n);
    EXPECT_FALSE(lists.writeFile(folder.file("a.plist"), everyKind(), kXml)) << n;
    EXPECT_EQ(folder.read("a.plist"), old) << n;
    EXPECT_EQ(folder.names().size(), 1u) << n;
  }
  disk.failAt(0);
  EXPECT_FALSE(lists.writeFile(folder.file("a.plist"), Value(), kXml));
  EXPECT_EQ(folder.read("a.plist"), old);
}

TEST(PlistFiles, AreSafeOnTheDiskBeforeTheyTakeTheOldOnesPlace) {
  TempFolder folder;
  PlistPropertyLists lists;
  FaultyStorage disk;
  EXPECT_TRUE(lists.writeFile(folder.file("a.plist"), everyKind(), kXml));
  std::vector<std::string> kinds;
  for (const std::string& entry : disk.history()) {
    kinds.push_back(entry.substr(0, entry.find(' ')));
    EXPECT_NE(entry.find(" " + folder.path()), std::string::npos) << entry;  // the temporary file, too
  }
  EXPECT_EQ(kinds,
            (std::vector<std::string>{"openTemporary", "writeAt", "sync", "close", "rename", "syncFolder"}));
}

TEST(PlistFiles, AreOldOrNewWhateverCallOfTheDiskFails) {
  TempFolder folder;
  PlistPropertyLists lists;
  const std::string old = xml("<true/>");
  const std::string made = lists.serialize(everyKind(), kXml);
  for (const auto repeat : {FaultyStorage::kOnce, FaultyStorage::kForEver}) {
    for (long n = 1; n <= 7; ++n) {
      folder.write("a.plist", old);
      FaultyStorage disk;
      disk.failAt(n, repeat);
      // The seventh would be one more than there are. The sixth, after the rename, is the folder's sync.
      EXPECT_EQ(lists.writeFile(folder.file("a.plist"), everyKind(), kXml), n == 7) << n;
      EXPECT_EQ(disk.faults() > 0, n < 7);
      EXPECT_EQ(folder.read("a.plist"), n < 6 ? old : made) << n;
    }
  }
}

TEST(PlistFiles, TellsOfMissingAndUnreadableFiles) {
  TempFolder folder;
  PlistPropertyLists lists;
  Value value("Untouched");
  EXPECT_FALSE(lists.readFile(folder.file("none"), &value));
  EXPECT_FALSE(lists.readFile(folder.path(), &value));
  folder.write("a.plist", "no list");
  EXPECT_FALSE(lists.readFile(folder.file("a.plist"), &value));
  EXPECT_EQ(value, Value("Untouched"));
}

// ---- damage ----

// What reads must be a value that can be written and read again; what the doors let through, the library
// must read.
void checkDamaged(const std::string& bytes, int* readable) {
  PlistPropertyLists lists;
  Value value;
  const bool safe = isSafeBinaryPlist(bytes) || safeXmlPlist(bytes).has_value();
  const bool read = lists.parse(bytes, &value);
  EXPECT_EQ(read, safe) << testing::PrintToString(bytes);
  if (!read) return;
  ++*readable;
  for (const auto format : {kXml, kBinary}) {
    const std::string again = lists.serialize(value, format);
    Value second;
    ASSERT_TRUE(lists.parse(again, &second)) << bytes;
    EXPECT_EQ(lists.serialize(second, format), again) << bytes;
  }
}

// Every cut, and every byte as 0x00, 0xFF, with its lowest bit turned, one more and one less.
void checkAllDamage(const std::string& good) {
  int readable = 0, changes = 0;
  for (size_t length = 0; length < good.size(); ++length) checkDamaged(good.substr(0, length), &readable);
  readable = 0;
  for (size_t at = 0; at < good.size(); ++at) {
    for (char now : {'\0', '\xFF', static_cast<char>(good[at] ^ 1), static_cast<char>(good[at] + 1),
                     static_cast<char>(good[at] - 1)}) {
      std::string damaged = good;
      damaged[at] = now;
      ++changes;
      checkDamaged(damaged, &readable);
    }
  }
  EXPECT_GT(readable, 0);
  EXPECT_LT(readable, changes);
}

TEST(PlistDamage, StandsEveryDamageToAnXmlList) {
  checkAllDamage(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE plist><plist "
      "version=\"1.0\"><dict><key>a&amp;</key>"
      "<array><string>あ<![CDATA[<]]>&#x42;</string><integer>-12</integer><real>1.5</real><true/><false/>"
      "<date>2004-02-29T12:34:56Z</date><data>AAECAw==</data></array><!-- c "
      "--><key>b</key><dict/></dict></plist>");
}

TEST(PlistDamage, StandsEveryDamageToABinaryList) {
  checkAllDamage(PlistPropertyLists().serialize(everyKind(), kBinary));
  checkAllDamage(binary({"\xD2\1\2\3\4"s,
                         "\x51"
                         "k"s,
                         "\x61\x30\x42"s, "\xA4\4\5\6\7"s, "\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\7"s,
                         "\x22\x3F\xC0\0\0"s, "\x33\x40\x14\0\0\0\0\0\0"s, "\x4F\x10\2xy"s}));
}

TEST(PlistDamage, RefusesEveryCutOfAList) {
  const std::string good = PlistPropertyLists().serialize(everyKind(), kBinary);
  for (size_t length = 0; length < good.size(); ++length)
    EXPECT_EQ(parse(good.substr(0, length)), kRefused) << length;
  const std::string text = xml("<array><string>a</string></array>");
  for (size_t length = 0; length + 2 < text.size(); ++length)
    EXPECT_EQ(parse(text.substr(0, length)), kRefused) << length;
}

}  // namespace
}  // namespace zavel
