#include "ui/PopUpButton.h"

#include <gtest/gtest.h>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

MenuItem sized(const std::string& title, int tag) {
  MenuItem item;
  item.title = title;
  item.tag = tag;
  return item;
}

// Font sizes, the first selected.
class APopUp : public ::testing::Test {
 protected:
  APopUp() {
    popUp.addItem(sized("9pt", 9));
    popUp.addItem(sized("10pt", 10));
    popUp.addItem(sized("12pt", 12));
    popUp.addItem(sized("14pt", 14));
  }
  int selectedTag() const { return popUp.selectedItem() ? popUp.selectedItem()->tag : -1; }
  PopUpButton popUp;
};

TEST_F(APopUp, SelectsTheFirstItemToBeginWith) {
  EXPECT_EQ(popUp.selectedIndex(), 0);
  EXPECT_EQ(selectedTag(), 9);
}

TEST(PopUpButton, SelectsNothingWithoutItems) {
  PopUpButton popUp;
  EXPECT_EQ(popUp.selectedIndex(), -1);
  EXPECT_EQ(popUp.selectedItem(), nullptr);
  EXPECT_FALSE(popUp.selectIndex(0));
  EXPECT_FALSE(popUp.choose(0));
}

TEST_F(APopUp, SelectsByTagWithoutTellingTheLogic) {
  Changes changes(popUp);
  Count chosen(popUp.chosen);
  EXPECT_TRUE(popUp.selectTag(12));
  EXPECT_TRUE(popUp.selectTag(12));
  EXPECT_EQ(popUp.selectedIndex(), 2);
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(chosen.n, 0);
}

TEST_F(APopUp, AnUnknownTagChangesNothing) {
  popUp.selectTag(12);
  Changes changes(popUp);
  EXPECT_FALSE(popUp.selectTag(11));
  EXPECT_FALSE(popUp.selectIndex(4));
  EXPECT_EQ(selectedTag(), 12);
  EXPECT_EQ(changes.n, 0);
}

TEST_F(APopUp, TheSelectedItemStaysWhenAnotherGoes) {
  popUp.selectTag(12);
  popUp.removeItem(0);
  EXPECT_EQ(popUp.selectedIndex(), 1);
  EXPECT_EQ(selectedTag(), 12);
  popUp.removeItem(2);
  EXPECT_EQ(selectedTag(), 12);
  popUp.removeItem(7);
  EXPECT_EQ(popUp.items().size(), 2u);
}

TEST_F(APopUp, TheFirstItemIsSelectedWhenTheSelectedOneGoes) {
  popUp.selectTag(12);
  popUp.removeItem(2);
  EXPECT_EQ(selectedTag(), 9);
  popUp.removeAllItems();
  EXPECT_EQ(popUp.selectedIndex(), -1);
  popUp.addItem(sized("18pt", 18));
  popUp.removeItem(0);
  EXPECT_EQ(popUp.selectedIndex(), -1);
}

TEST_F(APopUp, AChosenItemIsSelectedWhenTheLogicHearsOfIt) {
  int heard = 0;
  const Connection c = popUp.chosen.connect([&] { heard = selectedTag(); });
  EXPECT_TRUE(popUp.choose(3));
  EXPECT_EQ(heard, 14);
}

TEST_F(APopUp, SeparatorsDisabledItemsAndTheDisabledButtonCannotBeChosen) {
  popUp.addItem(MenuItem::separatorItem());
  MenuItem off = sized("off", 0);
  off.enabled = false;
  popUp.addItem(off);
  Count chosen(popUp.chosen);
  EXPECT_FALSE(popUp.choose(4));
  EXPECT_FALSE(popUp.choose(5));
  EXPECT_FALSE(popUp.choose(6));
  popUp.setEnabled(false);
  EXPECT_FALSE(popUp.choose(1));
  EXPECT_EQ(popUp.selectedIndex(), 0);
  EXPECT_EQ(chosen.n, 0);
  EXPECT_TRUE(popUp.selectTag(0));  // the item, not the separator ahead of it
  EXPECT_EQ(popUp.selectedIndex(), 5);
}

}  // namespace
}  // namespace zavel
