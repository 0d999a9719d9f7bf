// How many entries a walk over a whole user set may meet. Each entry of a sound set stands once in its .dic
// file; a damaged index whose rows all lead to the same block would keep a walk busy for hours.
#ifndef ENGINE_ENTRYBOUND_H
#define ENGINE_ENTRYBOUND_H

#include <cstddef>
#include <cstdint>

#include "engine/Index3.h"

namespace zavel::engine {

class EntryBound {
 public:
  // Of the user set that `type` belongs to, whose streams are open.
  explicit EntryBound(uint16_t type) {
    FsObj* stream = DicStream(type, kSetUser);
    const int64_t size = stream == nullptr ? 0 : stream->Size();
    left_ = size > 0 ? static_cast<size_t>(size) / kLeastEntry : 0;
  }

  // Counts entries; false when there are more than can be.
  bool take(size_t entries) {
    if (entries > left_) return false;
    left_ -= entries;
    return true;
  }

 private:
  // Tag, a character, line feed.
  static constexpr size_t kLeastEntry = 4;

  size_t left_ = 0;
};

}  // namespace zavel::engine

#endif
