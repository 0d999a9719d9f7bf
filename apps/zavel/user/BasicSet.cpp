// Tests: tests/zavel/user/UserCommandTest.cpp
#include "user/BasicSet.h"

#include <fstream>
#include <string_view>

#include "Host.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

constexpr uint32_t kHead = 8;  // of a table that another follows

// An index without rows: `tables` of them, each with the offset of the next, the last with its size alone.
std::string emptyIndex(int tables) {
  std::string bytes;
  for (int table = 1; table < tables; ++table) {
    appendLE32(bytes, 0);
    appendLE32(bytes, static_cast<uint32_t>(table) * kHead);
  }
  appendLE32(bytes, 0);
  return bytes;
}

std::string emptyFile(std::string_view name) {
  if (!name.ends_with(".idx")) return {};
  if (name == "katu.idx") return emptyIndex(1);
  return emptyIndex(name == "ej.idx" || name == "hase.idx" ? 3 : 2);
}

}  // namespace

std::string BasicSet::path(bool empty) {
  if (!empty && dictionaryIn(dictionary_).complete()) return dictionary_ + "/";
  if (!folder_.path().empty()) return folder_.path() + "/";
  if (!folder_.make()) return {};
  for (const char* name : kDictionaryFiles) {
    std::ofstream file(folder_.path() + "/" + name, std::ios::binary);
    file << emptyFile(name);
    if (!file.flush()) return {};
  }
  return folder_.path() + "/";
}

}  // namespace zavel::host
