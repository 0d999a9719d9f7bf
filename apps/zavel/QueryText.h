// A query as it was typed, and the same as the dictionary writes its words.
#ifndef ZAVEL_QUERYTEXT_H
#define ZAVEL_QUERYTEXT_H

#include <string>
#include <string_view>

namespace zavel::host {

// Without blanks and controls at both ends; the ideographic blank and the byte order mark count as blanks.
std::string_view withoutOuterBlanks(std::string_view utf8);

// The word in the characters that headwords are made of:
//   full-width letters, signs and digits        as ASCII: "ｇｏ" gives "go"
//   half-width katakana                         in full width, sound marks joined: "ｶﾞ" gives "ガ"
//   accents                                     left out: "café" gives "cafe", "œuvre" gives "oeuvre"
//   typographic apostrophes and hyphens         as ASCII: "don’t" gives "don't"
//   々 behind a kanji                           the kanji again: "人々" gives "人人"
//   kanji that Shift_JIS has in another shape   in that shape: "𠮷野家" gives "吉野家", "頰" gives "頬"
//   kanji of names in the same way              "髙橋" gives "高橋", "濵田" gives "濱田", "山﨑" gives "山崎"
//   ・ inside a Japanese word                    left out: "アイス・クリーム" gives "アイスクリーム"
//   what can't be seen                          left out: zero-width blanks, variation selectors
//   numbers up to 99 in a Japanese word         in kanji: "１月" gives "一月"
//   quotes, brackets and stops at both ends     left out: "「猫」" gives "猫", "go?" gives "go"
// A word that holds none of these comes back as it is. UTF-8 in and out; bytes that are not UTF-8 stay.
std::string foldedQuery(std::string_view utf8);

// A Japanese word in the characters that one is filed under: 々 behind a kanji is the kanji again, else it is
// left out, and so is ・; 堯 槇 遙 瑤 凜 熙 are 尭 槙 遥 瑶 凛 煕.
std::string wordAsFiled(std::string_view utf8);

// The word as it was typed, but each kana one with the sound mark behind it: "か゛" gives "が". A dictionary
// that passes over signs would take "か゛" for "か".
std::string withSoundMarksJoined(std::string_view utf8);

// A text in the characters of the first five lines above, whatever stands at its ends: for comparing.
std::string plainCharacters(std::string_view utf8);

// The word as dictionaries of dictd form compare it, without its signs: "C++" gives "C", "R&D" gives "RD".
std::string withoutSigns(std::string_view utf8);

}  // namespace zavel::host

#endif
