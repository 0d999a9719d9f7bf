#include "ui/TabView.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "ui/Button.h"
#include "ui/Changes.h"
#include "ui/SplitView.h"

namespace zavel {
namespace {

using test::Changes;

class ATabView : public ::testing::Test {
 protected:
  ATabView() {
    tabs.addItem("sTab", dictionary);
    tabs.addItem("tTab", translation);
  }
  TabView tabs;
  View dictionary, translation;
};

TEST_F(ATabView, SelectsTheFirstItemToBeginWith) {
  EXPECT_EQ(tabs.selectedIdentifier(), "sTab");
  ASSERT_EQ(tabs.items().size(), 2u);
  EXPECT_EQ(tabs.items()[1].identifier, "tTab");
  EXPECT_EQ(tabs.items()[1].view, &translation);
  EXPECT_EQ(translation.parent(), &tabs);
}

TEST_F(ATabView, SelectsByIdentifier) {
  Changes changes(tabs);
  EXPECT_TRUE(tabs.selectItem("tTab"));
  EXPECT_TRUE(tabs.selectItem("tTab"));
  EXPECT_EQ(tabs.selectedIdentifier(), "tTab");
  EXPECT_EQ(changes.n, 1);
  EXPECT_FALSE(tabs.selectItem("zTab"));
  EXPECT_EQ(tabs.selectedIdentifier(), "tTab");
  EXPECT_EQ(changes.n, 1);
}

TEST_F(ATabView, OnlyTheSelectedTabTakesEvents) {
  Button button;
  translation.addChild(button);
  EXPECT_FALSE(button.click());
  EXPECT_FALSE(button.hidden());
  tabs.selectItem("tTab");
  EXPECT_TRUE(button.click());
  EXPECT_FALSE(dictionary.shown());
}

TEST_F(ATabView, RefusesAnIdentifierOrAViewASecondTime) {
  View other;
  EXPECT_FALSE(tabs.addItem("sTab", other));
  EXPECT_FALSE(tabs.addItem("zTab", dictionary));
  EXPECT_EQ(tabs.items().size(), 2u);
  EXPECT_EQ(other.parent(), nullptr);
}

TEST_F(ATabView, AnItemGoesWithItsView) {
  auto third = std::make_unique<View>();
  tabs.addItem("wTab", *third);
  tabs.selectItem("wTab");
  third.reset();
  EXPECT_EQ(tabs.items().size(), 2u);
  EXPECT_EQ(tabs.selectedIdentifier(), "sTab");
  EXPECT_FALSE(tabs.selectItem("wTab"));
  tabs.removeChild(translation);
  EXPECT_EQ(tabs.selectedIdentifier(), "sTab");
  tabs.removeChild(dictionary);
  EXPECT_EQ(tabs.selectedIdentifier(), "");
  EXPECT_TRUE(dictionary.shown());
}

TEST(TabView, IsEmptyToBeginWith) {
  TabView tabs;
  EXPECT_EQ(tabs.selectedIdentifier(), "");
  EXPECT_FALSE(tabs.selectItem(""));
}

TEST(SplitView, HoldsItsDivider) {
  SplitView split;
  Changes changes(split);
  EXPECT_EQ(split.dividerPosition(), 0.5);
  EXPECT_FALSE(split.sideBySide());
  split.setDividerPosition(0.25);
  split.setSideBySide(true);
  EXPECT_EQ(split.dividerPosition(), 0.25);
  EXPECT_TRUE(split.sideBySide());
  EXPECT_EQ(changes.n, 2);
}

TEST(SplitView, KeepsItsDividerInside) {
  SplitView split;
  split.setDividerPosition(1.5);
  EXPECT_EQ(split.dividerPosition(), 1.0);
  split.setDividerPosition(-1);
  EXPECT_EQ(split.dividerPosition(), 0.0);
  split.setDividerPosition(0.5);
  split.setDividerPosition(std::nan(""));
  EXPECT_EQ(split.dividerPosition(), 0.0);
}

}  // namespace
}  // namespace zavel
