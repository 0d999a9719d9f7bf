// Hosts reach a book's virtual operations by their place in the table.
#include <gtest/gtest.h>

#include <cstring>

#include "book/CSPrivateDicV2.h"

namespace zavel::book {
namespace {

// The place of a virtual operation: what a pointer to it holds, less one, is its distance from the table's
// start.
template <typename Operation>
size_t slotOf(Operation operation) {
  static_assert(sizeof operation == 2 * sizeof(void*));
  uintptr_t value[2];
  std::memcpy(value, &operation, sizeof value);
  EXPECT_EQ(value[0] & 1, 1u);
  return (value[0] - 1) / sizeof(void*);
}

TEST(Slots, StandInTheirOrder) {
  size_t slot = 2;  // behind the two destructors
#define EXPECT_SLOT(operation) EXPECT_EQ(slotOf(&CSDicObject::operation), slot++) << #operation
  EXPECT_SLOT(Fn_OpenDictionary);
  EXPECT_SLOT(Fn_GetHonbunBlockInformation);
  EXPECT_SLOT(Fn_IsZenbunSearch);
  EXPECT_SLOT(Fn_GetMultiSearchCount);
  EXPECT_SLOT(Fn_GetMultiSearchName);
  EXPECT_SLOT(Fn_GetMultiSearchEntryCount);
  EXPECT_SLOT(Fn_GetMultiSearchEntryInfo);
  EXPECT_SLOT(Fn_GetMultiSearchReferenceList);
  EXPECT_SLOT(Fn_ExecIndexSearch);
  EXPECT_SLOT(Fn_GetSearchResult);
  EXPECT_SLOT(Fn_GetHeadword);
  EXPECT_SLOT(Fn_GetBodyData);
  EXPECT_SLOT(Fn_GetPrevEntryAddress);
  EXPECT_SLOT(Fn_GetNextEntryAddress);
  EXPECT_SLOT(Fn_GetZenbunPrevEntryAddress);
  EXPECT_SLOT(Fn_GetZenbunNextEntryAddress);
  EXPECT_SLOT(Fp_CustomCharCodeNumber);
  EXPECT_SLOT(Fp_StartCharCodeNumber);
  EXPECT_SLOT(Fp_CustomCharCodeToIndex);
  EXPECT_SLOT(Fn_GetCustomCharacterBitmap);
  EXPECT_SLOT(Fn_GetRawCustomCharacterBitmap);
  EXPECT_SLOT(Fn_IsValidAddress);
  EXPECT_SLOT(Fn_GetPictureData);
  EXPECT_SLOT(Fn_GetPictureDataDirect);
  EXPECT_SLOT(Fn_GetStreamData);
  EXPECT_SLOT(Fn_ReadData);
  EXPECT_SLOT(Fn_GetMenuData);
  EXPECT_SLOT(Fn_GetColorMenuData);
  EXPECT_SLOT(Fn_GetDataSpecVersion);
  EXPECT_SLOT(Fn_GetContentType);
  EXPECT_SLOT(Fn_GetPublisherInfo);
  EXPECT_SLOT(Fn_GetPublisherVersion);
  EXPECT_SLOT(Fn_TruncateHeadword);
  EXPECT_SLOT(Fn_GetDicName);
  EXPECT_SLOT(Fn_GetDicID);
  EXPECT_SLOT(Fn_GetMovieFileName);
  EXPECT_SLOT(Fn_KillCompare);
  EXPECT_SLOT(Fp_SearchSingleKey);
  EXPECT_SLOT(Fp_ReadGaijiFile);
  EXPECT_SLOT(Fp_CacheData);
  EXPECT_SLOT(Fp_ConstructMultiSearchName);
#undef EXPECT_SLOT
  EXPECT_EQ(slot, 43u);
}

// Three sets of blocks are part of the object.
TEST(Slots, LieInAnObjectOfAHundredKilobytes) {
  EXPECT_GT(sizeof(CSPrivateDicV2), 3u * 32768);
  EXPECT_LT(sizeof(CSPrivateDicV2), 3u * 32768 + 4096);
}

}  // namespace
}  // namespace zavel::book
