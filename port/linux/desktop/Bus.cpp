// Tests: tests/port/DesktopApplicationsTest.cpp
#include "desktop/Bus.h"

#include <string.h>

#include <charconv>
#include <string_view>

namespace zavel::desktop {
namespace {

constexpr char kPrefix[] = "io.github.zavellex.Application1.";
constexpr int kBusTimeout = 5000;  // milliseconds; the bus itself answers at once or not at all

std::string toHex(const char* code) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (; *code; ++code) {
    hex += kDigits[static_cast<unsigned char>(*code) >> 4];
    hex += kDigits[*code & 15];
  }
  return hex;
}

bool fromHex(std::string_view hex, std::string* code) {
  code->clear();
  if (hex.size() != 8) return false;
  for (size_t i = 0; i < hex.size(); i += 2) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
    if (error != std::errc() || end != hex.data() + i + 2) return false;
    code->push_back(static_cast<char>(value));
  }
  return isCode(code->c_str());
}

// Takes a decimal number off the front.
bool takeNumber(std::string_view* text, uint32_t* number) {
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), *number);
  if (error != std::errc()) return false;
  text->remove_prefix(static_cast<size_t>(end - text->data()));
  return true;
}

std::vector<std::string> stringsOf(GVariant* answer) {
  std::vector<std::string> found;
  if (!answer) return found;
  GVariantIter* all = nullptr;
  const char* text = nullptr;
  g_variant_get(answer, "(as)", &all);
  while (g_variant_iter_next(all, "&s", &text)) found.push_back(text);
  g_variant_iter_free(all);
  g_variant_unref(answer);
  return found;
}

// A connection of this module's own: the one that GIO shares out stays the same when it is closed.
GDBusConnection* connect() {
  char* const address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (!address) return nullptr;
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  GDBusConnection* const made =
      g_dbus_connection_new_for_address_sync(address, flags, nullptr, nullptr, nullptr);
  g_free(address);
  return made;
}

}  // namespace

GDBusConnection* bus() {
  static GDBusConnection* connection = nullptr;
  if (connection && g_dbus_connection_is_closed(connection)) g_clear_object(&connection);
  if (!connection) connection = connect();
  return connection;
}

GVariant* callBus(const char* method, GVariant* arguments, const char* answerType) {
  GVariant* const given = arguments ? g_variant_ref_sink(arguments) : nullptr;
  GVariant* answer = nullptr;
  if (bus()) {
    answer = g_dbus_connection_call_sync(bus(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                         "org.freedesktop.DBus", method, given, G_VARIANT_TYPE(answerType),
                                         G_DBUS_CALL_FLAGS_NONE, kBusTimeout, nullptr, nullptr);
  }
  if (given) g_variant_unref(given);
  return answer;
}

std::string uniqueName(ZavelProcess process) {
  return ":" + std::to_string(process.high) + "." + std::to_string(process.low);
}

bool toProcess(const char* uniqueName, ZavelProcess* process) {
  std::string_view rest = uniqueName ? uniqueName : "";
  if (!rest.starts_with(':')) return false;
  rest.remove_prefix(1);
  if (!takeNumber(&rest, &process->high) || !rest.starts_with('.')) return false;
  rest.remove_prefix(1);
  return takeNumber(&rest, &process->low) && rest.empty();
}

std::string signatureName(const char* creator, const char* type) {
  return kPrefix + ("c" + toHex(creator)) + ".t" + toHex(type);
}

bool toSignature(const std::string& name, std::string* creator, std::string* type) {
  std::string_view rest = name;
  if (!rest.starts_with(kPrefix)) return false;
  rest.remove_prefix(strlen(kPrefix));
  return rest.size() == 19 && rest[0] == 'c' && rest.substr(9, 2) == ".t" &&
         fromHex(rest.substr(1, 8), creator) && fromHex(rest.substr(11), type);
}

bool isCode(const char* text) {
  if (!text || strlen(text) != 4) return false;
  for (; *text; ++text) {
    if (*text < 0x20 || *text > 0x7E) return false;
  }
  return true;
}

std::vector<std::string> signatureNames() {
  std::vector<std::string> found;
  for (const std::string& name : stringsOf(callBus("ListNames", nullptr, "(as)"))) {
    if (name.starts_with(kPrefix)) found.push_back(name);
  }
  return found;
}

std::vector<ZavelProcess> ownersOf(const std::string& name) {
  std::vector<ZavelProcess> found;
  const auto arguments = g_variant_new("(s)", name.c_str());
  for (const std::string& owner : stringsOf(callBus("ListQueuedOwners", arguments, "(as)"))) {
    ZavelProcess process = {};
    if (toProcess(owner.c_str(), &process)) found.push_back(process);
  }
  return found;
}

}  // namespace zavel::desktop
