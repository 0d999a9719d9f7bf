// The dictionary compiler as a child process: it shares this process's terminal, so that its progress
// shows as if it were our own.
#ifndef ZAVEL_MKDICTPROGRAM_H
#define ZAVEL_MKDICTPROGRAM_H

#include <string>
#include <vector>

namespace zavel::host {

// Where mkdict stands: ZAVEL_MKDICT, beside this program, or in the build tree. Empty when nowhere.
std::string findMkdict();

// Runs it and waits. Its exit status; 128 + signal number when a signal ended it; 127 when it could not be
// started.
int runMkdict(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace zavel::host

#endif
