#include "foundation/Utf8.h"

#include <gtest/gtest.h>

namespace zavel {
namespace {

using namespace std::string_view_literals;

struct Sample {
  std::string_view bytes;
  char32_t code;
  size_t length;
};

TEST(Utf8, ReadsCharactersOfEveryLength) {
  for (const Sample& s :
       {Sample{"A", 0x41, 1}, Sample{"\0"sv, 0, 1}, Sample{"\x7F", 0x7F, 1}, Sample{"\xC2\x80", 0x80, 2},
        Sample{"\xDF\xBF", 0x7FF, 2}, Sample{"\xE0\xA0\x80", 0x800, 3}, Sample{"\xE3\x81\x82", 0x3042, 3},
        Sample{"\xED\x9F\xBF", 0xD7FF, 3}, Sample{"\xEE\x80\x80", 0xE000, 3},
        Sample{"\xEF\xBF\xBF", 0xFFFF, 3}, Sample{"\xF0\x90\x80\x80", 0x10000, 4},
        Sample{"\xE1\x80\x80", 0x1000, 3}, Sample{"\xEC\x80\x80", 0xC000, 3},
        Sample{"\xF1\x80\x80\x80", 0x40000, 4}, Sample{"\xF3\xBF\xBF\xBF", 0xFFFFF, 4},
        Sample{"\xF4\x8F\xBF\xBF", 0x10FFFF, 4}}) {
    const Utf8Char c = readUtf8(s.bytes);
    EXPECT_TRUE(c.valid) << s.bytes;
    EXPECT_EQ(c.code, s.code);
    EXPECT_EQ(c.length, s.length);
    std::string written = "x";
    appendUtf8(written, s.code);
    EXPECT_EQ(written, "x" + std::string(s.bytes));
  }
}

TEST(Utf8, RefusesWhatIsNoShortestFormOfACharacter) {
  for (std::string_view bytes :
       {"\x80"sv, "\xBF"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv, "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv,
        "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xFF"sv}) {
    const Utf8Char c = readUtf8(bytes);
    EXPECT_FALSE(c.valid);
    EXPECT_EQ(c.length, 1u);
    EXPECT_FALSE(isValidUtf8(bytes));
  }
}

TEST(Utf8, TakesABrokenCharacterAsOneFault) {
  EXPECT_EQ(readUtf8("\xE3\x81").length, 2u);
  EXPECT_FALSE(readUtf8("\xE3\x81").valid);
  EXPECT_EQ(readUtf8("\xF0\x9F\x98z").length, 3u);
  EXPECT_EQ(readUtf8("\xE3").length, 1u);
  EXPECT_EQ(readUtf8("").length, 0u);
}

TEST(Utf8, ReplacesEachFaultOnce) {
  EXPECT_EQ(replaceInvalidUtf8("abc"), "abc");
  EXPECT_EQ(replaceInvalidUtf8("a\xE3\x81z\xFF\xFE"), "a\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(replaceInvalidUtf8("\xE3\x81\x82\xE3"), "\xE3\x81\x82\xEF\xBF\xBD");
  EXPECT_EQ(replaceInvalidUtf8(""), "");
}

TEST(Utf8, FindsAsciiAtEveryPlaceOfAWord) {
  EXPECT_TRUE(isAscii(""));
  EXPECT_TRUE(isAscii("0123456789abcdef\x7F"));
  for (size_t at = 0; at < 20; ++at) {
    std::string text(20, 'a');
    text[at] = '\x80';
    EXPECT_FALSE(isAscii(text)) << at;
    EXPECT_FALSE(isValidUtf8(text)) << at;
  }
}

}  // namespace
}  // namespace zavel
