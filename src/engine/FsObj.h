// A stream of the engine: named once, opened and closed inside each call.
#ifndef ENGINE_FSOBJ_H
#define ENGINE_FSOBJ_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/Storage.h"

namespace zavel::engine {

class FsObj {
 public:
  FsObj() = default;
  FsObj(const FsObj&) = delete;
  FsObj& operator=(const FsObj&) = delete;

  bool IsOpen() const { return file_ != nullptr; }

  // Clears the stream's state and opens an existing file. The result is whether it is open.
  bool Open(const std::string& path, bool readOnly);
  // Opens read-write, made anew or cut to nothing.
  bool Create(const std::string& path);
  // Closes and forgets what was read ahead. A closed stream is passed over. False when closing failed.
  bool Close();

  // Bytes in the file; -1 on an error or when closed.
  int64_t Size();

  // Exactly `length` bytes from `offset`. False on a short read, an error or a closed stream.
  bool ReadExact(uint64_t offset, void* out, size_t length);

  // Bytes from `offset` on: at least `atLeast` of them unless the file ends first, more where they are at
  // hand. The view is borrowed and lasts until the next read or Close. Reading rows that lie one after the
  // other shares the reads: the window grows while reads go forward. False on an error or a closed stream;
  // an offset at or past the end gives an empty view and true.
  bool ReadWindow(uint64_t offset, size_t atLeast, std::string_view* view) {
    if (!file_ || (!InWindow(offset, atLeast) && !FillWindow(offset, atLeast))) return false;
    *view = std::string_view(window_.data(), windowSize_).substr(offset - windowOffset_);
    return true;
  }

  // Appends at the end and reports where the bytes went. False also when the file would pass what a
  // 32-bit offset reaches; a part that was written is cut off again where that is possible.
  bool Append(std::string_view bytes, uint32_t* offset);
  bool WriteAt(uint64_t offset, std::string_view bytes);
  // True when all that was written is on the disk.
  bool Sync();

 private:
  // Drops what was read ahead.
  void Forget();
  bool InWindow(uint64_t offset, size_t atLeast) const {
    if (offset < windowOffset_ || offset - windowOffset_ > windowSize_) return false;
    return windowAtEnd_ || windowSize_ - (offset - windowOffset_) >= atLeast;
  }
  bool FillWindow(uint64_t offset, size_t atLeast);

  std::unique_ptr<StorageFile> file_;
  std::string window_;         // room for bytes read ahead; kept from one opening to the next
  size_t windowSize_ = 0;      // bytes in it
  uint64_t windowOffset_ = 0;  // file offset of window_[0]
  bool windowAtEnd_ = false;   // the file ends with the window
  size_t nextWindow_ = 0;      // bytes that the last read aimed at
};

}  // namespace zavel::engine

#endif
