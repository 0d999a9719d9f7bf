// Other applications: finding a running one by its signature or name, starting one, bringing one forward, and
// sending it a message.
#ifndef PLATFORM_APPLICATIONS_H
#define PLATFORM_APPLICATIONS_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "foundation/Export.h"

namespace zavel {

// Both parts 0: no process.
struct ProcessNumber {
  uint32_t high = 0;
  uint32_t low = 0;

  auto operator<=>(const ProcessNumber&) const = default;
};

// A running application. Texts are UTF-8.
struct RunningApplication {
  ProcessNumber process;
  std::string creator;  // four characters
  std::string type;     // four characters; "APPL" for an application
  std::string name;     // as it calls itself
  std::string path;     // of its bundle or program, without a trailing delimiter; empty when it isn't known
};

// One typed parameter of a message: four-character keyword and type, value as bytes ("long": four bytes,
// big end first; "TEXT": the text's bytes).
struct MessageParameter {
  std::string keyword;
  std::string type;
  std::string value;
};

struct Message {
  std::string eventClass;  // four characters
  std::string eventId;     // four characters
  std::vector<MessageParameter> parameters;
};

enum class SendResult { kSent, kNotBuilt, kNotSent };

class ZAVEL_API Applications {
 public:
  virtual ~Applications() = default;

  // A running application by creator and type, four characters each.
  virtual std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) = 0;

  // Starts the application at `path` and, with `wait`, waits up to a minute for it to run.
  // 1 it runs and `process` is filled, 0 it was started but not found, -1 it could not be started.
  virtual int launch(const std::string& path, bool wait, ProcessNumber* process) = 0;

  // Sends `message`; with a non-null `reply`, waits for the answer without a time limit and stores its
  // parameters there. kNotBuilt when a code is not four characters or there is more than can be carried,
  // kNotSent when the application isn't there, ends before it has answered, or doesn't understand the
  // message.
  virtual SendResult send(const ProcessNumber& process, const Message& message, Message* reply) = 0;

  // The operations below have answers of a platform that can't tell, so that a port may bring them one by
  // one.

  // Every application that can be found, this one among them, in the order of their process numbers. An
  // application keeps its number as long as it runs, and find() gives the first one that fits.
  virtual std::vector<RunningApplication> running() { return {}; }

  // This application; nothing when it isn't known to the others.
  virtual std::optional<RunningApplication> current() { return std::nullopt; }

  // The application that the user works in; nothing where there is no such thing.
  virtual std::optional<ProcessNumber> front() { return std::nullopt; }

  // Asks for the application to come forward. False when there is none of that number. True also where
  // nothing can come forward, as on a terminal.
  virtual bool bringToFront(const ProcessNumber& process) {
    for (const RunningApplication& application : running()) {
      if (application.process == process) return true;
    }
    return false;
  }

  // Asks for the application at `path` to be started, and doesn't wait for it to run; with `toFront` it comes
  // forward. False when it can't be started.
  virtual bool start(const std::string& path, [[maybe_unused]] bool toFront) {
    ProcessNumber ignored;
    return launch(path, false, &ignored) >= 0;
  }

  // Makes this application known to the others as `self` (its process number doesn't count), in place of what
  // it was known as, and calls `receive` for each message that comes, through the run loop. The parameters of
  // the message that it gives are the answer; its class and id don't count. Nothing: it doesn't understand
  // the message, and the sender is told kNotSent. `toFront`, which may be empty, is called when another asks
  // this one to come forward. False where the others can't be reached.
  using Receiver = std::function<std::optional<Message>(const Message&)>;
  virtual bool announce([[maybe_unused]] const RunningApplication& self, [[maybe_unused]] Receiver receive,
                        [[maybe_unused]] std::function<void()> toFront) {
    return false;
  }

  // Blocks for that long, for those who wait for an application to come up.
  virtual void pause(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }
};

}  // namespace zavel

#endif
