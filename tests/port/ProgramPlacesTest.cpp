#include "base/ProgramPlaces.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "base/PortModule.h"
#include "platform/Log.h"

namespace zavel {
namespace {

namespace fs = std::filesystem;

TEST(ProgramPlaces, TellsWhereThisProgramIs) {
  EXPECT_EQ(pathOfThisCode(), fs::read_symlink("/proc/self/exe").string());
}

TEST(ProgramPlaces, FindsResourcesAndModulesOfTheBuildTree) {
  EXPECT_TRUE(fs::exists(resourceFolder() + "/en.lproj/Localizable.plist")) << resourceFolder();
  EXPECT_TRUE(fs::path(resourceFolder()).is_absolute());
  const std::string module = modulePath("zavel-port-loop.so");
  EXPECT_TRUE(fs::is_regular_file(module)) << module;
  EXPECT_TRUE(fs::path(module).is_absolute());
}

TEST(ProgramPlaces, GivesNothingForWhatIsNotThere) {
  EXPECT_EQ(modulePath("zavel-port-none.so"), "");
  EXPECT_EQ(modulePath(""), "");  // a folder
}

// A module in the folder where this program looks for its own.
class ModuleOfAnotherUser : public testing::Test {
 protected:
  ModuleOfAnotherUser()
      : path_(fs::path(modulePath("zavel-port-loop.so")).parent_path() / "zavel-port-foreign.so") {
    fs::copy_file(modulePath("zavel-port-loop.so"), path_, fs::copy_options::overwrite_existing);
  }
  ~ModuleOfAnotherUser() override { fs::remove(path_); }

  fs::path path_;
};

TEST_F(ModuleOfAnotherUser, IsPassedOver) {
  EXPECT_EQ(modulePath("zavel-port-foreign.so"), path_.string());
  if (::chown(path_.c_str(), 12345, static_cast<gid_t>(-1)) != 0) GTEST_SKIP() << "needs root";
  EXPECT_EQ(modulePath("zavel-port-foreign.so"), "");
}

std::string g_line;

TEST(PortModule, TellsWhatIsWrong) {
  setLogSink([](const std::string& line) { g_line = line; });
  EXPECT_EQ(loadPortModule("zavel-port-none.so", "x"), nullptr);
  EXPECT_EQ(g_line, "The module zavel-port-none.so is missing");
  EXPECT_EQ(loadPortModule("zavel-port-loop.so", "noSuchFunction"), nullptr);
  EXPECT_NE(g_line.find("zavel-port-loop.so can't be used: "), std::string::npos) << g_line;
  EXPECT_NE(g_line.find("noSuchFunction"), std::string::npos) << g_line;
  setLogSink(nullptr);
  EXPECT_NE(loadPortModule("zavel-port-loop.so", "zavelLoopModule"), nullptr);
}

}  // namespace
}  // namespace zavel
