// Notes for a music player that shows texts.
#ifndef RESEARCH_ZFWIPODCONTROLLER_H
#define RESEARCH_ZFWIPODCONTROLLER_H

#include <memory>

#include "foundation/Export.h"

namespace zavel {

class ZAVEL_API ZFWiPodController {
 public:
  // Whether a player is mounted.
  bool isPresent() const { return present_; }
  void setPresent(bool present) { present_ = present; }

 private:
  bool present_ = false;
};

// The only one of the process. The first main controller makes it; it stays.
ZAVEL_API extern std::unique_ptr<ZFWiPodController> gZFWiPod;

}  // namespace zavel

#endif
