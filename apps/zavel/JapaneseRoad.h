// The road of a Japanese word: its own entries, those written as it is first, then the words that it is a
// form of.
#ifndef ZAVEL_JAPANESEROAD_H
#define ZAVEL_JAPANESEROAD_H

#include <string>
#include <vector>

#include "Deinflector.h"
#include "EntrySource.h"
#include "LookRequest.h"
#include "LookResult.h"

namespace zavel::host {

class JapaneseRoad {
 public:
  // Both are borrowed; `request` tells what to gather.
  JapaneseRoad(EntrySource& source, const LookRequest& request) : source_(source), request_(request) {}

  // Adds what the dictionary has for `word` (as wordBytes() gives it) to `result`.
  void run(const std::string& word, LookResult* result);

 private:
  void addEntries(const std::string& word, LookResult* result);
  void addBases(const std::string& shown, LookResult* result);
  std::vector<Entry> entriesOfBase(const BaseForm& base, LookResult* result);

  EntrySource& source_;
  const LookRequest& request_;
};

}  // namespace zavel::host

#endif
