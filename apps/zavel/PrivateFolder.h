// A folder for files that pass between this process and its helper programs, gone with it.
#ifndef ZAVEL_PRIVATEFOLDER_H
#define ZAVEL_PRIVATEFOLDER_H

#include <string>

namespace zavel::host {

class PrivateFolder {
 public:
  PrivateFolder() = default;
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  // Makes it in the folder for temporary files, TMPDIR or /tmp, open to this user alone. False when it can't
  // be made.
  bool make();

  // Absolute, without a trailing delimiter; empty before make().
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zavel::host

#endif
