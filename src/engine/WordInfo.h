// User entries as text: how adding lays one out in the .dic file. docs/formats.md has the pictures.
#ifndef ENGINE_WORDINFO_H
#define ENGINE_WORDINFO_H

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/AddDicSize.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"

namespace zavel::engine {

// Part-of-speech text of `hinsi` 1 to 9, such as "[動][他]" for 6, in Shift_JIS; empty for any other number.
std::string_view HinsiText(uint16_t hinsi);

// Bytes of the entry's text; kEntryTooLong for 65,535 or more.
Status GetImiDataSizeE(const add_dic_e& entry, const add_dic_size_e& sizes, size_t* size);
Status GetImiDataSizeJ(const add_dic_size_j& sizes, size_t* size);

// The entry's text, of the size that GetImiDataSize... tells.
std::string SetImiDataE(const add_dic_e& entry);
std::string SetImiDataJ(const add_dic_j& entry);

// Appends an entry to ej.dic (`set` 1) or je.dic (`set` 2). kBadArgument for another set, kInternal,
// kFileError.
Status WriteImiData(std::string_view bytes, uint16_t set, uint32_t* offset);

// All of it: the entry then stands at *offset. kEntryTooLong, kInternal, kFileError.
Status AddWordInfoE(const add_dic_e& entry, const add_dic_size_e& sizes, uint32_t* offset);
Status AddWordInfoJ(const add_dic_j& entry, const add_dic_size_j& sizes, uint32_t* offset);

}  // namespace zavel::engine

#endif
