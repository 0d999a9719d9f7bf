// What the manager knows of one word, as entries, headwords and forms.
#ifndef ZAVEL_ENTRYSOURCE_H
#define ZAVEL_ENTRYSOURCE_H

#include <string>
#include <vector>

#include "LookRequest.h"
#include "LookResult.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel::host {

struct Fetched {
  std::vector<Entry> entries;  // in the dictionary's order, `match` not decided yet
  bool lacksPart = false;      // there are entries, but none with the part that was asked for
};

// Words are Shift_JIS, as wordBytes() gives them.
class EntrySource {
 public:
  explicit EntrySource(MirellDictionaryManager& manager) : manager_(manager) {}

  // What fetch() fills in. Converting what nobody reads takes as long as finding it.
  void fill(const LookRequest& request) {
    text_ = request.wantText;
    senses_ = request.wantSenses;
  }

  // `labels`: with their parts of speech, whatever fill() says of senses.
  //
  // The entries of a word, those that it is derived from, and those of the other spelling behind them. All
  // in one search and whole: a part is cut out of the whole entries, since a search that is given a filter
  // answers without the headwords, and the reader would not see which entry a part belongs to.
  Fetched fetch(const std::string& word, bool english, Mode mode, bool labels);

  // Whether there are entries, without laying them out.
  bool has(const std::string& word, bool english);

  // The headwords that begin with a word, as one search gives them: at most fifty, and for a word of one or
  // two letters (one kana) those alone that are filed under exactly these.
  std::vector<Headword> headwords(const std::string& word, bool english);

  // The first fifty that begin so, however short the beginning: a short one is asked for with each letter
  // behind it.
  std::vector<Headword> allHeadwords(const std::string& word, bool english);

  // All forms that the dictionary has for a word or makes by rule, of whatever base. `labels`: with the
  // dictionary's names of the forms.
  std::vector<Form> forms(const std::string& word, bool labels);

  // Whether the dictionary is damaged where the word stands. The manager answers "nothing" both for a word
  // that is not there and for one that can't be read; the engine tells them apart.
  bool isDamagedAt(const std::string& word, bool english);

  // The dictionary form of an English word, itself where it has none.
  std::string origin(const std::string& word) { return manager_.GetOrigin(word); }

 private:
  Fetched fetchPart(const std::string& word, bool english, Mode mode);
  std::vector<Entry> takeEntries(const std::string& labelled, bool labels);
  void takeHeadwords(const std::string& word, bool english, std::vector<Headword>* headwords);

  MirellDictionaryManager& manager_;  // borrowed
  bool text_ = true, senses_ = true;
};

}  // namespace zavel::host

#endif
