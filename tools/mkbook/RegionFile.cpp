// Tests: tests/mkbook/RegionFileTest.cpp
#include "mkbook/RegionFile.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/Failure.h"

namespace zavel::mkbook {
namespace {

using book::kBlock;
using book::kSet;
using book::kSetTable;

constexpr size_t kWaiting = size_t{1} << 20;

}  // namespace

RegionFile::RegionFile(const std::string& path, uint32_t blocks)
    : path_(path), blocks_(blocks), left_(uint64_t{blocks} * kBlock) {
  errno = 0;
  file_ = storage().open(path, OpenMode::kCreate);
  if (!file_) throw writeFailure("making " + path_);
  const uint64_t sets = (left_ + kSet - 1) / kSet;
  offset_ = kSetTable + 4 * sets;
}

void RegionFile::append(std::string_view bytes) {
  if (bytes.size() > left_) throw std::logic_error(path_ + ": more blocks than were announced");
  left_ -= bytes.size();
  while (!bytes.empty()) {
    const size_t part = std::min(bytes.size(), kSet - set_.size());
    set_ += bytes.substr(0, part);
    bytes.remove_prefix(part);
    if (set_.size() == kSet) pack();
  }
}

// Tables hold 32 bits: a region of more than 4 GB can't be addressed.
void RegionFile::pack() {
  if (size() > UINT32_MAX) {
    throw Failure(mkdict::kExitDamaged, "too_large", path_ + " would have more than 4 GB",
                  "Take a smaller source.");
  }
  appendBE32(table_, static_cast<uint32_t>(size()));
  waiting_ += encoder_.encode(set_);
  set_.clear();
  if (waiting_.size() >= kWaiting) flush();
}

void RegionFile::flush() {
  write(offset_, waiting_);
  offset_ += waiting_.size();
  waiting_.clear();
}

void RegionFile::write(uint64_t offset, std::string_view bytes) {
  errno = 0;
  if (!file_->writeAt(offset, bytes)) throw writeFailure("writing " + path_);
}

void RegionFile::finish() {
  while (left_ > 0) append(std::string(static_cast<size_t>(std::min<uint64_t>(left_, kSet)), '\0'));
  if (!set_.empty()) pack();
  flush();
  write(0, std::string(kSetTable, '\0') + table_);
  errno = 0;
  if (!file_->sync() || !file_->close()) throw writeFailure("writing " + path_);
}

}  // namespace zavel::mkbook
