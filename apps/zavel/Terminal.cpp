// Tests: tests/zavel/CommandTest.cpp
#include "Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace zavel::host {
namespace {

bool isSet(const char* name) {
  const char* value = std::getenv(name);
  return value && *value;
}

}  // namespace

bool isTerminal(int fd) {
  return isatty(fd) == 1;
}

bool useColor(int fd, ColorChoice choice) {
  if (choice != ColorChoice::kAuto) return choice == ColorChoice::kAlways;
  if (isSet("NO_COLOR")) return false;
  if (isSet("CLICOLOR_FORCE") || isSet("FORCE_COLOR")) return true;
  const char* term = std::getenv("TERM");
  const bool dumb = term && std::strcmp(term, "dumb") == 0;
  return !dumb && isTerminal(fd);
}

size_t terminalWidth(int fd) {
  if (!isTerminal(fd)) return 0;
  winsize size{};
  if (ioctl(fd, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 80;
}

size_t terminalRows(int fd) {
  winsize size{};
  return ioctl(fd, TIOCGWINSZ, &size) == 0 ? size.ws_row : 0;
}

}  // namespace zavel::host
