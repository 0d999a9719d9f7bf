// What the programs around the compilers have in common: signals, progress on a terminal, what they tell.
#ifndef MKDICT_PROGRAMRUN_H
#define MKDICT_PROGRAMRUN_H

#include <csignal>
#include <string>

#include "mkdict/Progress.h"

namespace zavel::mkdict {

// From now on SIGINT, SIGTERM and SIGHUP set a flag, which stays, and SIGXFSZ does nothing; gives the flag.
const volatile std::sig_atomic_t* watchSignals();

// Progress as `how` asks for it (auto, bar, plain, json, none) on standard error, a terminal or not.
Progress terminalProgress(const std::string& how, bool quiet);

// Writes the account to standard output and the errors to standard error. The exit status: the outcome's, but
// 3 where it is 0 and the account can't be written.
int tell(const std::string& program, const std::string& account, const std::string& errors, int status);

}  // namespace zavel::mkdict

#endif
