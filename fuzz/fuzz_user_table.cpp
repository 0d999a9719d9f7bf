// A table of user entries, its header in the first line. What is read of it is written as a line and read
// again.
#include "EngineCalls.h"
#include "UserRoundTrip.h"
#include "foundation/Utf8.h"
#include "user/UserImport.h"
#include "user/UserTable.h"

namespace {

using namespace zavel;
using namespace zavel::host;

std::string withoutLineEnd(std::string line) {
  fuzz::demand(line.find('\n') == line.size() - 1, "an entry is one line");
  line.pop_back();
  return line;
}

UserEntry readBack(const UserEntry& entry) {
  TableReader reader;
  UserEntry read;
  fuzz::demand(reader.readHeader(withoutLineEnd(tableHeader())).empty(), "the header is one");
  return reader.readLine(withoutLineEnd(tableLine(entry)), nullptr, &read).empty() ? read : UserEntry{};
}

void readLines(std::string_view text) {
  TableReader reader;
  const size_t end = std::min(text.find('\n'), text.size());
  if (!reader.readHeader(text.substr(0, end)).empty()) return;
  for (text.remove_prefix(end); !text.empty();) {
    text.remove_prefix(1);
    const std::string_view line = text.substr(0, text.find('\n'));
    UserEntry entry;
    if (reader.readLine(line, nullptr, &entry).empty()) fuzz::demandRoundTrip(entry, readBack);
    text.remove_prefix(line.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  readLines(text);
  std::vector<ImportItem> items;
  bool byLine = false;
  std::string damage;
  readImport(text, nullptr, &items, &byLine, &damage);
  for (const ImportItem& item : items) {
    if (item.wrong.empty()) fuzz::demandSettledRoundTrip(item.entry, readBack);
    UserExample example;
    if (readExample(item.entry.meaning, &example)) {
      UserExample again;
      fuzz::demand(!isValidUtf8(exampleText(example)) || readExample(exampleText(example), &again),
                   "an example is read back");
    }
  }
  return 0;
}
