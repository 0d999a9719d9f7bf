#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <vector>

namespace zavel {
namespace {

using Subscription = NotificationCenter::Subscription;

class NotificationCenterTest : public testing::Test {
 protected:
  // A handler that notes `who` and the notification's number.
  NotificationCenter::Handler note(const std::string& who) {
    return [this, who](const Notification& n) {
      heard.push_back(who + std::to_string(n.object.value.integer()));
    };
  }
  void post(int number, const void* sender = nullptr) { centre.post("a", {Value(number), {}}, sender); }

  NotificationCenter centre;
  std::vector<std::string> heard;
  int host = 0;  // identities
  int other = 0;
};

using Heard = std::vector<std::string>;

TEST_F(NotificationCenterTest, CallsInTheOrderOfSubscription) {
  const Subscription one = centre.subscribe("a", note("x"));
  const Subscription two = centre.subscribe("a", note("y"));
  const Subscription three = centre.subscribe("a", note("z"));
  post(1);
  post(2);
  EXPECT_EQ(heard, (Heard{"x1", "y1", "z1", "x2", "y2", "z2"}));
}

TEST_F(NotificationCenterTest, CallsForTheSubscribedNameAlone) {
  const Subscription one = centre.subscribe("b", note("x"));
  post(1);
  EXPECT_EQ(heard, Heard());
  centre.post("b", {Value(2), {}});
  EXPECT_EQ(heard, Heard{"x2"});
}

TEST_F(NotificationCenterTest, CallsForTheSubscribedSenderAlone) {
  const Subscription mine = centre.subscribe("a", note("mine"), &host);
  const Subscription any = centre.subscribe("a", note("any"));
  post(1, &host);
  post(2, &other);
  post(3);
  EXPECT_EQ(heard, (Heard{"mine1", "any1", "any2", "any3"}));
}

TEST_F(NotificationCenterTest, HandsOnNameSenderAndObject) {
  Notification got;
  const Subscription one = centre.subscribe("a", [&got](const Notification& n) { got = n; });
  centre.post({"a", &host, {Value::Dict{{"zfTextKey", "goes"}}, {{"zfParentKey", &other}}}});
  EXPECT_EQ(got.name, "a");
  EXPECT_EQ(got.sender, &host);
  EXPECT_EQ(got.object.value.find("zfTextKey")->string(), "goes");
  EXPECT_EQ(got.object.identity("zfParentKey"), &other);
  EXPECT_EQ(got.object.identity("zfViewPointerKey"), nullptr);
}

TEST_F(NotificationCenterTest, APostWithoutAnObjectCarriesNothing) {
  bool empty = false;
  const Subscription one = centre.subscribe("a", [&empty](const Notification& n) {
    empty = n.object.value.isNull() && n.object.identities.empty() && !n.sender;
  });
  centre.post("a");
  EXPECT_TRUE(empty);
}

TEST_F(NotificationCenterTest, OneAddedInsideAPostGetsTheNext) {
  std::vector<Subscription> added;
  const Subscription one = centre.subscribe("a", [&](const Notification& n) {
    note("x")(n);
    if (added.empty()) added.push_back(centre.subscribe("a", note("new")));
  });
  post(1);
  EXPECT_EQ(heard, Heard{"x1"});
  post(2);
  EXPECT_EQ(heard, (Heard{"x1", "x2", "new2"}));
}

TEST_F(NotificationCenterTest, OneRemovedInsideAPostGetsNothingMore) {
  Subscription behind;
  const Subscription one = centre.subscribe("a", [&](const Notification& n) {
    note("x")(n);
    behind.end();
  });
  behind = centre.subscribe("a", note("gone"));
  const Subscription last = centre.subscribe("a", note("y"));
  post(1);
  EXPECT_EQ(heard, (Heard{"x1", "y1"}));
}

TEST_F(NotificationCenterTest, OneMayRemoveItselfAndThoseBeforeIt) {
  Subscription first = centre.subscribe("a", note("x"));
  Subscription self;
  // Kept in the handler itself: it must stay whole until it has returned.
  self = centre.subscribe(
      "a", [&, text = std::string("a text too long to stand in the object")](const Notification& n) {
        self.end();
        first.end();
        note(text.substr(0, 6))(n);
      });
  const Subscription last = centre.subscribe("a", note("y"));
  post(1);
  post(2);
  EXPECT_EQ(heard, (Heard{"x1", "a text1", "y1", "y2"}));
  EXPECT_EQ(centre.count(), 1u);
}

TEST_F(NotificationCenterTest, OneMayPostAgain) {
  const Subscription one = centre.subscribe("a", [&](const Notification& n) {
    note("x")(n);
    if (n.object.value.integer() < 3) post(static_cast<int>(n.object.value.integer()) + 1);
  });
  const Subscription two = centre.subscribe("a", note("y"));
  post(1);
  EXPECT_EQ(heard, (Heard{"x1", "x2", "x3", "y3", "y2", "y1"}));
}

TEST_F(NotificationCenterTest, OneAddedGetsThePostInsideTheSamePost) {
  std::vector<Subscription> added;
  const Subscription one = centre.subscribe("a", [&](const Notification& n) {
    if (!added.empty()) return;
    note("x")(n);
    added.push_back(centre.subscribe("a", note("new")));
    post(2);
  });
  post(1);
  EXPECT_EQ(heard, (Heard{"x1", "new2"}));
}

TEST_F(NotificationCenterTest, ManyMayComeAndGoInsideAPost) {
  std::vector<Subscription> many;
  const Subscription one = centre.subscribe("a", [&](const Notification&) {
    many.clear();
    for (int i = 0; i < 100; ++i) many.push_back(centre.subscribe("a", note("m")));
  });
  post(1);
  EXPECT_EQ(heard, Heard());
  post(2);  // the hundred of the first post end before their turn
  EXPECT_EQ(heard, Heard());
  EXPECT_EQ(centre.count(), 101u);
}

TEST_F(NotificationCenterTest, AnExceptionLeavesThePost) {
  const Subscription one = centre.subscribe("a", note("x"));
  const Subscription two = centre.subscribe("a", [](const Notification&) { throw std::runtime_error("no"); });
  const Subscription three = centre.subscribe("a", note("y"));
  EXPECT_THROW(post(1), std::runtime_error);
  EXPECT_EQ(heard, Heard{"x1"});
  EXPECT_EQ(centre.count(), 3u);
  EXPECT_THROW(post(2), std::runtime_error);
  EXPECT_EQ(heard, (Heard{"x1", "x2"}));
}

TEST_F(NotificationCenterTest, ASubscriptionEndsWithItsObject) {
  {
    const Subscription one = centre.subscribe("a", note("x"));
    EXPECT_EQ(centre.count(), 1u);
  }
  EXPECT_EQ(centre.count(), 0u);
  post(1);
  EXPECT_EQ(heard, Heard());
}

TEST_F(NotificationCenterTest, ASubscriptionMovesWithItsObject) {
  Subscription one = centre.subscribe("a", note("x"));
  Subscription moved = std::move(one);
  EXPECT_TRUE(moved.isActive());
  EXPECT_FALSE(one.isActive());  // NOLINT: a moved subscription is none
  one.end();
  post(1);
  moved = centre.subscribe("a", note("y"));  // ends the first
  post(2);
  Subscription& self = moved;
  moved = std::move(self);
  post(3);
  moved = Subscription();
  post(4);
  EXPECT_EQ(heard, (Heard{"x1", "y2", "y3"}));
  EXPECT_EQ(centre.count(), 0u);
}

TEST_F(NotificationCenterTest, EndingTwiceDoesNothing) {
  Subscription one = centre.subscribe("a", note("x"));
  const Subscription two = centre.subscribe("a", note("y"));
  one.end();
  one.end();
  Subscription none;
  none.end();
  EXPECT_EQ(centre.count(), 1u);
}

TEST_F(NotificationCenterTest, ASubscriptionMayOutliveTheCentre) {
  Subscription one;
  {
    NotificationCenter brief;
    one = brief.subscribe("a", note("x"));
    EXPECT_TRUE(one.isActive());
  }
  EXPECT_FALSE(one.isActive());
  one.end();
}

TEST_F(NotificationCenterTest, TheCentreMayEndInsideAPost) {
  auto brief = std::make_unique<NotificationCenter>();
  const Subscription one = brief->subscribe("a", [&](const Notification& n) {
    note("x")(n);
    brief.reset();
  });
  const Subscription two = brief->subscribe("a", note("y"));
  brief->post("a", {Value(1), {}});
  EXPECT_EQ(heard, Heard{"x1"});
}

// Tells when what a handler holds is let go.
struct Held {
  explicit Held(bool* gone) : gone_(gone) {}
  ~Held() { *gone_ = true; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  bool* gone_;
};

TEST_F(NotificationCenterTest, WhatAHandlerHoldsGoesWithItsSubscription) {
  bool gone = false;
  Subscription one = centre.subscribe("a", [held = std::make_shared<Held>(&gone)](const Notification&) {});
  EXPECT_FALSE(gone);
  one.end();
  EXPECT_TRUE(gone);
}

TEST_F(NotificationCenterTest, WhatAHandlerHoldsMayEndOtherSubscriptions) {
  auto second = std::make_shared<Subscription>(centre.subscribe("a", note("y")));
  const std::weak_ptr<Subscription> left = second;
  Subscription one = centre.subscribe("a", [second](const Notification&) {});
  second.reset();
  EXPECT_EQ(centre.count(), 2u);
  one.end();
  EXPECT_TRUE(left.expired());
  EXPECT_EQ(centre.count(), 0u);
}

TEST_F(NotificationCenterTest, ACentreThatEndsEndsItsSubscriptionsFirst) {
  auto brief = std::make_unique<NotificationCenter>();
  auto second = std::make_shared<Subscription>(brief->subscribe("a", note("y")));
  Subscription one = brief->subscribe("a", [second](const Notification&) {});
  const std::weak_ptr<Subscription> left = second;
  second.reset();
  brief.reset();
  one.end();  // lets go of the handler, and that of the second subscription
  EXPECT_TRUE(left.expired());
}

TEST(NotificationCenter, TheSharedOneIsOne) {
  int calls = 0;
  const Subscription one =
      NotificationCenter::shared().subscribe("test.shared", [&calls](const Notification&) { ++calls; });
  NotificationCenter::shared().post("test.shared");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(&NotificationCenter::shared(), &NotificationCenter::shared());
}

}  // namespace
}  // namespace zavel
