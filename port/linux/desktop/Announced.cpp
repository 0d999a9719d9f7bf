// Tests: tests/port/DesktopApplicationsTest.cpp
#include "desktop/Announced.h"

#include <gio/gio.h>
#include <string.h>

#include <string>

#include "desktop/Bus.h"
#include "desktop/Introspection.h"
#include "desktop/Parameters.h"

namespace zavel::desktop {
namespace {

struct Self {
  std::string signature;  // its name on the bus; empty: not announced
  std::string name;
  std::string path;
  ZavelReceiveCall receive = nullptr;
  ZavelFrontCall front = nullptr;
  void* data = nullptr;
  GDBusConnection* connection = nullptr;  // where `object` is; held, so that no other gets its address
  guint object = 0;
};

Self& self() {
  static Self& only = *new Self;  // calls may come as long as the process lives
  return only;
}

// The answer of a receiver, an empty one until it gives another.
struct Answer {
  ~Answer() { take(nullptr); }
  void take(GVariant* given) {
    if (parameters) g_variant_unref(parameters);
    parameters = given ? g_variant_ref_sink(given) : nullptr;
  }
  GVariant* parameters = g_variant_ref_sink(g_variant_new("a(ssay)", nullptr));  // null: it can't be sent
};

void keepAnswer(void* to, const ZavelMessage* answer) {
  static_cast<Answer*>(to)->take(toVariant(*answer));
}

void deliver(GVariant* arguments, GDBusMethodInvocation* invocation) {
  const char* eventClass = nullptr;
  const char* eventId = nullptr;
  GVariant* parameters = nullptr;
  g_variant_get(arguments, "(&s&s@a(ssay))", &eventClass, &eventId, &parameters);
  const ReceivedMessage received(eventClass, eventId, parameters);
  g_variant_unref(parameters);
  Answer answer;
  if (!received.isSound()) {
    g_dbus_method_invocation_return_error(invocation, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS,
                                          "Classes, ids, keywords and types are four characters");
  } else if (!self().receive || !self().receive(self().data, &received.message(), keepAnswer, &answer)) {
    g_dbus_method_invocation_return_error(invocation, G_DBUS_ERROR, G_DBUS_ERROR_NOT_SUPPORTED,
                                          "No such message is known: %s %s", eventClass, eventId);
  } else if (!answer.parameters) {
    g_dbus_method_invocation_return_error(invocation, G_DBUS_ERROR, G_DBUS_ERROR_FAILED,
                                          "The answer to %s %s can't be sent", eventClass, eventId);
  } else {
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(@a(ssay))", answer.parameters));
  }
}

void methodCalled(GDBusConnection*, const char*, const char*, const char*, const char* method,
                  GVariant* arguments, GDBusMethodInvocation* invocation, gpointer) {
  if (strcmp(method, "Deliver") == 0) {
    deliver(arguments, invocation);
    return;
  }
  if (self().front) self().front(self().data);
  g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* propertyRead(GDBusConnection*, const char*, const char*, const char*, const char* property,
                       GError**, gpointer) {
  return g_variant_new_string(strcmp(property, "Name") == 0 ? self().name.c_str() : self().path.c_str());
}

GDBusInterfaceInfo* interfaceInfo() {
  static GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(kIntrospection, nullptr);
  return node ? g_dbus_node_info_lookup_interface(node, kInterface) : nullptr;
}

bool registerObject() {
  static const GDBusInterfaceVTable kCalls = {methodCalled, propertyRead, nullptr, {}};
  if (self().object != 0 && self().connection == bus()) return true;
  g_set_object(&self().connection, bus());
  self().object =
      g_dbus_connection_register_object(bus(), kObject, interfaceInfo(), &kCalls, nullptr, nullptr, nullptr);
  return self().object != 0;
}

// In the queue of the name's owners: others of the same signature may run, too.
bool requestName(const std::string& name) {
  GVariant* const answer = callBus("RequestName", g_variant_new("(su)", name.c_str(), 0u), "(u)");
  if (!answer) return false;
  g_variant_unref(answer);
  return true;
}

void releaseName(const std::string& name) {
  GVariant* const answer = callBus("ReleaseName", g_variant_new("(s)", name.c_str()), "(u)");
  if (answer) g_variant_unref(answer);
}

bool isText(const char* text) {
  return text && g_utf8_validate(text, -1, nullptr);
}

}  // namespace

int announce(const ZavelApplication* given, ZavelReceiveCall receive, ZavelFrontCall front, void* data,
             ZavelProcess* number) {
  if (!isCode(given->creator) || !isCode(given->type) || !isText(given->name) || !isText(given->path))
    return 0;
  if (!bus() || !toProcess(g_dbus_connection_get_unique_name(bus()), number)) return 0;
  const std::string signature = signatureName(given->creator, given->type);
  const std::string before = self().signature;
  self().name = given->name;
  self().path = given->path;
  self().receive = receive;
  self().front = front;
  self().data = data;
  // The object first: whoever finds the name may call at once.
  if (!registerObject() || !requestName(signature)) return 0;
  self().signature = signature;
  if (!before.empty() && before != signature) releaseName(before);
  return 1;
}

void withdraw() {
  self().receive = nullptr;
  self().front = nullptr;
  if (!self().signature.empty()) releaseName(self().signature);
  self().signature.clear();
}

bool deliverToSelf(const ZavelMessage& message, ZavelReplyCall reply, void* data) {
  Answer answer;
  if (!self().receive || !self().receive(self().data, &message, keepAnswer, &answer)) return false;
  if (!answer.parameters) return false;
  if (reply) reply(data, &ReceivedMessage(nullptr, nullptr, answer.parameters).message());
  return true;
}

void ownProperties(std::string* name, std::string* path) {
  *name = self().name;
  *path = self().path;
}

}  // namespace zavel::desktop
