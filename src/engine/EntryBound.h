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
    const int64_t size = stream == nullptr ? -1 : stream->Size();
    known_ = size >= 0;
    if (known_) left_ = static_cast<size_t>(size) / kLeastEntry;
  }

  // Counts entries; kInternal when there are more than can be, kFileError when that isn't known.
  Status take(size_t entries) {
    if (!known_) return kFileError;
    if (entries > left_) return kInternal;
    left_ -= entries;
    return kOk;
  }

 private:
  // Tag, a character, line feed.
  static constexpr size_t kLeastEntry = 4;

  bool known_ = false;
  size_t left_ = 0;
};

}  // namespace zavel::engine

#endif
