// Tests: tests/port/TerminalUserServicesTest.cpp
#include "base/TerminalUserServices.h"

#include <errno.h>
#include <poll.h>
#include <stdlib.h>
#include <strings.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "base/SpawnedProgram.h"
#include "foundation/Utf8.h"

namespace zavel {
namespace {

constexpr int kWaitForOpener = 2000;  // milliseconds
constexpr int kLookEvery = 10;        // milliseconds
constexpr size_t kLongestLine = 1000;

// Without what a terminal would obey: control characters other than line ends and tabs, and broken UTF-8.
std::string printable(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const Utf8Char c = readUtf8(text);
    const bool control = c.code < 0x20 ? c.code != '\n' && c.code != '\t' : c.code >= 0x7F && c.code < 0xA0;
    if (!c.valid || control) {
      out += '?';
    } else {
      out += text.substr(0, c.length);
    }
    text.remove_prefix(c.length);
  }
  return out;
}

// Links that show something, and start nothing else.
bool isAllowed(const std::string& url) {
  if (std::any_of(url.begin(), url.end(), [](char c) { return static_cast<unsigned char>(c) <= 0x20; }))
    return false;
  for (const std::string_view scheme : {"http://", "https://", "ftp://", "file://", "mailto:"}) {
    if (url.size() > scheme.size() && ::strncasecmp(url.c_str(), scheme.data(), scheme.size()) == 0)
      return true;
  }
  return false;
}

std::string findInPath(const std::string& program) {
  const char* folders = ::getenv("PATH");
  for (std::string_view rest = folders ? folders : ""; !rest.empty();) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
    const std::string path = std::string(folder) + "/" + program;
    if (path[0] == '/' && folder.size() > 0 && ::access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

// The number of a button, from 1; 0 when the answer is none.
size_t chosen(std::string_view answer, size_t buttons) {
  while (!answer.empty() && answer.front() == ' ') answer.remove_prefix(1);
  while (!answer.empty() && answer.back() == ' ') answer.remove_suffix(1);
  if (answer.empty()) return 1;
  size_t number = 0;
  const auto [end, error] = std::from_chars(answer.data(), answer.data() + answer.size(), number);
  if (error != std::errc() || end != answer.data() + answer.size() || number > buttons) return 0;
  return number;
}

}  // namespace

size_t TerminalUserServices::showAlert(const Alert& alert) {
  std::string text = printable(alert.title);
  if (!alert.message.empty()) text += (text.empty() ? "" : "\n") + printable(alert.message);
  write(text + "\n");
  return alert.buttons.size() > 1 && canAsk() ? ask(alert) : 0;
}

void TerminalUserServices::beep() {
  if (::isatty(output_)) write("\a");
}

bool TerminalUserServices::openUrl(const std::string& url) {
  std::erase_if(openers_, [](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
  if (!isAllowed(url)) return false;
  const std::string opener = findInPath("xdg-open");
  if (opener.empty()) return false;
  SpawnRequest request;
  request.program = opener;
  request.arguments = {url};
  request.quiet = true;
  const pid_t pid = spawnProgram(request);
  if (pid < 0) return false;
  for (int waited = 0; waited < kWaitForOpener; waited += kLookEvery) {
    int status = 0;
    if (::waitpid(pid, &status, WNOHANG) != 0) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    ::poll(nullptr, 0, kLookEvery);
  }
  openers_.push_back(pid);
  return true;
}

bool TerminalUserServices::canAsk() const {
  return ::isatty(input_) && ::isatty(output_);
}

size_t TerminalUserServices::ask(const Alert& alert) {
  std::string prompt;
  for (size_t i = 0; i < alert.buttons.size(); ++i) {
    prompt += (i ? "  " : "") + std::to_string(i + 1) + " " + printable(alert.buttons[i]);
  }
  prompt += " [1]: ";
  for (;;) {
    write(prompt);
    const std::optional<std::string> answer = readLine();
    if (!answer) return 0;
    if (const size_t number = chosen(*answer, alert.buttons.size())) return number - 1;
  }
}

void TerminalUserServices::write(const std::string& text) const {
  for (std::string_view rest = text; !rest.empty();) {
    const ssize_t n = ::write(output_, rest.data(), rest.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return;
    rest.remove_prefix(static_cast<size_t>(n));
  }
}

std::optional<std::string> TerminalUserServices::readLine() const {
  std::string line;
  for (;;) {
    char byte;
    if (::read(input_, &byte, 1) != 1) return std::nullopt;
    if (byte == '\n') return line;
    if (line.size() < kLongestLine) line += byte;
  }
}

}  // namespace zavel
