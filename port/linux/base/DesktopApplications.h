// Other applications on the session bus, by a module that is loaded when one is first asked for.
#ifndef PORT_LINUX_BASE_DESKTOPAPPLICATIONS_H
#define PORT_LINUX_BASE_DESKTOPAPPLICATIONS_H

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/LinuxRunLoop.h"
#include "platform/Applications.h"

struct ZavelDesktopModule;

namespace zavel {

// Applications find each other by names on the bus that carry their signature; docs/messages.md has the form
// of names and messages. Without a session bus, or without the module, there are no others: nothing is loaded
// then.
//
// An application is a program, or a folder "NAME.app" or "NAME" that holds a program "NAME". It is started in
// a session of its own, with its standard descriptors empty, and goes on when this process ends.
//
// There is no front() on the bus: no application tells which one the user works in.
class DesktopApplications : public Applications {
 public:
  // The loop, borrowed, is what announced applications get their messages through.
  explicit DesktopApplications(LinuxRunLoop& loop) : loop_(loop) {}
  ~DesktopApplications() override;
  DesktopApplications(const DesktopApplications&) = delete;
  DesktopApplications& operator=(const DesktopApplications&) = delete;

  std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) override;

  // One that already runs from that path is not started again. With `wait`, 0 as soon as a program that
  // failed is known to be gone.
  int launch(const std::string& path, bool wait, ProcessNumber* process) override;

  // While it waits nothing else is served; a message to this process itself is handed over directly.
  SendResult send(const ProcessNumber& process, const Message& message, Message* reply) override;

  // Asks each application for its name, one second at most.
  std::vector<RunningApplication> running() override;
  std::optional<RunningApplication> current() override;
  bool bringToFront(const ProcessNumber& process) override;
  bool start(const std::string& path, bool toFront) override;
  bool announce(const RunningApplication& self, Receiver receive, std::function<void()> toFront) override;

 private:
  struct Found {
    RunningApplication application;
    pid_t pid;
  };
  const ZavelDesktopModule* module();
  std::vector<Found> all();
  std::optional<Found> runningFrom(const std::string& path, pid_t pid);
  pid_t spawn(const std::string& path);
  bool hasFailed(pid_t pid);
  void reapStarted();

  LinuxRunLoop& loop_;
  const ZavelDesktopModule* module_ = nullptr;
  bool loaded_ = false;
  std::optional<RunningApplication> self_;
  Receiver receive_;
  std::function<void()> toFront_;
  std::vector<pid_t> started_;  // still running when last looked at
};

}  // namespace zavel

#endif
