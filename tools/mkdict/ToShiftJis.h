// How foreign text becomes entry text: UTF-8 to Shift_JIS (code page 932), with a spelling of their own for
// the characters that it lacks.
#ifndef MKDICT_TOSHIFTJIS_H
#define MKDICT_TOSHIFTJIS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zavel::mkdict {

// `utf8` in Shift_JIS, every character as it is. A character that code page 932 lacks is transliterated:
// accents fall ("é" "e", "ō" "o"), ligatures and signs are spelled out ("ß" "ss", "½" "1/2", "€" "EUR"),
// curly quotes become straight, "—" the full-width dash, kanji variants the form that the code page has
// ("頰" "頬"). Half-width kana become full-width, control characters blanks. Nothing comes back when a
// character can be written in no way or the input is not UTF-8; *lacking (if given) then names the
// character as "U+1F600 😀", or "not UTF-8".
//
// The result holds no byte 0x1B, 0xA5 or 0xB0 outside double-byte characters and no control character.
std::optional<std::string> toShiftJis(std::string_view utf8, std::string* lacking = nullptr);

// The same for running text of an entry: where two neighbouring characters would look like a tag to a
// reader that goes byte by byte (a trail byte 0xF5 before a lead byte 0xE3, as in 員 and 罎), a blank parts
// them; and "≦" and "≧", between which readers drop all text, become "<=" and ">=". Not for headwords,
// whose spelling must stay.
std::optional<std::string> toEntryText(std::string_view utf8, std::string* lacking = nullptr);

// True when a reader that goes byte by byte would see a tag in `sjis`, which holds none on purpose.
bool looksTagged(std::string_view sjis);

// Shift_JIS bytes that this program made, back in UTF-8, for messages.
std::string toUtf8(std::string_view sjis);

// What *lacking says of a code point: "U+1F600 😀".
std::string namedCharacter(char32_t code);

}  // namespace zavel::mkdict

#endif
