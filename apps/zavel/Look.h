// The road of one look-up over the manager: origin, headwords, entries, forms, near headwords.
#ifndef ZAVEL_LOOK_H
#define ZAVEL_LOOK_H

#include <cstddef>
#include <string>

#include "Failure.h"
#include "LookResult.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel::host {

struct LookRequest {
  std::string word;  // UTF-8, blanks at both ends already cut
  Mode mode = Mode::kAll;
  bool wantEntries = true;    // entries, with text and senses
  bool wantHeadwords = true;  // the list of headwords that begin with the word
  bool wantForms = false;     // the inflection table
  size_t suggestions = 0;     // near headwords to look for when nothing is found
};

// The refusal of a word that is longer than the manager takes.
Failure wordTooLong();

class Look {
 public:
  explicit Look(MirellDictionaryManager& manager) : manager_(manager) {}

  // False with `failure` filled when the word can't be asked for at all, or when the dictionary is damaged
  // where it stands. A word that is not found is a result without entries.
  bool run(const LookRequest& request, LookResult* result, Failure* failure);

 private:
  void lookEnglish(const LookRequest& request, const std::string& word, LookResult* result);
  void lookJapanese(const LookRequest& request, const std::string& word, LookResult* result);
  std::vector<Headword> takeHeadwords();
  void fetch(const std::string& word, bool english, Mode mode, LookResult* result);
  void fetchPart(const std::string& word, bool english, Mode mode, LookResult* result);
  std::vector<Entry> takeEntries(const std::string& labelled);
  bool isDamagedAt(const std::string& word, bool english);
  void explainEnglish(const std::string& word, LookResult* result);
  void takeForms(const std::string& word, LookResult* result);
  void suggestEnglish(const std::string& word, size_t limit, LookResult* result);
  void suggestJapanese(const std::string& word, size_t limit, LookResult* result);
  bool isHeadword(const std::string& word);

  MirellDictionaryManager& manager_;  // borrowed
};

}  // namespace zavel::host

#endif
