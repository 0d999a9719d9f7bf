#include "support/FailingMemory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

// Requests until the one that is refused; 0: none is.
long g_countdown = 0;

void* allocate(size_t size) {
  if (g_countdown > 0 && --g_countdown == 0) return nullptr;
  return std::malloc(size > 0 ? size : 1);
}

}  // namespace

// Not inlined: the compiler would see a free() of what new gave, and call it a mismatch.
[[gnu::noinline]] void* operator new(size_t size) {
  if (void* bytes = allocate(size)) return bytes;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return allocate(size);
}
[[gnu::noinline]] void operator delete(void* bytes) noexcept {
  std::free(bytes);
}
[[gnu::noinline]] void operator delete(void* bytes, size_t) noexcept {
  std::free(bytes);
}

namespace zavel::test {

int refuseEachRequest(const std::function<void()>& call, const std::function<void(bool refused)>& check) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE("request " + std::to_string(n));
    g_countdown = n;
    EXPECT_NO_THROW(call());
    const bool refused = g_countdown == 0;
    g_countdown = 0;
    check(refused);
    if (!refused) return n - 1;
  }
}

}  // namespace zavel::test
