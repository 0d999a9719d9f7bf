// Codes of the engine for the forms of a word, as its inflection tables carry them.
#ifndef MKDICT_FORMCODE_H
#define MKDICT_FORMCODE_H

#include <cstdint>

namespace zavel::mkdict {

enum FormCode : uint8_t {
  kSingular = 1,
  kPlural,
  kPositive,
  kComparative,
  kSuperlative,
  kPresent,
  kThird,
  kPast,
  kParticiple,
  kProgressive
};

}  // namespace zavel::mkdict

#endif
