// The system's fixed places on Linux: all below one folder of the user's.
#ifndef PORT_LINUX_BASE_LINUXFOLDERS_H
#define PORT_LINUX_BASE_LINUXFOLDERS_H

#include "platform/Folders.h"

namespace zavel {

// The root is the first of these that is an absolute path other than "/":
//   $ZAVEL_ROOT, $XDG_DATA_HOME/zavel, $HOME/.local/share/zavel, the same below the home folder that the
//   user database tells.
// home() is the root too, so that a place such as "~/Library/..." never lands among the user's own files.
// Without any of them root() is a path at which nothing can ever be made, and home() is empty.
class LinuxFolders : public Folders {
 public:
  std::string root() override;
  std::string home() override;
};

}  // namespace zavel

#endif
