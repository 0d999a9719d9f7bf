// The order of a headword list: sort keys, comparators, and the merge of the basic and the user list.
//
// Two orders work together. compare_ONLY is the plain order of bytes, by which equal lines come together;
// compare_N and compare_NJ are the order of display, which looks at letters alone. Lines that display
// order can't tell apart keep the plain order.
#ifndef ENGINE_MIDASIORDER_H
#define ENGINE_MIDASIORDER_H

#include <string>
#include <string_view>
#include <vector>

namespace zavel::engine {

// Borrowed: whoever builds the lines keeps them, in a LineStore for example.
using MidasiLines = std::vector<std::string_view>;

// The letters of `text` up to the first "," or "[": "***run-up [x]" gives "runup".
std::string WordFilter(std::string_view text);
// `text` in steps of two bytes up to a pair of blank and "[": katakana as hiragana, without ー － …
// An odd last byte is left out.
std::string WordFilterJ(std::string_view text);
// What follows the first " [", or nothing: the tie-break.
std::string KaniFilter(std::string_view text);
std::string KaniFilterJ(std::string_view text);

// Comparators of lines: below 0, 0, above 0.
int compare_ONLY(std::string_view a, std::string_view b);
int compare_N(std::string_view a, std::string_view b);   // WordFilter without case, then KaniFilter
int compare_NJ(std::string_view a, std::string_view b);  // WordFilterJ, then KaniFilterJ

// Drops lines that stand twice and puts the rest into display order.
void SortMidasiE(MidasiLines* lines);
void SortMidasiJ(MidasiLines* lines);

// Merges two lists in display order into at most fifty lines. At equal words the basic line comes first,
// and nothing is dropped.
// kept: IncludingUser tells capitals from small letters, compare_N doesn't (docs/quirks.md).
MidasiLines IncludingUser(const MidasiLines& kihon, const MidasiLines& user);
MidasiLines IncludingUserJ(const MidasiLines& kihon, const MidasiLines& user);

}  // namespace zavel::engine

#endif
