// Small operations on byte strings that the manager's chapters share. All but the first two are blind to
// Shift_JIS: they look at bytes, whatever character these belong to.
#ifndef LOOKUP_BYTETEXT_H
#define LOOKUP_BYTETEXT_H

#include <cstdint>
#include <string>
#include <string_view>

namespace zavel {

inline constexpr char kCarriageReturn = '\x0D';
inline constexpr char kLineFeed = '\x0A';

inline constexpr std::string_view kSjisLongMark = "\x81\x5B";      // ー
inline constexpr std::string_view kHalfLongMark = "\xB0";          // ｰ
inline constexpr std::string_view kIdeographicSpace = "\x81\x40";  // 　
inline constexpr std::string_view kDroppedStart = "\x81\x85";      // ≦
inline constexpr std::string_view kDroppedEnd = "\x81\x86";        // ≧

// The two halves of a double-byte character.
inline bool isSjisLead(uint8_t c) {
  return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
}
inline bool isSjisTrail(uint8_t c) {
  return c >= 0x40 && c <= 0xFC;
}

// Replaces `from` by `to`, the first occurrence each time, until none is left; also one that only comes
// about by a replacement. An empty `from`, and one that `to` contains, would never run out: nothing is
// replaced. A `to` longer than `from` may breed without end; that is cut off once the text has grown past
// what it can get from its own occurrences, 64 KiB at least. Time grows with the text's length where `to`
// is no longer than `from`.
void replaceAll(std::string& text, std::string_view from, std::string_view to);

// While `start` is found: erases from it through the first `end` of the whole text. Without an `end` the
// text stays; with an `end` ahead of `start` everything from `start` on goes. Time grows with the text's
// length.
void removeRanges(std::string& text, std::string_view start, std::string_view end);

// Takes out all blanks (0x20).
void removeBlanks(std::string& text);

// Cuts at the first zero byte.
void cutAtZero(std::string& text);

}  // namespace zavel

#endif
