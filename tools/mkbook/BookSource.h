// What a book is made from, whatever its form: entries that can be read again and again, and what else the
// book has.
#ifndef MKBOOK_BOOKSOURCE_H
#define MKBOOK_BOOKSOURCE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "mkbook/Medium.h"

namespace zavel::mkbook {

// A part of a line: its text, then the parts inside it. All text UTF-8, without line ends.
struct Span {
  enum class Kind {
    kPlain,
    kEmphasis,
    kSubscript,
    kSuperscript,
    kKeyword,    // a word that matters, within the text
    kReference,  // leads to an entry
    kMenu,       // leads to a menu; in menus alone
    kPicture,    // its text is the caption
    kSound,      // its text is what a reader chooses to hear it
  };
  Kind kind = Kind::kPlain;
  std::string text = {};
  std::string target = {};        // of a reference the word of its entry, of a menu's item the menu's name
  std::vector<Span> inside = {};  // of what is no plain text
  int64_t entry = -1;             // of a reference: the entry's number, where it is known by more than a word
  size_t medium = 0;              // of a picture or sound: its number among BookSource::media()
  size_t line = 0;                // of the source's file, 0 where that isn't told
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

struct Menu {
  std::string name;       // that items lead to it by
  bool pictures = false;  // whether it is one of the menus that show pictures
  std::vector<Line> lines;
};

// What may be asked for in a field, and the choices below it. One that has such is their heading.
struct Choice {
  Choice(std::string text) : name(std::move(text)) {}
  Choice(const char* text) : name(text) {}
  Choice(std::string text, std::vector<Choice> choices) : name(std::move(text)), below(std::move(choices)) {}

  std::string name;
  std::vector<Choice> below;
};

// A field of a form: entries are found by what they have in it.
struct SearchField {
  std::string label;            // at most 15 characters
  bool byBeginning = false;     // else by the whole of it
  std::vector<Choice> choices;  // what may be asked for; empty where anything may
};

struct MultiSearch {
  std::string name;  // at most 31 characters
  std::vector<SearchField> fields;
};

class BookSource {
 public:
  virtual ~BookSource() = default;

  virtual size_t size() const = 0;

  // Entry number `number` (from 0, below size()), the same each time.
  virtual BookEntry entry(size_t number) const = 0;

  // The forms that the book can be searched by, at most kMostForms.
  virtual std::vector<MultiSearch> forms() const { return {}; }

  // What an entry has in each field of a form. Readings in each script that they are typed in.
  virtual std::vector<std::vector<std::string>> fieldValues(size_t /*entry*/, size_t /*form*/) const {
    return {};
  }

  // Words, UTF-8, that a search by keywords finds an entry by, and those that a search across all texts does:
  // if a source doesn't say otherwise, the words of what it is found by, and all words of its text.
  virtual std::vector<std::string> keywords(size_t number) const;
  virtual std::vector<std::string> crossWords(size_t number) const;

  // Pictures and sounds: what they are, and the bytes of one, the same each time. Throws Failure when its
  // file isn't what it was.
  virtual std::vector<MediumShape> media() const { return {}; }
  virtual std::string mediumBytes(size_t /*number*/) const { return ""; }

  // Of each kind the first one is where a reader begins.
  virtual std::vector<Menu> menus() const { return {}; }

  virtual std::string title() const = 0;                // UTF-8
  virtual std::string publisher() const = 0;            // source and licence in one line, UTF-8
  virtual uint32_t identity() const { return 0; }       // 0: made from the title
  virtual uint32_t version() const { return 1; }        // of what the publisher gives out
  virtual std::string largeIcon() const { return ""; }  // as Catalog has it; empty for the compiler's own
  virtual std::string smallIcon() const { return ""; }
};

inline constexpr size_t kMostForms = 16;

}  // namespace zavel::mkbook

#endif
