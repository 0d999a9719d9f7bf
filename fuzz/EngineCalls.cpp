#include "EngineCalls.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/Shim.h"

namespace zavel::fuzz {
namespace {

// Reads every byte of a result and frees it.
void take(uint16_t status, uint32_t size, Handle list) {
  demand(status != 0, "a status is never 0");
  demand((size == 0) == (list == nullptr), "size and list are empty together");
  demand(status == 1 || size == 0, "a failure gives nothing");
  const unsigned char* bytes = static_cast<const unsigned char*>(GlobalLock(list));
  unsigned sum = 0;
  for (uint32_t i = 0; i < size; ++i) sum += bytes[i];
  volatile unsigned sink = sum;
  (void)sink;
  GlobalUnlock(list);
  GlobalFree(list);
}

std::vector<char> buffer(const std::string& word) {
  std::vector<char> bytes(word.c_str(), word.c_str() + std::char_traits<char>::length(word.c_str()) + 1);
  return bytes;
}

}  // namespace

void demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken promise: %s\n", what);
  std::abort();
}

void searchEnglish(const std::string& word, unsigned char dic) {
  uint32_t size = 0;
  Handle list = nullptr;
  for (unsigned char mode = 0; mode < 3; ++mode) {
    const uint16_t status = SerchMidasiE(word.c_str(), mode, &size, &list, dic);
    take(status, size, list);
  }
  for (const unsigned char filter : {0, 3, 4, 5}) {
    std::vector<char> bytes = buffer(word);
    const uint16_t status = SerchImiE(bytes.data(), nullptr, filter, &size, &list, dic);
    take(status, size, list);
  }
  std::vector<char> bytes = buffer(word);
  const uint16_t status = SerchImiE(bytes.data(), word.c_str(), 0, &size, &list, dic);
  take(status, size, list);
}

void searchJapanese(const std::string& word, unsigned char dic) {
  uint32_t size = 0;
  Handle list = nullptr;
  std::vector<char> bytes = buffer(word);
  uint16_t status = SerchMidasiJ(bytes.data(), &size, &list, dic);
  take(status, size, list);
  for (const unsigned char filter : {0, 3, 4, 5}) {
    bytes = buffer(word);
    status = SerchImiJ(bytes.data(), nullptr, filter, &size, &list, dic);
    take(status, size, list);
  }
}

std::string takeBytes(Handle list) {
  if (list == nullptr) return {};
  std::string bytes(static_cast<const char*>(GlobalLock(list)), engine::GlobalSize(list));
  GlobalUnlock(list);
  GlobalFree(list);
  return bytes;
}

void conjugate(const std::string& word) {
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status = GetKatuyo(word.c_str(), &size, &list);
  take(status, size, list);
}

}  // namespace zavel::fuzz
