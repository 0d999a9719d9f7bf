// A dictionary in dictd form: an index and the text that it leads into.
#ifndef DICTTOOL_DICTDDICTIONARY_H
#define DICTTOOL_DICTDDICTIONARY_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dicttool/DictdIndex.h"
#include "dicttool/DictdText.h"

namespace zavel::dicttool {

struct DictdEntry {
  std::string word;  // as the index spells it, UTF-8
  std::string text;  // UTF-8, as it stands; bytes that are no UTF-8 became U+FFFD; at most 16 KB of it
};

struct DictdMatches {
  std::vector<DictdEntry> entries;  // in the order of the index, each place of the text once
  size_t more = 0;                  // further ones that were not read
};

class DictdDictionary {
 public:
  // The index that belongs to `path`: the file itself (".index"), the one beside a text (".dict",
  // ".dict.dz"), or the one whose name is `path` and ".index", with or without an extension of `path`'s own.
  // Nothing when `path` is of another kind and no index stands there.
  static std::optional<std::string> indexOf(const std::string& path);

  // Opens the index and the text beside it. False with a sentence in *error.
  bool open(const std::string& indexPath, std::string* error);

  // Looks `word` (UTF-8) up. Reads at most `most` entries. False with a sentence in *error when the
  // dictionary turns out to be damaged on the way.
  bool find(std::string_view word, size_t most, DictdMatches* matches, std::string* error);

  // Tells in *ofNames whether it says of itself that it is made of the file of names. False with a sentence
  // in *error when the dictionary turns out to be damaged.
  bool tellNames(bool* ofNames, std::string* error);

 private:
  bool addEntry(const IndexLine& line, DictdMatches* matches, std::string* error);

  DictdIndex index_;
  DictdText text_;
};

}  // namespace zavel::dicttool

#endif
