// Menus: their bytes and places.
#include "mkbook/MenuWriter.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"

namespace zavel::mkbook {
namespace {

using test::be16;
using test::jis;
using Kind = Span::Kind;

class Menus : public testing::Test {
 protected:
  static Line line(const std::string& text, const std::string& menu) {
    return {1, {{Kind::kPlain, text, ""}, {Kind::kMenu, "行", menu}}};
  }

  Unifont font_{""};
  CustomCharacters characters_{font_};
  std::vector<Menu> menus_ = {{"one", false, {line("一", "two")}},
                              {"plan", true, {line("図", "plan")}},
                              {"two", false, {line("二", "one")}}};
  MenuWriter plain_{menus_, false}, pictures_{menus_, true};
  BodyWriter::Resolver resolver_ = [this](const Span& span) {
    const auto found = plain_.addressOf(span.target);
    return found ? found : pictures_.addressOf(span.target);
  };
  BodyWriter writer_{characters_, resolver_};
};

std::string item(const std::string& text, uint32_t block, uint32_t offset) {
  return be16(0x1F09) + test::bcd(1, 2) + jis(text) + be16(0x1F43) + jis("行") + be16(0x1F63) +
         test::bcd(block, 4) + test::bcd(offset, 2) + be16(0x1F0A);
}

// A line has 4 + 2 + 2 + 2 + 8 + 2 bytes, and each text an end of 2.
TEST_F(Menus, StandOneBehindTheOther) {
  EXPECT_EQ(plain_.place(7, writer_), 8u);
  EXPECT_EQ(plain_.bytes(writer_),
            item("一", 7, 24) + be16(0x1F03) + be16(0x1F02) + item("二", 7, 0) + be16(0x1F03));
}

TEST_F(Menus, WithPicturesBeginWithAFrame) {
  EXPECT_EQ(pictures_.place(9, writer_), 10u);
  EXPECT_EQ(pictures_.bytes(writer_), be16(0x1F4C) + be16(0) + item("図", 9, 0) + be16(0x1F03));
}

TEST_F(Menus, TakeNoBlockWhereThereAreNone) {
  MenuWriter none({}, false);
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(none.place(3, writer_), 3u);
  EXPECT_FALSE(none.addressOf("one").has_value());
}

TEST_F(Menus, GoOnInLaterBlocks) {
  menus_[0].lines.assign(100, line("一", "two"));  // 100 times 20 bytes, 2, 2
  MenuWriter many({menus_[0], menus_[2], menus_[2]}, false);
  EXPECT_EQ(many.place(7, writer_), 9u);
  EXPECT_EQ(many.addressOf("two")->block, 7u);
  EXPECT_EQ(many.addressOf("two")->offset, 2004u);
  menus_[0].lines.resize(103, line("一", "two"));
  MenuWriter more({menus_[0], menus_[2]}, false);
  more.place(7, writer_);
  EXPECT_EQ(more.addressOf("two")->block, 8u);
  EXPECT_EQ(more.addressOf("two")->offset, 16u);
}

}  // namespace
}  // namespace zavel::mkbook
