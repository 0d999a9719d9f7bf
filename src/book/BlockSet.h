// Compressed sets of 16 blocks.
#ifndef BOOK_BLOCKSET_H
#define BOOK_BLOCKSET_H

#include <cstdint>

#include "foundation/Storage.h"

namespace zavel::book {

// Decodes set number `set` of `file` into `destination`, which takes 32768 bytes. What the codes don't fill
// is 0, and what they give beyond is dropped. False, with `destination` unsettled, when the file ends ahead
// of the set's end.
bool SFDecodeBlockSet(uint8_t* destination, uint32_t set, StorageFile& file);

// The codes alone: `count` triples at `codes`. `fill` is what stands ahead of the set's first byte.
void decodeBlockSet(uint8_t* destination, const uint8_t* codes, uint32_t count, uint8_t fill);

}  // namespace zavel::book

#endif
