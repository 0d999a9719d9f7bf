// Which dictionaries are searched, and in which order.
#ifndef DICTTOOL_DICTIONARYLIST_H
#define DICTTOOL_DICTIONARYLIST_H

#include <cstdint>
#include <string>
#include <vector>

#include "dicttool/Failure.h"

namespace zavel::dicttool {

enum class Direction { kEnglish, kJapanese };  // the language of the word that is looked up

// Where the program's own dictionaries stand.
struct DictionaryPlaces {
  std::string folder;        // the user's: dictionaries and the file "dictionaries.plist"
  std::string systemFolder;  // the distribution's dictd dictionaries

  // "dictionaries/translation" in the user's data folder, and /usr/share/dictd.
  static DictionaryPlaces standard();
};

// Collects paths of index files, each once, in the order in which they are to be searched. What is wrong with
// a file that it goes on without is kept as one sentence.
class DictionaryList {
 public:
  DictionaryList(Direction direction, DictionaryPlaces places)
      : direction_(direction), places_(std::move(places)) {}

  // Adds what the parameter file at `path` names for this direction: the maps of the lists UserDictionary,
  // TechnicalDictionary, EnhancedDictionary and SystemDictionary, each with "EJ" (English) or "JE" behind its
  // name, by their "Path". A path of another kind of dictionary is passed over. A failure when the file can't
  // be read.
  Failure addParameterFile(const std::string& path);

  // Adds the technical and user dictionaries ("TD", "UD") of the style at place `number` in the style file,
  // as far as they stand in the user's folder.
  void addStyle(const std::string& path, int64_t number);

  // Adds what the user's configuration names, "dictionaries.plist" with the lists of paths "EJ" and "JE"
  // (relative ones begin in its folder). A list that is missing there stands for the distribution's FreeDict
  // of this direction and for every dictionary in the user's folder, by
  // name; enamdict and compdic also where their texts alone are left.
  void addConfiguration();

  const std::vector<std::string>& indexes() const { return indexes_; }
  const std::vector<std::string>& complaints() const { return complaints_; }

 private:
  const char* code() const { return direction_ == Direction::kEnglish ? "EJ" : "JE"; }
  bool add(const std::string& path);
  void addStandard();

  Direction direction_;
  DictionaryPlaces places_;
  std::vector<std::string> indexes_;
  std::vector<std::string> complaints_;
};

}  // namespace zavel::dicttool

#endif
