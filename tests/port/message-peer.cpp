// An application for the tests of messages: it makes itself known, answers, and ends when it is asked to.
// Usage: message-peer CREATOR TYPE NAME [PATH]
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "base/DesktopApplications.h"

namespace {

using zavel::Message;

bool g_done = false;
int g_fronts = 0;

Message number(int value) {
  return {"", "", {{"----", "long", std::string{0, 0, 0, static_cast<char>(value)}}}};
}

std::optional<Message> receive(zavel::DesktopApplications& applications, const Message& message) {
  if (message.eventClass != "test") return std::nullopt;
  const std::string& id = message.eventId;
  if (id == "echo") return message;
  if (id == "void") return Message{};
  if (id == "frnt") return number(g_fronts);
  if (id == "slow") ::usleep(1500000);
  if (id == "long") ::usleep(6000000);
  if (id == "slow" || id == "long") return number(1);
  if (id == "die!") ::_exit(3);
  if (id == "thrw") throw std::runtime_error("thrown by a receiver");
  if (id == "badr") return Message{"", "", {{"five!", "TEXT", ""}}};
  if (id == "self") {
    Message reply;
    const auto own = applications.current()->process;
    if (applications.send(own, {"test", "echo", {{"----", "TEXT", "to myself"}}}, &reply) !=
        zavel::SendResult::kSent)
      return std::nullopt;
    return reply;
  }
  if (id == "quit") g_done = true;
  return id == "quit" ? std::optional<Message>(Message{}) : std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  zavel::LinuxRunLoop loop;
  zavel::DesktopApplications applications(loop);
  const zavel::RunningApplication self = {{}, argv[1], argv[2], argv[3], argc > 4 ? argv[4] : ""};
  const auto receiver = [&applications](const Message& message) { return receive(applications, message); };
  if (!applications.announce(self, receiver, [] { ++g_fronts; })) return 3;
  std::printf("ready\n");
  std::fflush(stdout);
  return loop.runUntil([] { return g_done; }, 60) ? 0 : 4;
}
