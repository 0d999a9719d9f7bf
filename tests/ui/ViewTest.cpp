#include "ui/View.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "ui/BusyIndicator.h"
#include "ui/Changes.h"
#include "ui/ImageView.h"
#include "ui/Label.h"

namespace zavel {
namespace {

using test::Changes;

TEST(View, TellsOfEachRealChangeOnce) {
  View view(Rect{1, 2, 3, 4});
  Changes changes(view);
  EXPECT_EQ(view.frame(), (Rect{1, 2, 3, 4}));
  view.setFrame({1, 2, 3, 4});
  EXPECT_EQ(changes.n, 0);
  view.setFrame({0, 0, 3, 4});
  view.setHidden(true);
  view.setHidden(true);
  view.setTooltip("tip");
  view.setTooltip("tip");
  EXPECT_EQ(changes.n, 3);
  EXPECT_EQ(view.frame(), (Rect{0, 0, 3, 4}));
  EXPECT_TRUE(view.hidden());
  EXPECT_EQ(view.tooltip(), "tip");
}

TEST(View, TellsItsAncestorsWhichOneChanged) {
  View root, box;
  Label label;
  root.addChild(box);
  box.addChild(label);
  Changes atRoot(root), atBox(box), atLabel(label);
  label.setText("go");
  EXPECT_EQ(atLabel.n, 1);
  EXPECT_EQ(atBox.n, 1);
  EXPECT_EQ(atRoot.n, 1);
  EXPECT_EQ(atRoot.last, &label);
  box.setHidden(true);
  EXPECT_EQ(atLabel.n, 1);
  EXPECT_EQ(atRoot.last, &box);
}

TEST(View, AChangeIsDoneWhenItIsTold) {
  Label label;
  std::string seen;
  const Connection c = label.changed.connect([&](View& v) { seen = dynamic_cast<Label&>(v).text(); });
  label.setText("went");
  EXPECT_EQ(seen, "went");
}

TEST(View, KeepsChildrenInTheOrderInWhichTheyCame) {
  View root, a, b, c;
  root.addChild(a);
  root.addChild(b);
  root.addChild(c);
  EXPECT_EQ(root.children(), (std::vector<View*>{&a, &b, &c}));
  root.removeChild(b);
  EXPECT_EQ(root.children(), (std::vector<View*>{&a, &c}));
  EXPECT_EQ(b.parent(), nullptr);
  root.addChild(a);
  EXPECT_EQ(root.children(), (std::vector<View*>{&c, &a}));
}

TEST(View, TakesAChildFromTheParentThatItHad) {
  View one, other, child;
  one.addChild(child);
  Changes changes(one);
  other.addChild(child);
  EXPECT_TRUE(one.children().empty());
  EXPECT_EQ(child.parent(), &other);
  EXPECT_EQ(changes.n, 1);
}

TEST(View, RefusesItselfAndWhatIsAroundItAsAChild) {
  View root, box;
  root.addChild(box);
  box.addChild(root);
  box.addChild(box);
  EXPECT_EQ(root.parent(), nullptr);
  EXPECT_TRUE(box.children().empty());
}

TEST(View, DoesNotTakeOffAStranger) {
  View root, other, child;
  other.addChild(child);
  Changes changes(root);
  root.removeChild(child);
  EXPECT_EQ(child.parent(), &other);
  EXPECT_EQ(changes.n, 0);
}

TEST(View, AChildThatGoesLeavesItsParentWhichTells) {
  View root;
  auto child = std::make_unique<View>();
  root.addChild(*child);
  Changes changes(root);
  child.reset();
  EXPECT_TRUE(root.children().empty());
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(changes.last, &root);
}

TEST(View, AParentThatGoesLeavesItsChildrenBehind) {
  View child;
  {
    View root;
    root.addChild(child);
  }
  EXPECT_EQ(child.parent(), nullptr);
  child.setHidden(true);
}

TEST(View, IsShownUnlessItOrWhatIsAroundItIsHidden) {
  View root, box, leaf;
  root.addChild(box);
  box.addChild(leaf);
  EXPECT_TRUE(leaf.shown());
  root.setHidden(true);
  EXPECT_FALSE(leaf.shown());
  EXPECT_FALSE(leaf.hidden());
  root.setHidden(false);
  leaf.setHidden(true);
  EXPECT_FALSE(leaf.shown());
  EXPECT_TRUE(box.shown());
}

TEST(View, TakesNoDragByItself) {
  View view;
  EXPECT_FALSE(view.dragEntered("text"));
  EXPECT_FALSE(view.drop());
}

TEST(View, ItsIdentityIsItsAddress) {
  Label label;
  const View* const asView = &label;
  EXPECT_EQ(label.identity(), static_cast<const void*>(asView));
}

TEST(BusyIndicator, OneStopEndsAnyNumberOfStarts) {
  BusyIndicator indicator;
  Changes changes(indicator);
  EXPECT_FALSE(indicator.running());
  indicator.start();
  indicator.start();
  EXPECT_TRUE(indicator.running());
  EXPECT_EQ(changes.n, 1);
  indicator.stop();
  EXPECT_FALSE(indicator.running());
  indicator.stop();
  EXPECT_EQ(changes.n, 2);
}

TEST(ImageView, HoldsTheNameOfAnImage) {
  ImageView image;
  Changes changes(image);
  image.setImageName("ZDAll");
  image.setImageName("ZDAll");
  EXPECT_EQ(image.imageName(), "ZDAll");
  EXPECT_EQ(changes.n, 1);
}

}  // namespace
}  // namespace zavel
