// What books can be made from: the dictionaries that the distribution packages.
#ifndef ZAVEL_BOOK_BOOKSOURCES_H
#define ZAVEL_BOOK_BOOKSOURCES_H

#include <string>
#include <vector>

#include "Failure.h"

namespace zavel::host {

struct BookSource {
  std::string name;     // of the book
  std::string form;     // as mkbook calls it: "dictd", "edict", "kanjidic", "text"
  std::string path;     // of the source's file, of dictd the index
  std::string package;  // that brings it
  bool installed = false;
};

// WordNet, EDICT and KANJIDIC, there or not, then every other dictionary in dictd's form that is installed,
// by name. They are looked for in /usr/share/dictd and /usr/share/edict, or the folders that ZAVEL_DICTD and
// ZAVEL_EDICT name.
std::vector<BookSource> bookSources();

// Those that books are made of unless others are asked for: WordNet and KANJIDIC, as far as they are
// installed.
std::vector<BookSource> usualSources();

// The source of this name, when it is installed.
Failure findSource(const std::string& name, BookSource* source);

// Of sources none of which is installed.
Failure noSources();

}  // namespace zavel::host

#endif
