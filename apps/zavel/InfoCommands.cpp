// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "InfoCommands.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "ExitStatus.h"
#include "Failure.h"
#include "Host.h"
#include "JsonWriter.h"
#include "PlacesInUse.h"
#include "Version.h"
#include "book/BookPlaces.h"

namespace zavel::host {
namespace {

struct DataSource {
  const char* name;
  const char* package;  // of the distribution
  const char* use;
  const char* licence;
  const char* home;
};

constexpr DataSource kSources[] = {
    {"FreeDict English-Japanese (FreeDict and WikDict, from Wiktionary)", "dict-freedict-eng-jpn",
     "English entries", "Creative Commons Attribution-ShareAlike 3.0", "https://freedict.org/"},
    {"EDICT (Electronic Dictionary Research and Development Group)", "edict",
     "Japanese entries, and English entries made from them",
     "Creative Commons Attribution-ShareAlike 3.0, EDRDG licence statement",
     "https://www.edrdg.org/edrdg/licence.html"},
    {"WordNet 3.0 (Princeton University)", "wordnet-base", "irregular forms, derivation, frequency",
     "WordNet 3.0 license", "https://wordnet.princeton.edu/"},
    {"ENAMDICT (Electronic Dictionary Research and Development Group)", "enamdict",
     "proper nouns of the translation dictionary",
     "Creative Commons Attribution-ShareAlike 3.0, EDRDG licence statement",
     "https://www.edrdg.org/edrdg/licence.html"},
    {"COMPDIC (Electronic Dictionary Research and Development Group)", "edict",
     "technical terms of the translation dictionary",
     "Creative Commons Attribution-ShareAlike 3.0, EDRDG licence statement",
     "https://www.edrdg.org/edrdg/licence.html"},
    {"WordNet 3.0 (Princeton University)", "dict-wn", "the book wordnet", "WordNet 3.0 license",
     "https://wordnet.princeton.edu/"},
    {"KANJIDIC (Electronic Dictionary Research and Development Group)", "kanjidic", "the book kanjidic",
     "Creative Commons Attribution-ShareAlike 3.0, EDRDG licence statement",
     "https://www.edrdg.org/edrdg/licence.html"},
};

using Rows = std::vector<std::pair<const char*, std::string>>;

Rows placeRows(const Places& places) {
  return {{"data", places.data},     {"dictionary", places.dictionary}, {"books", booksFolder()},
          {"config", places.config}, {"state", places.state},           {"cache", places.cache},
          {"root", places.root},     {"path_table", pathTableFile()}};
}

}  // namespace

int runPaths(bool json) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), json);
  warnOfDamagedPathTable();
  JsonWriter writer;
  writer.beginObject().member("schema", 1);
  for (const auto& [name, path] : placeRows(places)) {
    if (json) {
      writer.member(name, path);
    } else {
      std::printf("%-10s  %s\n", name, path.c_str());
    }
  }
  writer.endObject();
  if (json) std::printf("%s\n", writer.text().c_str());
  return kExitFound;
}

int runAbout(bool json) {
  if (json) {
    JsonWriter writer;
    writer.beginObject().member("schema", 1).member("name", "ZavelLex").member("version", kVersion);
    writer.member("license", "Apache-2.0").key("sources").beginArray();
    for (const DataSource& source : kSources) {
      writer.beginObject().member("name", source.name).member("package", source.package);
      writer.member("use", source.use).member("license", source.licence).member("home", source.home);
      writer.endObject();
    }
    writer.endArray().endObject();
    std::printf("%s\n", writer.text().c_str());
    return kExitFound;
  }
  std::printf("ZavelLex %s, English and Japanese dictionary. Licence: Apache-2.0.\n\n", kVersion);
  std::printf("The dictionary is compiled on this machine from open data:\n");
  for (const DataSource& source : kSources) {
    std::printf("\n  %s\n    for: %s\n    package: %s\n    licence: %s\n    %s\n", source.name, source.use,
                source.package, source.licence, source.home);
  }
  return kExitFound;
}

}  // namespace zavel::host
