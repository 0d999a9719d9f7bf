// Subscribed feeds, one set for all windows of the process.
#ifndef FEED_RSSSUBSCRIBER2_H
#define FEED_RSSSUBSCRIBER2_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "foundation/Export.h"

namespace zavel {

class ZAVEL_API RSSSubscriber2 {
 public:
  RSSSubscriber2() = default;
  RSSSubscriber2(const RSSSubscriber2&) = delete;
  RSSSubscriber2& operator=(const RSSSubscriber2&) = delete;
  virtual ~RSSSubscriber2() = default;

  struct Site {
    std::string rssSiteName;
    std::string rssURL;
    int rssUnRead = 0;  // items nobody has read
  };

  // In the user's order.
  const std::vector<Site>& sites() const { return sites_; }
  void setSites(std::vector<Site> sites) { sites_ = std::move(sites); }

  // Fetches every site's news.
  void updateSite() { ++updates_; }
  // Times that an update was asked for.
  size_t updates() const { return updates_; }

  // Ends what is under way; nothing is asked of this object afterwards.
  virtual void terminateProcess() {}

 private:
  std::vector<Site> sites_;
  size_t updates_ = 0;
};

// The only one of the process. The first main controller makes it, the last one takes it away.
ZAVEL_API extern std::unique_ptr<RSSSubscriber2> gRSSSubscriber2;

}  // namespace zavel

#endif
