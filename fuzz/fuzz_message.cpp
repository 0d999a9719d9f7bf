// Any bytes as a message from another application on the bus: as the bus library hands them over, and as a
// body whose form it has not checked. What is sound must come back the same when it is sent on.
#include <gio/gio.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "EngineCalls.h"
#include "desktop/Bus.h"
#include "desktop/Parameters.h"

namespace {

using namespace zavel;
using desktop::ReceivedMessage;

std::string bytesOf(const ZavelParameter& parameter) {
  return parameter.size ? std::string(reinterpret_cast<const char*>(parameter.bytes), parameter.size)
                        : std::string();
}

void demandSame(const ZavelMessage& one, const ZavelMessage& other) {
  fuzz::demand(one.count == other.count, "no parameter is lost");
  for (size_t i = 0; i < one.count; ++i) {
    fuzz::demand(std::strcmp(one.parameters[i].keyword, other.parameters[i].keyword) == 0, "keywords stay");
    fuzz::demand(std::strcmp(one.parameters[i].type, other.parameters[i].type) == 0, "types stay");
    fuzz::demand(bytesOf(one.parameters[i]) == bytesOf(other.parameters[i]), "bytes stay");
  }
}

void receive(GVariant* body) {
  const char* eventClass = nullptr;
  const char* eventId = nullptr;
  GVariant* parameters = nullptr;
  g_variant_get(body, "(&s&s@a(ssay))", &eventClass, &eventId, &parameters);
  const ReceivedMessage received(eventClass, eventId, parameters);
  g_variant_unref(parameters);
  if (!received.isSound()) return;
  GVariant* const sent = desktop::toVariant(received.message());
  fuzz::demand(sent != nullptr, "what came can be sent");
  g_variant_ref_sink(sent);
  demandSame(received.message(), ReceivedMessage(nullptr, nullptr, sent).message());
  g_variant_unref(sent);
}

void receiveFromBus(const uint8_t* data, size_t size) {
  GDBusMessage* const message =
      g_dbus_message_new_from_blob(const_cast<guchar*>(data), size, G_DBUS_CAPABILITY_FLAGS_NONE, nullptr);
  if (!message) return;
  GVariant* const body = g_dbus_message_get_body(message);
  if (body && g_variant_is_of_type(body, G_VARIANT_TYPE("(ssa(ssay))"))) receive(body);
  g_object_unref(message);
}

void receiveUnchecked(const uint8_t* data, size_t size) {
  GBytes* const bytes = g_bytes_new(data, size);
  GVariant* const body =
      g_variant_ref_sink(g_variant_new_from_bytes(G_VARIANT_TYPE("(ssa(ssay))"), bytes, FALSE));
  receive(body);
  g_variant_unref(body);
  g_bytes_unref(bytes);
}

void readNames(const std::string& text) {
  ZavelProcess process = {};
  if (desktop::toProcess(text.c_str(), &process)) {
    ZavelProcess again = {};
    fuzz::demand(desktop::toProcess(desktop::uniqueName(process).c_str(), &again), "a number has a name");
    fuzz::demand(again.high == process.high && again.low == process.low, "the name has its number");
  }
  std::string creator, type;
  if (desktop::toSignature(text, &creator, &type)) {
    fuzz::demand(desktop::signatureName(creator.c_str(), type.c_str()).size() == text.size(),
                 "a signature has a name");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0 || size > 70000) return 0;
  receiveFromBus(data, size);
  receiveUnchecked(data, size);
  readNames(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
