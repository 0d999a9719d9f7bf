// Lists of user headwords: how one is put in order and counted.
#ifndef ENGINE_LISTUSERDIC_H
#define ENGINE_LISTUSERDIC_H

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// Comparators of headwords: below 0, 0, above 0. compStr goes by bytes. compNewStr goes by letters without
// case and by kana, katakana as hiragana; nothing else counts.
int compStr(std::string_view a, std::string_view b);
int compNewStr(std::string_view a, std::string_view b);

// Puts NUL-terminated headwords into display order, each once. kInternal when the last one has no NUL.
Status RemoveSameMidasi(std::string* list);

// Headwords in the list, at most what 16 bits count.
void GetListCount(std::string_view list, uint16_t* count);

}  // namespace zavel::engine

#endif
