// What one look-up gives, ready to be shown or written as JSON. All text UTF-8.
#ifndef ZAVEL_LOOKRESULT_H
#define ZAVEL_LOOKRESULT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Failure.h"

namespace zavel::host {

// How an entry came to answer the query.
enum class Match {
  kExact,
  kInflected,
  kDerived,
  kSpelling,
  kNear,  // the index files it with the query, which is written otherwise: ビル for ビール, IM for I'm
};

const char* matchName(Match match);  // "exact", "inflected", "derived", "spelling", "near"

// Which part of the entries is asked for; the value is the engine's filter.
enum class Mode : uint8_t { kAll = 0, kPos = 3, kPhrase = 4, kExample = 5 };

struct Example {
  std::string source;
  std::string target;
};

struct Sense {
  std::vector<std::string> pos;  // "n", "v", "adj", ...; several where the dictionary names several
  std::string number;            // the dictionary's own sense number; empty where it has none
  std::vector<std::string> glosses;
  std::string note;  // what the dictionary says about the sense; may be empty
  std::vector<Example> examples;
  std::vector<std::string> labels = {};  // the dictionary's own names of the parts of speech: 名, 動カ五
};

// A stretch of laid-out text in one look.
struct Span {
  size_t begin;  // bytes into the text
  bool bold;
  bool italic;
  uint32_t colour;  // 0xRRGGBB; 0 is the terminal's own
};

struct Entry {
  std::string headword;
  std::string reading;  // Japanese entries with a written form; else empty
  int homograph = 0;    // 0 where the word has one entry only
  int stars = 0;        // frequency marks, 0, 2 or 3
  Match match = Match::kExact;
  // The inflections that lead to it: of an English word each form that the query can be; of a Japanese one
  // the chain, from the last ending to the first.
  std::vector<std::string> via;
  std::string base;                 // the word that `via` leads to, or that it is another spelling of
  std::vector<std::string> labels;  // the dictionary's names of its parts of speech, of all senses together
  std::vector<Sense> senses;
  std::string text;         // laid out, lines ended by 0x0A
  std::vector<Span> spans;  // rising, the first at 0
  bool user = false;        // of the user's own dictionary
};

struct Form {
  int code;  // 1 to 10, as the engine numbers them
  std::string form;
  std::string label;      // the dictionary's Japanese name of the form
  std::string base = {};  // the word whose form it is
};

// A line of the headword list.
struct Headword {
  std::string line;     // as the list shows it: word, and its gloss or written form in brackets
  std::string keyword;  // the word that looks it up
  bool user = false;    // of the user's own dictionary
};

// Kinds of dictionaries.
enum class RowKind { kBilingual, kTranslation };

// Code of the failure of a dictionary that has no answer while a part of it could not be searched.
constexpr const char* kDamagedPart = "damaged_part";

// Code of the failure of the bilingual dictionary where it is damaged.
constexpr const char* kDamagedDictionary = "damaged_dictionary";

const char* kindName(RowKind kind);  // "bilingual", "translation"

// A row of the result list, as one of the dictionaries gave it.
struct Row {
  RowKind kind = RowKind::kBilingual;
  std::string title;
  bool shown = false;       // the one that is selected
  std::string text;         // lines ended by 0x0A, none at the end; of a bilingual row only while it is shown
  std::vector<Span> spans;  // of a bilingual row that is shown
  std::string lookedUp = {};  // what answers a word whose signs were passed over: "C" for "C++"
};

struct LookResult {
  std::string query;
  bool english = true;
  std::string origin;  // the dictionary form of a query that is none itself; else the query
  std::vector<Headword> headwords;
  std::vector<Entry> entries;
  std::vector<Form> forms;
  std::vector<std::string> suggestions;
  std::string unknown;     // characters of the query that dictionaries can't be asked for, each once
  bool lacksPart = false;  // the word has entries, but none with the part that was asked for

  std::vector<RowKind> kinds;           // of the dictionaries that are searched, in the user's order
  std::vector<Row> rows;                // of all of them, in that order
  std::map<RowKind, Failure> failures;  // of those that could not answer
  bool translationUnasked = false;      // the word never came to the translation dictionary

  bool ownAsked = false;  // the user has entries in the language of the query
  Failure ownFailure;     // why they, or some of them, could not be read

  bool hasAnswer(RowKind kind) const {
    return std::any_of(rows.begin(), rows.end(),
                       [kind](const Row& row) { return row.kind == kind && !row.text.empty(); });
  }
  // Bilingual rows alone are headwords that begin alike.
  bool found() const { return !entries.empty() || hasAnswer(RowKind::kTranslation); }
};

}  // namespace zavel::host

#endif
