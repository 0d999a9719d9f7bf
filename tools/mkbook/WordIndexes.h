// The indexes of a book's words, one for each way of searching and each kind of key.
#ifndef MKBOOK_WORDINDEXES_H
#define MKBOOK_WORDINDEXES_H

#include <string_view>
#include <vector>

#include "mkbook/IndexBuilder.h"

namespace zavel::mkbook {

// A key in kana is looked for in an index for kana where the book has one, a key in letters in one for
// letters, and any other in the general one. A word stands in each in which a key can find it: かな漢字 is
// found by かな in the index of beginnings for kana, and by かな漢 in the general one.
class WordIndexes {
 public:
  WordIndexes();

  // Files a word, in JIS, with its beginnings and ends. False for a word that leaves no key.
  bool add(std::string_view word, const _SDICADDRESS& address);
  // Files it for searches by keywords, and across all texts.
  bool addKeyword(std::string_view word, const _SDICADDRESS& address);
  bool addCross(std::string_view word, const _SDICADDRESS& address);

  // Sorts what was added. Then no more adding.
  void settle();

  struct File {
    const IndexBuilder* index;  // of this object
    const char* name;
  };
  // What the book gets, after settle(): the general indexes, so that a search finds nothing rather than no
  // index, and of the others those that hold something.
  std::vector<File> files() const;

  size_t words() const;     // keys of whole words
  size_t keywords() const;  // and of the two others
  size_t crossWords() const;

 private:
  struct Entry {
    IndexBuilder index;
    const char* name;
  };
  bool addTo(size_t method, unsigned classes, std::string_view word, const _SDICADDRESS& address);

  std::vector<Entry> entries_;
};

}  // namespace zavel::mkbook

#endif
