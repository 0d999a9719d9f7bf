// Entries of a .dic file: reading one, and the line that a headword list shows for it.
#ifndef ENGINE_ENTRY_H
#define ENGINE_ENTRY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineStatus.h"
#include "engine/IndexLine.h"
#include "engine/LineStore.h"

namespace zavel::engine {

// Entry text that one search may gather: far above the longest answer, far below what rows of a damaged
// block can ask for. What passes it ends in kNoMemory.
inline constexpr size_t kMaxGathered = size_t{8} << 20;

// Appends the entry at `offset` to *text: up to the next entry tag, the end of the file or 65,535 bytes,
// each NUL as a blank. With a non-null `midasi` the entry's line must equal it, gloss included, else
// kOtherMidasi and nothing appended. `type` 1 reads ej.dic, 2 and 3 je.dic. An offset past the end of the
// file appends nothing and is kOk. Else kFileError, or 257 to 259 for a stream that can't be had.
Status GetDicData(const char* midasi, uint16_t type, uint16_t set, uint32_t offset, std::string* text);

// The display line of the entry at `offset`, without its NUL, cut so that a u16 can count it with its NUL:
// English "headword [gloss]", Japanese after InformMidasiJ. *readable false: no entry can be read there,
// the row is to be skipped.
Status GetIndexWord(uint16_t type, uint32_t offset, uint16_t set, std::string* line, bool* readable);

// Adds the lines of the entries at `offsets` to *lines, in that order, without those that can't be read;
// their bytes stand in *store. Entries that lie close together share one read. With another status than kOk
// *lines holds the lines up to the failure.
Status GetIndexWords(uint16_t type, const std::vector<uint32_t>& offsets, uint16_t set, LineStore* store,
                     std::vector<std::string_view>* lines);

// Bytes of the entry that `text` begins with: up to its second entry tag; npos when there is none.
size_t EntryLength(std::string_view text);

// Where an entry tag stands in `text` from `from` on, byte by byte; npos for nowhere.
size_t FindEntryTag(std::string_view text, size_t from);

}  // namespace zavel::engine

#endif
