// The program: a command line, its work, its messages.
#ifndef DICTTOOL_TOOL_H
#define DICTTOOL_TOOL_H

#include <csignal>
#include <ostream>

namespace zavel::dicttool {

// Runs the program and gives its exit status. `stop` (borrowed; may be null) ends a conversion when it is not
// 0 any more.
int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
            const volatile std::sig_atomic_t* stop);

}  // namespace zavel::dicttool

#endif
