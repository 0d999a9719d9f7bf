// Damaged basic dictionaries under every search: index and block readers, entry scans, filters, conjugation.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/EngineAPI.h"
#include "support/DicWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::fuzz;
  static const std::vector<std::string> names = {"ej.dic",   "ej.ix3",   "ej.idx",   "hase.ix3", "hase.idx",
                                                 "katu.dic", "katu.ix3", "katu.idx", "je.dic",   "je.ix3",
                                                 "je.idx",   "ke.ix3",   "ke.idx"};
  static const std::vector<std::string> japanese = {zavel::test::sjis("いく"), zavel::test::sjis("行く"),
                                                    zavel::test::sjis("こう"), zavel::test::sjis("か"),
                                                    zavel::test::sjis("公園")};
  if (size > 4096) return 0;
  Input input(data, size);
  std::map<std::string, std::string> files = baseDictionary();
  damage(input, files, names);
  MemoryStorage disk;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", nullptr, nullptr) == 1) {
    for (const char* word : {"go", "cha", "chart", "colour", "goer", "churches", "went", "better", "a"}) {
      searchEnglish(word, 1);
      conjugate(word);
    }
    for (const std::string& word : japanese) searchJapanese(word, 1);
    EndAPI();
  }
  return 0;
}
