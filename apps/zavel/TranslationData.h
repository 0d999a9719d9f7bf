// The dictionaries of proper nouns and technical terms that the translation dictionary searches, made of the
// distribution's data.
#ifndef ZAVEL_TRANSLATIONDATA_H
#define ZAVEL_TRANSLATIONDATA_H

#include <cstdint>
#include <string>
#include <vector>

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
  int status = 0;  // exit status of the program that failed; 128 and the signal's number if one ended it
};

// "dictionaries/translation" in the data folder.
std::string translationFolder(const std::string& data);

// Makes those whose source is installed, in /usr/share/edict or the folder that ZAVEL_EDICT names, one after
// the other; a failure ends it. `ifMissing`: not those that are there. `progress` as mkdict takes it.
// `keptOpen` as in runMkdict(). Without the program that converts them nothing is made, and one line on
// standard error tells it.
TranslationBuild buildTranslationData(const std::string& folder, bool ifMissing, const std::string& progress,
                                      int keptOpen);

}  // namespace zavel::host

#endif
