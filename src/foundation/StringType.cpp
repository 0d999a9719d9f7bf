// Tests: tests/foundation/StringTypeTest.cpp
#include "foundation/StringType.h"

#include <cstdint>

namespace zavel::foundation {
namespace {

struct ClassRange {
  uint16_t first;
  uint16_t last;
  StringType type;  // kStringNone: neutral
};

constexpr ClassRange kClasses[] = {
    {0x2121, 0x2121, kStringNone},                                             // full-width blank
    {0x2124, 0x2126, kStringNone},                                             // ， ． ・
    {0x2127, 0x212A, kStringAlphabetic},                                       // ： ； ？ ！
    {0x212B, 0x212C, kStringKana},                                             // ゛ ゜
    {0x213C, 0x213C, kStringKana},                                             // ー
    {0x213E, 0x213E, kStringNone},                                             // ‐
    {0x2146, 0x2149, kStringAlphabetic},                                       // ‘ ’ “ ”
    {0x215D, 0x215D, kStringNone},                                             // －
    {0x216C, 0x216D, kStringAlphabetic},                                       // ′ ″
    {0x2330, 0x2339, kStringDigits},                                           // ０ to ９
    {0x2341, 0x235A, kStringAlphabetic},                                       // Ａ to Ｚ
    {0x2361, 0x237A, kStringAlphabetic},                                       // ａ to ｚ
    {0x2421, 0x2473, kStringKana},                                             // ぁ to ん
    {0x2521, 0x2576, kStringKana},                                             // ァ to ヶ
    {0x2621, 0x2638, kStringAlphabetic},                                       // Greek
    {0x2641, 0x2658, kStringAlphabetic}, {0x2721, 0x2741, kStringAlphabetic},  // Cyrillic
    {0x2751, 0x2771, kStringAlphabetic},
};

StringType classOf(uint16_t code) {
  for (const ClassRange& range : kClasses)
    if (code >= range.first && code <= range.last) return range.type;
  return kStringMixed;
}

// The class held decides: letters bear no other class behind them, kana and digits bear letters.
bool conflicts(StringType held, StringType next) {
  if (held == kStringNone || held == next) return false;
  return held == kStringAlphabetic || next != kStringAlphabetic;
}

}  // namespace

int GFnGetStringType(const char* jisKey) {
  StringType held = kStringNone;
  while (*jisKey != 0) {
    const uint8_t high = static_cast<uint8_t>(jisKey[0]);
    const uint8_t low = static_cast<uint8_t>(jisKey[1]);
    const StringType next = classOf(static_cast<uint16_t>(high << 8 | low));
    if (next == kStringMixed) return kStringMixed;  // a half character at the end too
    if (next != kStringNone) {
      if (conflicts(held, next)) return kStringMixed;
      held = next;
    }
    jisKey += 2;
  }
  return held;
}

}  // namespace zavel::foundation
