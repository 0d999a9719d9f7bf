#include "ui/Button.h"

#include <gtest/gtest.h>

#include <memory>

#include "ui/Changes.h"
#include "ui/Checkbox.h"
#include "ui/ColorWell.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

TEST(Button, TellsOfEachRealChange) {
  Button button;
  Changes changes(button);
  EXPECT_TRUE(button.enabled());
  button.setTitle("DictList");
  button.setImageName("ZDList");
  button.setTag(3);
  button.setState(true);
  button.setEnabled(false);
  EXPECT_EQ(changes.n, 5);
  button.setTitle("DictList");
  button.setImageName("ZDList");
  button.setTag(3);
  button.setState(true);
  button.setEnabled(false);
  EXPECT_EQ(changes.n, 5);
  EXPECT_EQ(button.title(), "DictList");
  EXPECT_EQ(button.imageName(), "ZDList");
  EXPECT_EQ(button.tag(), 3);
  EXPECT_TRUE(button.state());
}

TEST(Button, AClickIsForTheLogicAndChangesNothing) {
  Button button;
  Changes changes(button);
  Count clicks(button.clicked);
  EXPECT_TRUE(button.click());
  EXPECT_EQ(clicks.n, 1);
  EXPECT_EQ(changes.n, 0);
  EXPECT_FALSE(button.state());
}

TEST(Button, TakesNoClickWhileDisabledOrNotShown) {
  View root;
  Button button;
  root.addChild(button);
  Count clicks(button.clicked);
  button.setEnabled(false);
  EXPECT_FALSE(button.click());
  button.setEnabled(true);
  button.setHidden(true);
  EXPECT_FALSE(button.click());
  button.setHidden(false);
  root.setHidden(true);
  EXPECT_FALSE(button.click());
  EXPECT_EQ(clicks.n, 0);
  root.setHidden(false);
  EXPECT_TRUE(button.click());
  EXPECT_EQ(clicks.n, 1);
}

TEST(Button, AClickMayDestroyTheButton) {
  auto button = std::make_unique<Button>();
  const Connection c = button->clicked.connect([&] { button.reset(); });
  EXPECT_TRUE(button->click());
  EXPECT_EQ(button, nullptr);
}

TEST(Checkbox, AClickTurnsTheStateOverAheadOfTheSignal) {
  Checkbox box;
  std::string states;
  const Connection c = box.clicked.connect([&] { states += box.state() ? '1' : '0'; });
  Changes changes(box);
  EXPECT_TRUE(box.click());
  EXPECT_TRUE(box.click());
  EXPECT_EQ(states, "10");
  EXPECT_EQ(changes.n, 2);
}

TEST(Checkbox, IsSetWithoutAClick) {
  Checkbox box;
  Count clicks(box.clicked);
  box.setState(true);
  EXPECT_TRUE(box.state());
  EXPECT_EQ(clicks.n, 0);
}

TEST(Checkbox, StaysAsItIsWhileDisabled) {
  Checkbox box;
  box.setEnabled(false);
  EXPECT_FALSE(box.click());
  EXPECT_FALSE(box.state());
}

TEST(ColorWell, TellsOfAChosenColour) {
  ColorWell well;
  Changes changes(well);
  Count chosen(well.chosen);
  well.setColor({0.64, 0.41, 0.41, 1});
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(chosen.n, 0);
  EXPECT_TRUE(well.choose({0.64, 0.41, 0.41, 1}));
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(chosen.n, 1);
  EXPECT_TRUE(well.choose({1, 0, 0, 1}));
  EXPECT_EQ(well.color(), (Color{1, 0, 0, 1}));
  EXPECT_EQ(changes.n, 2);
  well.setEnabled(false);
  EXPECT_FALSE(well.choose({0, 0, 0, 1}));
  EXPECT_EQ(well.color(), (Color{1, 0, 0, 1}));
}

}  // namespace
}  // namespace zavel
