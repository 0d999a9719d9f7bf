#include "shell/ShellTesting.h"

#include <sys/stat.h>

#include <filesystem>
#include <utility>

#include "config/WorkPathTable.h"
#include "config/WorkPaths.h"
#include "config/WorkStyles.h"
#include "config/ZavelPath.h"
#include "platform/Log.h"
#include "platform/PropertyLists.h"
#include "shell/ProcessObjects.h"

namespace zavel::test {

std::vector<std::string> ShellTest::logLines;

ToolResult WatchedTools::run(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> line = {program};
  line.insert(line.end(), arguments.begin(), arguments.end());
  runs.push_back(std::move(line));
  return below_.tools().run(program, arguments);
}

Posts::Posts(const std::string& name)
    : subscription_(NotificationCenter::shared().subscribe(
          name, [this](const Notification& notification) { objects.push_back(notification.object); })) {}

std::vector<int64_t> Posts::numbers() const {
  std::vector<int64_t> found;
  for (const NotificationObject& object : objects) found.push_back(object.value.integer(-1000));
  return found;
}

ShellTest::ShellTest() {
  platform.testFolders.rootPath = at("root");
  platform.testFolders.homePath = at("home");
  std::filesystem::create_directories(at("root"));
  std::filesystem::create_directories(at("home/Library/Preferences"));
  std::filesystem::create_directories(at("helpers"));
  writePathTable(at("table"));
  writeStylesIfMissing(at("preferences/ZavelStyle"), StyleLanguage::kEnglish);
  logLines.clear();
  setLogSink([](const std::string& line) { logLines.push_back(line); });
  ownedApplet = ZAVEL_APPLET_CORRESPONDENCE;
  referenceMaxCount = 400;
  headColor = textColor = refColor = std::nullopt;
  rssTimerFlag = false;
}

ShellTest::~ShellTest() {
  setLogSink(nullptr);
  setHostPathTable("");
}

void ShellTest::useMedicalEdition() {
  writePathTable(at("Medical/table"));
}

void ShellTest::writePathTable(const std::string& path) {
  EXPECT_TRUE(writePathTableIfMissing(
      path, {at("data"), at("cache"), at("preferences"), at("documents"), at("helpers"), "", ""}));
  setHostPathTable(path);
}

void ShellTest::writeDictionary() {
  DicWriter writer;
  writer.addE("take", entryE("take", "動", "取る"));
  writer.addE("taken", entryE("taken", "形", "取られた"));
  writer.addE("match", entryE("match", "名", "試合"));
  writer.addE("match", entryE("match", "動", "合う"));
  writer.addE("walk", entryForKatuyo("", "walk", sjis("[動]"), "歩く"));
  writer.addKatu("took", "{take:現,took:過}");
  writer.addJ("みち", "道", entryJ("みち", "道", "road"));
  writer.addJ("みち", "未知", entryJ("みち", "未知", "unknown"));
  writer.addJ("みちのく", "", entryJ("みちのく", "", "north"));
  writeDictionary(writer);
}

void ShellTest::writeDictionary(const DicWriter& writer) {
  std::filesystem::create_directories(at("data/dictionaries"));
  writer.write(at("data/dictionaries/basic"));
}

void ShellTest::writeTool(const std::string& name, const std::string& script) {
  const std::string path = at("helpers/" + name);
  writeFile(path, "#!/bin/sh\nresult='" + at("cache/fq/ResultFile.plist") + "'\n" + script + "\n");
  ::chmod(path.c_str(), 0755);
}

std::string ShellTest::answering(const std::string& search, const std::string& dictInfo) {
  const std::string info = dictInfo.empty() ? "" : "<key>DictInfoJE</key><dict>" + dictInfo + "</dict>";
  return "cat >\"$result\" <<'END'\n<plist version=\"1.0\"><dict><key>Search</key><array>" + search +
         "</array>" + info + "</dict></plist>\nEND";
}

void ShellTest::writeStore(const Value& all) {
  EXPECT_TRUE(platform.propertyLists().writeFile(storePath(), all, PropertyListFormat::kXml));
}

Value ShellTest::readStore() const {
  Value all;
  EXPECT_TRUE(zavel::platform().propertyLists().readFile(storePath(), &all));
  return all;
}

void ShellTest::writeDictList(const Value::Array& items, int applet) {
  writeStore(Value::Dict{
      {"ZFWDictTabKey", Value::Dict{{"ZFWDictTabTWEDItem", items}, {"ZFWDictTabAppletItem", applet}}}});
}

void ShellTest::writeBrowserPreferences(const Value& preferences) {
  EXPECT_TRUE(
      platform.propertyLists().writeFile(at("home/Library/Preferences/local.tarnwick.TWEDBrowser.plist"),
                                         preferences, PropertyListFormat::kXml));
}

void ShellTest::writeSearchSites(const Value::Array& sites) {
  const std::string path = at("SearchSite.plist");
  EXPECT_TRUE(
      platform.propertyLists().writeFile(path, Value::Dict{{"SearchSite", sites}}, PropertyListFormat::kXml));
  platform.ownBundle.resources["SearchSite.plist"] = path;
}

Value item(const char* type, const char* title, const char* status) {
  return Value::Dict{{"dictType", type}, {"dictTitle", title}, {"selectStatus", status}};
}

Window::Window(const std::vector<std::string>& modes, const std::vector<std::string>& hidden) : Window() {
  if (hidden.empty()) {
    controller->initController(Rect(), &token, modes);
  } else {
    controller->initController(Rect(), &token, modes, hidden);
  }
}

void Window::post(const std::string& name, Value::Dict members) {
  NotificationObject object;
  object.value = std::move(members);
  object.identities["zfParentKey"] = &token;
  NotificationCenter::shared().post(name, std::move(object));
}

void Window::look(const std::string& text, const Value& row) {
  post("zfDictLookupNotification", {{"zfTextKey", text}, {"zfRowKey", row}});
}

bool Window::type(const std::string& text) {
  SearchField& searchField = *controller->searchField();
  return searchField.type(text) && searchField.insertNewline();
}

bool Window::choose(int tag) {
  const std::shared_ptr<Menu> menu = controller->searchField()->menu();
  const int index = menu ? menu->indexOfTag(tag) : -1;
  return index >= 0 && menu->choose(static_cast<size_t>(index));
}

std::vector<std::string> Window::rows() {
  std::vector<std::string> found;
  TableView& list = dictionary().hwListView();
  for (size_t i = 0; i < list.rowCount(); ++i) found.push_back(list.cell(i, "itemList").string());
  return found;
}

std::vector<std::string> Window::sources() {
  std::vector<std::string> found;
  TableView& list = dictionary().hwListView();
  for (size_t i = 0; i < list.rowCount(); ++i) found.push_back(list.cell(i, "titleList").string());
  return found;
}

std::vector<std::string> linesOf(const Menu& menu) {
  std::vector<std::string> lines;
  for (const MenuItem& entry : menu.items()) {
    lines.push_back(
        entry.separator ? "-" : (entry.checked ? "*" : "") + std::to_string(entry.tag) + " " + entry.title);
  }
  return lines;
}

}  // namespace zavel::test
