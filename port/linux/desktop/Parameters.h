// Parameters of messages between C and the bus, where they are "a(ssay)".
#ifndef PORT_LINUX_DESKTOP_PARAMETERS_H
#define PORT_LINUX_DESKTOP_PARAMETERS_H

#include <gio/gio.h>

#include <string>
#include <vector>

#include "desktop/DesktopModule.h"

namespace zavel::desktop {

// The parameters of `message`, floating; null when a code is not one or there is more than a bus carries.
GVariant* toVariant(const ZavelMessage& message);

// Parameters as they came: a message, or a reply where class and id are null, that lives as long as this.
class ReceivedMessage {
 public:
  // Takes a reference of `parameters`.
  ReceivedMessage(const char* eventClass, const char* eventId, GVariant* parameters);
  ~ReceivedMessage();
  ReceivedMessage(const ReceivedMessage&) = delete;
  ReceivedMessage& operator=(const ReceivedMessage&) = delete;

  bool isSound() const { return sound_; }  // every code is one
  const ZavelMessage& message() const { return message_; }

 private:
  GVariant* parameters_;
  std::vector<GVariant*> bytes_;  // owned; the texts stand in parameters_
  std::vector<ZavelParameter> list_;
  ZavelMessage message_ = {};
  bool sound_;
};

}  // namespace zavel::desktop

#endif
