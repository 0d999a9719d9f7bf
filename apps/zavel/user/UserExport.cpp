// `zavel user export`. Tests: tests/zavel/user/UserExchangeTest.cpp
#include <cstdio>
#include <unordered_set>

#include "JsonWriter.h"
#include "user/OutputFile.h"
#include "user/UserJson.h"
#include "user/UserPlace.h"
#include "user/UserTable.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

// Every entry of a dictionary, by headwords. Words that are filed alike find each other's entries, too.
Failure readAll(UserLanguage language, std::vector<UserEntry>* entries) {
  const auto store = makeStore();
  std::vector<std::string> words;
  if (Failure failure = store->open(language, UserAccess::kRead)) return failure;
  if (Failure failure = store->headwords(&words)) return failure;
  std::unordered_set<uint32_t> seen;
  for (const std::string& word : words) {
    std::vector<StoredEntry> found;
    if (Failure failure = store->findStored(word, &found)) return failure;
    for (StoredEntry& stored : found) {
      if (seen.insert(stored.place.dicOffset).second) entries->push_back(std::move(stored.entry));
    }
  }
  return {};
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
  for (const UserLanguage language : languagesOf(options)) {
    if (Failure failure = readAll(language, &entries)) return report(failure, options.json);
  }
  const std::string text = textOf(entries, options.json ? "json" : options.format);
  if (options.file == "-") {
    std::fwrite(text.data(), 1, text.size(), stdout);
    return kExitFound;
  }
  if (!writeOutputFile(options.file, text)) {
    return report(
        {kExitEnvironment, "not_written", "the file " + options.file + " can't be written", kWriteHint},
        options.json);
  }
  std::printf("%s entries written to %s\n", grouped(entries.size()).c_str(), options.file.c_str());
  return kExitFound;
}

}  // namespace zavel::host
