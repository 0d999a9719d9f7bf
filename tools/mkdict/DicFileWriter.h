// A .dic file in the making: entries one after the other.
#ifndef MKDICT_DICFILEWRITER_H
#define MKDICT_DICFILEWRITER_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkdict {

class DicFileWriter {
 public:
  static constexpr uint32_t kNowhere = 0xFFFFFFFF;

  explicit DicFileWriter(size_t entries) : offsets_(entries, kNowhere) {}

  // Appends entry number `entry`, unless it stands there already. False when the file would pass what a
  // block can point at.
  bool append(size_t entry, std::string_view text);

  // By entry number, kNowhere for one that was not appended.
  const std::vector<uint32_t>& offsets() const { return offsets_; }
  size_t count() const { return count_; }
  std::string takeBytes() { return std::move(bytes_); }

  // Why a text can be no entry of the basic set, null if it can: it must begin with the entry tag, hold no
  // second one, end its last line and stay below 65,535 bytes.
  static const char* fault(std::string_view text);

 private:
  std::vector<uint32_t> offsets_;
  std::string bytes_;
  size_t count_ = 0;
};

}  // namespace zavel::mkdict

#endif
