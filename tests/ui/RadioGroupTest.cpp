#include "ui/RadioGroup.h"

#include <gtest/gtest.h>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

class ARadioGroup : public ::testing::Test {
 protected:
  ARadioGroup() { group.setCells({{"here", 0}, {"elsewhere", 3}}); }
  RadioGroup group;
};

TEST_F(ARadioGroup, HasNoCellOnToBeginWith) {
  EXPECT_EQ(group.selectedIndex(), -1);
  EXPECT_EQ(group.selectedCell(), nullptr);
}

TEST_F(ARadioGroup, SelectsByTagWithoutTellingTheLogic) {
  Changes changes(group);
  Count chosen(group.chosen);
  EXPECT_TRUE(group.selectTag(3));
  EXPECT_TRUE(group.selectTag(3));
  EXPECT_EQ(group.selectedIndex(), 1);
  EXPECT_EQ(group.selectedCell()->title, "elsewhere");
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(chosen.n, 0);
  EXPECT_FALSE(group.selectTag(1));
  EXPECT_EQ(group.selectedIndex(), 1);
  group.deselect();
  EXPECT_EQ(group.selectedCell(), nullptr);
}

TEST_F(ARadioGroup, AChosenCellIsOnWhenTheLogicHearsOfIt) {
  int heard = -1;
  const Connection c = group.chosen.connect([&] { heard = group.selectedCell()->tag; });
  EXPECT_TRUE(group.choose(3));
  EXPECT_EQ(heard, 3);
}

TEST_F(ARadioGroup, RefusesUnknownTagsAndEventsWhileDisabled) {
  Count chosen(group.chosen);
  EXPECT_FALSE(group.choose(1));
  group.setEnabled(false);
  EXPECT_FALSE(group.choose(0));
  EXPECT_EQ(group.selectedIndex(), -1);
  EXPECT_EQ(chosen.n, 0);
}

TEST_F(ARadioGroup, NewCellsAreAllOff) {
  group.selectTag(3);
  group.setCells({{"one", 3}});
  EXPECT_EQ(group.selectedIndex(), -1);
}

}  // namespace
}  // namespace zavel
