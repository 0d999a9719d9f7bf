// Which reading of a written form people mean: 今日 is きょう rather than こんにち.
#ifndef MKDICT_READINGUSES_H
#define MKDICT_READINGUSES_H

#include <cstdint>
#include <vector>

#include "mkdict/Compilation.h"

namespace zavel::mkdict {

// For each entry, how many of those entries that are heard (heard[i]) use its word by itself: as a word
// between kana or at an end, in the entry's reading. 今日このごろ [きょうこのごろ] and 昨日の今日
// [きのうのきょう] do so with 今日 [きょう]. Compounds say nothing: in them 人 is mostly じん, and alone it
// is ひと. Nor does 三つ葉 of 三, for it begins with 三つ. 0 for a word without a written form, and for one
// whose written form has no second reading.
std::vector<uint32_t> usesByThemselves(const std::vector<JapaneseEntry>& entries,
                                       const std::vector<bool>& heard);

}  // namespace zavel::mkdict

#endif
