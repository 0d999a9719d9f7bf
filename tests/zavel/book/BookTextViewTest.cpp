#include "book/BookTextView.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"
#include "support/SmallBook.h"

namespace zavel::host {
namespace {

using test::Text;

BookText text(const Text& words) {
  static const BookCharacters kNone;
  return decodeText(words.bytes(), kNone, {7, 0});
}

Text reference(std::string_view word, uint32_t block) {
  return Text().word(0x1F42).word(0x0100).word(0x1F04).chars(word).word(0x1F05).word(0x1F62).address(block,
                                                                                                     0);
}

std::string behind(const Text& words) {
  return textForEye(text(words), {.places = LinkPlaces::kBehind});
}

TEST(BookTextViewTest, LinesWithTheirIndents) {
  EXPECT_EQ(behind(Text().chars("犬").feed().indent(4).chars("猫")), "犬\n   猫\n");
  EXPECT_EQ(behind(Text().chars("a").feed().feed().indent(4).chars("b")), "ａ\n\n   ｂ\n");
  EXPECT_EQ(behind(Text().indent(9999).chars("a")), std::string(40, ' ') + "ａ\n");
}

TEST(BookTextViewTest, SmallDigitsAndOtherSmallText) {
  const auto small = [](uint32_t on, const char* chars) {
    return behind(Text().word(0x1F04).chars("x").word(on).chars(chars).word(on + 1));
  };
  EXPECT_EQ(small(0x1F0E, "2"), "x²\n");
  EXPECT_EQ(small(0x1F06, "10"), "x₁₀\n");
  EXPECT_EQ(small(0x1F0E, "th"), "x^(th)\n");
  EXPECT_EQ(small(0x1F06, "a"), "x_a\n");
}

TEST(BookTextViewTest, ReferencesBehindBelowOrNot) {
  const Text words =
      Text().raw(reference("dog", 12).bytes()).word(0x1F04).chars(", ").raw(reference("cat", 13).bytes());
  EXPECT_EQ(textForEye(text(words), {.places = LinkPlaces::kBehind}), "dog→12:0, cat→13:0\n");
  EXPECT_EQ(textForEye(text(words), {.places = LinkPlaces::kNone}), "dog, cat\n");
  EXPECT_EQ(textForEye(text(words), {}), "dog, cat\nReferences: dog 12:0, cat 13:0\n");
}

TEST(BookTextViewTest, BelowEachPlaceStandsOnceAndTheTextsOwnNot) {
  const Text words = Text()
                         .raw(reference("dog", 12).bytes())
                         .raw(reference("hound", 12).bytes())
                         .raw(reference("self", 9).bytes());
  EXPECT_EQ(textForEye(text(words), {.self = {9, 0}}), "doghoundself\nReferences: dog 12:0\n");
}

TEST(BookTextViewTest, AReferenceBrokenAtALineIsWhole) {
  const Text words =
      Text().raw(reference("hot", 12).bytes()).feed().indent(3).raw(reference("dog", 12).bytes());
  EXPECT_EQ(textForEye(text(words), {}), "hot\n  dog\nReferences: hot dog 12:0\n");
}

TEST(BookTextViewTest, PicturesTellWhatTheirCommandsNeed) {
  EXPECT_EQ(behind(Text().raw(test::smallMonoTag())), "[picture 7:0]\n");
  EXPECT_EQ(behind(Text().word(0x1F44).raw(std::string(10, '\0')).chars("図").word(0x1F64).address(1, 0)),
            "[picture 7:0 図]\n");
  EXPECT_EQ(behind(Text().raw(test::smallSoundTag(0))), "[sound 7:0]\n");
  EXPECT_EQ(behind(Text().raw(test::smallFilmTag())), "[film 7:0]\n");
}

TEST(BookTextViewTest, LinesAreWrappedInsideTheirIndent) {
  const Text words = Text().indent(3).word(0x1F04).chars("one two three four five");
  EXPECT_EQ(textForEye(text(words), {.width = 24}), "  one two three four\n  five\n");
}

TEST(BookTextViewTest, PlacesOfReferencesStayWithTheirWords) {
  const Text words = Text()
                         .raw(reference("alpha", 11).bytes())
                         .raw(reference("beta", 12).bytes())
                         .raw(reference("gamma", 13).bytes());
  EXPECT_EQ(textForEye(text(words), {.width = 26}),
            "alphabetagamma\nReferences: alpha 11:0,\n  beta 12:0, gamma 13:0\n");
}

TEST(BookTextViewTest, Colours) {
  const Text words = Text()
                         .word(0x1F41)
                         .word(0x0100)
                         .chars("犬")
                         .word(0x1F61)
                         .chars("猫")
                         .word(0x1F12)
                         .chars("鳥")
                         .word(0x1F13)
                         .raw(reference("x", 12).bytes());
  EXPECT_EQ(textForEye(text(words), {.colour = true, .places = LinkPlaces::kBehind}),
            "\x1b[1;31m犬\x1b[0m猫\x1b[1m鳥\x1b[0m\x1b[4mx\x1b[0m\x1b[2m→12:0\x1b[0m\n");
}

TEST(BookTextViewTest, AsJson) {
  JsonWriter json;
  writeLines(json, text(Text()
                            .word(0x1F41)
                            .word(0x0100)
                            .chars("犬")
                            .word(0x1F61)
                            .feed()
                            .indent(2)
                            .raw(reference("x", 12).bytes())
                            .raw(test::smallSoundTag(0))));
  EXPECT_EQ(json.text(),
            R"([{"indent":0,"spans":[{"type":"text","text":"犬","styles":["keyword"],"place":null}]},)"
            R"({"indent":1,"spans":[{"type":"reference","text":"x","styles":[],"place":"12:0"},)"
            R"({"type":"sound","text":"","styles":[],"place":"7:32"}]}])");
}

}  // namespace
}  // namespace zavel::host
