// A new file in the making, beside the one that it will replace.
#ifndef ENGINE_TEMPORARYFILE_H
#define ENGINE_TEMPORARYFILE_H

#include <string>

#include "engine/FsObj.h"

namespace zavel::engine {

// Gone with this object unless it was moved to its place.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  // Makes the file, read-write and empty, in `folder`.
  bool open(const std::string& folder, const std::string& prefix);
  FsObj* stream() { return &stream_; }
  // Puts its content on the disk and closes it.
  bool finish();
  // Takes the place of `path`, which must be there.
  bool replace(const std::string& path);

 private:
  FsObj stream_;
  std::string path_;
};

}  // namespace zavel::engine

#endif
