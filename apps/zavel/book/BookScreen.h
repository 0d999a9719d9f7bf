// Where answers go that are to be read: standard output, or a pager where they are longer than the screen.
#ifndef ZAVEL_BOOK_BOOKSCREEN_H
#define ZAVEL_BOOK_BOOKSCREEN_H

#include <string>

#include "book/BookOptions.h"
#include "book/BookTextView.h"

namespace zavel::host {

class BookScreen {
 public:
  // `reading`: somebody looks at it, so that a pager may be used.
  BookScreen(const BookOptions& options, bool reading);
  ~BookScreen() { finish(); }
  BookScreen(const BookScreen&) = delete;
  BookScreen& operator=(const BookScreen&) = delete;

  const BookLook& look() const { return look_; }
  std::string bold(const std::string& text) const { return painted(text, "1"); }
  std::string dim(const std::string& text) const { return painted(text, "2"); }

  void write(const std::string& text);
  void finish();

 private:
  std::string painted(const std::string& text, const char* colour) const;

  BookLook look_;
  size_t rows_ = 0;  // 0: no pager
  std::string held_;
};

}  // namespace zavel::host

#endif
