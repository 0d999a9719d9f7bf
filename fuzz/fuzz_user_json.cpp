// User entries as JSON: a document, and each line as one entry. What is read is written and read again.
#include <algorithm>

#include "EngineCalls.h"
#include "UserRoundTrip.h"
#include "user/UserJson.h"

namespace {

using namespace zavel;
using namespace zavel::host;

UserEntry readBack(const UserEntry& entry) {
  JsonWriter json;
  writeEntry(json, entry);
  fuzz::demand(isJsonDocument(json.text()), "what is written is JSON");
  const JsonEntry read = readJsonEntry(json.text(), nullptr);
  return read.wrong.empty() ? read.entry : UserEntry{};
}

void check(const JsonEntry& read) {
  if (read.wrong.empty()) fuzz::demandRoundTrip(read.entry, readBack);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::vector<JsonEntry> entries;
  std::string damage;
  const bool document = readJsonDocument(text, nullptr, &entries, &damage);
  fuzz::demand(!document || isJsonDocument(text), "a document is JSON");
  for (const JsonEntry& entry : entries) check(entry);
  const UserLanguage japanese = UserLanguage::kJapanese;
  for (std::string_view left = text; !left.empty();) {
    const size_t end = std::min(left.find('\n'), left.size());
    check(readJsonEntry(left.substr(0, end), &japanese));
    left.remove_prefix(std::min(end + 1, left.size()));
  }
  return 0;
}
