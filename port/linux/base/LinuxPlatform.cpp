// Tests: tests/port/LinuxPlatformTest.cpp
#include "base/LinuxPlatform.h"

namespace zavel {

Platform& defaultPlatform() {
  static LinuxPlatform platform;
  return platform;
}

}  // namespace zavel
