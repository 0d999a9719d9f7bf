// Handing pages to the browser client.
#ifndef CONFIG_WTMODULE_H
#define CONFIG_WTMODULE_H

#include <string>

namespace zavel {

class WTModule {
 public:
  // Has the browser client show a URL. It is started when it doesn't run, which may block for a minute, and
  // comes forward. True when the URL was sent; nothing is known of what became of it.
  static bool goWebTranslator(const std::string& url);
};

}  // namespace zavel

#endif
