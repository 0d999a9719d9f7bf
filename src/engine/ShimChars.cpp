// Characters of Shift_JIS by code. Tests: tests/engine/ShimCharsTest.cpp
#include "engine/Shim.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace zavel::engine {
namespace {

struct Range {
  uint16_t first;
  uint16_t last;
};

// Assigned codes: JIS X 0208 and its extensions. A range may run over several lead bytes; the trail byte is
// tested apart.
constexpr Range kAssigned[] = {
    {0x8140, 0x81AC}, {0x81B8, 0x81BF}, {0x81C8, 0x81CE}, {0x81DA, 0x81E8},
    {0x81F0, 0x81F7}, {0x81FC, 0x81FC}, {0x824F, 0x8258}, {0x8260, 0x8279},
    {0x8281, 0x829A}, {0x829F, 0x82F1},                                      // digits, letters, hiragana
    {0x8340, 0x8396}, {0x839F, 0x83B6}, {0x83BF, 0x83D6},                    // katakana, Greek
    {0x8440, 0x8460}, {0x8470, 0x8491}, {0x849F, 0x84BE},                    // Cyrillic, rules
    {0x8740, 0x875D}, {0x875F, 0x8775}, {0x877E, 0x877E}, {0x8780, 0x879C},  // extension of row 13
    {0x889F, 0x9872}, {0x989F, 0xEAA4},                                      // kanji of level 1 and 2
    {0xED40, 0xEEEC}, {0xEEEF, 0xEEFC}, {0xFA40, 0xFC4B},                    // kanji of the extensions
};

struct Pair {
  uint16_t code;
  uint8_t single;
};

// Blank and punctuation of row 1 with a single-byte form.
constexpr Pair kPunctuation[] = {
    {0x8140, ' '}, {0x8141, 0xA4}, {0x8142, 0xA1}, {0x8143, ','},  {0x8144, '.'},  {0x8145, 0xA5},
    {0x8146, ':'}, {0x8147, ';'},  {0x8148, '?'},  {0x8149, '!'},  {0x814A, 0xDE}, {0x814B, 0xDF},
    {0x814F, '^'}, {0x8150, '~'},  {0x8151, '_'},  {0x815B, 0xB0}, {0x815E, '/'},  {0x8162, '|'},
    {0x8165, '`'}, {0x8166, '\''}, {0x8168, '"'},  {0x8169, '('},  {0x816A, ')'},  {0x816D, '['},
    {0x816E, ']'}, {0x816F, '{'},  {0x8170, '}'},  {0x8175, 0xA2}, {0x8176, 0xA3}, {0x817B, '+'},
    {0x817C, '-'}, {0x8181, '='},  {0x8183, '<'},  {0x8184, '>'},  {0x818F, '\\'}, {0x8190, '$'},
    {0x8193, '%'}, {0x8194, '#'},  {0x8195, '&'},  {0x8196, '*'},  {0x8197, '@'},
};

// Half-width form of each hiragana from ぁ (0x829F) on, then ヴ ヵ ヶ of katakana. Voiced kana stand with
// their plain sisters, wi and we with i and e.
constexpr uint8_t kHalfKana[] = {
    0xA7, 0xB1, 0xA8, 0xB2, 0xA9, 0xB3, 0xAA, 0xB4, 0xAB, 0xB5,        // ぁあぃいぅうぇえぉお
    0xB6, 0xB6, 0xB7, 0xB7, 0xB8, 0xB8, 0xB9, 0xB9, 0xBA, 0xBA,        // かがきぎくぐけげこご
    0xBB, 0xBB, 0xBC, 0xBC, 0xBD, 0xBD, 0xBE, 0xBE, 0xBF, 0xBF,        // さざしじすずせぜそぞ
    0xC0, 0xC0, 0xC1, 0xC1, 0xAF, 0xC2, 0xC2, 0xC3, 0xC3, 0xC4, 0xC4,  // ただちぢっつづてでとど
    0xC5, 0xC6, 0xC7, 0xC8, 0xC9,                                      // なにぬねの
    0xCA, 0xCA, 0xCA, 0xCB, 0xCB, 0xCB, 0xCC, 0xCC, 0xCC,              // はばぱひびぴふぶぷ
    0xCD, 0xCD, 0xCD, 0xCE, 0xCE, 0xCE,                                // へべぺほぼぽ
    0xCF, 0xD0, 0xD1, 0xD2, 0xD3,                                      // まみむめも
    0xAC, 0xD4, 0xAD, 0xD5, 0xAE, 0xD6,                                // ゃやゅゆょよ
    0xD7, 0xD8, 0xD9, 0xDA, 0xDB,                                      // らりるれろ
    0xDC, 0xDC, 0xB2, 0xB4, 0xA6, 0xDD,                                // ゎわゐゑをん
    0xB3, 0xB6, 0xB9,                                                  // ヴヵヶ
};
constexpr size_t kHiragana = 0x82F1 - 0x829F + 1;
static_assert(std::size(kHalfKana) == kHiragana + 3);

constexpr unsigned kVoicedU = 0x8868;

bool Within(unsigned code, unsigned first, unsigned last) {
  return code >= first && code <= last;
}

unsigned SinglePunctuation(unsigned code) {
  const auto found = std::find_if(std::begin(kPunctuation), std::end(kPunctuation),
                                  [code](const Pair& pair) { return pair.code == code; });
  return found == std::end(kPunctuation) ? code : found->single;
}

unsigned SingleKatakana(unsigned code) {
  if (code >= 0x8394) return kHalfKana[kHiragana + (code - 0x8394)];
  const unsigned hiragana = _mbctohira(code);
  return hiragana == code ? code : kHalfKana[hiragana - 0x829F];
}

}  // namespace

