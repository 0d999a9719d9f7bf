// Tests: tests/port/LinuxPlatformTest.cpp
#include "base/LinuxPlatform.h"

namespace zavel {

LinuxPlatform& linuxPlatform() {
  static LinuxPlatform platform;
  return platform;
}

Platform& defaultPlatform() {
  return linuxPlatform();
}

}  // namespace zavel
