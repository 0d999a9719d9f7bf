// User entries in their structured form, read back from their text and written as serial entries.
//
// A serial entry is one record of bytes; integers are little-endian and packed, offsets count from its start,
// strings end in a NUL. English:
//   headword | u8 kind | u16 hinsi | u32 offset of imi | u32 offset of phrase | u16 examples
//   | u32 offset of example table | 28 bytes sikibetu | imi | phrase, or one NUL for kind 1
//   | table: u32 offset of eng, u32 offset of jpn for each example | eng, jpn of each example
// Japanese:
//   kana | kanji, or one NUL | u32 offset of imi | u16 kurei | u32 offset of kurei table | u16 bunrei
//   | u32 offset of bunrei table | 28 bytes sikibetu kana | 28 bytes sikibetu kanji | imi
//   | kurei table | kurei strings | bunrei table | bunrei strings
#ifndef ENGINE_USERENTRY_H
#define ENGINE_USERENTRY_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// The two sides of an example.
struct ExamplePair {
  std::string eng;
  std::string jpn;
};

// What add_dic_e and add_dic_j hold, with texts of their own.
struct UserEntryE {
  std::string word;
  uint8_t kind = 0;  // 1 or 2
  uint16_t hinsi = 0;
  std::string imi;
  std::string phrase;
  std::vector<ExamplePair> youreis;
  sikibetu_data sikibetu{};
};
struct UserEntryJ {
  std::string kana;
  std::string kanji;
  std::string imi;
  std::vector<ExamplePair> kureis;
  std::vector<ExamplePair> bunreis;
  sikibetu_data sikibetuKana{};
  sikibetu_data sikibetuKanji{};
};

// Start values.
void InitAddDicE(UserEntryE* entry);
void InitAddDicJ(UserEntryJ* entry);
// Give the texts back.
void FreeAddDicE(UserEntryE* entry);
void FreeAddDicJ(UserEntryJ* entry);

// Takes the text of the entry in row `row` of those that `info` found apart, and identifies it. kInternal for
// a text that is no such entry: two headwords or none, no meaning, an example of one side, a part-of-speech
// line without "-"; kFileError.
Status GetOutputDataE(std::string_view text, const index_info& info, uint16_t row, UserEntryE* entry);
Status GetOutputDataJ(std::string_view text, const index_info& info, uint16_t row, UserEntryJ* entry);

// Bytes of the serial entry.
size_t GetOutputSizeE(const UserEntryE& entry);
size_t GetOutputSizeJ(const UserEntryJ& entry);
// Appends the serial entry to *list.
void OutputDataE(const UserEntryE& entry, std::string* list);
void OutputDataJ(const UserEntryJ& entry, std::string* list);

}  // namespace zavel::engine

#endif
