// Multi searches, as a book defines them: named forms with labelled fields.
#ifndef BOOK_MULTISEARCH_H
#define BOOK_MULTISEARCH_H

#include <cstdint>
#include <vector>

#include "book/BookTypes.h"
#include "book/ControlEntry.h"

namespace zavel::book {

// One field. Its sub-entries are the indexes that its keys are looked up in; one of kind 1 holds the list of
// fixed choices.
struct _EPMULTISEARCHENTRY {
  char label[32] = {};  // EUC-JP
  std::vector<_EPBOOKCONTROLENTRY> subEntries;
  bool hasReference = false;
  _SDICMULTIREFLIST* list = nullptr;  // owned, made when first asked for
};

struct _EPMULTISEARCHBLOCK {
  int16_t index = 0;   // from 0, in the order of the catalog
  char name[64] = {};  // as "EXINFO.INI" has it, else EUC-JP
  std::vector<_EPMULTISEARCHENTRY> entries;
};

// The order of blocks in their tree: by index.
int Fp_CompareMultiBlockIdx(const void* block, const void* other);

// Of a block against a number (int16_t), for finding.
int Fp_CompareMultiBlockNumber(const void* block, const void* number);

// Frees a list of choices with all below it. Null is passed over.
void Fp_FreeRefTable(_SDICMULTIREFLIST* node);

// Frees a block with its lists.
void Fp_DeleteMultiBlock(void* block);

}  // namespace zavel::book

#endif
