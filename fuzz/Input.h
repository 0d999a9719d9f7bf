// Takes a fuzzer's bytes apart.
#ifndef FUZZ_INPUT_H
#define FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zavel::fuzz {

class Input {
 public:
  Input(const uint8_t* data, size_t size) : data_(data), left_(size) {}

  bool done() const { return left_ == 0; }
  uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }
  uint16_t word() {
    const uint16_t low = byte();
    return static_cast<uint16_t>(low | byte() << 8);
  }
  std::string bytes(size_t length) {
    std::string out;
    while (out.size() < length && left_ > 0) out.push_back(static_cast<char>(byte()));
    return out;
  }
  std::string rest() { return bytes(left_); }

 private:
  const uint8_t* data_;  // borrowed
  size_t left_;
};

// Damages whole files by what the input says: set bytes, cut, insert, replace whole. So a fuzzer starts from
// files in which every reader gets far.
inline void damage(Input& input, std::map<std::string, std::string>& files,
                   const std::vector<std::string>& names) {
  while (!input.done()) {
    std::string& file = files[names[input.byte() % names.size()]];
    const uint8_t what = input.byte();
    const size_t at = file.empty() ? 0 : input.word() % file.size();
    if (what < 0xA0 && !file.empty()) {
      file[at] = static_cast<char>(input.byte());
    } else if (what < 0xC0) {
      file.resize(at);
    } else if (what < 0xF0) {
      file.insert(at, input.bytes(what & 0x0F));
    } else {
      file = input.bytes(input.word());
    }
  }
}

}  // namespace zavel::fuzz

#endif
