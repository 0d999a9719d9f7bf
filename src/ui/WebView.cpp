// Tests: tests/ui/WebViewTest.cpp
#include "ui/WebView.h"

#include <utility>

namespace zavel {
namespace {

constexpr double kTextSizeStep = 1.2;
constexpr double kSmallestText = 0.5;
constexpr double kLargestText = 3.0;

}  // namespace

void WebView::load(const std::string& url) {
  begin(url, -1);
}

void WebView::loadHtml(const std::string& html, const std::string& baseUrl) {
  ++loads_;
  requestedUrl_.clear();
  url_ = baseUrl;
  html_ = html;
  hasSource_ = true;
  notifyChange();
  finished.emit(std::string(url_));
}

void WebView::stop() {
  if (!loading()) return;
  ++loads_;
  requestedUrl_.clear();
  notifyChange();
}

void WebView::reload() {
  if (at_ >= 0 && history_[static_cast<size_t>(at_)] == url_) begin(url_, at_);
}

void WebView::goBack() {
  if (canGoBack()) begin(history_[static_cast<size_t>(at_ - 1)], at_ - 1);
}

void WebView::goForward() {
  if (canGoForward()) begin(history_[static_cast<size_t>(at_ + 1)], at_ + 1);
}

// The handler may stop the load, begin another one, or destroy the view.
bool WebView::decide(const std::string& mimeType, bool showable) {
  if (!loading()) return false;
  const size_t load = loads_;
  const std::weak_ptr<const bool> here = alive();
  WebPolicy policy = showable ? WebPolicy::kUse : WebPolicy::kIgnore;
  if (const auto handler = onDecidePolicy) policy = handler({requestedUrl_, mimeType, showable});
  if (here.expired() || loads_ != load) return false;
  decided_ = policy == WebPolicy::kUse;
  if (!decided_) stop();
  return decided_;
}

void WebView::finish(bool hasSource) {
  if (!loading() || !decided_) return;
  ++loads_;
  url_ = std::exchange(requestedUrl_, std::string());
  html_.clear();
  hasSource_ = hasSource;
  if (requestedIndex_ >= 0) {
    at_ = requestedIndex_;
  } else {
    history_.resize(static_cast<size_t>(at_ + 1));
    history_.push_back(url_);
    ++at_;
  }
  notifyChange();
  finished.emit(std::string(url_));
}

bool WebView::canMakeTextLarger() const {
  return textSizeMultiplier_ * kTextSizeStep <= kLargestText;
}

bool WebView::canMakeTextSmaller() const {
  return textSizeMultiplier_ / kTextSizeStep >= kSmallestText;
}

void WebView::makeTextLarger() {
  if (canMakeTextLarger()) setTextSizeMultiplier(textSizeMultiplier_ * kTextSizeStep);
}

void WebView::makeTextSmaller() {
  if (canMakeTextSmaller()) setTextSizeMultiplier(textSizeMultiplier_ / kTextSizeStep);
}

void WebView::begin(const std::string& url, int historyIndex) {
  if (url.empty()) return;
  ++loads_;
  requestedUrl_ = url;
  requestedIndex_ = historyIndex;
  decided_ = false;
  const std::weak_ptr<const bool> here = alive();
  started.emit(std::string(requestedUrl_));  // ahead of a host that loads at once
  if (!here.expired()) notifyChange();
}

}  // namespace zavel
