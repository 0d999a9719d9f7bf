// This program as a host of the library: its folders, the path table, the lookup module.
#ifndef ZAVEL_HOST_H
#define ZAVEL_HOST_H

#include <array>
#include <memory>
#include <string>

#include "Failure.h"
#include "Places.h"
#include "lookup/MirellModule.h"

namespace zavel::host {

class Host {
 public:
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  const Places& places() const { return places_; }

  // Writes the path table on the first start, loads it, and opens the dictionary.
  Failure open();

  // Only after open() succeeded.
  MirellDictionaryManager& manager() { return *module_->objectODM(); }

 private:
  Failure loadPathTable();
  Failure openDictionary();

  Places places_;
  std::unique_ptr<MirellModule> module_;
};

// Names of the dictionary's thirteen files.
extern const std::array<const char*, 13> kDictionaryFiles;

// The first of the dictionary's thirteen files that `folder` lacks; empty when all are there. `none` is set
// when the folder holds not one of them.
std::string missingDictionaryFile(const std::string& folder, bool* none);

}  // namespace zavel::host

#endif
