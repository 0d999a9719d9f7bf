#include "feed/RSSSubscriber2.h"

namespace zavel {

std::unique_ptr<RSSSubscriber2> gRSSSubscriber2;

}  // namespace zavel
