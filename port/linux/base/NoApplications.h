// Other applications where none can be reached.
#ifndef PORT_LINUX_BASE_NOAPPLICATIONS_H
#define PORT_LINUX_BASE_NOAPPLICATIONS_H

#include "platform/Applications.h"

namespace zavel {

// The light half of the port has no way to find, start or talk to another application: nothing is ever
// found, launch() says that the start failed, send() that the message was not sent. What asks for an
// application then takes the road it has for one that is not installed.
class NoApplications : public Applications {
 public:
  std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) override;
  int launch(const std::string& path, bool wait, ProcessNumber* process) override;
  SendResult send(const ProcessNumber& process, const Message& message, Message* reply) override;
};

}  // namespace zavel

#endif
