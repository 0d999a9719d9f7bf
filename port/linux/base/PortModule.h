// Parts of the port that are loaded when they are first needed, so that programs that don't need them start
// fast.
#ifndef PORT_LINUX_BASE_PORTMODULE_H
#define PORT_LINUX_BASE_PORTMODULE_H

#include <string>

namespace zavel {

// Loads a module and gives the function that it exports under `symbol`. Null, with a line in the log, when
// that fails. A module stays loaded until the process ends.
void* loadPortModule(const std::string& file, const char* symbol);

}  // namespace zavel

#endif
