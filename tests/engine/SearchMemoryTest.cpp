// Searches without memory: each request for some fails once. The call ends in 17, or it did without.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>

#include "engine/SearchFixture.h"

namespace {

// Requests until the one that fails; 0: none does.
long g_countdown = 0;

void* Allocate(size_t size) {
  if (g_countdown > 0 && --g_countdown == 0) return nullptr;
  return std::malloc(size > 0 ? size : 1);
}

}  // namespace

// Not inlined: the compiler would see a free() of what new gave, and call it a mismatch.
[[gnu::noinline]] void* operator new(size_t size) {
  if (void* bytes = Allocate(size)) return bytes;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
[[gnu::noinline]] void operator delete(void* bytes) noexcept {
  std::free(bytes);
}
[[gnu::noinline]] void operator delete(void* bytes, size_t) noexcept {
  std::free(bytes);
}

namespace zavel::test {
namespace {

using namespace zavel::engine;

// A call of one search: its status, its result in `size` and `list`.
using Call = std::function<uint16_t(uint32_t* size, Handle* list)>;

class SearchMemoryTest : public SearchTest {
 protected:
  // Makes every request of `call` fail in turn, then none. The number of those that failed.
  int failEach(const Call& call) {
    for (long n = 1;; ++n) {
      uint32_t size = 99;
      Handle list = nullptr;
      g_countdown = n;
      const uint16_t result = call(&size, &list);
      const bool failed = g_countdown == 0;
      g_countdown = 0;
      EXPECT_EQ(0, g_ProcessInfo->readersE + g_ProcessInfo->readersJ) << n;
      EXPECT_EQ(result == 17, list == nullptr) << n << " gave " << result;
      EXPECT_EQ(result == 17, size == 0) << n;
      GlobalFree(list);
      if (!failed) {
        EXPECT_EQ(1, result);
        return static_cast<int>(n) - 1;
      }
      EXPECT_EQ(17, result) << n;
    }
  }
};

TEST_F(SearchMemoryTest, EverySearchEndsIn17WithoutMemory) {
  withUserE = withUserJ = true;
  const std::string reference = tag(0xF5D4) + sjis("《米》 =") + "color\n";
  dic.addHase("colourful", dic.addE("colour", entryForKatuyo("1", "colour", "[\x96\xBC]", "x") + reference));
  dic.addE("color", head("color"));
  dic.addKatu("colours", "{colours:複}");
  userE.add("colourful", entryE("colourful", "名", "x"));
  dic.addJ("くだもの", "果物", entryJ("くだもの", "果物", "fruit"));
  userJ.add("\xAD\xBE\xE0\xCC", entryJ("くだもの", "果物", "mine"), sjis("果物"));
  open();
  std::string word = "colourful", kana = sjis("くだもの"), kanji = sjis("果物");
  const std::pair<const char*, Call> searches[] = {
      {"SerchMidasiE", [&](uint32_t* size, Handle* list) { return SerchMidasiE("col", 0, size, list, 3); }},
      {"SerchMidasiJ",
       [&](uint32_t* size, Handle* list) { return SerchMidasiJ(kana.data(), size, list, 3); }},
      {"SerchImiE",
       [&](uint32_t* size, Handle* list) { return SerchImiE(word.data(), nullptr, 3, size, list, 3); }},
      {"SerchImiJ",
       [&](uint32_t* size, Handle* list) { return SerchImiJ(kanji.data(), nullptr, 0, size, list, 3); }},
      {"GetKatuyo", [&](uint32_t* size, Handle* list) { return GetKatuyo("colours", size, list); }},
  };
  for (const auto& [name, search] : searches) {
    SCOPED_TRACE(name);
    EXPECT_GE(failEach(search), 5);
  }
}

}  // namespace
}  // namespace zavel::test
