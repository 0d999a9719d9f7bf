// SLOW ON PURPOSE. The walks over entry text exactly as they are defined: one text, a position, a replacement
// or a deletion inside it, a step back, and the test for an escape. Only tests may use them; they say what
// the quick forms in the library must give.
#ifndef TESTS_LOOKUP_SLOWWALKS_H
#define TESTS_LOOKUP_SLOWWALKS_H

#include <cstdint>
#include <string>
#include <vector>

#include "lookup/ScrpSTElement.h"

namespace zavel::test {

std::string slowReplace(std::string text, const std::string& from, const std::string& to);
std::string slowRemoveRanges(std::string text, const std::string& start, const std::string& end);
std::string slowConvertMetaKey(std::string text, uint8_t mode);
std::string slowPrepare(std::string text);
std::string slowLayout(std::string text);
std::string slowStyles(std::string text, const ScrpSTElement& plain, RGBColor index, RGBColor subIndex,
                       std::vector<ScrpSTElement>* runs);

}  // namespace zavel::test

#endif
