// A line under construction. Like a string, but room for a usual line is at hand and a short run of bytes is
// appended without a call: a list of fifty lines takes some two hundred of them.
#ifndef ENGINE_LINEBUFFER_H
#define ENGINE_LINEBUFFER_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace zavel::engine {

class LineBuffer {
 public:
  LineBuffer() = default;
  LineBuffer(const LineBuffer&) = delete;
  LineBuffer& operator=(const LineBuffer&) = delete;

  size_t size() const { return size_; }
  // Borrowed until the next change.
  std::string_view view() const { return {data_, size_}; }
  // Cuts the line; `size` is at most size().
  void truncate(size_t size) { size_ = size; }

  void push_back(char c) {
    if (room_ == size_) grow(1);
    data_[size_++] = c;
  }
  // Appends `size` bytes of `text` from `at` on, which must be there.
  void append(std::string_view text, size_t at, size_t size) {
    if (room_ - size_ < std::max(size, kShort)) grow(std::max(size, kShort));
    if (size <= kShort && text.size() - at >= kShort) {
      std::memcpy(data_ + size_, text.data() + at, kShort);
    } else {
      std::memcpy(data_ + size_, text.data() + at, size);
    }
    size_ += size;
  }

 private:
  static constexpr size_t kShort = 32;  // copied whole: what is too much is overwritten or cut
  static constexpr size_t kUsual = 512;

  void grow(size_t more) {
    room_ = std::max(2 * room_, size_ + more);
    auto next = std::make_unique_for_overwrite<char[]>(room_);
    std::memcpy(next.get(), data_, size_);
    large_ = std::move(next);
    data_ = large_.get();
  }

  std::array<char, kUsual> usual_;
  std::unique_ptr<char[]> large_;
  char* data_ = usual_.data();
  size_t size_ = 0;
  size_t room_ = kUsual;
};

}  // namespace zavel::engine

#endif
