// What a book is made from, whatever its form: entries that can be read again and again.
#ifndef MKBOOK_BOOKSOURCE_H
#define MKBOOK_BOOKSOURCE_H

#include <cstddef>
#include <string>
#include <vector>

namespace zavel::mkbook {

// A part of a line. All text UTF-8, without line ends.
struct Span {
  enum class Kind { kPlain, kEmphasis, kReference };
  Kind kind = Kind::kPlain;
  std::string text;
  std::string target;  // of a reference: the word of the entry that it leads to
};

struct Line {
  unsigned indent = 1;  // as books count: 1 is the margin; at most 9999
  std::vector<Span> spans;
};

struct BookEntry {
  std::string headword;
  std::vector<Span> note;          // what stands behind the headword in its line
  std::vector<std::string> words;  // that the entry is found by
  std::vector<Line> lines;
};

// A field of a form: entries are found by what they have in it.
struct SearchField {
  std::string label;                 // at most 15 characters
  bool byBeginning = false;          // else by the whole of it
  std::vector<std::string> choices;  // what may be asked for; empty where anything may
};

struct MultiSearch {
  std::string name;  // ASCII
  std::vector<SearchField> fields;
};

class BookSource {
 public:
  virtual ~BookSource() = default;

  virtual size_t size() const = 0;

  // Entry number `number` (from 0, below size()), the same each time.
  virtual BookEntry entry(size_t number) const = 0;

  // The form that the book can be searched by; without fields there is none.
  virtual MultiSearch multiSearch() const { return {}; }

  // What an entry has in each field of the form. Readings in each script that they are typed in.
  virtual std::vector<std::vector<std::string>> fieldValues(size_t) const { return {}; }

  // Words, UTF-8, that a search by keywords finds an entry by, and those that a search across all texts does:
  // if a source doesn't say otherwise, the words of what it is found by, and all words of its text.
  virtual std::vector<std::string> keywords(size_t number) const;
  virtual std::vector<std::string> crossWords(size_t number) const;

  virtual std::string title() const = 0;      // UTF-8
  virtual std::string publisher() const = 0;  // source and licence in one line, UTF-8
};

}  // namespace zavel::mkbook

#endif
