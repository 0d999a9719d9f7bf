// The built-in pairs of single-byte and double-byte characters, in Shift_JIS and in EUC-JP.
//
// Glossary: han (hankaku) half-width, zen (zenkaku) full-width; daku the voicing mark (dakuten), daku2 the
// half-voicing mark (handakuten), which half-width katakana carry as a character of their own behind them.
#ifndef FOUNDATION_KANJITABLES_H
#define FOUNDATION_KANJITABLES_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace zavel::foundation {

struct KanjiPair {
  uint16_t from;
  uint16_t to;
};

// Both forms in two bytes each. A record whose full form is zero ends a table.
struct HanZenPair {
  uint8_t han[2];
  uint8_t zen[2];
};

constexpr size_t kSingleBytes = 158;   // single bytes that have a full-width form: 95 ASCII, 63 katakana
constexpr size_t kVoicedKana = 21;     // ガ to ド, バ to ボ, ヴ
constexpr size_t kHalfVoicedKana = 5;  // パ to ポ

// Single byte (ASCII 0x20 to 0x7E, half-width katakana 0xA1 to 0xDF) to its full-width form in Shift_JIS;
// 0 where there is none. The signs that have more than one such form: " ” ' ’ - － \ ￥ ` ‘ ~ ￣.
extern const std::array<uint16_t, 256> mbbtombcarray;

// The same relation from full-width to single byte, ascending.
extern const std::array<KanjiPair, kSingleBytes> mbctombbarray;

// Full-width katakana with a mark, in Shift_JIS, to half-width katakana (high byte) and mark (low byte).
extern const std::array<KanjiPair, kVoicedKana + kHalfVoicedKana> zenhanarray;

// EUC-JP: half-width katakana (0x8E and the single byte) and their full-width form. In the other two the
// full form has the mark and the half form is the katakana alone.
extern const std::array<HanZenPair, 63 + 1> tblHanToZenEuc;
extern const std::array<HanZenPair, kVoicedKana + 1> tblDakuHanToZenEuc;
extern const std::array<HanZenPair, kHalfVoicedKana + 1> tblDaku2HanToZenEuc;

}  // namespace zavel::foundation

#endif
