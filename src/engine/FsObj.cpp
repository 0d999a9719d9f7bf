// Tests: tests/engine/FsObjTest.cpp
#include "engine/FsObj.h"

#include <algorithm>
#include <cstring>

namespace zavel::engine {
namespace {

// What a lone read of one entry takes; reads that go on forward double it, up to what a list of fifty
// entries takes.
constexpr size_t kSmallWindow = 1024;
constexpr size_t kLargeWindow = 65536;

}  // namespace

bool FsObj::Open(const std::string& path, bool readOnly) {
  Close();
  file_ = storage().open(path, readOnly ? OpenMode::kRead : OpenMode::kReadWrite);
  return IsOpen();
}

bool FsObj::Create(const std::string& path) {
  Close();
  file_ = storage().open(path, OpenMode::kCreate);
  return IsOpen();
}

bool FsObj::Close() {
  Forget();
  if (!file_) return true;
  const bool closed = file_->close();
  file_.reset();
  return closed;
}

void FsObj::Forget() {
  windowSize_ = 0;
  windowOffset_ = 0;
  windowAtEnd_ = false;
  nextWindow_ = kSmallWindow;
}

int64_t FsObj::Size() {
  return file_ ? file_->size() : -1;
}

bool FsObj::ReadExact(uint64_t offset, void* out, size_t length) {
  if (!file_) return false;
  return file_->readAt(offset, out, length) == static_cast<int64_t>(length);
}

bool FsObj::FillWindow(uint64_t offset, size_t atLeast) {
  const bool forward =
      windowSize_ > 0 && offset >= windowOffset_ && offset - windowOffset_ <= windowSize_ + nextWindow_;
  nextWindow_ = forward ? std::min(nextWindow_ * 2, kLargeWindow) : kSmallWindow;
  const size_t wanted = std::max(atLeast, nextWindow_);
  if (window_.size() < wanted) window_.resize(wanted);
  const int64_t got = file_->readAt(offset, window_.data(), wanted);
  windowSize_ = static_cast<size_t>(std::max<int64_t>(got, 0));
  windowOffset_ = offset;
  windowAtEnd_ = got >= 0 && static_cast<size_t>(got) < wanted;
  return got >= 0;
}

bool FsObj::Append(std::string_view bytes, uint32_t* offset) {
  const int64_t end = Size();
  if (end < 0 || static_cast<uint64_t>(end) + bytes.size() > UINT32_MAX) return false;
  if (!WriteAt(static_cast<uint64_t>(end), bytes)) {
    // A part that stayed would seem to belong to what stands ahead of it.
    file_->truncate(static_cast<uint64_t>(end));
    return false;
  }
  *offset = static_cast<uint32_t>(end);
  return true;
}

bool FsObj::WriteAt(uint64_t offset, std::string_view bytes) {
  Forget();
  return file_ && file_->writeAt(offset, bytes);
}

bool FsObj::Sync() {
  return file_ && file_->sync();
}

}  // namespace zavel::engine
