// What the command line gives to `zavel book`, and its commands. Each gives the exit status.
#ifndef ZAVEL_BOOK_BOOKOPTIONS_H
#define ZAVEL_BOOK_BOOKOPTIONS_H

#include <string>

namespace zavel::host {

struct BookOptions {
  std::string book;  // a name or a path
  bool plain = false;
  bool json = false;
};

int runBookList(const BookOptions& options);
int runBookInfo(const BookOptions& options);

}  // namespace zavel::host

#endif
