#include "ui/Panel.h"

#include <gtest/gtest.h>

#include <string>

#include "ui/Changes.h"
#include "ui/Sheet.h"

namespace zavel {
namespace {

using test::Changes;

TEST(Panel, IsHiddenUntilItIsShown) {
  Panel panel;
  Changes changes(panel);
  EXPECT_TRUE(panel.hidden());
  panel.show();
  panel.show();
  EXPECT_FALSE(panel.hidden());
  panel.setTitle("Zu");
  EXPECT_EQ(panel.title(), "Zu");
  panel.close();
  EXPECT_TRUE(panel.hidden());
  EXPECT_EQ(changes.n, 3);
}

TEST(Sheet, TellsHowItEndedAfterItIsClosed) {
  Sheet sheet;
  std::string heard;
  const Connection c = sheet.finished.connect([&](bool accepted) {
    heard += accepted ? 'a' : 'c';
    heard += sheet.hidden() ? 'h' : 's';
  });
  sheet.show();
  EXPECT_TRUE(sheet.accept());
  sheet.show();
  EXPECT_TRUE(sheet.cancel());
  EXPECT_EQ(heard, "ahch");
}

TEST(Sheet, ThatIsNotUpCannotEnd) {
  Sheet sheet;
  int calls = 0;
  const Connection c = sheet.finished.connect([&](bool) { ++calls; });
  EXPECT_FALSE(sheet.accept());
  EXPECT_FALSE(sheet.cancel());
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace zavel
