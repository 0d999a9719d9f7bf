#include "ui/Menu.h"

#include <gtest/gtest.h>

#include <memory>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Count;

MenuItem item(const std::string& title, int tag) {
  MenuItem made;
  made.title = title;
  made.tag = tag;
  made.action = [](const MenuItem&) {};
  return made;
}

// A heading, two choices, a separator, another choice.
class AMenu : public ::testing::Test {
 protected:
  AMenu() : menu("dMenu") {
    MenuItem heading;
    heading.title = "StandardDictionary";
    menu.addItem(heading);
    menu.addItem(item("DisplayAll", 1));
    menu.addItem(item("DisplayPhrase", 2));
    menu.addItem(MenuItem::separatorItem());
    menu.addItem(item("ForwardSearch", 11));
  }
  Menu menu;
};

TEST_F(AMenu, KeepsItsItemsInOrder) {
  EXPECT_EQ(menu.title(), "dMenu");
  ASSERT_EQ(menu.count(), 5u);
  EXPECT_EQ(menu.items()[1].title, "DisplayAll");
  EXPECT_TRUE(menu.items()[3].separator);
  EXPECT_EQ(menu.items()[4].tag, 11);
}

TEST_F(AMenu, FindsItemsByTagButNoSeparator) {
  EXPECT_EQ(menu.indexOfTag(2), 2);
  EXPECT_EQ(menu.indexOfTag(0), 0);  // the heading, ahead of the separator
  EXPECT_EQ(menu.indexOfTag(7), -1);
  EXPECT_EQ(menu.itemWithTag(11)->title, "ForwardSearch");
  EXPECT_EQ(menu.itemWithTag(7), nullptr);
  menu.removeItem(0);
  EXPECT_EQ(menu.indexOfTag(0), -1);
}

TEST_F(AMenu, TellsOfEachRealChange) {
  Count changes(menu.changed);
  menu.setChecked(1, true);
  menu.setEnabled(2, false);
  menu.setTitle(1, "All");
  EXPECT_EQ(changes.n, 3);
  menu.setChecked(1, true);
  menu.setEnabled(2, false);
  menu.setTitle(1, "All");
  EXPECT_EQ(changes.n, 3);
  menu.addItem(item("x", 9));
  menu.removeItem(5);
  menu.removeAllItems();
  menu.removeAllItems();
  EXPECT_EQ(changes.n, 6);
}

TEST_F(AMenu, PassesOverIndexesBeyondTheList) {
  Count changes(menu.changed);
  menu.setChecked(5, true);
  menu.setEnabled(5, false);
  menu.setTitle(5, "x");
  menu.removeItem(5);
  EXPECT_FALSE(menu.choose(5));
  EXPECT_EQ(changes.n, 0);
  EXPECT_EQ(menu.count(), 5u);
}

TEST_F(AMenu, ChecksOneTagAloneAndTellsOnce) {
  menu.setChecked(1, true);
  menu.setChecked(4, true);
  Count changes(menu.changed);
  menu.checkOnly(2);
  EXPECT_EQ(changes.n, 1);
  EXPECT_FALSE(menu.items()[1].checked);
  EXPECT_TRUE(menu.items()[2].checked);
  EXPECT_FALSE(menu.items()[4].checked);
  menu.checkOnly(2);
  EXPECT_EQ(changes.n, 1);
  menu.checkOnly(0);
  EXPECT_TRUE(menu.items()[0].checked);
  EXPECT_FALSE(menu.items()[3].checked);  // a separator
}

TEST(Menu, AChosenItemRunsItsActionWithWhatRidesOnIt) {
  Menu menu;
  MenuItem site = item("Site", 4);
  std::string heard;
  site.representedText = "http://example.org/?q=TWQUERY";
  site.action = [&](const MenuItem& chosen) { heard = chosen.representedText; };
  menu.addItem(site);
  EXPECT_TRUE(menu.choose(0));
  EXPECT_EQ(heard, "http://example.org/?q=TWQUERY");
}

TEST(Menu, HeadingsSeparatorsAndDisabledItemsCannotBeChosen) {
  Menu menu;
  int runs = 0;
  MenuItem disabled = item("Off", 1);
  disabled.enabled = false;
  disabled.action = [&](const MenuItem&) { ++runs; };
  MenuItem separator = MenuItem::separatorItem();
  separator.action = disabled.action;
  menu.addItem(MenuItem());
  menu.addItem(disabled);
  menu.addItem(separator);
  EXPECT_FALSE(menu.choose(0));
  EXPECT_FALSE(menu.choose(1));
  EXPECT_FALSE(menu.choose(2));
  EXPECT_EQ(runs, 0);
}

TEST(Menu, AnActionMayRebuildOrLetGoOfTheMenu) {
  auto menu = std::make_shared<Menu>();
  std::string heard;
  MenuItem rebuild = item("Rebuild", 1);
  rebuild.action = [&](const MenuItem& chosen) {
    menu->removeAllItems();
    heard += chosen.title;
    menu.reset();
    heard += chosen.title;
  };
  menu->addItem(rebuild);
  rebuild = MenuItem();
  EXPECT_TRUE(menu->choose(0));
  EXPECT_EQ(heard, "RebuildRebuild");
}

TEST(Menu, HoldsSubmenus) {
  Menu menu;
  MenuItem alternatives = item("AltWord", 0);
  alternatives.submenu = std::make_shared<Menu>("menuAlt");
  alternatives.submenu->addItem(item("word", 3));
  menu.addItem(alternatives);
  EXPECT_EQ(menu.items()[0].submenu->items()[0].tag, 3);
}

}  // namespace
}  // namespace zavel
