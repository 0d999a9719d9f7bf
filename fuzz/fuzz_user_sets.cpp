// Damaged user sets opened beside a sound basic dictionary: headers, counts, continuation indexes.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/EngineAPI.h"
#include "support/DicWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::fuzz;
  static const std::vector<std::string> names = {"ueej.dic",  "ueej.ix3",  "ueej.idx",
                                                 "ujje.dic",  "ujkna.idx", "ujkna.ix3",
                                                 "ujkji.idx", "ujkji.ix3", "uj001.idx"};
  static const std::string kana = zavel::test::sjis("いく"), kanji = zavel::test::sjis("行く");
  if (size > 4096) return 0;
  Input input(data, size);
  std::map<std::string, std::string> files = baseUserSets();
  damage(input, files, names);
  MemoryStorage disk;
  for (const auto& [name, content] : baseDictionary()) disk.files["d/" + name] = content;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", "d/ue", "d/uj") == 1) {
    for (const unsigned char dic : {2, 3}) {
      searchEnglish("go", dic);
      searchEnglish("church", dic);
      searchJapanese(kana, dic);
      searchJapanese(kanji, dic);
    }
    EndAPI();
  }
  return 0;
}
