#include "engine/EngineAPI.h"

#include <gtest/gtest.h>

#include "engine/EngineFixture.h"

extern "C" {
size_t sikibetuSizeInC(void);
size_t sikibetuDicOffsetInC(void);
long serchInC(const char* kihonPath, const char* word);
}

namespace zavel::engine {
namespace {

class EngineAPITest : public EngineTest {};

// The serial records of user searches hold the identification as these 28 bytes, two of them padding.
TEST_F(EngineAPITest, TheIdentificationTakes28Bytes) {
  EXPECT_EQ(sikibetuSizeInC(), 28u);
  EXPECT_EQ(sikibetuDicOffsetInC(), 24u);
  EXPECT_EQ(sizeof(sikibetu_data), 28u);
}

TEST_F(EngineAPITest, AHostInCOpensSearchesAndCloses) {
  WriteSmallSet();
  EXPECT_EQ(serchInC(folder_.prefix().c_str(), "apple"),
            15);  // "apple [" with a gloss of six bytes, "]", NUL
  EXPECT_EQ(serchInC(folder_.prefix().c_str(), "pear"), 0);
  EXPECT_EQ(serchInC(folder_.prefix().c_str(), "pear1"), -1);
}

}  // namespace
}  // namespace zavel::engine
