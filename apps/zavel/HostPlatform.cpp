// Tests: tests/zavel/HostPlatformTest.cpp, DictionariesTest.cpp
#include "HostPlatform.h"

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "CapturedErrors.h"
#include "Interrupt.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

class MemoryWriter : public ForkedFileWriter {
 public:
  MemoryWriter(MemoryFiles::Files* files, std::string path) : files_(files), path_(std::move(path)) {}

  bool writeText(std::string_view text) override {
    file_.text = text;
    return true;
  }
  bool writeStyle(const char* recordType, uint16_t number, std::string_view record) override {
    file_.records[{recordType, number}] = record;
    return true;
  }
  bool close() override {
    (*files_)[path_] = std::move(file_);
    return true;
  }

 private:
  MemoryFiles::Files* files_;  // borrowed
  std::string path_;
  MemoryFiles::File file_;
};

// The file that a symbolic link leads to, so that writing leaves the link in its place. `path` itself where
// it is none, or leads nowhere.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_symlink(path, error)) return path;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? path : target.string();
}

}  // namespace

std::unique_ptr<ForkedFileWriter> MemoryFiles::create(const std::string& path, const char*, const char*) {
  return std::make_unique<MemoryWriter>(&files_, path);
}

bool MemoryFiles::read(const std::string& path, const char* recordType, uint16_t number, std::string* text,
                       std::string* record) {
  text->clear();
  record->clear();
  const auto file = files_.find(path);
  if (file == files_.end()) return false;
  *text = file->second.text;
  const auto found = file->second.records.find({recordType, number});
  if (found != file->second.records.end()) *record = found->second;
  return true;
}

bool KeptLists::readFile(const std::string& path, Value* out) {
  const auto file = files_.find(path);
  if (file == files_.end()) return below_.readFile(path, out);
  std::optional<Value>& kept = file->second.value;
  if (!kept) {
    Value value;
    if (!below_.readFile(path, &value)) return false;
    kept = std::move(value);
  }
  *out = *kept;
  return true;
}

bool KeptLists::writeFile(const std::string& path, const Value& value, PropertyListFormat format) {
  const auto file = files_.find(path);
  if (file != files_.end() && file->second.pretended) return false;
  if (!below_.writeFile(behindLinks(path), value, format)) return false;
  if (file != files_.end()) file->second.value = value;
  return true;
}

ToolResult WatchedTools::run(const std::string& program, const std::vector<std::string>& arguments) {
  const ToolWatch watch(below_);
  CapturedErrors errors;
  ToolResult result = below_.run(program, arguments);
  const std::string said = errors.take();
  last_ = Run{program, result, !said.empty()};
  tell(said);
  return result;
}

// Many words that fail alike are one complaint.
void WatchedTools::tell(const std::string& errors) {
  if (errors.empty()) return;
  std::fflush(stdout);
  std::istringstream lines(errors);
  for (std::string line; std::getline(lines, line);) {
    if (told_.insert(line).second) std::fprintf(stderr, "%s\n", printable(line).c_str());
  }
}

HostPlatform::HostPlatform()
    : lists_(below().propertyLists()),
      tools_(below().tools()),
      bundle_(below().bundle()),
      before_(setPlatform(this)) {}

HostPlatform::~HostPlatform() {
  setPlatform(before_);
}

}  // namespace zavel::host
