// Other applications: finding a running one by its signature, starting one, and sending it a message.
#ifndef PLATFORM_APPLICATIONS_H
#define PLATFORM_APPLICATIONS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zavel {

struct ProcessNumber {
  uint32_t high = 0;
  uint32_t low = 0;
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

class Applications {
 public:
  virtual ~Applications() = default;

  // A running application by creator and type, four characters each.
  virtual std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) = 0;

  // Starts the application at `path` and, with `wait`, waits up to a minute for it to run.
  // 1 it runs and `process` is filled, 0 it was started but not found, -1 it could not be started.
  virtual int launch(const std::string& path, bool wait, ProcessNumber* process) = 0;

  // Sends `message`; with a non-null `reply`, waits for the answer without a time limit and stores its
  // parameters there.
  virtual SendResult send(const ProcessNumber& process, const Message& message, Message* reply) = 0;
};

}  // namespace zavel

#endif
