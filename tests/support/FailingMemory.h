// Memory that runs out on demand, so that a test can refuse each request of a call in turn. Linked by the
// tests that need it alone (zavel_test_memory): it replaces the program's operator new.
#ifndef TESTS_SUPPORT_FAILINGMEMORY_H
#define TESTS_SUPPORT_FAILINGMEMORY_H

#include <functional>

namespace zavel::test {

// Runs `call` again and again: the first time its first request for memory is refused, the second time its
// second, and so on, until one run gets all it asks for. `call` must not throw. After each run `check` is
// told whether a request was refused; it has memory again. Result: the number of requests that were refused.
int refuseEachRequest(const std::function<void()>& call, const std::function<void(bool refused)>& check);

}  // namespace zavel::test

#endif
