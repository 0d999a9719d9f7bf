// Where the system's fixed places stand.
#ifndef PLATFORM_FOLDERS_H
#define PLATFORM_FOLDERS_H

#include <string>

namespace zavel {

class Folders {
 public:
  virtual ~Folders() = default;

  // The folder that stands for "/" in the system's fixed places, such as
  // "/Library/Application Support/...", without a trailing delimiter. UTF-8.
  virtual std::string root() = 0;

  // The current user's home folder as the system sees it: what "~" stands for in the path table.
  // Empty on failure.
  virtual std::string home() = 0;
};

}  // namespace zavel

#endif
