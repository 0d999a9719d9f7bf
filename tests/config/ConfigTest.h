// What the tests of this folder share: a platform whose folders and tools are the test's own, a log that is
// kept, and a folder to work in.
#ifndef TESTS_CONFIG_CONFIGTEST_H
#define TESTS_CONFIG_CONFIGTEST_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/Folders.h"
#include "platform/ForwardingPlatform.h"
#include "platform/ToolRunner.h"
#include "platform/Value.h"

namespace zavel::test {

class FakeFolders : public Folders {
 public:
  std::string root() override { return rootPath; }
  std::string home() override { return homePath; }

  std::string rootPath;
  std::string homePath;
};

// Remembers what was run and answers as told.
class FakeTools : public ToolRunner {
 public:
  ToolResult run(const std::string& program, const std::vector<std::string>& arguments) override;

  std::vector<std::string> programs;
  std::vector<std::vector<std::string>> arguments;
  ToolResult answer;
};

// The port's services, but with FakeFolders and, unless `realTools` is set, FakeTools.
class TestPlatform : public ForwardingPlatform {
 public:
  ToolRunner& tools() override;
  Folders& folders() override { return fakeFolders; }

  FakeFolders fakeFolders;
  FakeTools fakeTools;
  bool realTools = false;
};

// A fresh folder, with the platform of the test around it: root is folder + "/root", home is folder +
// "/home"; both are made. Log lines are kept.
class ConfigTest : public ::testing::Test {
 protected:
  ConfigTest();
  ~ConfigTest() override;

  std::string at(const std::string& name) const { return folder + "/" + name; }
  static void writeText(const std::string& path, std::string_view bytes);
  static std::string readText(const std::string& path);
  static void writeTable(const std::string& pathWithoutExtension, const Value& table);
  static bool isFolder(const std::string& path);
  static bool exists(const std::string& path);
  static void makeFolder(const std::string& path);
  static const std::vector<std::string>& log();

  std::string folder;
  TestPlatform platform;

 private:
  Platform* previousPlatform_;
};

}  // namespace zavel::test

#endif
