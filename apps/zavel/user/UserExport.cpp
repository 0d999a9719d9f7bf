// `zavel user export`. Tests: tests/zavel/user/UserExchangeTest.cpp, tests/zavel/user/UserDamageTest.cpp
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <utility>

#include "JsonWriter.h"
#include "user/OutputFile.h"
#include "user/UserJson.h"
#include "user/UserPlace.h"
#include "user/UserReach.h"
#include "user/UserTable.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

// What can be read; the failure tells of the rest.
Failure readAll(UserLanguage language, std::vector<UserEntry>* entries) {
  const auto store = makeStore();
  std::vector<UserEntry> read;
  const Failure failure = store->readAll(store->open(language, UserAccess::kRead), &read);
  std::move(read.begin(), read.end(), std::back_inserter(*entries));
  return failure;
}

// An export from before the damage may hold what can't be read now.
bool holdsSomething(const std::string& file) {
  std::error_code error;
  return std::filesystem::is_regular_file(file, error) && std::filesystem::file_size(file, error) > 0;
}

Failure notReplaced(Failure damage, const std::string& file) {
  damage.message += "; nothing was exported, because " + file + " is there and may hold more";
  damage.hint = "Export to a file of another name.";
  return damage;
}

std::string jsonOf(const UserEntry& entry) {
  JsonWriter json;
  writeEntry(json, entry);
  return json.text();
}

// An entry a line in every form, so that two exports can be compared.
std::string textOf(const std::vector<UserEntry>& entries, const std::string& format) {
  std::string text;
  if (format == "tsv") {
    text = tableHeader();
    for (const UserEntry& entry : entries) text += tableLine(entry);
  } else if (format == "jsonl") {
    for (const UserEntry& entry : entries) text += jsonOf(entry) + "\n";
  } else {
    text = "{\"schema\":1,\"entries\":[";
    for (size_t i = 0; i < entries.size(); ++i) text += (i == 0 ? "\n" : ",\n") + jsonOf(entries[i]);
    text += "\n]}\n";
  }
  return text;
}

}  // namespace

int runUserExport(const UserOptions& options) {
  std::vector<UserEntry> entries;
  Failure damage;
  for (const UserLanguage language : languagesOf(options)) {
    const Failure failure = readAll(language, &entries);
    if (failure && failure.status != kExitDamaged) return report(failure, options.json);
    addDamage(failure, &damage);
  }
  if (damage && entries.empty()) return report(damage, options.json);
  const std::string text = textOf(entries, options.json ? "json" : options.format);
  if (options.file == "-") {
    std::fwrite(text.data(), 1, text.size(), stdout);
    return damage ? reportDamage(damage) : kExitFound;
  }
  if (damage && !isUnclear(damage) && holdsSomething(options.file))
    return report(notReplaced(damage, options.file), options.json);
  if (!writeOutputFile(options.file, text)) {
    return report(
        {kExitEnvironment, "not_written", "the file " + options.file + " can't be written", kWriteHint},
        options.json);
  }
  std::printf(entries.size() == 1 ? "%s entry written to %s\n" : "%s entries written to %s\n",
              grouped(entries.size()).c_str(), options.file.c_str());
  return damage ? reportDamage(damage) : kExitFound;
}

}  // namespace zavel::host
