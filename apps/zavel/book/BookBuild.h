// What the command line gives to `zavel book build`.
#ifndef ZAVEL_BOOK_BOOKBUILD_H
#define ZAVEL_BOOK_BOOKBUILD_H

#include <string>
#include <vector>

namespace zavel::host {

struct BookBuildOptions {
  std::vector<std::string> names;  // none: the usual ones
  bool all = false;                // every source that is installed
  bool list = false;               // tell the sources instead
  bool ifMissing = false;
  bool verify = false;  // compare with the source instead
  bool quiet = false;
  std::string form, source;  // of one book whose source has no name
  std::string title;
  std::string progress = "auto";
};

}  // namespace zavel::host

#endif
