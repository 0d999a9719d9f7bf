// Reads an English inflection table: which of its words are bases, and of which the query is a form.
#ifndef ZAVEL_WORDFORMS_H
#define ZAVEL_WORDFORMS_H

#include <string>
#include <vector>

#include "LookResult.h"

namespace zavel::host {

// The three ways in which English words inflect, as bits. Form codes 1 and 2 are the noun's, 3 to 5 the
// adjective's, 6 to 10 the verb's.
enum Paradigm : unsigned { kNounForms = 1, kAdjectiveForms = 2, kVerbForms = 4, kAllForms = 7 };

Paradigm paradigmOf(int formCode);

// The ways in which a word of these parts of speech (the dictionary's labels) inflects. All of them when
// there is no label: then nobody can say that it lacks one.
unsigned paradigmsOf(const std::vector<std::string>& labels);

// The name of an inflected form by its code: "singular", "past", ...; "" for a code that is none.
const char* formName(int code);

// How the query is a form of one base.
struct InflectedFrom {
  struct Way {
    Paradigm paradigm;
    std::string name;  // "past"
  };
  std::string base;
  std::vector<Way> ways;  // in the order of the form codes

  // The ways together.
  unsigned paradigms() const;

  // The names that fit an entry which inflects in `paradigms`.
  std::vector<std::string> namesFor(unsigned paradigms) const;
};

// The bases in `forms`, the table of `word`, that `word` is an inflected form of; never the word itself.
//   table of "saw"    see: past
//   table of "leaves" leaf: plural; leave: plural, third person singular
std::vector<InflectedFrom> basesIn(const std::vector<Form>& forms, const std::string& word);

// Whether `word` is a base in `forms`.
bool isBaseIn(const std::vector<Form>& forms, const std::string& word);

}  // namespace zavel::host

#endif
