// One look-up: from the word as it was typed to what the dictionary has for it.
#ifndef ZAVEL_LOOK_H
#define ZAVEL_LOOK_H

#include <string>

#include "EntrySource.h"
#include "Failure.h"
#include "LookRequest.h"
#include "LookResult.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel::host {

// The refusal of a word that is longer than the manager takes.
Failure wordTooLong();

class Look {
 public:
  explicit Look(MirellDictionaryManager& manager) : source_(manager) {}

  // False with `failure` filled when the word can't be asked for at all, or when the dictionary is damaged
  // where it stands. A word that is not found is a result without entries.
  bool run(const LookRequest& request, LookResult* result, Failure* failure);

 private:
  bool ask(const LookRequest& request, const std::string& word, LookResult* result, Failure* failure);
  void suggestForKnownPart(const std::string& asked, size_t most, LookResult* result);

  EntrySource source_;
};

}  // namespace zavel::host

#endif
