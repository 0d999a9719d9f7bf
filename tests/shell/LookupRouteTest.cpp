#include "shell/LookupRoute.h"

#include <gtest/gtest.h>

namespace zavel::test {
namespace {

TEST(LookupRoute, EveryDictionaryOfTheListIsSearchedHere) {
  // 1 the bilingual dictionary, 2 a book, 4 the translation dictionary; other bits beside them don't count.
  for (const int selected : {1, 2, 3, 4, 5, 6, 7, 9, 17, 20, 65, 66}) {
    EXPECT_EQ(lookupRoute(selected), LookupRoute::kDictionaries) << selected;
  }
}

TEST(LookupRoute, TwoValuesStandForAnOutsideApplication) {
  EXPECT_EQ(lookupRoute(16), LookupRoute::kOutside);
  EXPECT_EQ(lookupRoute(64), LookupRoute::kOutside);
}

TEST(LookupRoute, AnyOtherValueLeadsNowhere) {
  for (const int selected : {0, 8, 24, 32, 48, 72, 80, 128}) {
    EXPECT_EQ(lookupRoute(selected), LookupRoute::kNowhere) << selected;
  }
}

}  // namespace
}  // namespace zavel::test
