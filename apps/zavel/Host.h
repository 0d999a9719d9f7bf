// This program as a host of the library: its folders, the path table, the lookup module.
#ifndef ZAVEL_HOST_H
#define ZAVEL_HOST_H

#include <array>
#include <memory>
#include <string>

#include "Dictionaries.h"
#include "Failure.h"
#include "HostPlatform.h"
#include "Places.h"
#include "PrivateFolder.h"
#include "lookup/MirellModule.h"

namespace zavel::host {

class Host {
 public:
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // Writes path table, styles and preferences on the first start, and opens the dictionaries. Without a
  // bilingual dictionary nothing is written: asking for a word must leave no traces. Where the path table or
  // its folders can't be made, as on a disk that is full or read only, a table in memory and a temporary
  // folder stand in for them; without that one the bilingual dictionary alone is opened. What is damaged and
  // can be done without is told on standard error, a line each.
  Failure open();

  // Only after open() succeeded.
  MirellDictionaryManager& manager() { return own_ ? *own_ : *manager_; }

  // Null where the bilingual dictionary alone is open.
  Dictionaries* dictionaries() { return own_ ? nullptr : dictionaries_.get(); }

  // Why the translation dictionary can't be searched though it is on; none while dictionaries() has it.
  const Failure& lostTranslation() const { return lostTranslation_; }

 private:
  bool loadPathTable();
  bool standIn();
  void startStore();
  bool loadDictionaries();
  void settleStyles();
  Failure checkDictionary() const;
  Failure openDictionary();
  void openAlone();

  Places places_;
  std::string dictionary_;   // the folder that the path table names
  PrivateFolder temporary_;  // in the place of folders that can't be made
  HostPlatform platform_;
  bool tableIsOfThesePlaces_ = false;
  std::string storeDamage_;  // that was told
  Failure lostTranslation_;
  std::unique_ptr<Dictionaries> dictionaries_;
  MirellDictionaryManager* manager_ = nullptr;    // of the dictionaries
  std::unique_ptr<MirellDictionaryManager> own_;  // in its place
};

// Names of the dictionary's thirteen files.
extern const std::array<const char*, 13> kDictionaryFiles;

// What stands in a dictionary's folder.
struct DictionaryState {
  size_t absent = 0;       // of the thirteen files
  std::string missing;     // the first that is absent; empty when none is
  std::string hollow;      // the first that holds nothing; no file of a dictionary does
  std::string cut;         // the first file of entries that ends ahead of its last entry
  std::string blank;       // the first file of entries whose first or last one isn't there
  std::string unreadable;  // the first that is there and can't be read; empty when there is none
  int error = 0;           // why, as errno tells it

  bool none() const { return absent == kDictionaryFiles.size(); }
  bool complete() const {
    return absent == 0 && unreadable.empty() && hollow.empty() && cut.empty() && blank.empty();
  }
};

DictionaryState dictionaryIn(const std::string& folder);

// The failure that keeps a dictionary in `folder` from being used; none when it is complete.
Failure dictionaryFailure(const std::string& folder, const DictionaryState& state);

// The failure of a start that finds neither ZAVEL_ROOT nor HOME.
Failure noHome();

}  // namespace zavel::host

#endif
