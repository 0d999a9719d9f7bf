// Damaged basic dictionaries under every search: index and block readers, entry scans, filters, conjugation.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/EngineAPI.h"
#include "support/DicWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::fuzz;
  static const std::vector<std::string> japanese = {zavel::test::sjis("いく"), zavel::test::sjis("行く"),
                                                    zavel::test::sjis("こう"), zavel::test::sjis("か"),
                                                    zavel::test::sjis("公園")};
  if (size > 4096) return 0;
  Input input(data, size);
  const std::string word = input.shortText();
  std::map<std::string, std::string> files = baseDictionary();
  damage(input, files, baseNames());
  MemoryStorage disk;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", nullptr, nullptr) == 1) {
    for (const std::string& english : {std::string("go"), std::string("cha"), std::string("colour"),
                                       std::string("goer"), std::string("a"), word}) {
      searchEnglish(english, 1);
    }
    for (const std::string& english : {std::string("went"), std::string("churches"), word})
      conjugate(english);
    for (const std::string& one : japanese) searchJapanese(one, 1);
    searchJapanese(word, 1);
    EndAPI();
  }
  return 0;
}
