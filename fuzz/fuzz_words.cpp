// Any bytes as words: checks, key normalisation, searches on a sound dictionary.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "engine/ChangeMidasi.h"
#include "engine/EngineAPI.h"
#include "engine/MidasiCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 70000) return 0;
  const std::string word(reinterpret_cast<const char*>(data), size);
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
  if (size > 512) return 0;
  fuzz::MemoryStorage disk;
  for (const auto& [name, content] : fuzz::baseDictionary()) disk.files["d/" + name] = content;
  if (InitAPI("d/", nullptr, nullptr) != 1) __builtin_trap();
  fuzz::searchEnglish(word, 1);
  fuzz::searchJapanese(word, 1);
  fuzz::conjugate(word);
  EndAPI();
  return 0;
}
