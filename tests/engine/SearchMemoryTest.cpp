// Searches without memory: each request for some fails once. The call ends in 17, or it did without.
#include <gtest/gtest.h>

#include <functional>

#include "engine/SearchFixture.h"
#include "support/FailingMemory.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

// A call of one search: its status, its result in `size` and `list`.
using Call = std::function<uint16_t(uint32_t* size, Handle* list)>;

class SearchMemoryTest : public SearchTest {
 protected:
  // Refuses every request of `call` in turn. The number of those that were refused.
  int refuseEach(const Call& call) {
    uint16_t result = 0;
    uint32_t size = 0;
    Handle list = nullptr;
    return refuseEachRequest(
        [&] {
          size = 99;
          list = nullptr;
          result = call(&size, &list);
        },
        [&](bool refused) {
          EXPECT_EQ(0, g_ProcessInfo->readersE + g_ProcessInfo->readersJ);
          EXPECT_EQ(refused ? 17 : 1, result);
          EXPECT_EQ(refused, list == nullptr);
          EXPECT_EQ(refused, size == 0);
          GlobalFree(list);
        });
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
    EXPECT_GE(refuseEach(search), 5);
  }
}

}  // namespace
}  // namespace zavel::test
