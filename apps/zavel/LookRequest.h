// What one look-up asks for.
#ifndef ZAVEL_LOOKREQUEST_H
#define ZAVEL_LOOKREQUEST_H

#include <cstddef>
#include <string>

#include "LookResult.h"

namespace zavel::host {

struct LookRequest {
  std::string word;  // UTF-8, blanks at both ends already cut
  Mode mode = Mode::kAll;
  bool wantEntries = true;
  bool wantText = true;       // of entries, the laid-out text; else its headword line alone
  bool wantSenses = true;     // of entries, the senses
  bool wantHeadwords = true;  // headwords that begin with the word; with entries as further ones
  bool wantForms = false;     // the inflection table
  size_t suggestions = 0;     // near headwords to look for when nothing is found
};

}  // namespace zavel::host

#endif
