// The words that a text consists of.
#ifndef MKBOOK_TEXTWORDS_H
#define MKBOOK_TEXTWORDS_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkbook {

// Words of `utf8` that are worth filing, in order, each time they come: letters and digits in a row, with
// apostrophes between them (two of them at least); joined by hyphens, the parts and the whole. Japanese is
// written without blanks: of a run of it the whole, and the runs of kanji, of katakana and of hiragana in it,
// hiragana of two at least.
std::vector<std::string> wordsOf(std::string_view utf8);

}  // namespace zavel::mkbook

#endif
