// Damaged basic dictionaries under every search: index and block readers, entry scans, filters, conjugation.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/EngineAPI.h"
#include "support/DicWriter.h"

namespace {

using namespace zavel::fuzz;

void searchEnglishSide(const std::string& word) {
  for (const char* english : {"go", "cha", "colour", "goer", "a"}) searchEnglish(english, 1);
  for (const char* english : {"went", "churches"}) conjugate(english);
  searchEnglish(word, 1);
  conjugate(word);
}

void searchJapaneseSide(const std::string& word) {
  for (const char* japanese : {"いく", "行く", "こう", "か", "公園"})
    searchJapanese(zavel::test::sjis(japanese), 1);
  searchJapanese(word, 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  Input input(data, size);
  const std::string word = input.shortText();
  std::map<std::string, std::string> files = baseDictionary();
  damage(input, files, baseNames());
  MemoryStorage disk;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", nullptr, nullptr) != 1) return 0;
  const Sides sides = changedSides(files);
  if (sides.english) searchEnglishSide(word);
  if (sides.japanese) searchJapaneseSide(word);
  EndAPI();
  return 0;
}
