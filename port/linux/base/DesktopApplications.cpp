// Tests: tests/port/DesktopApplicationsTest.cpp
#include "base/DesktopApplications.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "base/PortModule.h"
#include "base/SpawnedProgram.h"
#include "desktop/DesktopModule.h"
#include "platform/Log.h"

namespace zavel {
namespace {

constexpr double kLookEvery = 0.1;  // seconds
constexpr int kRounds = 600;        // a minute

// Asking for a bus where there is none would start one.
bool hasSessionBus() {
  const char* address = ::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address && *address) return true;
  const char* folder = ::getenv("XDG_RUNTIME_DIR");
  return folder && *folder == '/' && ::access((std::string(folder) + "/bus").c_str(), F_OK) == 0;
}

ZavelProcess toModule(const ProcessNumber& process) {
  return {process.high, process.low};
}

// `message` for as long as this lives.
class LentMessage {
 public:
  explicit LentMessage(const Message& message) {
    for (const MessageParameter& p : message.parameters)
      parameters_.push_back({p.keyword.c_str(), p.type.c_str(), p.value.data(), p.value.size()});
    lent_ = {message.eventClass.c_str(), message.eventId.c_str(), parameters_.data(), parameters_.size()};
  }
  LentMessage(const LentMessage&) = delete;
  LentMessage& operator=(const LentMessage&) = delete;
  const ZavelMessage* get() const { return &lent_; }

