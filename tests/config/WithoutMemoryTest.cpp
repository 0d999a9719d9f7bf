// Styles and path table without memory: each request for some fails once, and nothing is thrown at the host.
#include <cstdlib>
#include <functional>
#include <new>
#include <string>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"

namespace {

// Requests until the one that fails; 0: none does.
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
[[gnu::noinline]] void operator delete(void* bytes) noexcept {
  std::free(bytes);
}
[[gnu::noinline]] void operator delete(void* bytes, size_t) noexcept {
  std::free(bytes);
}

namespace zavel::test {
namespace {

// Makes each request of `call` fail in turn, then none. The number of those that failed.
long failEach(const std::function<void()>& call) {
  for (long n = 1;; ++n) {
    g_countdown = n;
    EXPECT_NO_THROW(call()) << n;
    const bool failed = g_countdown == 0;
    g_countdown = 0;
    if (!failed) return n - 1;
  }
}

class WithoutMemoryEach : public ConfigTest {
 protected:
  ~WithoutMemoryEach() override {
    zavelStyleTerminate();
    zavelPathTerminate();
  }
  const std::string path_ = at("a path that is longer than what a string holds in itself");
};

TEST_F(WithoutMemoryEach, ThePathTableIsMadeOrNot) {
  EXPECT_GT(failEach([] { zavelPathInitialize(); }), 0);
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
}

TEST_F(WithoutMemoryEach, AnApplicationsPathIsGivenOrNull) {
  writeTable(path_, Value::Dict{{"ApplicationPath", Value::Dict{{"VX", path_}}}});
  zavelPathInitialize();
  zavelPathLoadDictAndHelper(path_.c_str());
  const char* given = nullptr;
  EXPECT_GT(failEach([&] {
              given = zavelPathGetAppleyPath(ZAVEL_APPLET_BROWSER);
              EXPECT_EQ(given == nullptr, g_countdown == 0);
            }),
            0);
  EXPECT_EQ(given, path_);
}

TEST_F(WithoutMemoryEach, ALoadWithoutMemoryIs1) {
  writeTable(path_, Value::Dict{{"HelperPath", Value::Dict{}}});
  zavelPathInitialize();
  const std::string copy = path_;
  EXPECT_GT(failEach([&] {
              const int code = zavelPathLoadDictAndHelper(copy.c_str());
              EXPECT_EQ(code, g_countdown == 0 ? 1 : 18);
            }),
            0);
}

TEST_F(WithoutMemoryEach, FoldersOfTheStylesAreSetOrStay) {
  const std::string longer(1000, 'a');
  zavelStyleInitialize();
  EXPECT_GT(failEach([&] { zavelStyleSetTechDictUrl(longer.c_str(), longer.c_str()); }), 0);
  EXPECT_GT(failEach([&] { zavelStyleSetUserDictUrl(longer.c_str()); }), 0);
}

TEST_F(WithoutMemoryEach, AStyleIsLoadedOrNot) {
  const Value etoj = Value::Dict{{"Opt1", 1}, {"Opt2", 2}, {"Opt3", 3}};
  const Value jtoe = Value::Dict{{"Opt1", 4}, {"Opt2", 5}, {"Opt3", 6}, {"Opt4", true}};
  const Value style = Value::Dict{{"ID", 1}, {"Name", "One"}, {"EJ", etoj}, {"JE", jtoe}};
  writeTable(path_, Value::Dict{{"Style", Value::Array{style}}, {"Selection", Value::Dict{{"QN", 1}}}});
  EXPECT_GT(failEach([] { zavelStyleInitialize(); }), 0);
  bool loaded = false;
  EXPECT_GT(failEach([&] { loaded = zavelStyleSetTStyleUrl(path_.c_str()); }), 0);
  EXPECT_TRUE(loaded);
  EXPECT_GT(failEach([&] { loaded = zavelStyleLoadTitleAndCurrentID(1, nullptr); }), 0);
  EXPECT_TRUE(loaded);
  EXPECT_GT(failEach([&] { loaded = zavelStyleLoadTranslationStyleWithID(1); }), 0);
  EXPECT_TRUE(loaded);
  EXPECT_GT(failEach([&] { loaded = zavelStyleLoadTranslationStyleWithApp(1); }), 0);
  EXPECT_TRUE(loaded);
  EXPECT_EQ(zavelStyleJtoeUkemi(), 5);
}

}  // namespace
}  // namespace zavel::test
