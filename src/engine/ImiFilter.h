// Filters of a meaning search: which sections of an entry stay.
#ifndef ENGINE_IMIFILTER_H
#define ENGINE_IMIFILTER_H

#include <cstdint>
#include <string>

namespace zavel::engine {

// The `filter` argument of a meaning search.
inline constexpr uint8_t kFilterNone = 0;
inline constexpr uint8_t kFilterImi = 3;     // parts of speech and translations
inline constexpr uint8_t kFilterPhrase = 4;  // phrases; the kurei of a Japanese entry
inline constexpr uint8_t kFilterYourei = 5;  // examples; the bunrei of a Japanese entry

bool IsImiFilter(uint8_t filter);

// Reduces the tagged text of one entry to the sections of `filter` (3, 4 or 5), start tags included. The
// block becomes empty when it has none.
void ImiFilter(uint8_t filter, std::string* block);
void ImiFilterJ(uint8_t filter, std::string* block);

}  // namespace zavel::engine

#endif
