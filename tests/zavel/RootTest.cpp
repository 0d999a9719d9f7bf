#include "zavel/RootTest.h"

#include <sys/stat.h>

#include <fstream>

#include "zavel/HostDictionary.h"

namespace zavel::test {

void RootTest::SetUp() {
  writeHostDictionary(root() + "/dictionaries/basic");
}

Command RootTest::inRoot(std::vector<std::string> arguments) const {
  return Command(std::move(arguments)).env("ZAVEL_ROOT", root());
}

std::string RootTest::script(const std::string& path, const std::string& lines) {
  std::ofstream(path, std::ios::trunc) << "#!/bin/sh\n" << lines;
  chmod(path.c_str(), 0700);
  return path;
}

}  // namespace zavel::test
