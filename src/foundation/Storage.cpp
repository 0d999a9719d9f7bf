// Tests: tests/foundation/StorageTest.cpp
#include "foundation/Storage.h"

namespace zavel {
namespace {
Storage* g_replacement = nullptr;  // borrowed
}

Storage& storage() { return g_replacement ? *g_replacement : defaultStorage(); }

Storage* setStorage(Storage* replacement) {
  Storage* previous = g_replacement;
  g_replacement = replacement;
  return previous;
}

}  // namespace zavel
