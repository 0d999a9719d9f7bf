#include "ui/WebView.h"

#include <gtest/gtest.h>

#include <string>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;

// A view whose loads end at once, as a host's would.
class AWebView : public ::testing::Test {
 protected:
  void arrive() {
    ASSERT_TRUE(view.decide("text/html", true));
    view.finish();
  }
  void visit(const std::string& url) {
    view.load(url);
    arrive();
  }
  WebView view;
  std::string heard;
  Connection started = view.started.connect([this](const std::string& url) { heard += "s:" + url + " "; });
  Connection finished = view.finished.connect([this](const std::string& url) { heard += "f:" + url + " "; });
};

TEST_F(AWebView, IsEmptyToBeginWith) {
  EXPECT_EQ(view.url(), "");
  EXPECT_FALSE(view.loading());
  EXPECT_FALSE(view.hasSource());
  EXPECT_FALSE(view.canGoBack());
  EXPECT_FALSE(view.canGoForward());
  view.goBack();
  view.goForward();
  view.reload();
  view.stop();
  view.load("");
  view.finish();
  EXPECT_FALSE(view.decide("text/html", true));
  EXPECT_EQ(heard, "");
}

TEST_F(AWebView, AsksLoadsAndShows) {
  Changes changes(view);
  view.load("http://a/");
  EXPECT_EQ(view.requestedUrl(), "http://a/");
  EXPECT_TRUE(view.loading());
  EXPECT_EQ(view.url(), "");
  EXPECT_EQ(heard, "s:http://a/ ");
  EXPECT_TRUE(view.decide("text/html", true));
  view.finish();
  EXPECT_EQ(view.url(), "http://a/");
  EXPECT_EQ(view.requestedUrl(), "");
  EXPECT_TRUE(view.hasSource());
  EXPECT_EQ(heard, "s:http://a/ f:http://a/ ");
  EXPECT_EQ(changes.n, 2);
}

TEST_F(AWebView, TellsOfAPageWithoutData) {
  view.load("http://a/");
  view.decide("text/html", true);
  view.finish(false);
  EXPECT_EQ(view.url(), "http://a/");
  EXPECT_FALSE(view.hasSource());
}

TEST_F(AWebView, ShowsNoPageThatWasNotLetIn) {
  view.load("http://a/");
  view.finish();
  EXPECT_EQ(view.url(), "");
  EXPECT_TRUE(view.loading());
  EXPECT_TRUE(view.decide("text/html", true));
  view.load("http://b/");  // what was let in was another one
  view.finish();
  EXPECT_EQ(view.url(), "");
}

TEST_F(AWebView, AsksTheLogicWhetherAPageMayComeIn) {
  WebResponse asked;
  view.onDecidePolicy = [&](const WebResponse& response) {
    asked = response;
    return WebPolicy::kIgnore;
  };
  view.load("http://a/feed");
  EXPECT_FALSE(view.decide("application/rss+xml", false));
  EXPECT_EQ(asked.url, "http://a/feed");
  EXPECT_EQ(asked.mimeType, "application/rss+xml");
  EXPECT_FALSE(asked.showable);
  EXPECT_FALSE(view.loading());
  EXPECT_EQ(view.url(), "");
  EXPECT_EQ(heard, "s:http://a/feed ");
}

TEST_F(AWebView, LetsInByItselfWhatCanBeShown) {
  view.load("http://a/zip");
  EXPECT_FALSE(view.decide("application/zip", false));
  EXPECT_FALSE(view.loading());
  view.load("http://a/");
  EXPECT_TRUE(view.decide("text/html", true));
}

TEST_F(AWebView, TheLogicMayLoadAnotherPageInstead) {
  view.onDecidePolicy = [&](const WebResponse& response) {
    if (response.url != "http://a/") return WebPolicy::kUse;
    view.load("file:///result.html");
    return WebPolicy::kUse;
  };
  view.load("http://a/");
  EXPECT_FALSE(view.decide("text/html", true));
  EXPECT_EQ(view.requestedUrl(), "file:///result.html");
  arrive();
  EXPECT_EQ(view.url(), "file:///result.html");
}

TEST(WebView, AStartThatEndsTheViewEndsTheLoad) {
  test::Doomed<WebView> doomed;
  int changes = 0;
  const Connection end = doomed->started.connect([&](const std::string&) { doomed.endInRuins(); });
  const Connection change = doomed->changed.connect([&](View&) { ++changes; });
  doomed->load("http://x/");
  EXPECT_TRUE(doomed.ended());
  EXPECT_EQ(changes, 0);
}

