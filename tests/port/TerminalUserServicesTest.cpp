#include "base/TerminalUserServices.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>

#include "support/EnvironmentVariable.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::EnvironmentVariable;
using test::TempFolder;

// A terminal: what the user sees and types.
class Terminal {
 public:
  Terminal() {
    struct termios raw = {};
    EXPECT_EQ(::openpty(&user_, &program_, nullptr, nullptr, nullptr), 0);
    ::tcgetattr(program_, &raw);
    raw.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    raw.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    ::tcsetattr(program_, TCSANOW, &raw);
  }
  ~Terminal() {
    ::close(user_);
    if (program_ >= 0) ::close(program_);
  }
  int program() const { return program_; }
  void type(const std::string& text) const {
    EXPECT_EQ(::write(user_, text.data(), text.size()), ssize_t(text.size()));
  }
  std::string seen() const {
    std::string text;
    struct pollfd ready = {user_, POLLIN, 0};
    char chunk[4096];
    while (::poll(&ready, 1, 0) > 0) {
      const ssize_t n = ::read(user_, chunk, sizeof chunk);
      if (n <= 0) break;
      text.append(chunk, static_cast<size_t>(n));
    }
    return text;
  }

 private:
  int user_ = -1;
  int program_ = -1;
};

const Alert kChoice = {"Error", "Which one?", {"OK", "Cancel", "Help"}};

TEST(TerminalUserServices, ShowsAnAlertWithOneButton) {
  const Terminal terminal;
  TerminalUserServices user(terminal.program(), terminal.program());
  EXPECT_EQ(user.showAlert({"Error", "The page could not be opened.", {"OK"}}), 0u);
  EXPECT_EQ(terminal.seen(), "Error\nThe page could not be opened.\n");
  EXPECT_EQ(user.showAlert({"Title", "", {}}), 0u);
  EXPECT_EQ(terminal.seen(), "Title\n");
}

TEST(TerminalUserServices, AsksForAButtonByNumber) {
  const Terminal terminal;
  TerminalUserServices user(terminal.program(), terminal.program());
  terminal.type("3\n");
  EXPECT_EQ(user.showAlert(kChoice), 2u);
  EXPECT_EQ(terminal.seen(), "Error\nWhich one?\n1 OK  2 Cancel  3 Help [1]: ");
  terminal.type(" 2 \n");
  EXPECT_EQ(user.showAlert(kChoice), 1u);
  terminal.type("\n");
  EXPECT_EQ(user.showAlert(kChoice), 0u);
  EXPECT_NE(terminal.seen(), "");
}

TEST(TerminalUserServices, AsksAgainForWhatIsNoButton) {
  const Terminal terminal;
  TerminalUserServices user(terminal.program(), terminal.program());
  terminal.type("0\n4\nyes\n-1\n2x\n99999999999999999999\n2\n");
  EXPECT_EQ(user.showAlert(kChoice), 1u);
  const std::string seen = terminal.seen();
  size_t prompts = 0;
  for (size_t at = seen.find("[1]: "); at != std::string::npos; at = seen.find("[1]: ", at + 1)) ++prompts;
  EXPECT_EQ(prompts, 7u);
}

TEST(TerminalUserServices, TheEndOfTheInputChoosesTheFirst) {
  const Terminal terminal;
  TerminalUserServices user(terminal.program(), terminal.program());
  terminal.type("\x04");
  EXPECT_EQ(user.showAlert(kChoice), 0u);
}

TEST(TerminalUserServices, WhereNobodyCanBeAskedTheFirstIsChosen) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  {
    const Terminal terminal;
    terminal.type("2\n");
    TerminalUserServices user(terminal.program(), ends[1]);  // output is no terminal
    EXPECT_EQ(user.showAlert(kChoice), 0u);
    char text[100] = {};
    EXPECT_EQ(::read(ends[0], text, sizeof text), 17);
    EXPECT_STREQ(text, "Error\nWhich one?\n");
    TerminalUserServices batch(ends[0], terminal.program());  // input is none
    EXPECT_EQ(batch.showAlert(kChoice), 0u);
  }
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(TerminalUserServices, HandsNoControlCharactersToTheTerminal) {
  const Terminal terminal;
  TerminalUserServices user(terminal.program(), terminal.program());
  user.showAlert({"\x1b]0;title\x07",
                  "辞\xC2\x9B"
                  "2J\xFF\ttab",
                  {}});
  EXPECT_EQ(terminal.seen(), "?]0;title?\n辞?2J?\ttab\n");
}

