// What the tests of this folder share: a platform whose folders, tools, applications and bundle are the
// test's own, a log that is kept, and a folder to work in.
#ifndef TESTS_CONFIG_CONFIGTEST_H
#define TESTS_CONFIG_CONFIGTEST_H

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Applications.h"
#include "platform/Bundle.h"
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

// Applications that the test lists. One that is started may come up at once, after some pauses, or never.
class FakeApplications : public Applications {
 public:
  std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) override;
  int launch(const std::string&, bool, ProcessNumber*) override { return -1; }
  SendResult send(const ProcessNumber& process, const Message& message, Message* reply) override;
  std::vector<RunningApplication> running() override { return list; }
  std::optional<RunningApplication> current() override { return self; }
  std::optional<ProcessNumber> front() override { return inFront; }
  bool bringToFront(const ProcessNumber& process) override;
  bool start(const std::string& path, bool toFront) override;
  void pause(double seconds) override;

  std::vector<RunningApplication> list;
  std::optional<RunningApplication> self;
  std::optional<ProcessNumber> inFront;
  bool canStart = true;
  std::optional<RunningApplication> comingUp;  // joins `list` after `pausesBefore` pauses, once started
  int pausesBefore = 0;
  SendResult sendResult = SendResult::kSent;

  std::vector<std::string> started;  // path, and "|front" behind those that were to come forward
  std::vector<double> pauses;
  std::vector<std::string> calls;  // bringToFront and send, in their order
  std::vector<Message> sent;
  bool replyWanted = false;

 private:
  void comeUp();
};

class FakeBundle : public Bundle {
 public:
  std::string mainSignature() override { return signature; }
  std::string libraryIdentifier() override { return "local.test.ZavelLex"; }
  uint32_t systemVersion() override { return version; }
  std::optional<std::string> resourcePath(const std::string&, const std::string&) override { return {}; }
  std::string localized(const std::string& key) override;

  std::string signature;
  uint32_t version = 0x1060;
  std::map<std::string, std::string> texts;
};

// The port's services, but with the fakes above and, unless `realTools` is set, FakeTools.
class TestPlatform : public ForwardingPlatform {
 public:
  ToolRunner& tools() override;
  Folders& folders() override { return fakeFolders; }
  Applications& applications() override { return fakeApplications; }
  Bundle& bundle() override { return fakeBundle; }

  FakeApplications fakeApplications;
  FakeBundle fakeBundle;
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
  static void clearLog();

  std::string folder;
  TestPlatform platform;

 private:
  Platform* previousPlatform_;
};

}  // namespace zavel::test

#endif
