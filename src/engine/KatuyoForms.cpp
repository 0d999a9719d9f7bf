// Tests: tests/engine/KatuyoFormsTest.cpp.
#include "engine/KatuyoForms.h"

namespace zavel::engine {
namespace {

struct Form {
  uint16_t hinnum;
  uint8_t hinsi;
  std::string_view label;
};

// In the order of the form codes, from 1.
constexpr Form kForms[] = {
    {kHinnumSingular, kHinsiMeisi, kLabelSingular},   {kHinnumPlural, kHinsiMeisi, "\x95\xA1"},       // 複
    {kHinnumPositive, kHinsiKeiyo, kLabelPositive},   {kHinnumComparative, kHinsiKeiyo, "\x94\xE4"},  // 比
    {kHinnumSuperlative, kHinsiKeiyo, "\x8D\xC5"},                                                    // 最
    {kHinnumPresent, kHinsiDousi, kLabelPresent},     {kHinnumThirdPerson, kHinsiDousi, "\x8E\x4F"},  // 三
    {kHinnumPast, kHinsiDousi, "\x89\xDF"},                                                           // 過
    {kHinnumPastParticiple, kHinsiDousi, "\x95\xAA"},                                                 // 分
    {kHinnumProgressive, kHinsiDousi, "\x90\x69"},                                                    // 進
};
constexpr uint8_t kFormCount = sizeof(kForms) / sizeof(kForms[0]);

}  // namespace

uint8_t ConvHinnum(uint16_t hinnum) {
  for (uint8_t i = 0; i < kFormCount; ++i) {
    if (kForms[i].hinnum == hinnum) return static_cast<uint8_t>(i + 1);
  }
  return 0;
}

uint8_t ConvLabel(std::string_view label) {
  for (uint8_t i = 0; i < kFormCount; ++i) {
    if (kForms[i].label == label) return static_cast<uint8_t>(i + 1);
  }
  return 0;
}

uint8_t HinsiOfForm(uint8_t formCode) {
  return formCode >= 1 && formCode <= kFormCount ? kForms[formCode - 1].hinsi : 0;
}

bool IsLastForm(uint8_t formCode) {
  const uint8_t hinsi = HinsiOfForm(formCode);
  return hinsi != 0 && HinsiOfForm(static_cast<uint8_t>(formCode + 1)) != hinsi;
}

}  // namespace zavel::engine