bool _ismbclegal(unsigned code) {
  const unsigned trail = code & 0xFF;
  return code <= 0xFFFF && _ismbblead(code >> 8) && (Within(trail, 0x40, 0x7E) || Within(trail, 0x80, 0xFC));
}

bool _ismbchira(unsigned code) {
  return Within(code, 0x829F, 0x82F1) || code == kVoicedU;
}

bool _ismbckata(unsigned code) {
  return Within(code, 0x8340, 0x8396);
}

bool _ismbcl1(unsigned code) {
  return Within(code, 0x889F, 0x9872);
}

bool _ismbcl2(unsigned code) {
  return Within(code, 0x989F, 0xEA9E);
}

unsigned _mbctohira(unsigned code) {
  if (Within(code, 0x8340, 0x837E)) return code - 161;
  return Within(code, 0x8380, 0x8393) ? code - 162 : code;
}

unsigned _mbctombb(unsigned code) {
  if (code == kVoicedU) return 0xB3;
  if (Within(code, 0x824F, 0x8258)) return code - 0x824F + '0';
  if (Within(code, 0x8260, 0x8279)) return code - 0x8260 + 'A';
  if (Within(code, 0x8281, 0x829A)) return code - 0x8281 + 'a';
  if (Within(code, 0x829F, 0x82F1)) return kHalfKana[code - 0x829F];
  return _ismbckata(code) ? SingleKatakana(code) : SinglePunctuation(code);
}

bool _ismbcprint(unsigned code) {
  if (code <= 0xFF) return _isprint(code) || Within(code, 0xA1, 0xDF);
  if (!_ismbclegal(code)) return false;
  return std::any_of(std::begin(kAssigned), std::end(kAssigned),
                     [code](const Range& range) { return Within(code, range.first, range.last); });
}

int _isprint(unsigned c) {
  return Within(c, 0x20, 0x7E) ? static_cast<int>(c) : 0;
}

unsigned o_toupper(unsigned c) {
  return (c + 224) % 256;
}

}  // namespace zavel::engine
