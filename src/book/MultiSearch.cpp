// Tests: tests/book/MultiSearchTest.cpp
#include "book/MultiSearch.h"

#include <utility>

namespace zavel::book {

int Fp_CompareMultiBlockIdx(const void* block, const void* other) {
  return static_cast<const _EPMULTISEARCHBLOCK*>(block)->index -
         static_cast<const _EPMULTISEARCHBLOCK*>(other)->index;
}

int Fp_CompareMultiBlockNumber(const void* block, const void* number) {
  return static_cast<const _EPMULTISEARCHBLOCK*>(block)->index - *static_cast<const int16_t*>(number);
}

// A level may have tens of thousands of siblings, so that only levels recurse.
void Fp_FreeRefTable(_SDICMULTIREFLIST* node) {
  while (node) {
    Fp_FreeRefTable(node->child);
    delete std::exchange(node, node->next);
  }
}

void Fp_DeleteMultiBlock(void* block) {
  auto* const multi = static_cast<_EPMULTISEARCHBLOCK*>(block);
  for (const _EPMULTISEARCHENTRY& entry : multi->entries) Fp_FreeRefTable(entry.list);
  delete multi;
}

}  // namespace zavel::book
