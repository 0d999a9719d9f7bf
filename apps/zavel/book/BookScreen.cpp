// Tests: tests/zavel/book/BookShowTest.cpp
#include "book/BookScreen.h"

#include <unistd.h>

#include <cstdio>

#include "Pager.h"
#include "Terminal.h"

namespace zavel::host {

BookScreen::BookScreen(const BookOptions& options, bool reading) {
  look_.colour = useColor(STDOUT_FILENO, options.colour());
  look_.width = terminalWidth(STDOUT_FILENO);
  if (reading && !options.noPager && look_.width > 0) rows_ = terminalRows(STDOUT_FILENO);
}

std::string BookScreen::painted(const std::string& text, const char* colour) const {
  return look_.colour ? std::string("\x1b[") + colour + "m" + text + "\x1b[0m" : text;
}

void BookScreen::write(const std::string& text) {
  if (rows_ > 0) {
    held_ += text;
  } else {
    std::fwrite(text.data(), 1, text.size(), stdout);
  }
}

void BookScreen::finish() {
  if (held_.empty()) return;
  if (needsPager(held_, rows_)) {
    showPaged(held_);
  } else {
    std::fwrite(held_.data(), 1, held_.size(), stdout);
  }
  held_.clear();
}

}  // namespace zavel::host
