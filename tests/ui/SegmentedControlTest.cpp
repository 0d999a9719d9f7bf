#include "ui/SegmentedControl.h"

#include <gtest/gtest.h>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

TEST(SegmentedControl, SelectsNothingToBeginWith) {
  SegmentedControl control;
  control.setSegments({{"AND"}, {"OR"}});
  EXPECT_EQ(control.selectedSegment(), -1);
  ASSERT_EQ(control.segments().size(), 2u);
  EXPECT_EQ(control.segments()[1].label, "OR");
}

TEST(SegmentedControl, IsSetWithoutTellingTheLogic) {
  SegmentedControl control;
  control.setSegments({{"AND"}, {"OR"}});
  Changes changes(control);
  Count chosen(control.chosen);
  control.setSelectedSegment(1);
  control.setSelectedSegment(1);
  EXPECT_EQ(control.selectedSegment(), 1);
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(chosen.n, 0);
}

TEST(SegmentedControl, KeepsItsSelectionWhenToldASegmentThatIsNotThere) {
  SegmentedControl control;
  control.setSegments({{"a"}, {"b"}});
  control.setSelectedSegment(0);
  control.setSelectedSegment(2);
  control.setSelectedSegment(-2);
  EXPECT_EQ(control.selectedSegment(), 0);
  control.setSelectedSegment(-1);
  EXPECT_EQ(control.selectedSegment(), -1);
}

TEST(SegmentedControl, AChosenSegmentIsSelectedWhenTheLogicHearsOfIt) {
  SegmentedControl control;
  control.setSegments({{"a"}, {"b"}});
  int heard = -1;
  const Connection c = control.chosen.connect([&] { heard = control.selectedSegment(); });
  EXPECT_TRUE(control.choose(1));
  EXPECT_EQ(heard, 1);
}

TEST(SegmentedControl, TheSelectedSegmentMayBeChosenAgain) {
  SegmentedControl control;
  control.setSegments({{"BothCopy"}, {"SrcCopy"}});
  control.setMomentary(true);
  Count chosen(control.chosen);
  EXPECT_TRUE(control.choose(0));
  EXPECT_TRUE(control.choose(0));
  EXPECT_EQ(chosen.n, 2);
  EXPECT_TRUE(control.momentary());
}

TEST(SegmentedControl, RefusesWhatIsDisabledOrNotThere) {
  SegmentedControl control;
  control.setSegments({{"a"}, {"b"}});
  control.setSelectedSegment(0);
  Count chosen(control.chosen);
  Changes changes(control);
  control.setSegmentEnabled(1, false);
  control.setSegmentEnabled(1, false);
  control.setSegmentEnabled(2, false);
  EXPECT_EQ(changes.n, 1);
  EXPECT_FALSE(control.choose(1));
  EXPECT_FALSE(control.choose(2));
  control.setEnabled(false);
  EXPECT_FALSE(control.choose(0));
  EXPECT_EQ(control.selectedSegment(), 0);
  EXPECT_EQ(chosen.n, 0);
}

TEST(SegmentedControl, NewSegmentsSelectNothing) {
  SegmentedControl control;
  control.setSegments({{"a"}});
  control.setSelectedSegment(0);
  Changes changes(control);
  control.setSegments({{"a"}});
  EXPECT_EQ(control.selectedSegment(), -1);
  EXPECT_EQ(changes.n, 1);
  control.setSegments({{"a"}});
  EXPECT_EQ(changes.n, 1);
}

}  // namespace
}  // namespace zavel