TEST(WebView, ADecisionThatEndsTheViewIsARefusal) {
  test::Doomed<WebView> doomed;
  doomed->load("http://x/");
  doomed->onDecidePolicy = [&](const WebResponse&) {
    doomed.end();
    return WebPolicy::kUse;
  };
  EXPECT_FALSE(doomed->decide("text/html", true));
  EXPECT_TRUE(doomed.ended());
}

TEST_F(AWebView, AnIgnoredOrFailedLoadLeavesThePageInView) {
  visit("http://a/");
  view.load("http://b/");
  view.fail();
  EXPECT_EQ(view.url(), "http://a/");
  EXPECT_FALSE(view.loading());
  view.load("http://b/");
  view.decide("application/zip", false);
  EXPECT_EQ(view.url(), "http://a/");
  EXPECT_TRUE(view.hasSource());
}

TEST_F(AWebView, GoesBackAndForward) {
  visit("http://a/");
  EXPECT_FALSE(view.canGoBack());
  visit("http://b/");
  visit("http://c/");
  EXPECT_TRUE(view.canGoBack());
  EXPECT_FALSE(view.canGoForward());
  view.goBack();
  EXPECT_EQ(view.requestedUrl(), "http://b/");
  EXPECT_EQ(view.url(), "http://c/");
  arrive();
  EXPECT_TRUE(view.canGoForward());
  view.goForward();
  arrive();
  EXPECT_EQ(view.url(), "http://c/");
  EXPECT_FALSE(view.canGoForward());
}

TEST_F(AWebView, ANewPageTakesThePlaceOfThoseAhead) {
  visit("http://a/");
  visit("http://b/");
  view.goBack();
  arrive();
  visit("http://c/");
  EXPECT_FALSE(view.canGoForward());
  view.goBack();
  arrive();
  EXPECT_EQ(view.url(), "http://a/");
}

TEST_F(AWebView, AStepBackThatFailsLeavesThePlace) {
  visit("http://a/");
  visit("http://b/");
  view.goBack();
  view.fail();
  EXPECT_TRUE(view.canGoBack());
  EXPECT_FALSE(view.canGoForward());
  EXPECT_EQ(view.url(), "http://b/");
}

TEST_F(AWebView, AReloadIsNoNewPlace) {
  visit("http://a/");
  view.reload();
  EXPECT_EQ(view.requestedUrl(), "http://a/");
  arrive();
  EXPECT_FALSE(view.canGoBack());
  EXPECT_FALSE(view.canGoForward());
}

TEST_F(AWebView, ShowsAGivenPageAtOnce) {
  view.load("http://a/");
  view.loadHtml("<p>go</p>", "http://base/");
  EXPECT_EQ(view.html(), "<p>go</p>");
  EXPECT_EQ(view.url(), "http://base/");
  EXPECT_FALSE(view.loading());
  EXPECT_TRUE(view.hasSource());
  EXPECT_EQ(heard, "s:http://a/ f:http://base/ ");
  view.reload();
  EXPECT_FALSE(view.loading());
  visit("http://b/");
  EXPECT_EQ(view.html(), "");
}

TEST_F(AWebView, MakesTextLargerAndSmallerWithinBounds) {
  EXPECT_EQ(view.textSizeMultiplier(), 1.0);
  for (int i = 0; i < 6; ++i) {
    EXPECT_TRUE(view.canMakeTextLarger());
    view.makeTextLarger();
  }
  EXPECT_NEAR(view.textSizeMultiplier(), 2.985984, 1e-9);  // the sixth power of 1.2
  EXPECT_FALSE(view.canMakeTextLarger());
  view.makeTextLarger();
  EXPECT_NEAR(view.textSizeMultiplier(), 2.985984, 1e-9);
  view.setTextSizeMultiplier(1);
  for (int i = 0; i < 3; ++i) view.makeTextSmaller();
  EXPECT_NEAR(view.textSizeMultiplier(), 0.5787037, 1e-7);
  EXPECT_FALSE(view.canMakeTextSmaller());
  view.makeTextSmaller();
  EXPECT_NEAR(view.textSizeMultiplier(), 0.5787037, 1e-7);
}

TEST_F(AWebView, HoldsFontSizesAndEncoding) {
  Changes changes(view);
  view.setDefaultFontSize(18);
  view.setDefaultFixedFontSize(11);
  view.setCustomEncoding("Shift_JIS");
  view.setCustomEncoding("Shift_JIS");
  EXPECT_EQ(view.defaultFontSize(), 18);
  EXPECT_EQ(view.defaultFixedFontSize(), 11);
  EXPECT_EQ(view.customEncoding(), "Shift_JIS");
  EXPECT_EQ(changes.n, 3);
}

}  // namespace
}  // namespace zavel
