// First byte even: damage of a small dictd dictionary, its text packed (see Input.h), in which words are then
// looked up. Odd: the rest is a line in EDICT form.
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "dicttool/DictdDictionary.h"
#include "dicttool/EdictEntry.h"
#include "dicttool/EnglishBases.h"
#include "dicttool/EntryLine.h"
#include "foundation/Utf8.h"
#include "support/DictdFiles.h"

namespace {

using namespace zavel;
using namespace zavel::dicttool;

const std::map<std::string, std::string>& baseFiles() {
  static const std::map<std::string, std::string> files = [] {
    test::DictdFiles base;
    base.entry("00-database-utf8\n", {"00databaseutf8"});
    base.entry("cat /kæt/ <n>\n猫 2.\ndomestic species\n", {"cat"})
        .entry("cat burglar\n怪盗\n", {"cat burglar"});
    base.entry("猫 [ねこ]\n(noun) cat\n", {"猫"});
    return std::map<std::string, std::string>{{"d.index", base.index()},
                                              {"d.dict.dz", test::dictzip(base.text(), 24, "d.dict")}};
  }();
  return files;
}

void lookUp(fuzz::Input& input) {
  std::map<std::string, std::string> files = baseFiles();
  fuzz::damage(input, files, {"d.index", "d.dict.dz"});
  fuzz::MemoryStorage disk;
  disk.files = files;
  DictdDictionary dictionary;
  std::string error;
  if (!dictionary.open("d.index", &error)) {
    fuzz::demand(!error.empty(), "a refusal says why");
    return;
  }
  for (const char* word : {"cat", "猫", "00-database-utf8", "zebra"}) {
    DictdMatches matches;
    error.clear();
    fuzz::demand(dictionary.find(word, 10, &matches, &error) == error.empty(), "only damage is told of");
    fuzz::demand(matches.entries.size() <= 10, "no more than asked for");
    for (const DictdEntry& entry : matches.entries) {
      fuzz::demand(isValidUtf8(entryLine(entry)), "lines are UTF-8");
    }
  }
}

void readLine(const std::string& line) {
  for (const std::vector<std::string>& alternatives : englishBases(line)) {
    for (const std::string& base : alternatives)
      fuzz::demand(base.size() <= line.size() + 1, "bases are short");
  }
  EdictEntry entry;
  if (!isValidUtf8(line) || !EdictEntry::parse(line, &entry)) return;
  fuzz::demand(isValidUtf8(entry.text(false)) && isValidUtf8(entry.text(true)), "texts are UTF-8");
  for (const bool names : {false, true}) {
    for (const EdictKey& key : entry.keys(names)) {
      fuzz::demand(isValidUtf8(key.word) && key.rank >= 0 && key.rank < 16, "words are UTF-8");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  zavel::fuzz::Input input(data, size);
  if (input.byte() % 2 == 0) {
    lookUp(input);
  } else {
    readLine(input.rest());
  }
  return 0;
}
