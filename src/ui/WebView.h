// A page, and the way to the next one. The view holds what is to be loaded; the host loads and shows it.
//
//   view.load(url)                  the logic, or the user at a link: `started`
//   host: requestedUrl() is set     fetches the head
//   host: decide(mimeType, ...)     onDecidePolicy says whether the page may come in here
//   host: finish()                  the page is in view: `finished`
//
// A load that is given up, by stop(), fail(), or because decide() gave false, leaves the page in view. A new
// load takes the place of one under way.
#ifndef UI_WEBVIEW_H
#define UI_WEBVIEW_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ui/View.h"

namespace zavel {

enum class WebPolicy { kUse, kIgnore };

// What a server is about to give.
struct WebResponse {
  std::string url;
  std::string mimeType;
  bool showable = false;  // the host can show that type
};

class ZAVEL_API WebView : public View {
 public:
  using View::View;

  // --- For the logic, and for the user's clicks ---

  // An empty address is passed over.
  void load(const std::string& url);
  // Shows a page at once, without asking anybody.
  void loadHtml(const std::string& html, const std::string& baseUrl = std::string());
  void stop();
  void reload();  // of a page that has an address
  void goBack();
  void goForward();

  // --- What a host reads ---

  const std::string& requestedUrl() const { return requestedUrl_; }  // empty: nothing to load
  const std::string& url() const { return url_; }                    // of the page in view
  const std::string& html() const { return html_; }  // of a page that loadHtml gave, else empty
  bool loading() const { return !requestedUrl_.empty(); }
  bool hasSource() const { return hasSource_; }  // the page in view has data
  bool canGoBack() const { return at_ > 0; }
  bool canGoForward() const { return at_ >= 0 && static_cast<size_t>(at_) + 1 < history_.size(); }

  // --- What a host does ---

  // False when the page is not to be shown here; the load is given up then, or another one has begun.
  bool decide(const std::string& mimeType, bool showable);
  // The page that decide() let in is in view. Without that it does nothing.
  void finish(bool hasSource = true);
  void fail() { stop(); }

  // --- Sizes and encoding of text ---

  int defaultFontSize() const { return defaultFontSize_; }  // points
  void setDefaultFontSize(int size) { change(defaultFontSize_, size); }
  int defaultFixedFontSize() const { return defaultFixedFontSize_; }
  void setDefaultFixedFontSize(int size) { change(defaultFixedFontSize_, size); }

  double textSizeMultiplier() const { return textSizeMultiplier_; }
  void setTextSizeMultiplier(double multiplier) { change(textSizeMultiplier_, multiplier); }
  // By a fifth each, from a half to threefold.
  bool canMakeTextLarger() const;
  bool canMakeTextSmaller() const;
  void makeTextLarger();
  void makeTextSmaller();

  // An IANA name, in place of what the page says; empty: the page's.
  const std::string& customEncoding() const { return customEncoding_; }
  void setCustomEncoding(const std::string& name) { change(customEncoding_, name); }

  // Without it what is showable comes in. Whoever sets it takes it off before going.
  std::function<WebPolicy(const WebResponse&)> onDecidePolicy;

  Signal<const std::string&> started;   // the address asked for
  Signal<const std::string&> finished;  // the address in view

 private:
  void begin(const std::string& url, int historyIndex);

  std::string requestedUrl_;
  int requestedIndex_ = -1;  // place in history_ of what is requested; -1: it becomes a new one
  bool decided_ = false;     // the requested page was let in
  size_t loads_ = 0;         // loads begun or given up, to see one that came in between
  std::string url_;
  std::string html_;
  bool hasSource_ = false;
  std::vector<std::string> history_;  // addresses
  int at_ = -1;                       // the page in view among them; -1 before the first
  int defaultFontSize_ = 16;
  int defaultFixedFontSize_ = 13;
  double textSizeMultiplier_ = 1;
  std::string customEncoding_;
};

}  // namespace zavel

#endif
