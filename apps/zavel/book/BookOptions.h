// What the command line gives to `zavel book`, and its commands. Each gives the exit status.
#ifndef ZAVEL_BOOK_BOOKOPTIONS_H
#define ZAVEL_BOOK_BOOKOPTIONS_H

#include <string>
#include <vector>

#include "Terminal.h"
#include "book/BookBuild.h"

namespace zavel::host {

struct BookOptions {
  BookBuildOptions build;
  std::string book;                 // a name or a path
  std::vector<std::string> books;   // of a search; none: all
  std::vector<std::string> words;   // "-" stands for standard input, and so do none at all
  std::string place;                // of an entry, "39:10", or a word; of a menu; of a picture or a sound
  std::string method;               // "exact", ...; empty: whole words, and what begins so to choose from
  std::string form;                 // number from 1 on, or name
  std::vector<std::string> fields;  // "FIELD=VALUE"
  std::string character;            // "A121" or the character
  std::string output;               // a file, or "-"
  long limit = 0;                   // 0: no limit
  bool query = false;               // words are queries with and, or, groups
  bool nul = false;                 // words on standard input end in NUL
  bool raw = false;                 // words of the text as they are
  bool half = false;                // of custom characters: half width
  bool small = false;               // of icons
  bool pictures = false;            // of menus: that of pictures
  bool play = false;                // of sounds
  bool plain = false, json = false, noPager = false;
  std::string colourWhen = "auto";  // "always", "never"

  ColorChoice colour() const {
    return colourWhen == "always"  ? ColorChoice::kAlways
           : colourWhen == "never" ? ColorChoice::kNever
                                   : ColorChoice::kAuto;
  }
};

int runBookBuild(const BookOptions& options);
int runBookList(const BookOptions& options);
int runBookInfo(const BookOptions& options);
int runBookSearch(const BookOptions& options);
int runBookShow(const BookOptions& options);
int runBookNext(const BookOptions& options);
int runBookPrev(const BookOptions& options);
int runBookMenu(const BookOptions& options);
int runBookMulti(const BookOptions& options);
int runBookGaiji(const BookOptions& options);
int runBookPicture(const BookOptions& options);
int runBookSound(const BookOptions& options);
int runBookIcon(const BookOptions& options);

}  // namespace zavel::host

#endif
