// Tests: tests/engine/WordInfoTest.cpp
#include "engine/AddDicSize.h"

#include <algorithm>
#include <cstring>

#include "engine/DicFormat.h"

namespace zavel::engine {
namespace {

// A longer text counts as one that no entry has room for.
uint16_t Length(const char* text) {
  return text == nullptr ? 0 : static_cast<uint16_t>(std::min(std::strlen(text), kMaxEntry));
}

template <typename Pair>
PairSizes Measure(uint16_t count, Pair* const* pairs) {
  PairSizes sizes;
  for (uint16_t i = 0; i < count; ++i) {
    sizes.eng.push_back(Length(pairs[i]->eng));
    sizes.jpn.push_back(Length(pairs[i]->jpn));
  }
  return sizes;
}

}  // namespace

void InitAddDicSizeE(add_dic_size_e* sizes) {
  *sizes = add_dic_size_e{};
}
void InitAddDicSizeJ(add_dic_size_j* sizes) {
  *sizes = add_dic_size_j{};
}
void FreeAddDicSizeE(add_dic_size_e* sizes) {
  sizes->youreis = PairSizes{};
}
void FreeAddDicSizeJ(add_dic_size_j* sizes) {
  sizes->kureis = PairSizes{};
  sizes->bunreis = PairSizes{};
}

void GetWordInfoSizeE(const add_dic_e& entry, add_dic_size_e* sizes) {
  sizes->word = Length(entry.word);
  sizes->imi = Length(entry.imi);
  sizes->phrase = entry.kind == kKindPhrase ? Length(entry.phrase) : 0;
  sizes->youreis = Measure(entry.youreiCount, entry.youreis);
}

void GetWordInfoSizeJ(const add_dic_j& entry, add_dic_size_j* sizes) {
  sizes->kana = Length(entry.kana);
  sizes->kanji = Length(entry.kanji);
  sizes->imi = Length(entry.imi);
  sizes->kureis = Measure(entry.kureiCount, entry.kureis);
  sizes->bunreis = Measure(entry.bunreiCount, entry.bunreis);
}

}  // namespace zavel::engine
