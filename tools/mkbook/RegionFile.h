// A file of one region's blocks, packed in sets behind their table as they come: one set and the codes that
// wait to be written are all that is held.
#ifndef MKBOOK_REGIONFILE_H
#define MKBOOK_REGIONFILE_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/Storage.h"
#include "mkbook/BlockSetEncoder.h"

namespace zavel::mkbook {

// That packed decimal of four bytes, as addresses in texts are, can tell.
inline constexpr uint64_t kMostBlocks = 99999999;

// All operations throw Failure when the disk refuses.
class RegionFile {
 public:
  // Makes the file. `blocks`: how many of them there will be, since the table comes first; 1 at least.
  RegionFile(const std::string& path, uint32_t blocks);

  // The next bytes of the region. Throws std::logic_error when there are more than the blocks take.
  void append(std::string_view bytes);

  // Zeroes up to the end of the last block, then all of it on the disk. No further use.
  void finish();

  uint64_t size() const { return offset_ + waiting_.size(); }  // bytes of the file so far
  uint32_t blocks() const { return blocks_; }

 private:
  void pack();
  void flush();
  void write(uint64_t offset, std::string_view bytes);

  std::string path_;
  uint32_t blocks_;
  uint64_t left_;  // bytes still to come
  std::unique_ptr<StorageFile> file_;
  BlockSetEncoder encoder_;
  std::string set_;      // of this set so far
  std::string table_;    // where the sets stand
  std::string waiting_;  // packed sets on their way to the file
  uint64_t offset_ = 0;  // of the file's end without them
};

}  // namespace zavel::mkbook

#endif
