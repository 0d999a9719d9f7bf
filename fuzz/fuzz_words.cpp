// Any bytes as words: checks, key normalisation, searches on a sound dictionary.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "engine/ChangeMidasi.h"
#include "engine/EngineAPI.h"
#include "engine/MidasiCheck.h"

namespace {

using namespace zavel;

void check(const std::string& word) {
  std::string key;
  engine::ChangeMidasiStrE(word);
  for (uint16_t type = 0; type <= 6; ++type) {
    engine::ChangeMidasi(word, type, &key);
    engine::CheckInput(word.c_str(), type);
  }
  engine::ChkMidasiStrJ(word.c_str());
  engine::ChkMidasiStrK(word.c_str());
  engine::ChkMixStr(word.c_str());
  engine::Chk1ByteStr(word.c_str());
}

void search(const std::string& word) {
  fuzz::MemoryStorage disk;
  for (const auto& [name, content] : fuzz::baseDictionary()) disk.files["d/" + name] = content;
  fuzz::demand(InitAPI("d/", nullptr, nullptr) == 1, "a sound set opens");
  fuzz::searchEnglish(word, 1);
  fuzz::searchJapanese(word, 1);
  fuzz::conjugate(word);
  EndAPI();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 70000) return 0;
  const std::string word(reinterpret_cast<const char*>(data), size);
  check(word);
  search(word);
  return 0;
}
