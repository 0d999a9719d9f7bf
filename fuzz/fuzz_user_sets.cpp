// Damaged user sets opened beside a sound basic dictionary: headers, counts, continuation indexes; searches
// through the interface, and what locates the rows of one word.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/DicFormat.h"
#include "engine/EngineAPI.h"
#include "engine/Frame.h"
#include "engine/Index3.h"
#include "engine/UserImi.h"
#include "support/DicWriter.h"

namespace {

using namespace zavel;

// Fills what the operations on single user entries begin with.
void locate(const std::string& word, uint16_t type) {
  engine::index_info info;
  info.word = word;
  if (engine::GetIdxInfo(&info, type) != engine::kOk) return;
  fuzz::demand(info.ix3Matches <= info.ix3Count, "no more matches than rows");
  std::vector<uint32_t> offsets;
  engine::GetDicOfset(type, engine::kSetUser, info.ix3Offset, &offsets);
  const std::string key = info.word;
  std::string block;
  uint16_t count = 0;
  engine::SrchUserImi(type, key, &info, &block, &count);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::vector<std::string> names = {"ueej.dic",  "ueej.ix3",  "ueej.idx",
                                                 "ujje.dic",  "ujkna.idx", "ujkna.ix3",
                                                 "ujkji.idx", "ujkji.ix3", "uj001.idx"};
  static const std::string kana = test::sjis("いく"), kanji = test::sjis("行く");
  if (size > 4096) return 0;
  fuzz::Input input(data, size);
  const std::string word = input.shortText();
  std::map<std::string, std::string> files = fuzz::baseUserSets();
  fuzz::damage(input, files, names);
  fuzz::MemoryStorage disk;
  for (const auto& [name, content] : fuzz::baseDictionary()) disk.files["d/" + name] = content;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", "d/ue", "d/uj") != 1) return 0;
  for (const unsigned char dic : {2, 3}) {
    for (const std::string& english : {std::string("go"), std::string("church"), word})
      fuzz::searchEnglish(english, dic);
    for (const std::string& japanese : {kana, kanji, word}) fuzz::searchJapanese(japanese, dic);
  }
  if (engine::OpenFsObjsUserE(false, true)) locate("go", engine::kTypeE);
  engine::CloseFsObjsUserE();
  if (engine::OpenFsObjsUserJ(false, true) == engine::kOk) {
    locate(kana, engine::kTypeKana);
    locate(kanji, engine::kTypeKji);
  }
  engine::CloseFsObjsUserJ();
  EndAPI();
  return 0;
}
