// The services for the user of a program that runs in a terminal.
#ifndef PORT_LINUX_BASE_TERMINALUSERSERVICES_H
#define PORT_LINUX_BASE_TERMINALUSERSERVICES_H

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/UserServices.h"

namespace zavel {

// Alerts are written to standard error, title first. With several buttons, and where standard input and
// standard error are both a terminal, the user chooses by number: an empty line, the end of the input or a
// signal that interrupts the reading choose the first. Control characters of foreign text are not handed to
// the terminal.
//
// The pasteboard lives as long as the program. Links go to "xdg-open", looked for in PATH, whatever it writes
// is dropped. It is waited for two seconds: one that still runs then has taken the link.
class TerminalUserServices : public UserServices {
 public:
  // Descriptors are borrowed.
  explicit TerminalUserServices(int input = 0, int output = 2) : input_(input), output_(output) {}
  ~TerminalUserServices() override = default;

  size_t showAlert(const Alert& alert) override;
  void beep() override;
  std::optional<std::string> pasteboardText() override { return pasteboard_; }
  void setPasteboardText(const std::string& text) override { pasteboard_ = text; }
  bool openUrl(const std::string& url) override;

 private:
  bool canAsk() const;
  size_t ask(const Alert& alert);
  void write(const std::string& text) const;
  // The next line without its end; nothing at the end of the input.
  std::optional<std::string> readLine() const;

  int input_;
  int output_;
  std::optional<std::string> pasteboard_;
  std::vector<pid_t> openers_;  // still running when last looked at
};

}  // namespace zavel

#endif