 private:
  std::vector<ZavelParameter> parameters_;
  ZavelMessage lent_;
};

Message fromModule(const ZavelMessage& message) {
  Message own;
  if (message.eventClass) own.eventClass = message.eventClass;
  if (message.eventId) own.eventId = message.eventId;
  for (size_t i = 0; i < message.count; ++i) {
    const ZavelParameter& p = message.parameters[i];
    own.parameters.push_back({p.keyword, p.type, std::string(static_cast<const char*>(p.bytes), p.size)});
  }
  return own;
}

void keepReply(void* reply, const ZavelMessage* answer) {
  *static_cast<Message*>(reply) = fromModule(*answer);
}

bool holdsNul(const Message& message) {
  const auto has = [](const std::string& text) { return text.find('\0') != std::string::npos; };
  return has(message.eventClass) || has(message.eventId) ||
         std::any_of(message.parameters.begin(), message.parameters.end(),
                     [&](const MessageParameter& p) { return has(p.keyword) || has(p.type); });
}

std::string withoutDelimiters(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string lastComponent(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

// The program of an application: the file itself, or the one of its name inside its folder.
std::string programOf(const std::string& path) {
  struct stat status;
  if (::stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return path;
  std::string name = lastComponent(path);
  if (name.ends_with(".app")) name.resize(name.size() - 4);
  return path + "/" + name;
}

std::string resolved(const std::string& path) {
  const std::unique_ptr<char, decltype(&::free)> whole(::realpath(path.c_str(), nullptr), &::free);
  return whole ? whole.get() : path;
}

}  // namespace

DesktopApplications::~DesktopApplications() {
  if (self_) module()->withdraw();
}

const ZavelDesktopModule* DesktopApplications::module() {
  if (loaded_ || !hasSessionBus()) return module_;
  loaded_ = true;
  const auto get =
      reinterpret_cast<ZavelDesktopGet>(loadPortModule(ZAVEL_DESKTOP_FILE, ZAVEL_DESKTOP_SYMBOL));
  const ZavelDesktopModule* found = get ? get() : nullptr;
  if (found && found->version == kZavelDesktopVersion) module_ = found;
  return module_;
}

std::optional<ProcessNumber> DesktopApplications::find(const std::string& creator, const std::string& type) {
  std::optional<ProcessNumber> first;
  if (!module()) return first;
  const auto keepFirst = [](void* kept, const ZavelApplication* application) {
    auto& lowest = *static_cast<std::optional<ProcessNumber>*>(kept);
    const ProcessNumber number = {application->process.high, application->process.low};
    if (!lowest || number < *lowest) lowest = number;
  };
  module()->list(creator.c_str(), type.c_str(), keepFirst, &first);
  return first;
}

std::vector<DesktopApplications::Found> DesktopApplications::all() {
  std::vector<Found> found;
  if (!module()) return found;
  const auto add = [](void* list, const ZavelApplication* a) {
    static_cast<std::vector<Found>*>(list)->push_back(
        {{{a->process.high, a->process.low}, a->creator, a->type, a->name, withoutDelimiters(a->path)},
         a->pid});
  };
  module()->list(nullptr, nullptr, add, &found);
  std::sort(found.begin(), found.end(), [](const Found& one, const Found& other) {
    return one.application.process < other.application.process;
  });
  return found;
}

std::vector<RunningApplication> DesktopApplications::running() {
  std::vector<RunningApplication> applications;
  for (Found& found : all()) applications.push_back(std::move(found.application));
  return applications;
}

std::optional<RunningApplication> DesktopApplications::current() {
  return self_;
}

SendResult DesktopApplications::send(const ProcessNumber& process, const Message& message, Message* reply) {
  if (holdsNul(message)) return SendResult::kNotBuilt;
  if (!module()) return SendResult::kNotSent;
  const LentMessage lent(message);
  Message answer;
  switch (module()->send(toModule(process), lent.get(), reply ? keepReply : nullptr, &answer)) {
    case ZAVEL_NOT_BUILT:
      return SendResult::kNotBuilt;
    case ZAVEL_NOT_SENT:
      return SendResult::kNotSent;
    default:
      break;
  }
  if (reply) *reply = std::move(answer);
  return SendResult::kSent;
}

bool DesktopApplications::bringToFront(const ProcessNumber& process) {
  if (self_ && self_->process == process) {
    if (toFront_) toFront_();
    return true;
  }
  if (!module() || !module()->exists(toModule(process))) return false;
  module()->bringToFront(toModule(process));
  return true;
}

bool DesktopApplications::announce(const RunningApplication& self, Receiver receive,
                                   std::function<void()> toFront) {
  if (!module() || !receive) return false;
  const auto called = [](void* data, const ZavelMessage* message, ZavelReplyCall answer, void* to) -> int {
    try {
      const Receiver receiver = static_cast<DesktopApplications*>(data)->receive_;
      const std::optional<Message> own = receiver(fromModule(*message));
      if (own) answer(to, LentMessage(*own).get());
      return own.has_value();
    } catch (const std::exception& error) {
      logLine(std::string("A message could not be answered: ") + error.what());
      return 0;
    }
  };
  const auto raised = [](void* data) {
    const std::function<void()> front = static_cast<DesktopApplications*>(data)->toFront_;
    if (front) front();
  };
  const ZavelApplication known = {
      {}, self.creator.c_str(), self.type.c_str(), self.name.c_str(), self.path.c_str(), 0};
  ZavelProcess number = {};
  // Messages may come from the moment on at which it is known.
  std::swap(receive_, receive);
  std::swap(toFront_, toFront);
  if (!loop_.works() || !module()->announce(&known, called, raised, this, &number)) {
    std::swap(receive_, receive);
    std::swap(toFront_, toFront);
    return false;
  }
  self_ = self;
  self_->process = {number.high, number.low};
  self_->path = withoutDelimiters(self.path);
  return true;
}

int DesktopApplications::launch(const std::string& path, bool wait, ProcessNumber* process) {
  const std::string own = withoutDelimiters(path);
  if (const auto found = runningFrom(own, 0)) {
    *process = found->application.process;
    return 1;
  }
  const pid_t pid = spawn(own);
  if (pid < 0) return -1;
  for (int round = 0; round == 0 || (wait && round <= kRounds); ++round) {
    if (round > 0) pause(kLookEvery);
    if (const auto found = runningFrom(own, pid)) {
      *process = found->application.process;
      return 1;
    }
    if (hasFailed(pid)) return 0;
  }
  return 0;
}

bool DesktopApplications::start(const std::string& path, bool toFront) {
  const std::string own = withoutDelimiters(path);
  const auto found = runningFrom(own, 0);
  if (!found) return spawn(own) > 0;
  if (toFront) bringToFront(found->application.process);
  return true;
}

// An application that tells that path, or was started as that process.
std::optional<DesktopApplications::Found> DesktopApplications::runningFrom(const std::string& path,
                                                                           pid_t pid) {
  const std::string whole = resolved(path);
  const std::string program = resolved(programOf(path));
  for (Found& found : all()) {
    const std::string its = resolved(found.application.path);
    if ((pid > 0 && found.pid == pid) || its == whole || its == program) return std::move(found);
  }
  return std::nullopt;
}

pid_t DesktopApplications::spawn(const std::string& path) {
  reapStarted();
  SpawnRequest request;
  request.program = programOf(path);
  request.quiet = true;
  request.ownSession = true;
  const pid_t pid = spawnProgram(request);
  if (pid > 0) started_.push_back(pid);
  return pid;
}

// Whether it has ended otherwise than well: one that ends well may have started another.
bool DesktopApplications::hasFailed(pid_t pid) {
  int status = 0;
  if (::waitpid(pid, &status, WNOHANG) != pid) return false;
  std::erase(started_, pid);
  return exitStatusOf(status) != 0;
}

void DesktopApplications::reapStarted() {
  std::erase_if(started_, [](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
}

}  // namespace zavel
