// Fields of entry texts.
#include "engine/EntryFields.h"

#include <gtest/gtest.h>

#include "engine/DicFormat.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;
using Fields = std::vector<std::pair<uint16_t, std::string>>;

Fields AllOf(const std::string& text) {
  EntryFields fields(text);
  EntryField field;
  Fields all;
  while (fields.next(&field)) all.emplace_back(field.tag, field.text);
  EXPECT_FALSE(fields.next(&field)) << "the end stays the end";
  return all;
}

TEST(EntryFields, EndAtLineFeedsAndTags) {
  EXPECT_EQ(AllOf("\xF5\xD1"
                  "cat\nnobody's\n\xF5\xD5"
                  "a\xF5\xD8 b\n"),
            (Fields{{kTagEntry, "cat"}, {kTagYourei, "a"}, {kTagOtherSide, " b"}}));
  EXPECT_EQ(AllOf("\xF5\xD1\xF5\xD4"), (Fields{{kTagEntry, ""}, {kTagImi, ""}}));
  EXPECT_EQ(AllOf(""), Fields{});
  EXPECT_EQ(AllOf("text alone\n"), Fields{});
}

TEST(EntryFields, TagsOfTypeBelongToNone) {
  EXPECT_EQ(AllOf("\xF5\xB1x\xF5\xC1\n\xF5\xD1\xF5\xB1"
                  "cat\xF5\xC1s\n"),
            (Fields{{kTagEntry, "cats"}}));
}

TEST(EntryFields, PairsThatAreNoTagAreText) {
  EXPECT_EQ(AllOf("\xF5\xD4\xF5\xA0x"), (Fields{{kTagImi, "\xF5\xA0x"}}));
}

// 員 is 88 F5, 縺 E3 8E: F5 E3 stands across the two.
TEST(EntryFields, SecondBytesOpenNoTag) {
  EXPECT_EQ(AllOf("\xF5\xD4" + sjis("員縺")), (Fields{{kTagImi, sjis("員縺")}}));
  EXPECT_EQ(AllOf(sjis("員縺") + "\n\xF5\xD4x"), (Fields{{kTagImi, "x"}})) << "nor where no field is open";
}

TEST(EntryFields, HalfACharacterOrTagAtTheEndIsText) {
  EXPECT_EQ(AllOf("\xF5\xD4x\x82"), (Fields{{kTagImi, "x\x82"}}));
  EXPECT_EQ(AllOf("\xF5\xD4x\xF5"), (Fields{{kTagImi, "x\xF5"}}));
  EXPECT_EQ(AllOf("\xF5"), Fields{});
  EXPECT_EQ(AllOf("\xF5\xD4\x82\n\xF5\xD5y"), (Fields{{kTagImi, "\x82"}, {kTagYourei, "y"}}))
      << "a line feed is no second byte";
}

TEST(FindSeparator, LooksAtWholeCharacters) {
  EXPECT_EQ(FindSeparator(sjis("ねこ") + "\x1B" + sjis("猫")), 4u);
  EXPECT_EQ(FindSeparator("\x1B"), 0u);
  EXPECT_EQ(FindSeparator(sjis("ねこ")), std::string_view::npos);
  EXPECT_EQ(FindSeparator(""), std::string_view::npos);
}

}  // namespace
}  // namespace zavel::engine
