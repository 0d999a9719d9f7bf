// The text of entries, byte by byte.
#include "mkbook/BodyWriter.h"

#include <gtest/gtest.h>

#include "mkbook/MediaWriter.h"
#include "support/BookWriter.h"

namespace zavel::mkbook {
namespace {

using test::be16;
using test::jis;
using Kind = Span::Kind;

std::string half(std::string_view ascii) {
  return be16(0x1F04) + jis(ascii) + be16(0x1F05);
}
std::string indent(unsigned depth) {
  return be16(0x1F09) + test::bcd(depth, 2);
}
const std::string kKeyword = be16(0x1F41) + be16(0x0100), kKeywordEnd = be16(0x1F61), kFeed = be16(0x1F0A);

class Writer : public testing::Test {
 protected:
  std::string write(const BookEntry& entry) { return BodyWriter(characters_, resolver_).entry(entry); }

  Unifont font_{"00E9:" + std::string(32, '3') + "\n9830:" + std::string(64, '5') + "\n"};
  CustomCharacters characters_{font_};
  BodyWriter::Resolver resolver_ = [](const Span& span) -> std::optional<_SDICADDRESS> {
    if (span.target == "dog" || span.entry == 7) return _SDICADDRESS{12345, 2046};
    return std::nullopt;
  };
};

TEST_F(Writer, BeginsWithTheKeyword) {
  EXPECT_EQ(write({"犬", {}, {}, {{2, {{Kind::kPlain, "いぬ", ""}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(2) + jis("いぬ") + kFeed);
}

TEST_F(Writer, PutsTheNoteBehindTheKeyword) {
  EXPECT_EQ(write({"犬", {{Kind::kPlain, "名", ""}}, {}, {}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + jis("名") + kFeed);
}

TEST_F(Writer, TurnsHalfWidthOnForAscii) {
  EXPECT_EQ(write({"dog 犬", {}, {}, {}}),
            indent(1) + kKeyword + half("dog ") + jis("犬") + kKeywordEnd + kFeed);
  EXPECT_EQ(write({"犬", {}, {}, {{1, {{Kind::kPlain, "a", ""}, {Kind::kPlain, "b", ""}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(1) + half("ab") + kFeed);
}

TEST_F(Writer, WritesCustomCharactersInTheirWidth) {
  EXPECT_EQ(write({"é頰", {}, {}, {}}), indent(1) + kKeyword + be16(0x1F04) + be16(0xA121) + be16(0x1F05) +
                                            be16(0xA121) + kKeywordEnd + kFeed);
}

TEST_F(Writer, EmphasisesInFullWidth) {
  EXPECT_EQ(write({"犬", {}, {}, {{2, {{Kind::kEmphasis, "n", ""}, {Kind::kPlain, "a", ""}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(2) + be16(0x1F12) + half("n") +
                be16(0x1F13) + half("a") + kFeed);
}

TEST_F(Writer, LeadsReferencesToAddresses) {
  const std::string address = std::string("\0\1\x23\x45\x20\x46", 6);
  EXPECT_EQ(write({"犬", {}, {}, {{2, {{Kind::kReference, "いぬ", "dog"}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(2) + be16(0x1F42) + be16(0x0100) +
                jis("いぬ") + be16(0x1F62) + address + kFeed);
}

TEST_F(Writer, WritesReferencesToNowhereAsText) {
  EXPECT_EQ(write({"犬", {}, {}, {{2, {{Kind::kReference, "ねこ", "cat"}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(2) + jis("ねこ") + kFeed);
}

// A reader takes an entry of one character for a part of the next one.
TEST_F(Writer, FillsUpShortEntries) {
  EXPECT_EQ(write({"犬", {}, {}, {}}), indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + be16(0x2121));
  EXPECT_EQ(write({"", {}, {}, {}}),
            indent(1) + kKeyword + kKeywordEnd + kFeed + be16(0x2121) + be16(0x2121));
}

TEST_F(Writer, WritesWhatIsNoTextAsGeta) {
  EXPECT_EQ(write({"犬\xFF", {}, {}, {}}), indent(1) + kKeyword + jis("犬〓") + kKeywordEnd + kFeed);
}

TEST_F(Writer, BoundsIndents) {
  EXPECT_EQ(write({"犬", {}, {}, {{12345, {{Kind::kPlain, "ア", ""}}}}}),
            indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(9999) + jis("ア") + kFeed);
}

// The line behind the headword 犬, for what is in it.
std::string bodyOf(const std::string& written) {
  const std::string head = indent(1) + kKeyword + jis("犬") + kKeywordEnd + kFeed + indent(2);
  EXPECT_TRUE(written.starts_with(head) && written.ends_with(kFeed));
  return written.substr(head.size(), written.size() - head.size() - kFeed.size());
}

TEST_F(Writer, RaisesAndLowers) {
  EXPECT_EQ(
      bodyOf(write({"犬", {}, {}, {{2, {{Kind::kSubscript, "２", ""}, {Kind::kSuperscript, "2", ""}}}}})),
      be16(0x1F06) + jis("２") + be16(0x1F07) + be16(0x1F0E) + half("2") + be16(0x1F0F));
}

// An argument of 0100 would begin the next entry.
TEST_F(Writer, MarksKeywordsWithinTheText) {
  EXPECT_EQ(bodyOf(write({"犬", {}, {}, {{2, {{Kind::kKeyword, "柴", ""}}}}})),
            be16(0x1F41) + be16(0x0200) + jis("柴") + be16(0x1F61));
}

TEST_F(Writer, PutsPartsInsideOthers) {
  const Span raised{Kind::kSuperscript, "上", ""};
  const Span strong{Kind::kEmphasis, "a", "", {raised, {Kind::kPlain, "下", ""}}};
  EXPECT_EQ(bodyOf(write({"犬", {}, {}, {{2, {strong}}}})),
            be16(0x1F12) + half("a") + be16(0x1F0E) + jis("上") + be16(0x1F0F) + jis("下") + be16(0x1F13));
}

TEST_F(Writer, LeadsToEntriesByTheirNumber) {
  Span span{Kind::kReference, "いぬ", ""};
  span.entry = 7;
  EXPECT_EQ(
      bodyOf(write({"犬", {}, {}, {{2, {span}}}})),
      be16(0x1F42) + be16(0x0100) + jis("いぬ") + be16(0x1F62) + std::string("\0\1\x23\x45\x20\x46", 6));
}

TEST_F(Writer, WritesMenusWithItems) {
  const std::string address = std::string("\0\1\x23\x45\x20\x46", 6);
  const std::vector<Line> lines = {{1, {{Kind::kPlain, "表", ""}}},
                                   {2, {{Kind::kReference, "犬", "dog"}, {Kind::kReference, "猫", "cat"}}},
                                   {2, {{Kind::kMenu, "次", "dog"}}}};
  EXPECT_EQ(BodyWriter(characters_, resolver_).menu(lines),
            indent(1) + jis("表") + kFeed + indent(2) + be16(0x1F43) + jis("犬") + be16(0x1F63) + address +
                jis("猫") + kFeed + indent(2) + be16(0x1F43) + jis("次") + be16(0x1F63) + address + kFeed);
}

TEST_F(Writer, ComposesLettersAndTheirMarks) {
  EXPECT_EQ(write({"e\u0301か\u3099", {}, {}, {}}), write({"éが", {}, {}, {}}));
}

TEST_F(Writer, PutsTagsAroundCaptions) {
  const MediaWriter media({{MediumShape::Kind::kMonoPicture, 9, 2, 72, 0, 4},
                           {MediumShape::Kind::kColorPicture, 9, 2, 72, 0, 4},
                           {MediumShape::Kind::kSound, 0, 0, 72, 0x0112, 4}});
  const auto written = [&](Kind kind, size_t number) {
    Span span{kind, "図", ""};
    span.medium = number;
    return bodyOf(BodyWriter(characters_, resolver_, &media).entry({"犬", {}, {}, {{2, {span}}}}));
  };
  EXPECT_EQ(written(Kind::kPicture, 0), media.opening(0) + jis("図") + media.closing(0));
  EXPECT_EQ(written(Kind::kPicture, 1), media.opening(1) + jis("図") + media.closing(1));
  EXPECT_EQ(written(Kind::kSound, 2), media.opening(2) + jis("図") + media.closing(2));
}

}  // namespace
}  // namespace zavel::mkbook
