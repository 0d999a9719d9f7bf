// The dictionaries of proper nouns and technical terms that the translation dictionary searches, made of the
// distribution's data.
#ifndef ZAVEL_TRANSLATIONDATA_H
#define ZAVEL_TRANSLATIONDATA_H

#include <cstdint>
#include <string>
#include <vector>

#include "Failure.h"

namespace zavel::host {

// One dictionary that was made.
struct TranslationFigures {
  std::string name;  // of the source: "enamdict"
  const char* what;  // that it holds: "proper nouns"
  int64_t entries = 0;
  int64_t words = 0;    // that lead to them
  int64_t leftOut = 0;  // lines of the source in another form
};

struct TranslationBuild {
  std::vector<TranslationFigures> made;
  Failure failure;
  int signal = 0;  // that interrupted it; `failure` is then none
};

// One dictionary of which something is there.
struct TranslationState {
  std::string name;
  const char* what;
  std::string base;   // its path without ".index" and ".dict"
  int64_t words = 0;  // when it is sound
  Failure failure;
};

// "dictionaries/translation" in the data folder.
std::string translationFolder(const std::string& data);

// Why the sources can't be looked for: ZAVEL_EDICT names no folder.
Failure wrongSources();

// Whether all are there and sound whose source is installed, in /usr/share/edict or the folder that
// ZAVEL_EDICT names.
bool translationDataComplete(const std::string& folder);

// Makes them, one after the other; a failure ends it. `ifMissing`: not those that are there and sound.
// `progress` as mkdict takes it. `keptOpen` as in runProgram(). Without the program that converts them nothing
// is made, and one line on standard error tells it. To be called while the folder's lock is held, with an
// EndSignals alive: what interrupted runs left there is removed.
TranslationBuild buildTranslationData(const std::string& folder, bool ifMissing, const std::string& progress,
                                      int keptOpen);

// Looks through those of which an index or a text is there.
std::vector<TranslationState> checkTranslationData(const std::string& folder);

// The names of their files: "enamdict.index", "enamdict.dict", as far as one of the pair is there.
std::vector<std::string> translationFiles(const std::string& folder);

}  // namespace zavel::host

#endif
