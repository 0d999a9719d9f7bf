// Other applications on the session bus. docs/messages.md
// Tests: tests/port/DesktopApplicationsTest.cpp
#include "desktop/DesktopModule.h"

#include <gio/gio.h>
#include <limits.h>
#include <unistd.h>

#include <string>

#include "desktop/Announced.h"
#include "desktop/Bus.h"
#include "desktop/Parameters.h"

namespace zavel::desktop {
namespace {

constexpr int kPropertyTimeout = 1000;  // milliseconds, for an application to tell its name

bool isSelf(ZavelProcess process) {
  ZavelProcess own = {};
  return bus() && toProcess(g_dbus_connection_get_unique_name(bus()), &own) && own.high == process.high &&
         own.low == process.low;
}

int32_t systemNumber(const std::string& name) {
  GVariant* const answer = callBus("GetConnectionUnixProcessID", g_variant_new("(s)", name.c_str()), "(u)");
  guint32 pid = 0;
  if (!answer) return 0;
  g_variant_get(answer, "(u)", &pid);
  g_variant_unref(answer);
  return static_cast<int32_t>(pid);
}

std::string programOf(int32_t pid) {
  char path[PATH_MAX];
  const ssize_t length = ::readlink(("/proc/" + std::to_string(pid) + "/exe").c_str(), path, sizeof path);
  return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

// Name and path as the application tells them. One that doesn't answer in time has none.
void readProperties(const std::string& process, std::string* name, std::string* path) {
  GVariant* const answer =
      g_dbus_connection_call_sync(bus(), process.c_str(), kObject, "org.freedesktop.DBus.Properties",
                                  "GetAll", g_variant_new("(s)", kInterface), G_VARIANT_TYPE("(a{sv})"),
                                  G_DBUS_CALL_FLAGS_NO_AUTO_START, kPropertyTimeout, nullptr, nullptr);
  if (!answer) return;
  GVariant* const all = g_variant_get_child_value(answer, 0);
  const char* text = nullptr;
  if (g_variant_lookup(all, "Name", "&s", &text)) *name = text;
  if (g_variant_lookup(all, "Path", "&s", &text)) *path = text;
  g_variant_unref(all);
  g_variant_unref(answer);
}

void describe(ZavelApplication application, ZavelApplicationCall each, void* data) {
  const std::string unique = uniqueName(application.process);
  std::string name;
  std::string path;
  application.pid = systemNumber(unique);
  if (application.pid == 0) return;  // it has gone meanwhile
  if (application.pid == ::getpid()) {
    ownProperties(&name, &path);  // this process can't answer while it asks
  } else {
    readProperties(unique, &name, &path);
  }
  if (path.empty()) path = programOf(application.pid);
  application.name = name.c_str();
  application.path = path.c_str();
  each(data, &application);
}

void list(const char* creator, const char* type, ZavelApplicationCall each, void* data) {
  if (creator) {
    if (!isCode(creator) || !isCode(type)) return;
    for (const ZavelProcess process : ownersOf(signatureName(creator, type))) {
      const ZavelApplication application = {process, creator, type, "", "", 0};
      each(data, &application);
    }
    return;
  }
  for (const std::string& name : signatureNames()) {
    std::string itsCreator;
    std::string itsType;
    if (!toSignature(name, &itsCreator, &itsType)) continue;
    for (const ZavelProcess process : ownersOf(name))
      describe({process, itsCreator.c_str(), itsType.c_str(), "", "", 0}, each, data);
  }
}

int exists(ZavelProcess process) {
  const std::string name = uniqueName(process);
  GVariant* const answer = callBus("NameHasOwner", g_variant_new("(s)", name.c_str()), "(b)");
  gboolean owned = FALSE;
  if (!answer) return 0;
  g_variant_get(answer, "(b)", &owned);
  g_variant_unref(answer);
  return owned;
}

// For a call whose answer nobody waits for. Gone out when this returns, since the process may end next.
bool sendOnly(ZavelProcess process, const char* method, GVariant* arguments) {
  GDBusMessage* const call =
      g_dbus_message_new_method_call(uniqueName(process).c_str(), kObject, kInterface, method);
  if (arguments) g_dbus_message_set_body(call, arguments);
  const auto flags = static_cast<GDBusMessageFlags>(G_DBUS_MESSAGE_FLAGS_NO_REPLY_EXPECTED |
                                                    G_DBUS_MESSAGE_FLAGS_NO_AUTO_START);
  g_dbus_message_set_flags(call, flags);
  const bool sent =
      g_dbus_connection_send_message(bus(), call, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr) &&
      g_dbus_connection_flush_sync(bus(), nullptr, nullptr);
  g_object_unref(call);
  return sent;
}

bool sendAndWait(ZavelProcess process, GVariant* arguments, ZavelReplyCall reply, void* data) {
  GVariant* const answer = g_dbus_connection_call_sync(
      bus(), uniqueName(process).c_str(), kObject, kInterface, "Deliver", arguments,
      G_VARIANT_TYPE("(a(ssay))"), G_DBUS_CALL_FLAGS_NO_AUTO_START, G_MAXINT, nullptr, nullptr);
  if (!answer) return false;
  GVariant* const parameters = g_variant_get_child_value(answer, 0);
  reply(data, &ReceivedMessage(nullptr, nullptr, parameters).message());
  g_variant_unref(parameters);
  g_variant_unref(answer);
  return true;
}

ZavelSendResult send(ZavelProcess process, const ZavelMessage* message, ZavelReplyCall reply, void* data) {
  if (!isCode(message->eventClass) || !isCode(message->eventId)) return ZAVEL_NOT_BUILT;
  GVariant* const parameters = toVariant(*message);
  if (!parameters) return ZAVEL_NOT_BUILT;
  GVariant* const arguments =
      g_variant_ref_sink(g_variant_new("(ss@a(ssay))", message->eventClass, message->eventId, parameters));
  bool sent = false;
  if (isSelf(process)) {
    sent = deliverToSelf(*message, reply, data);  // waiting for oneself would never end
  } else if (bus() && exists(process)) {
    sent = reply ? sendAndWait(process, arguments, reply, data) : sendOnly(process, "Deliver", arguments);
  }
  g_variant_unref(arguments);
  return sent ? ZAVEL_SENT : ZAVEL_NOT_SENT;
}

void bringToFront(ZavelProcess process) {
  if (bus() && !isSelf(process)) sendOnly(process, "BringToFront", nullptr);
}

constexpr ZavelDesktopModule kModule = {kZavelDesktopVersion, list,     exists,  send,
                                        bringToFront,         announce, withdraw};

}  // namespace
}  // namespace zavel::desktop

extern "C" __attribute__((visibility("default"))) const ZavelDesktopModule* zavelDesktopModule() {
  return &zavel::desktop::kModule;
}
