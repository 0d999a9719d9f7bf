// Checks of words and texts that callers hand in. kOk or kBadArgument; a null pointer is kBadArgument
// unless said otherwise.
#ifndef ENGINE_MIDASICHECK_H
#define ENGINE_MIDASICHECK_H

#include <cstdint>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"

namespace zavel::engine {

// Non-empty, under 65,535 bytes: letters, blank & ' , - . / _
Status ChkMidasiStrE(const char* word);
// Non-empty, double-byte only: hiragana, katakana, ー － …
Status ChkMidasiStrJ(const char* word);
// As ChkMidasiStrJ, and kanji of JIS levels 1 and 2; null is accepted.
Status ChkMidasiStrK(const char* word);
// Non-empty, under 65,535 bytes: double-byte characters that _ismbcprint knows, single bytes 0x20 to 0x7E.
Status ChkMixStr(const char* text);
// Non-empty, under 65,535 bytes: bytes 0x20 to 0x7E.
Status Chk1ByteStr(const char* text);
// With count 0 anything. Otherwise `count` non-null pairs, eng by Chk1ByteStr, jpn by ChkMixStr.
Status ChkYurei(uint16_t count, yourei* const* pairs);
Status ChkKurei(uint16_t count, kurei* const* pairs);
Status ChkBunrei(uint16_t count, bunrei* const* pairs);
// Before keys of user words: type 1 no lead byte, types 2 and 3 all double-byte.
Status CheckInput(const char* word, uint16_t type);

}  // namespace zavel::engine

#endif
