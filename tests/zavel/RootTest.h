// A root of its own for each test, with a small dictionary in it, and the program that works there.
#ifndef TESTS_ZAVEL_ROOTTEST_H
#define TESTS_ZAVEL_ROOTTEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::test {

class RootTest : public testing::Test {
 protected:
  void SetUp() override;

  std::string root() const { return folder_.path() + "/root"; }
  // Beside the root.
  std::string file(const std::string& name) const { return folder_.file(name); }

  Command inRoot(std::vector<std::string> arguments) const;

  // Writes a shell script to `path`, ready to be run, and gives the path.
  static std::string script(const std::string& path, const std::string& lines);

  TempFolder folder_;
};

}  // namespace zavel::test

#endif
