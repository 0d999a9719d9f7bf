// Tests: tests/zavel/CommandTest.cpp, TranslationDataTest.cpp, zavel-test.sh
#include "DictInfo.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "Failure.h"
#include "Host.h"
#include "JsonWriter.h"
#include "PlacesInUse.h"
#include "TranslationData.h"

namespace zavel::host {
namespace {

struct SizedFile {
  std::string name;
  std::optional<int64_t> bytes;  // nothing where it is missing, or no file
  bool there = false;
};

std::vector<SizedFile> sizesOf(const std::string& folder, const std::vector<std::string>& names) {
  std::vector<SizedFile> files;
  for (const std::string& name : names) {
    std::error_code error;
    const std::string path = folder + "/" + name;
    const bool there = std::filesystem::exists(path, error);
    const uintmax_t size = std::filesystem::file_size(path, error);
    files.push_back({name, error ? std::nullopt : std::optional(static_cast<int64_t>(size)), there});
  }
  return files;
}

bool whole(const std::vector<SizedFile>& files) {
  return std::all_of(files.begin(), files.end(),
                     [](const SizedFile& file) { return file.bytes.value_or(0) > 0; });
}

int64_t together(const std::vector<SizedFile>& files) {
  int64_t total = 0;
  for (const SizedFile& file : files) total += file.bytes.value_or(0);
  return total;
}

// What keeps the translation dictionary from reading them.
Failure incomplete(const std::string& folder, const std::vector<SizedFile>& files) {
  for (const SizedFile& file : files) {
    if (file.bytes.value_or(0) > 0) continue;
    if (file.there && !file.bytes) {
      return {kExitDamaged, "damaged_dictionary", folder + "/" + file.name + " is no file",
              "Remove it, then run: zavel dict build"};
    }
    const std::string message = file.bytes ? "the file " + file.name + " in " + folder + " is empty"
                                           : "the file " + file.name + " is missing in " + folder;
    return {kExitDamaged, "damaged_dictionary", message, "Run: zavel dict build"};
  }
  return {};
}

std::string sizesText(const std::string& folder, const std::vector<SizedFile>& files, bool complete) {
  std::string text = folder + "\n";
  char line[64];
  for (const SizedFile& file : files) {
    std::snprintf(line, sizeof line, "%-14s %12jd%s\n", file.name.c_str(), intmax_t{file.bytes.value_or(0)},
                  file.bytes   ? ""
                  : file.there ? "  no file"
                               : "  missing");
    text += line;
  }
  std::snprintf(line, sizeof line, "%-14s %12jd%s\n", "together", intmax_t{together(files)},
                complete ? "" : "  incomplete");
  return text + line;
}

void writeSizes(JsonWriter& json, const std::vector<SizedFile>& files) {
  json.key("files").beginArray();
  for (const SizedFile& file : files) {
    json.beginObject().member("name", file.name).key("bytes");
    if (file.bytes) {
      json.integer(*file.bytes);
    } else {
      json.null();
    }
    json.endObject();
  }
  json.endArray().member("bytes", together(files));
}

std::string infoJson(const std::string& folder, bool complete, const std::vector<SizedFile>& basic,
                     const std::string& translationFolder, const std::vector<SizedFile>& translation) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("folder", folder).key("complete").boolean(complete);
  writeSizes(json, basic);
  json.key("translation").beginObject().member("folder", translationFolder);
  json.key("complete").boolean(whole(translation));
  writeSizes(json, translation);
  json.endObject().endObject();
  return json.text() + "\n";
}

}  // namespace

int runDictInfo(bool json) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), json);
  const DictionaryState state = dictionaryIn(places.dictionary);
  Failure failure = dictionaryFailure(places.dictionary, state);
  if (state.none()) return report(failure, json);
  const std::string folder = translationFolder(places.data);
  const std::vector<SizedFile> basic =
      sizesOf(places.dictionary, {kDictionaryFiles.begin(), kDictionaryFiles.end()});
  const std::vector<SizedFile> translation = sizesOf(folder, translationFiles(folder));
  if (json) {
    std::fputs(infoJson(places.dictionary, state.complete(), basic, folder, translation).c_str(), stdout);
  } else {
    std::fputs(sizesText(places.dictionary, basic, state.complete()).c_str(), stdout);
    if (!translation.empty()) std::fputs(sizesText(folder, translation, whole(translation)).c_str(), stdout);
  }
  if (!failure) failure = incomplete(folder, translation);
  return failure ? report(failure, false) : kExitFound;
}

}  // namespace zavel::host
