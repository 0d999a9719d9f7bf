// The thirteen files of the basic set, in memory.
#ifndef MKDICT_BASICSET_H
#define MKDICT_BASICSET_H

#include <string>
#include <vector>

#include "mkdict/Compilation.h"
#include "mkdict/Progress.h"

namespace zavel::mkdict {

struct SetFile {
  std::string name;  // "ej.dic"
  std::string bytes;
};

// Names of the thirteen files, in the order of the engine's table.
const std::vector<std::string>& basicSetNames();

// Files every word and lays out the entries in the order of their first index, so that neighbouring rows
// share reads. What can't be filed is left out and counted in compilation.summary. Entry texts are given
// up as they are laid out. An empty result: cancelled. std::length_error when a .dic file would pass 4 GiB.
std::vector<SetFile> makeBasicSet(Compilation& compilation, Progress& progress);

// The list of sources that stands beside the files as SOURCES.txt, UTF-8.
std::string sourcesText(const std::vector<Source>& sources);

}  // namespace zavel::mkdict

#endif
