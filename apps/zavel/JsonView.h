// Look-up results as JSON; docs/json.md describes every key.
#ifndef ZAVEL_JSONVIEW_H
#define ZAVEL_JSONVIEW_H

#include <cstddef>
#include <string>

#include "LookResult.h"

namespace zavel::host {

// What beside the entries goes in.
struct JsonParts {
  bool entries = true;
  bool headwords = false;
  bool forms = false;
  size_t limit = 0;  // entries, headwords and suggestions at most, and bilingual rows; 0 all
  size_t row = 0;    // the one that is asked for, from 1 on; 0 none
};

// One document on one line, without line end.
std::string resultJson(const LookResult& result, const JsonParts& parts);

}  // namespace zavel::host

#endif
