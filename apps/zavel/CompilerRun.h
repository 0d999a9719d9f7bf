// What running a compiler of dictionaries or books ends in, for the user.
#ifndef ZAVEL_COMPILERRUN_H
#define ZAVEL_COMPILERRUN_H

#include <string>

#include "ChildProgram.h"
#include "Failure.h"
#include "LockFile.h"

namespace zavel::host {

struct Compiler {
  const char* name;      // of the program
  const char* what;      // it is: "the dictionary compiler"
  const char* variable;  // of the environment, with its path
};

// Where it stands; empty when nowhere.
std::string findCompiler(const Compiler& compiler);
Failure noCompiler(const Compiler& compiler);

// Of a folder that can't be made, and of a folder's lock that others hold or that can't be had.
Failure noFolder(const std::string& folder);
Failure notLocked(const LockFile& lock, const std::string& folder);

// The exit status of a run; what the compiler hasn't told itself is told, in `json` in a document too.
int statusOf(const ProgramEnd& end, const Compiler& compiler, bool json);

// Tells in one line that a signal ended the work, and gives the exit status.
int interruptedBy(int signal, bool json);

}  // namespace zavel::host

#endif
