// This process as an application that others find and send messages to.
#ifndef PORT_LINUX_DESKTOP_ANNOUNCED_H
#define PORT_LINUX_DESKTOP_ANNOUNCED_H

#include <string>

#include "desktop/DesktopModule.h"

namespace zavel::desktop {

// As ZavelDesktopModule::announce.
int announce(const ZavelApplication* self, ZavelReceiveCall receive, ZavelFrontCall front, void* data,
             ZavelProcess* number);

// As ZavelDesktopModule::withdraw.
void withdraw();

// Hands `message` to this process's own receiver, without the bus. False when there is none or it doesn't
// understand the message.
bool deliverToSelf(const ZavelMessage& message, ZavelReplyCall reply, void* data);

// Name and path that this process was announced with.
void ownProperties(std::string* name, std::string* path);

}  // namespace zavel::desktop

#endif
