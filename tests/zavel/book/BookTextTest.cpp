#include "book/BookText.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"
#include "support/SmallBook.h"

namespace zavel::host {
namespace {

using test::Text;

// A line each: indent, then spans in angles: a letter for each kind and style, the place of what has one.
std::string shown(const BookText& text) {
  std::string out;
  for (const BookLine& line : text.lines) {
    out += std::to_string(line.indent) + ":";
    for (const BookSpan& span : line.spans) {
      std::string marks;
      if (span.kind == SpanKind::kReference) marks += "R";
      if (span.kind == SpanKind::kItem) marks += "I";
      if (span.kind == SpanKind::kPicture) marks += "P";
      if (span.kind == SpanKind::kSound) marks += "S";
      if (span.kind == SpanKind::kFilm) marks += "F";
      if (span.keyword) marks += "k";
      if (span.emphasis) marks += "e";
      if (span.subscript) marks += "v";
      if (span.superscript) marks += "^";
      const std::string place = span.address.block == 0 ? ""
                                                        : "@" + std::to_string(span.address.block) + ":" +
                                                              std::to_string(span.address.offset);
      out += "<" + marks + place + (marks.empty() ? "" : " ") + span.text + ">";
    }
    out += "\n";
  }
  return out;
}

std::string decoded(const Text& text) {
  static const BookCharacters kNone;
  return shown(decodeText(text.bytes(), kNone, {7, 2040}));
}

TEST(BookTextTest, AnEntry) {
  EXPECT_EQ(decoded(Text().begin().entry("dog", "犬").end()), "0:<k ｄｏｇ>\n1:<犬>\n");
}

TEST(BookTextTest, HalfWidthMakesNoSpan) {
  EXPECT_EQ(decoded(Text().chars("あ").word(0x1F04).chars("ab").word(0x1F05).chars("c")), "0:<あabｃ>\n");
}

TEST(BookTextTest, Styles) {
  EXPECT_EQ(decoded(Text().word(0x1F12).chars("a").word(0x1F13).chars("b")), "0:<e ａ><ｂ>\n");
  EXPECT_EQ(
      decoded(Text().chars("x").word(0x1F0E).chars("2").word(0x1F0F).word(0x1F06).chars("3").word(0x1F07)),
      "0:<ｘ><^ ２><v ３>\n");
  EXPECT_EQ(decoded(Text().word(0x1F0E).word(0x1F12).chars("2").word(0x1F13).word(0x1F0F)), "0:<e^ ２>\n");
}

TEST(BookTextTest, IndentsHoldUntilTheNext) {
  EXPECT_EQ(decoded(Text().indent(3).chars("a").feed().chars("b").feed().indent(1).chars("c")),
            "2:<ａ>\n2:<ｂ>\n0:<ｃ>\n");
  EXPECT_EQ(decoded(Text().chars("a").indent(5).chars("b").feed().chars("c")), "0:<ａｂ>\n4:<ｃ>\n");
}

TEST(BookTextTest, References) {
  EXPECT_EQ(
      decoded(Text().chars("see ").word(0x1F42).word(0x0100).chars("dog").word(0x1F62).address(12, 345).chars(
          ".")),
      "0:<ｓｅｅ　><R@12:345 ｄｏｇ><．>\n");
  // Without an argument the tag has one word.
  EXPECT_EQ(decoded(Text().word(0x1F42).chars("dog").word(0x1F62).address(12, 345)), "0:<R@12:345 ｄｏｇ>\n");
}

TEST(BookTextTest, AReferenceOverTwoLinesIsOne) {
  const BookCharacters none;
  const BookText text = decodeText(
      Text().word(0x1F42).word(0x0100).chars("a").feed().chars("b").word(0x1F62).address(12, 345).bytes(),
      none, {1, 0});
  EXPECT_EQ(shown(text), "0:<R@12:345 ａ>\n0:<R@12:345 ｂ>\n");
  EXPECT_EQ(text.lines[0].spans[0].link, 1u);
  EXPECT_EQ(text.lines[1].spans[0].link, 1u);
}

TEST(BookTextTest, HalfAReferenceLeadsNowhere) {
  EXPECT_EQ(decoded(Text().word(0x1F42).word(0x0100).chars("dog")), "0:<ｄｏｇ>\n");
  EXPECT_EQ(decoded(Text().chars("dog").word(0x1F62).address(12, 345).chars("s")), "0:<ｄｏｇ><ｓ>\n");
  EXPECT_EQ(decoded(Text().word(0x1F42).word(0x0100).chars("dog").word(0x1F62).address(0, 0)),
            "0:<ｄｏｇ>\n");
}

TEST(BookTextTest, Menus) {
  EXPECT_EQ(decoded(Text().begin().word(0x1F43).chars("M").word(0x1F63).address(1, 2).feed().end()),
            "0:<I@1:2 Ｍ>\n");
}

TEST(BookTextTest, PicturesAndTheLikeTellWhereTheirTagsStand) {
  const std::string media =
      test::smallMonoTag() + test::smallColorTag() + test::smallSoundTag(0) + test::smallFilmTag();
  // The first at 7:2040, with 20 bytes; the second at 8:12, with 22; the third at 8:34, with 22.
  EXPECT_EQ(decoded(Text().raw(media)), "0:<P@7:2040 ><P@8:12 ><S@8:34 ><F@8:56 >\n");
}

TEST(BookTextTest, NamesOfPictures) {
  const Text mono = Text().word(0x1F44).raw(std::string(10, '\0')).chars("図").word(0x1F64).address(1, 0);
  EXPECT_EQ(decoded(mono), "0:<P@7:2040 図>\n");
  const Text sound = Text()
                         .word(0x1F4A)
                         .word(0x0101)
                         .raw(std::string(14, '\0'))
                         .word(0x2121)
                         .word(0x1F04)
                         .chars("wren")
                         .word(0x1F05)
                         .word(0x1F6A);
  EXPECT_EQ(decoded(sound), "0:<S@7:2040 wren>\n");
  const Text film = Text().word(0x1F39).raw(std::string(44, '\0')).chars("空").word(0x1F59).chars("a");
  EXPECT_EQ(decoded(film), "0:<F@7:2040 空><ａ>\n");
}

TEST(BookTextTest, APictureThatIsntClosedTakesNoTextAway) {
  EXPECT_EQ(decoded(Text().word(0x1F44).raw(std::string(10, '\0')).chars("ab")), "0:<P@7:2040 ><ａｂ>\n");
}

TEST(BookTextTest, DigitsOfUnicode) {
  EXPECT_EQ(decoded(Text().word(0x1F0B).chars("4E00").word(0x1F0C).chars("a")), "0:<一ａ>\n");
  EXPECT_EQ(decoded(Text().word(0x1F0B).chars("20000").word(0x1F0C)), "0:<𠀀>\n");
  EXPECT_EQ(decoded(Text().word(0x1F0B).chars("001B").word(0x1F0C)), "0:<〓>\n");
  EXPECT_EQ(decoded(Text().word(0x1F0B).chars("D800").word(0x1F0C)), "0:<〓>\n");
}

TEST(BookTextTest, ArgumentsOfTagsAreNoText) {
  for (const auto& [tag, arguments] : {std::pair<uint32_t, size_t>{0x1F1A, 2},
                                       {0x1F36, 12},
                                       {0x1F37, 10},
                                       {0x1F3A, 2},
                                       {0x1F48, 10},
                                       {0x1F49, 10},
                                       {0x1F4B, 6},
                                       {0x1F4C, 2},
                                       {0x1FE0, 2},
                                       {0x1FE2, 2},
                                       {0x1FE4, 2},
                                       {0x1FE6, 2}}) {
    EXPECT_EQ(decoded(Text().word(tag).raw(std::string(arguments, '\x24')).chars("a")), "0:<ａ>\n") << tag;
  }
  EXPECT_EQ(decoded(Text().word(0x1F4E).word(0x0101).raw(std::string(38, '\x24')).chars("a")), "0:<ａ>\n");
  EXPECT_EQ(decoded(Text().word(0x1F4F).raw(std::string(34, '\x24')).chars("a")), "0:<ａ>\n");
}

TEST(BookTextTest, BlanksAndBlankLinesAtTheEndsAreLeftOut) {
  EXPECT_EQ(decoded(Text().feed().chars("a").word(0x2121).feed().feed().word(0x2121).feed()), "0:<ａ>\n");
  EXPECT_EQ(decoded(Text().chars("a").feed().feed().chars("b")), "0:<ａ>\n0:\n0:<ｂ>\n");
  EXPECT_EQ(decoded(Text()), "");
}

TEST(BookTextTest, ATextMayBeCutAnywhere) {
  const std::string whole = Text()
                                .begin()
                                .entry("dog", "犬")
                                .word(0x1F42)
                                .word(0x0100)
                                .chars("a")
                                .word(0x1F62)
                                .address(1, 2)
                                .raw(test::smallMonoTag())
                                .raw(test::smallFilmTag())
                                .word(0x1F0B)
                                .chars("4E00")
                                .word(0x1F0C)
                                .bytes();
  const BookCharacters none;
  for (size_t length = 0; length <= whole.size(); ++length) {
    const BookText text = decodeText(std::string(whole, 0, length), none, {1, 0});
    EXPECT_LE(text.lines.size(), 3u) << length;
  }
}

TEST(BookTextTest, OneLineAndPlainText) {
  const BookCharacters none;
  EXPECT_EQ(
      oneLine(decodeText(Text().chars("犬").raw(test::smallMonoTag()).feed().chars("猫").bytes(), none, {})),
      "犬 猫");
  EXPECT_EQ(plainText(Text().word(0x2121).word(0x1F04).chars("a b").word(0x1F05).word(0x2121).bytes(), none),
            "a b");
}

}  // namespace
}  // namespace zavel::host
