// A small basic dictionary for the host's tests.
#ifndef TESTS_ZAVEL_HOSTDICTIONARY_H
#define TESTS_ZAVEL_HOSTDICTIONARY_H

#include <string>

namespace zavel::test {

// Writes it into `folder`. It holds:
//   go (noun, number 1), go (verb, number 2, "***"), with went, gone, goes, going filed as its forms
//   church (countable noun), colour referring to color, color, happy with happiness derived from it
//   make (verb): making and makes by rule; Cape Town
//   いく 行く, こう 甲, こう 功, パン
void writeHostDictionary(const std::string& folder);

}  // namespace zavel::test

#endif
