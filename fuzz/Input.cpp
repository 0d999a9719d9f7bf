#include "Input.h"

#include <algorithm>

namespace zavel::fuzz {
namespace {

// Large enough for blocks of every size that the formats know.
constexpr size_t kMaxFile = size_t{128} << 10;

void overwrite(Input& input, std::string& file, size_t at, size_t length) {
  const std::string bytes = input.bytes(std::min(length, file.size() - at));
  file.replace(at, bytes.size(), bytes);
}

void addCopies(Input& input, std::string& file, size_t at, size_t wanted, size_t length) {
  const std::string bytes = input.bytes(length);
  if (bytes.empty() || file.size() >= kMaxFile) return;
  const size_t count = std::min(wanted, (kMaxFile - file.size()) / bytes.size());
  std::string copies;
  for (size_t i = 0; i < count; ++i) copies += bytes;
  file.insert(at, copies);
}

}  // namespace

void damage(Input& input, std::map<std::string, std::string>& files, const std::vector<std::string>& names) {
  while (!input.done()) {
    const std::string& name = names[input.byte() % names.size()];
    std::string& file = files[name];
    const uint8_t what = input.byte();
    const size_t at = input.word() % (file.size() + 1);  // the end is a place too
    if (what < 0x80) {
      overwrite(input, file, at, 1);
    } else if (what < 0xA0) {
      overwrite(input, file, at, 2);
    } else if (what < 0xB0) {
      overwrite(input, file, at, 4);
    } else if (what < 0xBF) {
      file.resize(at);
    } else if (what == 0xBF) {
      files.erase(name);
    } else if (what < 0xE0) {
      file.insert(at, input.bytes(what & 0x1F));
    } else if (what < 0xEF) {
      addCopies(input, file, at, input.byte(), (what & 0x0F) + 1u);
    } else if (what == 0xEF) {
      addCopies(input, file, at, input.word(), 8);
    } else {
      file = input.bytes(input.word());
    }
  }
}

}  // namespace zavel::fuzz
