// The session bus, and the names under which applications stand on it.
#ifndef PORT_LINUX_DESKTOP_BUS_H
#define PORT_LINUX_DESKTOP_BUS_H

#include <gio/gio.h>

#include <string>
#include <vector>

#include "desktop/DesktopModule.h"

namespace zavel::desktop {

inline constexpr char kInterface[] = "io.github.zavellex.Messages1";
inline constexpr char kObject[] = "/io/github/zavellex/Messages1";

// Borrowed; null when there is no bus. A connection that was lost is made anew.
GDBusConnection* bus();

// Calls `method` of the bus itself and gives its answer, owned by the caller; null on failure. `arguments`
// may be floating.
GVariant* callBus(const char* method, GVariant* arguments, const char* answerType);

// ":1.42" and {1, 42}; false for a name of another form.
std::string uniqueName(ZavelProcess process);
bool toProcess(const char* uniqueName, ZavelProcess* process);

// "io.github.zavellex.Application1.c7A565838.t4150504C" stands for "zVX8", "APPL": the codes in hexadecimal,
// since names on the bus know neither blanks nor all signs.
std::string signatureName(const char* creator, const char* type);
bool toSignature(const std::string& name, std::string* creator, std::string* type);

// Four characters from U+0020 to U+007E.
bool isCode(const char* text);

// All names of applications on the bus, and the processes that own or wait for one, in the order of the
// queue.
std::vector<std::string> signatureNames();
std::vector<ZavelProcess> ownersOf(const std::string& name);

}  // namespace zavel::desktop

#endif
