#ifndef LOOKUP_INFLECTION_H
#define LOOKUP_INFLECTION_H

#include <cstdint>
#include <string>

namespace zavel {

// Form codes of the engine's conjugation records.
inline constexpr uint32_t kFormNounSingular = 1;
inline constexpr uint32_t kFormAdjectivePositive = 3;
inline constexpr uint32_t kFormVerbPresent = 6;
inline constexpr uint32_t kFormVerbThirdPerson = 7;
inline constexpr uint32_t kFormFirst = 1;
inline constexpr uint32_t kFormLast = 10;

// One form of a word.
struct Inflection {
  uint32_t code = 0;
  std::string form;   // the inflected word, bytes without a terminating zero
  std::string label;  // the form's name for the reader, Shift_JIS, one blank in front

  bool operator==(const Inflection&) const = default;
};

// The label of a form code, Shift_JIS: " [名　詞：単数形]" for 1. A code that has none is labelled
// " [？？？？]".
const char* inflectionLabel(uint32_t code);

}  // namespace zavel

#endif
