#include "base/IconvTextEncoding.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zavel {
namespace {

using namespace std::string_literals;

class IconvTextEncodingTest : public testing::Test {
 protected:
  std::string lossy(std::string_view utf8) { return encoding_.toSjisLossy(utf8).bytes(); }
  // "(none)" for nothing.
  std::string strict(std::string_view utf8) {
    const std::optional<SjisBytes> bytes = encoding_.toSjisStrict(utf8);
    return bytes ? bytes->bytes() : "(none)";
  }
  std::string decodeStrict(std::string_view bytes, Encoding from) {
    return encoding_.toUtf8Strict(bytes, from).value_or("(none)");
  }

  IconvTextEncoding encoding_;
};

TEST_F(IconvTextEncodingTest, WritesAsciiAsItStands) {
  std::string ascii;
  for (char c = 0; c < 127; ++c) ascii += c;
  ascii += '\x7F';
  EXPECT_EQ(lossy(ascii), ascii);
  EXPECT_EQ(strict(ascii), ascii);
  EXPECT_EQ(encoding_.fromSjisLossy(ascii), ascii);
  EXPECT_EQ(lossy("あ\\~"), "\x82\xA0\\~");  // beside kanji too: no yen sign, no overline
  EXPECT_EQ(encoding_.fromSjisLossy("\x82\xA0\\~"), "あ\\~");
}

TEST_F(IconvTextEncodingTest, WritesKanaKanjiAndHalfWidthKana) {
  EXPECT_EQ(strict("日本語"), "\x93\xFA\x96\x7B\x8C\xEA");
  EXPECT_EQ(strict("ｱｲｳ"), "\xB1\xB2\xB3");
  EXPECT_EQ(strict("ソ表"), "\x83\x5C\x95\x5C");
}

TEST_F(IconvTextEncodingTest, KnowsTheVendorCharacters) {
  EXPECT_EQ(strict("①髙㈱Ⅲ"), "\x87\x40\xFB\xFC\x87\x8A\x87\x56");
}

TEST_F(IconvTextEncodingTest, TakesWaveDashAndOthersForTheirWindowsPartners) {
  const struct {
    const char* utf8;
    const char* partner;
    const char* sjis;
  } kPairs[] = {
      {"\u301C", "\uFF5E", "\x81\x60"}, {"\u2212", "\uFF0D", "\x81\x7C"}, {"\u2016", "\u2225", "\x81\x61"},
      {"\u2014", "\u2015", "\x81\x5C"}, {"\u00A2", "\uFFE0", "\x81\x91"}, {"\u00A3", "\uFFE1", "\x81\x92"},
      {"\u00AC", "\uFFE2", "\x81\xCA"},
  };
  for (const auto& pair : kPairs) {
    EXPECT_EQ(lossy(pair.utf8), pair.sjis);
    EXPECT_EQ(strict(pair.utf8), pair.sjis);
    EXPECT_EQ(strict(pair.partner), pair.sjis);
    EXPECT_EQ(encoding_.fromSjisLossy(pair.sjis), pair.partner);
  }
}

TEST_F(IconvTextEncodingTest, PutsAQuestionMarkForEachLostCharacter) {
  EXPECT_EQ(lossy("a한b"), "a?b");
  EXPECT_EQ(lossy("😀😀日é"), "??\x93\xFA?");
  EXPECT_EQ(strict("a한b"), "(none)");
  EXPECT_EQ(strict("日é"), "(none)");
}

TEST_F(IconvTextEncodingTest, DoesNotTakeTheYenSignForABackslash) {
  EXPECT_EQ(lossy("日¥1‾"), "\x93\xFA?1?");
  EXPECT_EQ(strict("¥"), "(none)");
  EXPECT_EQ(strict("‾"), "(none)");
  EXPECT_EQ(strict("￥"), "\x81\x8F");
}

TEST_F(IconvTextEncodingTest, DropsNoCharacterWithoutAWord) {
  EXPECT_EQ(lossy("あ\U000E0041い\U000E007F"), "\x82\xA0?\x82\xA2?");
  EXPECT_EQ(strict("あ\U000E0001"), "(none)");
  EXPECT_EQ(lossy("\uFEFFあ"), "?\x82\xA0");
}

TEST_F(IconvTextEncodingTest, PutsAQuestionMarkForBrokenUtf8) {
  EXPECT_EQ(lossy("a\xE3\x81"), "a?");
  EXPECT_EQ(lossy("\xFF\xFE"
                  "b"),
            "??b");
  EXPECT_EQ(lossy("\xE3\x81z"), "?z");
  EXPECT_EQ(strict("a\xE3\x81"), "(none)");
}

TEST_F(IconvTextEncodingTest, ForgetsABrokenEndBeforeTheNextText) {
  EXPECT_EQ(lossy("あ\xE3\x81"), "\x82\xA0?");
  EXPECT_EQ(lossy("\x82い"), "?\x82\xA2");
  EXPECT_EQ(encoding_.fromSjisLossy("\x82\xA0\x82"), "あ\uFFFD");
  EXPECT_EQ(encoding_.fromSjisLossy("\xA2\x82\xA2"), "｢い");
}

TEST_F(IconvTextEncodingTest, WritesLongTextsInAnyMixture) {
  std::string utf8, sjis;
  for (int i = 0; i < 5000; ++i) {
    utf8 += "日ｱa¥";
    sjis +=
        "\x93\xFA\xB1"
        "a?";
  }
  EXPECT_EQ(lossy(utf8), sjis);
  std::string kana(100000, '\xB1'), wide;
  for (int i = 0; i < 100000; ++i) wide += "ｱ";
  EXPECT_EQ(encoding_.fromSjisLossy(kana), wide);
}

TEST_F(IconvTextEncodingTest, CutsNoCharacterOfALongText) {
  for (const std::string& shift : {""s, "a"s, "ab"s, "abc"s}) {
    std::string utf8 = "😀" + shift, sjis = "?" + shift;  // pieces are smallest behind what is lacking
    for (int i = 0; i < 100000; ++i) {
      utf8 += "行";
      sjis += "\x8D\x73";
    }
    EXPECT_EQ(lossy(utf8), sjis);
    EXPECT_EQ(lossy(utf8 + "\xE3\x81"), sjis + "?");
    EXPECT_EQ(encoding_.fromSjisLossy("\xFF" + sjis.substr(1)), "\uFFFD" + utf8.substr(4));
    EXPECT_EQ(decodeStrict(sjis + "\x82", Encoding::kShiftJis), "(none)");
  }
}

// A damaged dictionary can bring millions of such bytes.
TEST_F(IconvTextEncodingTest, TakesTextsOfBadBytesInItsStride) {
  constexpr size_t kBytes = size_t{2} << 20;
  const auto begin = std::chrono::steady_clock::now();
  const std::string marks = encoding_.fromSjisLossy(std::string(kBytes, '\xFF'));
  std::string faces;
  for (size_t i = 0; i < kBytes / 4; ++i) faces += "😀";
  const std::string questions = lossy(faces);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  EXPECT_EQ(marks.size(), 3 * kBytes);
  EXPECT_EQ(marks.substr(3 * kBytes - 6), "\uFFFD\uFFFD");
  EXPECT_EQ(questions, std::string(kBytes / 4, '?'));
}

TEST_F(IconvTextEncodingTest, ReadsShiftJisWithAMarkForEachBadByte) {
  EXPECT_EQ(encoding_.fromSjisLossy("\x8D\x73\x82\xAD"), "行く");
  EXPECT_EQ(encoding_.fromSjisLossy("\x80\xA0\xFD\xFE\xFF"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(encoding_.fromSjisLossy("\x82 x"), "\uFFFD x");
  EXPECT_EQ(encoding_.fromSjisLossy("x\x82"), "x\uFFFD");
  EXPECT_EQ(encoding_.fromSjisLossy("\x81\xAD"), "\uFFFDｭ");  // a place of the table that is empty
  EXPECT_EQ(decodeStrict("x\x82", Encoding::kShiftJis), "(none)");
  EXPECT_EQ(decodeStrict("\x8D\x73", Encoding::kShiftJis), "行");
}

TEST_F(IconvTextEncodingTest, KeepsZeroBytes) {
  EXPECT_EQ(lossy("a\0あ"s), "a\0\x82\xA0"s);
  EXPECT_EQ(encoding_.fromSjisLossy("\x82\xA0\0b"s), "あ\0b"s);
}

TEST_F(IconvTextEncodingTest, ReadsEucJp) {
  EXPECT_EQ(decodeStrict("\xC6\xFC\xCB\xDC\x8E\xB1", Encoding::kEucJp), "日本ｱ");
  EXPECT_EQ(decodeStrict("\xAD\xA1", Encoding::kEucJp), "①");
  EXPECT_EQ(encoding_.toUtf8Lossy("a\xC6", Encoding::kEucJp), "a\uFFFD");
  EXPECT_EQ(decodeStrict("a\xC6", Encoding::kEucJp), "(none)");
}

TEST_F(IconvTextEncodingTest, ReadsUtf16InTheOrderOfItsMark) {
  EXPECT_EQ(decodeStrict("\xFE\xFF\x30\x42\0a"s, Encoding::kUtf16), "あa");
  EXPECT_EQ(decodeStrict("\xFF\xFE\x42\x30\x61\0"s, Encoding::kUtf16), "あa");
  EXPECT_EQ(decodeStrict("\x42\x30\x61\0"s, Encoding::kUtf16), "あa");
  EXPECT_EQ(decodeStrict("\xFE\xFF\xD8\x42\xDF\x9F", Encoding::kUtf16), "\U00020B9F");
  EXPECT_EQ(decodeStrict("", Encoding::kUtf16), "");
}

TEST_F(IconvTextEncodingTest, MarksBrokenUtf16) {
  EXPECT_EQ(encoding_.toUtf8Lossy("\xFE\xFF\xD8\x42\x30\x42", Encoding::kUtf16), "\uFFFDあ");
  EXPECT_EQ(encoding_.toUtf8Lossy("\xFE\xFF\x30\x42\x30", Encoding::kUtf16), "あ\uFFFD");
  EXPECT_EQ(decodeStrict("\xFE\xFF\x30", Encoding::kUtf16), "(none)");
  EXPECT_EQ(decodeStrict("\xFE\xFF\xDC\x42", Encoding::kUtf16), "(none)");
}

TEST_F(IconvTextEncodingTest, ReadsUtf8WithoutItsMark) {
  EXPECT_EQ(decodeStrict("\xEF\xBB\xBFあ", Encoding::kUtf8), "あ");
  EXPECT_EQ(decodeStrict("\xFF", Encoding::kUtf8), "(none)");
  EXPECT_EQ(encoding_.toUtf8Lossy("\xEF\xBB\xBF"
                                  "a\xFF",
                                  Encoding::kUtf8),
            "a\uFFFD");
}

TEST_F(IconvTextEncodingTest, ReadsAndWritesEveryShiftJisCharacterToTheSameMeaning) {
  int characters = 0;
  for (int lead = 0x81; lead <= 0xFC; ++lead) {
    if (lead >= 0xA0 && lead <= 0xDF) continue;
    for (int trail = 0x40; trail <= 0xFC; ++trail) {
      const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
      const std::string utf8 = decodeStrict(pair, Encoding::kShiftJis);
      if (utf8 == "(none)") continue;
      ++characters;
      // Some characters stand in the table twice; one of the two places comes back, with the same meaning.
      EXPECT_EQ(decodeStrict(strict(utf8), Encoding::kShiftJis), utf8);
    }
  }
  // 6,879 of JIS X 0208, 83 and 374 of one vendor, 388 of another, 1,880 for own use.
  EXPECT_EQ(characters, 6879 + 83 + 374 + 388 + 1880);
}

}  // namespace
}  // namespace zavel
