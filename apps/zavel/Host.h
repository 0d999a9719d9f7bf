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

  // Writes the path table on the first start, loads it, and opens the dictionary that it names. Without a
  // dictionary nothing is written: asking for a word must leave no traces. Where nothing can be written, as
  // on a full disk or in a shared installation, the dictionary is opened without a result file.
  Failure open();

  // Only after open() succeeded.
  MirellDictionaryManager& manager() { return own_ ? *own_ : *module_->objectODM(); }

 private:
  bool loadPathTable();
  Failure checkDictionary() const;
  Failure openDictionary();
  void openByModule();
  void openWithoutResultFile();

  Places places_;
  std::string dictionary_;  // the folder that the path table names
  std::unique_ptr<MirellModule> module_;
  std::unique_ptr<MirellDictionaryManager> own_;  // in place of the module's
};

// Names of the dictionary's thirteen files.
extern const std::array<const char*, 13> kDictionaryFiles;

// What stands in a dictionary's folder.
struct DictionaryState {
  size_t absent = 0;       // of the thirteen files
  std::string missing;     // the first that is absent; empty when none is
  std::string hollow;      // the first that holds nothing; no file of a dictionary does
  std::string unreadable;  // the first that is there and can't be read; empty when there is none
  int error = 0;           // why, as errno tells it

  bool none() const { return absent == kDictionaryFiles.size(); }
  bool complete() const { return absent == 0 && unreadable.empty() && hollow.empty(); }
};

DictionaryState dictionaryIn(const std::string& folder);

// The failure that keeps a dictionary in `folder` from being used; none when it is complete.
Failure dictionaryFailure(const std::string& folder, const DictionaryState& state);

// The failure of a start that finds neither ZAVEL_ROOT nor HOME.
Failure noHome();

}  // namespace zavel::host

#endif
