// Tests: tests/platform/PlatformTest.cpp
#include "platform/Platform.h"

namespace zavel {
namespace {
Platform* g_replacement = nullptr;  // borrowed
}

Platform& platform() {
  return g_replacement ? *g_replacement : defaultPlatform();
}

Platform* setPlatform(Platform* replacement) {
  Platform* previous = g_replacement;
  g_replacement = replacement;
  return previous;
}

}  // namespace zavel