TEST(TerminalUserServices, BeepsInATerminalAlone) {
  const Terminal terminal;
  TerminalUserServices(terminal.program(), terminal.program()).beep();
  EXPECT_EQ(terminal.seen(), "\a");
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  TerminalUserServices(ends[0], ends[1]).beep();
  ::close(ends[1]);
  char byte;
  EXPECT_EQ(::read(ends[0], &byte, 1), 0);
  ::close(ends[0]);
}

TEST(TerminalUserServices, KeepsThePasteboard) {
  TerminalUserServices user;
  EXPECT_EQ(user.pasteboardText(), std::nullopt);
  user.setPasteboardText("辞書");
  EXPECT_EQ(user.pasteboardText(), "辞書");
  user.setPasteboardText("");
  EXPECT_EQ(user.pasteboardText(), "");
}

// PATH with an "xdg-open" of the test's own, which notes its arguments.
class OpenerTest : public testing::Test {
 protected:
  void opener(const std::string& script) {
    folder_.write("xdg-open",
                  "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$1\" >" + folder_.file("given") + "\n" + script);
    ::chmod(folder_.file("xdg-open").c_str(), 0755);
  }
  std::string given() { return folder_.read("given"); }

  TempFolder folder_;
  EnvironmentVariable path_{"PATH", (folder_.path() + ":/usr/bin:/bin").c_str()};
  TerminalUserServices user_;
};

TEST_F(OpenerTest, HandsLinksOverAsTheyAre) {
  opener("echo noise; echo noise >&2; exit 0");
  for (const std::string url :
       {"http://example.org/?q='a';$(b)&c=%20", "https://example.org", "HTTPS://example.org",
        "ftp://example.org/x", "mailto:a@example.org", "file:///tmp/x.html"}) {
    EXPECT_TRUE(user_.openUrl(url)) << url;
    EXPECT_EQ(given(), "1\n" + url + "\n");
  }
}

TEST_F(OpenerTest, TakesNoOtherScheme) {
  opener("exit 0");
  for (const std::string url :
       {"", "example.org", "/etc/passwd", "-h", "javascript:alert(1)", "data:text/html,x", "http:", "http://",
        "httpx://example.org", "mailto:", "smb://host", "vbscript:x", " http://example.org",
        "http://example.org/a b", "http://example.org/\n--help"}) {
    EXPECT_FALSE(user_.openUrl(url)) << url;
  }
  EXPECT_FALSE(user_.openUrl(std::string("http://example.org/\0x", 21)));
  EXPECT_EQ(given(), "(none)");
}

TEST_F(OpenerTest, TellsThatALinkWasNotTaken) {
  opener("exit 4");
  EXPECT_FALSE(user_.openUrl("http://example.org"));
  opener("kill -9 $$");
  EXPECT_FALSE(user_.openUrl("http://example.org"));
  const EnvironmentVariable path("PATH", folder_.file("none").c_str());
  EXPECT_FALSE(user_.openUrl("http://example.org"));
  const EnvironmentVariable unset("PATH", nullptr);
  EXPECT_FALSE(user_.openUrl("http://example.org"));
  const EnvironmentVariable relative("PATH", "::bin:.");
  EXPECT_FALSE(user_.openUrl("http://example.org"));
}

TEST_F(OpenerTest, DoesNotWaitForABrowserThatStays) {
  opener("sleep 5; echo over >" + folder_.file("over"));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(user_.openUrl("http://example.org"));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1900));
  EXPECT_EQ(folder_.read("over"), "(none)");
  while (folder_.read("over") == "(none)") ::usleep(10000);
  ::usleep(100000);
  opener("exit 0");
  EXPECT_TRUE(user_.openUrl("http://example.org"));
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);  // the first was waited for
}

}  // namespace
}  // namespace zavel
