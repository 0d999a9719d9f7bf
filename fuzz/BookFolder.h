// A small book in memory, under the fuzzers' calls.
#ifndef FUZZ_BOOKFOLDER_H
#define FUZZ_BOOKFOLDER_H

#include <map>
#include <string>

#include "MemoryStorage.h"

namespace zavel::fuzz {

// The sound small book's files (tests/support/SmallBook.h).
const std::map<std::string, std::string>& baseBook();

// Its files with some exchanged, open for as long as it lives.
class BookFolder {
 public:
  explicit BookFolder(const std::map<std::string, std::string>& exchanged);
  ~BookFolder();
  BookFolder(const BookFolder&) = delete;
  BookFolder& operator=(const BookFolder&) = delete;

  // Null when the book can't be opened.
  void* handle() const { return handle_; }

 private:
  MemoryStorage disk_;
  void* handle_ = nullptr;
};

}  // namespace zavel::fuzz

#endif
