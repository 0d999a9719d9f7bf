// The text of entries, byte by byte.
#include "mkbook/BodyWriter.h"

#include <gtest/gtest.h>

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
  BodyWriter::Resolver resolver_ = [](const std::string& word) -> std::optional<_SDICADDRESS> {
    if (word == "dog") return _SDICADDRESS{12345, 2046};
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

}  // namespace
}  // namespace zavel::mkbook
