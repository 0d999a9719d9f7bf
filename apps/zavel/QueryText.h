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
//   numbers up to 99 in a Japanese word         in kanji: "１月" gives "一月"
//   quotes, brackets and stops at both ends     left out: "「猫」" gives "猫", "go?" gives "go"
// A word that holds none of these comes back as it is. UTF-8 in and out; bytes that are not UTF-8 stay.
std::string foldedQuery(std::string_view utf8);

}  // namespace zavel::host

#endif
