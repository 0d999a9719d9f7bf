// A folder with a basic set, and the engine on it, for the tests of the base.
#ifndef TESTS_ENGINE_ENGINEFIXTURE_H
#define TESTS_ENGINE_ENGINEFIXTURE_H

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/Frame.h"
#include "engine/Globals.h"
#include "engine/Shim.h"
#include "support/DicWriter.h"

namespace zavel::engine {

// Each test starts with an engine that was never opened and leaves none open.
class EngineTest : public ::testing::Test {
 protected:
  EngineTest() { InitGlobalVal(); }
  ~EngineTest() override {
    EndAPI();
    InitGlobalVal();
  }

  // One English word, one Japanese word with a written form.
  static test::DicWriter SmallSet() {
    test::DicWriter writer;
    writer.addE("apple", test::entryE("apple", "名", "りんご"));
    writer.addJ("りんご", "林檎", test::entryJ("りんご", "林檎", "apple"));
    return writer;
  }

  void WriteSmallSet() { SmallSet().write(folder_.path()); }
  Status OpenBasic() { return InitAPI(folder_.prefix().c_str(), nullptr, nullptr); }
  std::string UserPrefix() const { return folder_.path() + "/user/u"; }
  void MakeUserFolder() { std::filesystem::create_directory(folder_.path() + "/user"); }
  std::string UserFile(const std::string& name) const { return UserPrefix() + name; }
  std::string BasicFile(const std::string& name) const { return folder_.prefix() + name; }

  test::TempFolder folder_;
};

}  // namespace zavel::engine

#endif
