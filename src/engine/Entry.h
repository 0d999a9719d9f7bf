// Entry text: reading one entry, and the line that a headword list shows for it.
#ifndef ENGINE_ENTRY_H
#define ENGINE_ENTRY_H

#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// Appends the entry at `offset` to *text: up to the next entry tag, the end of the file or 65,535 bytes,
// each NUL as a blank. With a non-null `midasi` the entry's line must equal it, gloss included, else
// kOtherMidasi and nothing appended. `type` 1 reads ej.dic, 2 and 3 je.dic.
Status GetDicData(const char* midasi, uint16_t type, uint16_t set, uint32_t offset, std::string* text);

// The display line of the entry at `offset`, without its NUL: English "headword [gloss]", Japanese after
// InformMidasiJ. *readable false: nothing could be read there, the row is to be skipped.
Status GetIndexWord(uint16_t type, uint32_t offset, uint16_t set, std::string* line, bool* readable);

// Turns a Japanese line into its final form: by kana "reading [written form]", by kanji the other way
// round, "〈" and "〉" into brackets.
void InformMidasiJ(std::string* line, uint16_t type);

}  // namespace zavel::engine

#endif
