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
  // A word to search for: its length, at most 31, and its bytes.
  std::string shortText() { return bytes(byte() & 0x1F); }

 private:
  const uint8_t* data_;  // borrowed
  size_t left_;
};

// Damages whole files by what the input says, one operation after the other: the file's number, the
// operation, a place (low byte first), then what the operation takes. So a fuzzer starts from files in which
// every reader gets far.
//
//   00 to 7F  sets one byte           B0 to BE  cuts the file there    E0 to EF  adds copies of 1 to 16
//   bytes: 80 to 9F  sets two bytes          BF        removes the file                 how many, then the
//   bytes A0 to AF  sets four bytes         C0 to DF  inserts 0 to 31 bytes  F0 to FF  replaces the whole
void damage(Input& input, std::map<std::string, std::string>& files, const std::vector<std::string>& names);

}  // namespace zavel::fuzz

#endif
