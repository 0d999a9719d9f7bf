// The platform as this program's look-ups see it: the port's services, with some of this host's in front.
#ifndef ZAVEL_HOSTPLATFORM_H
#define ZAVEL_HOSTPLATFORM_H

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/Bundle.h"
#include "platform/ForkedFiles.h"
#include "platform/ForwardingPlatform.h"
#include "platform/PropertyLists.h"
#include "platform/ToolRunner.h"

namespace zavel::host {

// Styled text files in memory. The entry that is shown is written and read back within one look-up and is for
// nobody else: on the disk, processes that run side by side would read each other's, and writing would take
// as long as all the rest of the look-up.
class MemoryFiles : public ForkedFiles {
 public:
  std::unique_ptr<ForkedFileWriter> create(const std::string& path, const char* type,
                                           const char* creator) override;
  bool read(const std::string& path, const char* recordType, uint16_t number, std::string* text,
            std::string* record) override;

  struct File {
    std::string text;
    std::map<std::pair<std::string, uint16_t>, std::string> records;  // by type and number
  };
  using Files = std::map<std::string, File>;  // by path

 private:
  Files files_;
};

// Property lists of which some files are read once: a start asks for the preferences seven times. Whoever
// else writes such a file meanwhile is heard at the next start.
class KeptLists : public PropertyLists {
 public:
  explicit KeptLists(PropertyLists& below) : below_(below) {}

  // Keeps the file at `path` from its next reading on.
  void keep(const std::string& path) { files_[path] = {}; }
  // Answers for the file at `path` as if it held `value`; it is neither read nor written.
  void pretend(const std::string& path, Value value) { files_[path] = {std::move(value), true}; }

  bool parse(std::string_view bytes, Value* out) override { return below_.parse(bytes, out); }
  std::string serialize(const Value& value, PropertyListFormat format) override {
    return below_.serialize(value, format);
  }
  bool readFile(const std::string& path, Value* out) override;
  bool writeFile(const std::string& path, const Value& value, PropertyListFormat format) override;

 private:
  struct File {
    std::optional<Value> value;
    bool pretended = false;
  };

  PropertyLists& below_;
  std::map<std::string, File> files_;  // by path
};

// A terminal shows none of the controller's labels and no web page: texts and resources would be read for
// nobody, and that takes longer than all the rest of a look-up. A label is then its key; what stands inside a
// row is as everywhere.
class BareBundle : public Bundle {
 public:
  explicit BareBundle(Bundle& below) : below_(below) {}

  std::string mainSignature() override { return below_.mainSignature(); }
  std::string libraryIdentifier() override { return below_.libraryIdentifier(); }
  uint32_t systemVersion() override { return below_.systemVersion(); }
  std::optional<std::string> resourcePath(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::string localized(const std::string& key) override {
    return key == "StarMark" ? below_.localized(key) : key;
  }

 private:
  Bundle& below_;
};

// Tools that can be interrupted from the keyboard, and whose end is remembered. What one writes to standard
// error is told when it has ended, each line once, without what would steer a terminal.
class WatchedTools : public ToolRunner {
 public:
  explicit WatchedTools(ToolRunner& below) : below_(below) {}

  ToolResult run(const std::string& program, const std::vector<std::string>& arguments) override;
  void interrupt() override { below_.interrupt(); }

  struct Run {
    std::string program;
    ToolResult result;
    bool spoke = false;  // on standard error
  };

  // The last run since forget(); nothing when there was none.
  const std::optional<Run>& last() const { return last_; }
  void forget() { last_.reset(); }

 private:
  void tell(const std::string& errors);

  ToolRunner& below_;
  std::optional<Run> last_;
  std::set<std::string> told_;  // lines
};

// In use from its making to its end.
class HostPlatform : public ForwardingPlatform {
 public:
  HostPlatform();
  ~HostPlatform() override;

  ForkedFiles& forkedFiles() override { return files_; }
  KeptLists& propertyLists() override { return lists_; }
  WatchedTools& tools() override { return tools_; }
  BareBundle& bundle() override { return bundle_; }

 private:
  MemoryFiles files_;
  KeptLists lists_;
  WatchedTools tools_;
  BareBundle bundle_;
  Platform* before_;
};

}  // namespace zavel::host

#endif
