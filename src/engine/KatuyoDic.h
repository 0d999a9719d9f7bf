// The conjugation dictionary katu: irregular forms by the word that is looked up, and the records (form
// list entries) that they become. A record is also what GetKatuyo gives its caller:
//
//   u16 L | u8 form code | L bytes of text, NUL included
#ifndef ENGINE_KATUYODIC_H
#define ENGINE_KATUYODIC_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// The irregular forms filed under exactly `key`, as plain text "{went:過,...}"; empty when there are none.
// Status: 1; 19 a malformed record; 20; 21; 257 when katu.ix3 or katu.dic can't be opened.
Status SrchKatuyo(const std::string& key, std::string* text);

// Reads the katu.dic records at `offsets`, joins them into one list and undoes the scrambling. A record is
// looked for in the 512 bytes from its offset, which may run over the end of the file.
// Status: 1; 19 no opening brace, no closing one, or the closing one first; 21; 257.
Status GetKatuyoDic(const std::vector<uint32_t>& offsets, std::string* text);

// Appends the forms of a plain list to *records. kNoKihonFile (257) at the first unknown label.
Status ProcessKatuyo(std::string_view text, std::string* records);

// Appends one record. Its length field has 16 bits: text past 65,534 bytes is cut.
void AppendKatuyo(uint8_t formCode, std::string_view text, std::string* records);

// Views of the records one by one, each with its length field. `records` must be well formed.
std::vector<std::string_view> GetMemAddrK(std::string_view records);

// Orders two records by form code, then by text; below 0, 0 or above 0 as strcmp.
int compare_ONLY_K(std::string_view a, std::string_view b);

// Sorts records with compare_ONLY_K and keeps one of each that are equal.
std::string SortKatuyo(std::string_view records);

// The parts of speech that a plain list serves: kHinsiMeisi where it holds the label 単, kHinsiKeiyo for
// 原, kHinsiDousi for 現. This is the start value of SetIrregularFlg.
uint8_t HinsiOfKatuyo(std::string_view text);

}  // namespace zavel::engine

#endif
