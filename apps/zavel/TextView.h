// Shows look-up results as text, with the weights and colours of the style runs where colours are wanted.
#ifndef ZAVEL_TEXTVIEW_H
#define ZAVEL_TEXTVIEW_H

#include <cstddef>
#include <string>

#include "LookResult.h"

namespace zavel::host {

struct TextLook {
  bool colour = false;
  size_t width = 0;  // columns to wrap at; 0 wraps nothing
  size_t limit = 0;  // entries and headwords at most; 0 all
};

// The whole answer for one word that was found: how it was found, its entries, further headwords; and what
// other dictionaries say, each below its name.
std::string answerText(const LookResult& result, const TextLook& look);

// One row of the result list, which is there, below its number and its dictionary's name.
std::string rowText(const LookResult& result, size_t row, const TextLook& look);

// One headword a line.
std::string headwordText(const LookResult& result, const TextLook& look);

// The inflection table, one form a line, the form asked for marked.
std::string formsText(const LookResult& result, const TextLook& look);

}  // namespace zavel::host

#endif
