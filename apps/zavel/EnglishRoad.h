// The road of an English word: its own entries first, then those of the words that it is a form of.
#ifndef ZAVEL_ENGLISHROAD_H
#define ZAVEL_ENGLISHROAD_H

#include <string>
#include <vector>

#include "EntrySource.h"
#include "LookRequest.h"
#include "LookResult.h"
#include "WordForms.h"

namespace zavel::host {

class EnglishRoad {
 public:
  // Both are borrowed; `request` tells what to gather.
  EnglishRoad(EntrySource& source, const LookRequest& request) : source_(source), request_(request) {}

  // Adds what the dictionary has for `word` (as wordBytes() gives it) to `result`.
  void run(const std::string& word, LookResult* result);

 private:
  void addEntries(const std::string& word, LookResult* result);
  std::vector<Entry> ownEntries(const std::string& word, bool labels, LookResult* result);
  std::vector<Entry> inflectedEntries(const std::string& word, LookResult* result);
  std::vector<Entry> entriesOfBase(const InflectedFrom& base, LookResult* result);
  std::vector<Entry> entriesByOrigin(const std::string& word, LookResult* result);
  std::vector<Entry> contractedEntries(const std::string& word, LookResult* result);
  void addForms(const std::string& word, LookResult* result);
  std::vector<Form> formsOf(const std::string& base, unsigned asked);

  EntrySource& source_;
  const LookRequest& request_;
};

}  // namespace zavel::host

#endif
