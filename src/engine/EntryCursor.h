// A position in the bytes of an entry, and runs of bytes from it on that need no second look.
#ifndef ENGINE_ENTRYCURSOR_H
#define ENGINE_ENTRYCURSOR_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/ByteWords.h"
#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {

inline constexpr uint16_t kSpanOpen = 0x8185;   // "≦"
inline constexpr uint16_t kSpanClose = 0x8186;  // "≧"

inline constexpr size_t kLabelRun = 5;  // a sense label: tag, letter or digit, tag

// What a scan may do with a byte without a second look. A list of fifty lines is built while the user types,
// and most of an entry is such bytes.
enum ByteClass : uint8_t {
  kPlainHeadword = 1,  // collected as it is in a headword
  kPlainGloss = 2,     // collected as it is in a gloss
  kPlainSpan = 4,      // passed over inside "≦...≧"
  kSingle = 8,         // a character of its own, never a part of a tag
  kLead = 16,          // leads a pair that is neither a sign nor a tag
  kSignLead = 32,      // leads the signs, brackets among them
  kTrail = 64,
  kPrintable = 128,  // ASCII without control characters
};

constexpr uint8_t ClassesOf(unsigned byte) {
  uint8_t classes = 0;
  const bool lead = (byte >= 0x82 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xEF);
  if (lead) classes |= kLead;
  if (byte == 0x81) classes |= kSignLead;
  if (byte != 0x81 && !lead && !(byte >= 0xF0 && byte <= 0xFC)) classes |= kSingle;
  if (byte >= 0x40 && byte <= 0xFC && byte != 0x7F) classes |= kTrail;
  if (byte >= 0x80 || byte == '\n') return classes;
  classes |= kPlainSpan;
  if (byte >= 0x20) classes |= kPrintable;
  if (byte == 0 || byte == kKanjiSeparator) return classes;
  classes |= kPlainHeadword;
  const bool mark = std::string_view(" ,.:;[(").find(static_cast<char>(byte)) != std::string_view::npos;
  return mark ? classes : static_cast<uint8_t>(classes | kPlainGloss);
}

constexpr std::array<uint8_t, 256> MakeByteClasses() {
  std::array<uint8_t, 256> classes{};
  for (unsigned byte = 0; byte < 256; ++byte) classes[byte] = ClassesOf(byte);
  return classes;
}
inline constexpr std::array<uint8_t, 256> kByteClasses = MakeByteClasses();

// Bytes from `begin` on that are printable ASCII, counted by eight: a quick look ahead.
inline size_t EightsOfPrintables(const char* begin, const char* end) {
  const char* here = begin;
  while (end - here >= static_cast<ptrdiff_t>(sizeof(ByteWord)) && AllPrintable(WordAt(here))) {
    here += sizeof(ByteWord);
  }
  return static_cast<size_t>(here - begin);
}

inline uint8_t ClassesAt(const char* byte) {
  return kByteClasses[static_cast<uint8_t>(*byte)];
}

// A position in the bytes of an entry.
struct Cursor {
  std::string_view text;
  size_t at = 0;

  bool done() const { return at >= text.size(); }
  uint8_t byte(size_t ahead = 0) const { return static_cast<uint8_t>(text[at + ahead]); }
  bool has(size_t bytes) const { return bytes <= text.size() - at; }
  // The two bytes here, high first; 0 when only one is left.
  uint16_t pair() const { return has(2) ? static_cast<uint16_t>(byte() << 8 | byte(1)) : 0; }
  // _ismbclegal of the pair here, written out: it is asked for every character.
  bool legalPair() const {
    if (!_ismbblead(byte()) || !has(2)) return false;
    const uint8_t trail = byte(1);
    return trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
  }
  // Bytes of the character here.
  size_t step() const { return legalPair() ? 2 : 1; }
  // Bytes from here on that are single ones of class `single` or pairs led by one of class `lead`; 0: no
  // pairs.
  size_t run(uint8_t single, uint8_t lead) const {
    const char* const begin = text.data() + at;
    const char* const end = text.data() + text.size();
    const char* here = begin;
    // A gloss is mostly pairs; elsewhere most of a run is ASCII.
    if (single != kPlainGloss) here += EightsOfPrintables(here, end);
    while (here < end) {
      const uint8_t classes = ClassesAt(here);
      if ((classes & single) != 0) {
        ++here;
      } else if ((classes & lead) != 0 && end - here > 1 && (ClassesAt(here + 1) & kTrail) != 0) {
        here += 2;
      } else {
        break;
      }
    }
    return static_cast<size_t>(here - begin);
  }
  bool isDigit(size_t ahead) const { return has(ahead + 1) && byte(ahead) >= '0' && byte(ahead) <= '9'; }
};

}  // namespace zavel::engine

#endif
