// Identifications of stored user entries: their bytes, and the proof that one is still current. An
// identification never repairs itself: whatever doesn't agree is kBadArgument, and the caller searches again.
#ifndef ENGINE_SIKIBETU_H
#define ENGINE_SIKIBETU_H

#include <cstdint>
#include <string>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// Bytes of one in a serial entry.
inline constexpr size_t kSikibetuSize = 28;
// In `pos1`: no such entry in this index, such as the written form of an entry without kanji.
inline constexpr uint16_t kNoPosition = 0xFFFF;

// The 28 bytes, little-endian, the gap ahead of the last field zero.
std::string PackSikibetu(const sikibetu_data& sikibetu);

// The identification of row `row` of the block at `info`, whose entry stands at `dicOffset`.
sikibetu_data MakeSikibetu(const index_info& info, uint16_t row, uint32_t dicOffset);
// One that says: no such entry in this index.
sikibetu_data NoSikibetu();

// True when the identification names a row among those that equal the word of `info`, in the same block.
bool ChkSikibetu(const sikibetu_data& sikibetu, const index_info& info, uint16_t type);

// Proves an identification by index and block. `type` 1: English, `kanji` null. `type` 2: Japanese, both
// given; the entry's own text then tells whether it has a kanji row, and `kanji` must name exactly that one.
// kBadArgument for any mismatch, kInternal for an entry whose kanji row can't be looked for, kFileError.
Status CheckOverwirteSikibetu(const sikibetu_data* kana, const sikibetu_data* kanji, uint16_t type);

// The entry offsets of all rows of the kanji block at `offset` that equal `key`. No rows is kOk.
Status GetCompleteDicOfset(const std::string& key, uint32_t offset, std::vector<uint32_t>* offsets);

// Looks for the kanji row of the entry at `dicOffset` among those of its written form: `info` holds the form
// as it was typed or as its key, and where it stands afterwards. Without such a row *sikibetu says so.
// kInternal for damage, kFileError.
Status FindKanjiRow(index_info* info, uint32_t dicOffset, sikibetu_data* sikibetu);

// The headword of an entry's text; in Japanese the reading. *size counts it with its NUL. False when there
// is none.
bool GetMidasiWord(std::string_view text, std::string* word, size_t* size);
// The written form of a Japanese entry's text as a key; empty when it has none. kBadArgument for one that no
// key can be made of.
Status GetMidasiWordK(std::string_view text, std::string* key);

}  // namespace zavel::engine

#endif
