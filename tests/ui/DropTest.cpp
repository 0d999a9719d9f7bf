#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/NotificationCenter.h"
#include "ui/TabView.h"
#include "ui/ZEFView.h"
#include "ui/ZEFWebView.h"

namespace zavel {
namespace {

// Both kinds of views take drops in the same way.
template <typename ViewType>
class Drop : public ::testing::Test {
 protected:
  ViewType view;
  std::vector<Notification> posts;
  NotificationCenter::Subscription subscription = NotificationCenter::shared().subscribe(
      "zfDropNotification", [this](const Notification& n) { posts.push_back(n); });
};
using DropViews = ::testing::Types<ZEFView, ZEFWebView>;
TYPED_TEST_SUITE(Drop, DropViews);

TYPED_TEST(Drop, PostsTheTextThatEnteredAtTheDropAndNotBefore) {
  EXPECT_TRUE(this->view.dragEntered("goes 行く"));
  EXPECT_TRUE(this->posts.empty());
  EXPECT_TRUE(this->view.drop());
  ASSERT_EQ(this->posts.size(), 1u);
  const Notification& post = this->posts[0];
  EXPECT_EQ(post.object.value, Value(Value::Dict{{"zfTextKey", "goes 行く"}}));
  EXPECT_EQ(post.object.identity("zfViewPointerKey"), this->view.identity());
  EXPECT_EQ(post.object.identities.size(), 1u);
  EXPECT_EQ(post.sender, this->view.identity());
}

TYPED_TEST(Drop, TakesADragOnlyIfItOffersAString) {
  EXPECT_FALSE(this->view.dragEntered(std::nullopt));
  EXPECT_FALSE(this->view.drop());
  EXPECT_TRUE(this->posts.empty());
}

TYPED_TEST(Drop, TakesAnEmptyString) {
  EXPECT_TRUE(this->view.dragEntered(""));
  EXPECT_TRUE(this->view.drop());
  EXPECT_EQ(this->posts.at(0).object.value.find("zfTextKey")->string("none"), "");
}

TYPED_TEST(Drop, ForgetsTheTextOfADragThatLeft) {
  this->view.dragEntered("goes");
  this->view.dragExited();
  EXPECT_FALSE(this->view.drop());
  EXPECT_TRUE(this->posts.empty());
}

TYPED_TEST(Drop, ForgetsTheTextOfAnEarlierDrag) {
  this->view.dragEntered("goes");
  EXPECT_FALSE(this->view.dragEntered(std::nullopt));
  EXPECT_FALSE(this->view.drop());
  this->view.dragEntered("went");
  this->view.dragEntered("gone");
  EXPECT_TRUE(this->view.drop());
  EXPECT_EQ(this->posts.at(0).object.value.find("zfTextKey")->string(), "gone");
}

TYPED_TEST(Drop, PostsADropOnce) {
  this->view.dragEntered("goes");
  EXPECT_TRUE(this->view.drop());
  EXPECT_FALSE(this->view.drop());
  EXPECT_EQ(this->posts.size(), 1u);
}

TYPED_TEST(Drop, HasForgottenTheTextWhenItPosts) {
  bool again = true;
  const NotificationCenter::Subscription inside = NotificationCenter::shared().subscribe(
      "zfDropNotification", [&](const Notification&) { again = this->view.drop(); });
  this->view.dragEntered("goes");
  this->view.drop();
  EXPECT_FALSE(again);
}

TYPED_TEST(Drop, RefusesDragsWhileItIsNotShown) {
  View first;
  TabView tabs;
  tabs.addItem("sTab", first);
  tabs.addItem("tTab", this->view);
  EXPECT_FALSE(this->view.dragEntered("goes"));
  tabs.selectItem("tTab");
  EXPECT_TRUE(this->view.dragEntered("goes"));
  tabs.selectItem("sTab");
  EXPECT_FALSE(this->view.drop());
  EXPECT_TRUE(this->posts.empty());
}

TYPED_TEST(Drop, ShowsWhatIsNoUtf8AsReplacements) {
  this->view.dragEntered("a\xFF");
  this->view.drop();
  EXPECT_EQ(this->posts.at(0).object.value.find("zfTextKey")->string(), "a\xEF\xBF\xBD");
}

TYPED_TEST(Drop, IsTakenThroughTheGroundOfAllViews) {
  View& ground = this->view;
  EXPECT_TRUE(ground.dragEntered("goes"));
  EXPECT_TRUE(ground.drop());
  EXPECT_EQ(this->posts.at(0).object.identity("zfViewPointerKey"), ground.identity());
}

}  // namespace
}  // namespace zavel
