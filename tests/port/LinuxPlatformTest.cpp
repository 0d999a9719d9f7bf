#include "base/LinuxPlatform.h"

#include <gtest/gtest.h>

namespace zavel {
namespace {

TEST(LinuxPlatform, OffersEveryService) {
  Platform& services = defaultPlatform();
  EXPECT_EQ(services.encoding().toSjisLossy("行").bytes(), "\x8D\x73");
  EXPECT_FALSE(services.propertyLists().serialize(Value(1), PropertyListFormat::kXml).empty());
  EXPECT_GT(services.fonts().heights("", 12).ascender, 0);
  EXPECT_EQ(services.forkedFiles().create("/dev/null/none", "TEXT", "ttxt"), nullptr);
  EXPECT_FALSE(services.tools().run("/dev/null/none", {}).started);
  EXPECT_FALSE(services.applications().find("zVX8", "APPL").has_value());
  EXPECT_FALSE(services.folders().root().empty());
}

}  // namespace
}  // namespace zavel
