// Requests that the applications of the family pass to each other.
#ifndef CONFIG_ZAVELCOMMUNICATION_H
#define CONFIG_ZAVELCOMMUNICATION_H

#include <memory>

#include "platform/Value.h"

namespace zavel {

// Holds the request that was read last.
class ZavelCommunication {
 public:
  // A map; null while none was read.
  const Value& cDic() const { return cDic_; }

 private:
  Value cDic_;
};

// The only one of the process. The first main controller makes it, the last one takes it away.
extern std::unique_ptr<ZavelCommunication> gZavelCommunication;

}  // namespace zavel

#endif
