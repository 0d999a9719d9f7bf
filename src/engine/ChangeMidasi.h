// How a word becomes an index key. The compiler of the basic set files its words by the same functions,
// so the two can't drift apart.
#ifndef ENGINE_CHANGEMIDASI_H
#define ENGINE_CHANGEMIDASI_H

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// English: letters to lower case; blank ' , - . / _ vanish; & becomes "and"; other bytes stay.
// "Run-up" gives "runup", "R&B" gives "randb".
std::string ChangeMidasiStrE(std::string_view word);

// Japanese, two-byte characters only: ー － … vanish; among the first two characters of the output ヴ ヵ ヶ
// and 0x8868 become う か け う; katakana 0x8340 to 0x8396 becomes hiragana. With `kanji` both bytes are
// stored, else the low byte alone. kBadArgument when a byte is no lead byte or its trail is missing.
// "くだもの" gives 0xAD 0xBE 0xE0 0xCC as kana.
Status ChangeMidasiStrJ(std::string_view word, bool kanji, std::string* key);

// Dispatches by index type: 1, 4, 5 English, 2 kana, 3 kanji; any other type is kBadArgument.
Status ChangeMidasi(std::string_view word, uint16_t indexType, std::string* key);

}  // namespace zavel::engine

#endif
