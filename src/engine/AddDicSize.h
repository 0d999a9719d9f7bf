// The lengths of the texts of a user entry, taken once and used by every step that lays the entry out.
#ifndef ENGINE_ADDDICSIZE_H
#define ENGINE_ADDDICSIZE_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/EngineAPI.h"

namespace zavel::engine {

// Bytes of both sides of each example, without NULs.
struct PairSizes {
  std::vector<uint16_t> eng;
  std::vector<uint16_t> jpn;

  size_t count() const { return eng.size(); }
};

// Bytes without NULs; 0 for a text that is not there.
struct add_dic_size_e {
  uint16_t word = 0;
  uint16_t imi = 0;
  uint16_t phrase = 0;  // 0 unless kind is 2
  PairSizes youreis;
};

struct add_dic_size_j {
  uint16_t kana = 0;
  uint16_t kanji = 0;
  uint16_t imi = 0;
  PairSizes kureis;
  PairSizes bunreis;
};

// Start values.
void InitAddDicSizeE(add_dic_size_e* sizes);
void InitAddDicSizeJ(add_dic_size_j* sizes);
// Give the arrays back.
void FreeAddDicSizeE(add_dic_size_e* sizes);
void FreeAddDicSizeJ(add_dic_size_j* sizes);

// Measure an entry whose texts were checked. A word of more than 65,535 bytes counts as so many, which no
// entry has room for.
void GetWordInfoSizeE(const add_dic_e& entry, add_dic_size_e* sizes);
void GetWordInfoSizeJ(const add_dic_j& entry, add_dic_size_j* sizes);

}  // namespace zavel::engine

#endif
