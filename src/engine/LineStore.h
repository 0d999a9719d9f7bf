// Keeps the lines of one search side by side: fifty small strings of their own cost more than building them.
#ifndef ENGINE_LINESTORE_H
#define ENGINE_LINESTORE_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace zavel::engine {

class LineStore {
 public:
  LineStore() = default;
  LineStore(const LineStore&) = delete;
  LineStore& operator=(const LineStore&) = delete;

  // A copy of `line` that lasts as long as the store.
  std::string_view keep(std::string_view line) {
    if (line.size() > left_) grow(line.size());
    std::memcpy(next_, line.data(), line.size());
    const std::string_view kept(next_, line.size());
    next_ += line.size();
    left_ -= line.size();
    return kept;
  }

 private:
  static constexpr size_t kChunk = 4096;

  void grow(size_t least) {
    left_ = std::max(least, kChunk);
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(left_));
    next_ = chunks_.back().get();
  }

  std::array<char, kChunk> first_;  // as much as a list usually takes
  std::vector<std::unique_ptr<char[]>> chunks_;
  char* next_ = first_.data();
  size_t left_ = kChunk;  // bytes free at next_
};

}  // namespace zavel::engine

#endif
