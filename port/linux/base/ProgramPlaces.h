// What stands beside the program: resources and modules, in the build tree and where they get installed.
#ifndef PORT_LINUX_BASE_PROGRAMPLACES_H
#define PORT_LINUX_BASE_PROGRAMPLACES_H

#include <string>

namespace zavel {

// The file that this code was loaded from, the program or a shared library, as an absolute path; empty when
// the system does not tell.
const std::string& pathOfThisCode();

// The folder of the system's resources: "share/zavel/resources" one or two folders above this code, else
// where the build was configured to install it. Without a delimiter at the end; empty when there is none.
std::string resourceFolder();

// The path of a module of the port, such as "zavel-port-loop.so": beside this code in "zavel", in the
// libraries' folder one or two above it, else where the build was configured to install it. Empty when there
// is none. A file that belongs neither to root nor to the owner of this code is passed over: it would run
// with the user's rights.
std::string modulePath(const std::string& name);

}  // namespace zavel

#endif
