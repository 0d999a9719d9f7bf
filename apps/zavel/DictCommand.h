// `zavel dict build` and `zavel dict verify`.
#ifndef ZAVEL_DICTCOMMAND_H
#define ZAVEL_DICTCOMMAND_H

#include <string>
#include <vector>

namespace zavel::host {

struct DictBuildOptions {
  bool ifMissing = false;
  bool quiet = false;
  bool json = false;
  std::string progress = "auto";
};

// The exit status of each.
int runDictBuild(const DictBuildOptions& options);
int runDictVerify(bool json);

}  // namespace zavel::host

#endif
