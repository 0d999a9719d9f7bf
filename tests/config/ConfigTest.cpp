#include "config/ConfigTest.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/Log.h"
#include "platform/PropertyLists.h"

namespace fs = std::filesystem;

namespace zavel::test {
namespace {

std::vector<std::string> g_log;

void keep(const std::string& line) {
  g_log.push_back(line);
}

std::string freshFolder() {
  std::string name = (fs::temp_directory_path() / "zavel-config-XXXXXX").string();
  return ::mkdtemp(name.data()) ? name : std::string();
}

}  // namespace

ToolResult FakeTools::run(const std::string& program, const std::vector<std::string>& given) {
  programs.push_back(program);
  arguments.push_back(given);
  return answer;
}

std::optional<ProcessNumber> FakeApplications::find(const std::string& creator, const std::string& type) {
  for (const RunningApplication& application : list) {
    if (application.creator == creator && application.type == type) return application.process;
  }
  return std::nullopt;
}

SendResult FakeApplications::send(const ProcessNumber& process, const Message& message, Message* reply) {
  calls.push_back("send " + std::to_string(process.high) + "." + std::to_string(process.low));
  sent.push_back(message);
  replyWanted = reply != nullptr;
  return sendResult;
}

bool FakeApplications::bringToFront(const ProcessNumber& process) {
  calls.push_back("front " + std::to_string(process.high) + "." + std::to_string(process.low));
  return Applications::bringToFront(process);
}

bool FakeApplications::start(const std::string& path, bool toFront) {
  started.push_back(path + (toFront ? "|front" : ""));
  if (canStart) comeUp();
  return canStart;
}

void FakeApplications::pause(double seconds) {
  pauses.push_back(seconds);
  comeUp();
}

void FakeApplications::comeUp() {
  if (!comingUp || static_cast<int>(pauses.size()) < pausesBefore) return;
  list.push_back(*comingUp);
  comingUp.reset();
}

std::string FakeBundle::localized(const std::string& key) {
  const auto text = texts.find(key);
  return text == texts.end() ? key : text->second;
}

ToolRunner& TestPlatform::tools() {
  if (realTools) return defaultPlatform().tools();
  return fakeTools;
}

ConfigTest::ConfigTest() : folder(freshFolder()), previousPlatform_(setPlatform(&platform)) {
  platform.fakeFolders.rootPath = at("root");
  platform.fakeFolders.homePath = at("home");
  makeFolder(at("root"));
  makeFolder(at("home"));
  g_log.clear();
  setLogSink(keep);
}

ConfigTest::~ConfigTest() {
  setLogSink(nullptr);
  setPlatform(previousPlatform_);
  std::error_code error;
  fs::remove_all(folder, error);
}

void ConfigTest::writeText(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ConfigTest::readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void ConfigTest::writeTable(const std::string& pathWithoutExtension, const Value& table) {
  // Not through the atomic write: that waits for the disk, and there are many tables.
  writeText(pathWithoutExtension + ".plist",
            defaultPlatform().propertyLists().serialize(table, PropertyListFormat::kXml));
}

bool ConfigTest::isFolder(const std::string& path) {
  return fs::is_directory(path);
}

bool ConfigTest::exists(const std::string& path) {
  return fs::exists(path);
}

void ConfigTest::makeFolder(const std::string& path) {
  fs::create_directories(path);
}

const std::vector<std::string>& ConfigTest::log() {
  return g_log;
}

void ConfigTest::clearLog() {
  g_log.clear();
}

}  // namespace zavel::test
