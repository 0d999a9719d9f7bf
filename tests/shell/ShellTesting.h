// What the tests of the main controller share: a process with places, preferences, a dictionary and helper
// tools of its own, and a host with its window.
#ifndef TESTS_SHELL_SHELLTESTING_H
#define TESTS_SHELL_SHELLTESTING_H

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Folders.h"
#include "platform/NotificationCenter.h"
#include "platform/ToolRunner.h"
#include "shell/ZavelLexController.h"
#include "support/DicWriter.h"
#include "support/FakePlatform.h"
#include "support/TempFolder.h"

namespace zavel::test {

inline const std::vector<std::string> kAllModes = {"zfDictTab", "zfTransTab", "zfTexttransTab", "zfSearchTab",
                                                   "zfRssTab",  "zfQuickTab", "zfDocuTab",      "zfArchTab"};

class TestFolders : public Folders {
 public:
  std::string root() override { return rootPath; }
  std::string home() override { return homePath; }
  std::string rootPath, homePath;
};

// Runs the port's tools and remembers their command lines, the program first.
class WatchedTools : public ToolRunner {
 public:
  explicit WatchedTools(Platform& below) : below_(below) {}
  ToolResult run(const std::string& program, const std::vector<std::string>& arguments) override;
  void interrupt() override { below_.tools().interrupt(); }

  std::vector<std::vector<std::string>> runs;

 private:
  Platform& below_;
};

class ShellPlatform : public FakePlatform {
 public:
  ShellPlatform() : watched(below()) {}
  Folders& folders() override { return testFolders; }
  ToolRunner& tools() override { return watched; }

  TestFolders testFolders;
  WatchedTools watched;
};

// Posts of one name for as long as it lives.
class Posts {
 public:
  explicit Posts(const std::string& name);
  size_t count() const { return objects.size(); }
  // The numbers that were posted.
  std::vector<int64_t> numbers() const;

  std::vector<NotificationObject> objects;

 private:
  NotificationCenter::Subscription subscription_;
};

// A process before its first controller: places below a folder, ten styles, no dictionary, no tools. What
// controllers of earlier tests left in process-wide variables is put back.
class ShellTest : public ::testing::Test {
 protected:
  ShellTest();
  ~ShellTest() override;

  std::string at(const std::string& name) const { return folder.file(name); }
  // The medical edition from the next first controller on.
  void useMedicalEdition();
  void writePathTable(const std::string& path);

  // take, taken, match (two entries), walk; took and walks conjugate; みち in three entries.
  void writeDictionary();
  void writeDictionary(const DicWriter& writer);

  // A shell script as the English or the Japanese helper tool. It finds the arguments as "$@", and the result
  // file's path in $result.
  void writeEnglishTool(const std::string& script) { writeTool("zavel-text-ej", script); }
  void writeJapaneseTool(const std::string& script) { writeTool("zavel-text-je", script); }
  // Script lines that write a result file.
  static std::string answering(const std::string& search, const std::string& dictInfo = "");

  // The preference store's file, before or between controllers.
  std::string storePath() const { return at("home/Library/Preferences/test.zavel_ZavelLex.plist"); }
  void writeStore(const Value& all);
  Value readStore() const;
  void writeDictList(const Value::Array& items, int applet = 0);
  void writeBrowserPreferences(const Value& preferences);
  void writeSearchSites(const Value::Array& sites);

  static std::vector<std::string> logLines;

  TempFolder folder;
  ShellPlatform platform;

 private:
  void writeTool(const std::string& name, const std::string& script);
};

Value item(const char* type, const char* title, const char* status);

// A host's window: its token, its controller, and events sent in its name.
class Window {
 public:
  Window() : controller(std::make_unique<ZavelLexController>()) {}
  explicit Window(const std::vector<std::string>& modes, const std::vector<std::string>& hidden = {});

  void post(const std::string& name, Value::Dict members = {});
  void post(const std::string& name, const std::string& text) { post(name, {{"zfTextKey", text}}); }
  void look(const std::string& text) { post("zfDictLookupNotification", text); }
  void look(const std::string& text, const Value& row);
  // Text as a user types it, and a new line.
  bool type(const std::string& text);
  // Chooses an item of the search field's menu by its tag.
  bool choose(int tag);

  S_Controller& dictionary() { return controller->sController(); }
  std::vector<std::string> rows();     // titles of the result list
  std::vector<std::string> sources();  // titles of the rows' dictionaries
  std::string detail() { return dictionary().hwResultView().text().text(); }
  std::string field() { return controller->searchField()->text(); }
  std::string tab() { return controller->tabView()->selectedIdentifier(); }
  int segment() { return controller->modeControl()->selectedSegment(); }

  int token = 0;
  std::unique_ptr<ZavelLexController> controller;
};

// A host with a field and a busy indicator of its own, and no tabs.
class FieldHost : public Window {
 public:
  explicit FieldHost(const std::string& kenkyu = "result") {
    controller->initController(Rect(), &token, input, progress, kenkyu);
  }
  ~FieldHost() { controller.reset(); }

  SearchField input;
  BusyIndicator progress;
};

// "tag title", "*tag title" for a checked one, "-" for a separator.
std::vector<std::string> linesOf(const Menu& menu);

}  // namespace zavel::test

#endif
