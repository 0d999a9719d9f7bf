// `zavel user export`. Tests: tests/zavel/user/UserExchangeTest.cpp, tests/zavel/user/UserDamageTest.cpp
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <utility>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "user/OutputFile.h"
#include "user/UserJson.h"
#include "user/UserPlace.h"
#include "user/UserReach.h"
#include "user/UserTable.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

// What can be read; the damage tells of the rest.
Failure readAll(UserLanguage language, std::vector<UserEntry>* entries, UserDamage* damage) {
  const auto store = makeStore();
  std::vector<UserEntry> read;
  const Failure failure = store->readAll(store->open(language, UserAccess::kRead), &read);
  std::move(read.begin(), read.end(), std::back_inserter(*entries));
  if (failure.status != kExitDamaged) return failure;
  damage->add(failure, store->lost());
  return {};
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
std::string textOf(const std::vector<UserEntry>& entries, const std::string& format,
                   const UserDamage& damage) {
  std::string text;
  if (format == "tsv") {
    text = tableHeader();
    for (const UserEntry& entry : entries) text += tableLine(entry);
  } else if (format == "jsonl") {
    for (const UserEntry& entry : entries) text += jsonOf(entry) + "\n";
  } else {
    text = "{\"schema\":1,\"entries\":[";
    for (size_t i = 0; i < entries.size(); ++i) text += (i == 0 ? "\n" : ",\n") + jsonOf(entries[i]);
    JsonWriter marked;
    marked.beginObject();
    writeDamage(marked, damage);
    const std::string mark = marked.endObject().text();  // "{}" without any
    text += "\n]" + (damage ? "," + mark.substr(1) : mark.substr(1)) + "\n";
  }
  return text;
}

int tellInterrupted() {
  warn("interrupted; nothing was exported");
  return interruptedStatus();
}

}  // namespace

int runUserExport(const UserOptions& options) {
  watchInterrupts();
  std::vector<UserEntry> entries;
  UserDamage damage;
  for (const UserLanguage language : languagesOf(options)) {
    if (const Failure failure = readAll(language, &entries, &damage)) return report(failure, options.json);
  }
  if (damage && entries.empty()) return report(damage.failure, options.json);
  if (interrupted()) return tellInterrupted();
  const std::string text = textOf(entries, options.json ? "json" : options.format, damage);
  if (options.file == "-") {
    std::fwrite(text.data(), 1, text.size(), stdout);
    return damage ? reportDamage(damage) : kExitFound;
  }
  if (damage && !isUnclear(damage.failure) && holdsSomething(options.file))
    return report(notReplaced(damage.failure, options.file), options.json);
  if (interrupted()) return tellInterrupted();
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
