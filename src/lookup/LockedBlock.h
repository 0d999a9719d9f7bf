#ifndef LOOKUP_LOCKEDBLOCK_H
#define LOOKUP_LOCKEDBLOCK_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/EngineAPI.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"

namespace zavel {

// The bytes of an engine's block list, locked as long as this object lives. The handle stays its owner's.
class LockedBlock {
 public:
  // `size` is what the engine reported; a block that is shorter, or null, gives what is there.
  LockedBlock(uint32_t size, Handle handle)
      : handle_(handle),
        data_(static_cast<const char*>(GlobalLock(handle))),
        size_(data_ == nullptr ? 0 : std::min<size_t>(size, engine::GlobalSize(handle))) {}
  ~LockedBlock() { GlobalUnlock(handle_); }
  LockedBlock(const LockedBlock&) = delete;
  LockedBlock& operator=(const LockedBlock&) = delete;

  size_t size() const { return size_; }
  size_t left(size_t offset) const { return offset < size_ ? size_ - offset : 0; }

  // Unchecked: the caller has compared the span with left().
  uint8_t byteAt(size_t offset) const { return static_cast<uint8_t>(data_[offset]); }
  uint16_t le16At(size_t offset) const { return readLE16(reinterpret_cast<const uint8_t*>(data_) + offset); }
  uint32_t le32At(size_t offset) const { return readLE32(reinterpret_cast<const uint8_t*>(data_) + offset); }
  std::string textAt(size_t offset, size_t length) const { return std::string(data_ + offset, length); }

 private:
  Handle handle_;     // borrowed
  const char* data_;  // null when the handle is
  size_t size_;
};

// A block list of which the caller became the owner: freed at the end of the scope.
class OwnedBlock {
 public:
  OwnedBlock() = default;
  ~OwnedBlock() { GlobalFree(handle); }
  OwnedBlock(const OwnedBlock&) = delete;
  OwnedBlock& operator=(const OwnedBlock&) = delete;

  uint32_t size = 0;
  Handle handle = nullptr;
};

}  // namespace zavel

#endif
