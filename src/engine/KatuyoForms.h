// The ten forms of the inflection table, and the three parts of speech (hinsi) they belong to. The builder
// knows a form by its hinnum, a finished record by its form code, katu.dic by a label of two Shift_JIS
// bytes; one table holds all three:
//
//   form                     hinnum  code  label
//   noun singular              40      1   単
//   noun plural                41      2   複
//   adjective positive         20      3   原
//   adjective comparative      21      4   比
//   adjective superlative      22      5   最
//   verb present               10      6   現
//   verb third person          31      7   三
//   verb past                  11      8   過
//   verb past participle       12      9   分
//   verb progressive           13     10   進
#ifndef ENGINE_KATUYOFORMS_H
#define ENGINE_KATUYOFORMS_H

#include <cstdint>
#include <string_view>

namespace zavel::engine {

// Parts of speech as bits: in SetIrregularFlg, in the mask of a suffix rule, in what DscvHinsi finds.
inline constexpr uint8_t kHinsiMeisi = 1;  // noun
inline constexpr uint8_t kHinsiKeiyo = 2;  // adjective
inline constexpr uint8_t kHinsiDousi = 4;  // verb
inline constexpr uint8_t kHinsiAll = kHinsiMeisi | kHinsiKeiyo | kHinsiDousi;

// What the builder calls a form.
enum Hinnum : uint16_t {
  kHinnumPresent = 10,
  kHinnumPast = 11,
  kHinnumPastParticiple = 12,
  kHinnumProgressive = 13,
  kHinnumPositive = 20,
  kHinnumComparative = 21,
  kHinnumSuperlative = 22,
  kHinnumThirdPerson = 31,
  kHinnumSingular = 40,
  kHinnumPlural = 41,
};

// Labels of katu.dic that tell which part of speech its record serves.
inline constexpr std::string_view kLabelSingular = "\x92\x50";  // 単
inline constexpr std::string_view kLabelPositive = "\x8C\xB4";  // 原
inline constexpr std::string_view kLabelPresent = "\x8C\xBB";   // 現

// The form code of a hinnum, 0 for a number that is none.
uint8_t ConvHinnum(uint16_t hinnum);

// The form code of a two-byte label, 0 for a label that is none.
uint8_t ConvLabel(std::string_view label);

// The part of speech of a form code 1 to 10; 0 for any other.
uint8_t HinsiOfForm(uint8_t formCode);

// True for the last form code of a part of speech: 2, 5 and 10.
bool IsLastForm(uint8_t formCode);

}  // namespace zavel::engine

#endif
