/* Plain records of the book engine that cross the exported interface. */
#ifndef BOOK_BOOKTYPES_H
#define BOOK_BOOKTYPES_H

#include <stdint.h>

/* A place in a book. A block has 2048 bytes, and blocks are numbered in one space for the whole book. The
 * offset is normally 0 to 2047, but every reader normalises it: the real block is block + (offset >> 11), the
 * real offset is offset & 0x7FF. */
typedef struct _SDICADDRESS {
  uint32_t block;
  uint32_t offset;
} _SDICADDRESS;

/* A search hit. Two hits of the same body are one hit, whatever their headword. */
typedef struct _SDICITEMADDRESS {
  uint32_t zero; /* always 0 */
  _SDICADDRESS headword;
  _SDICADDRESS body;
} _SDICITEMADDRESS;

/* A fixed choice that a field of a multi search offers, with those below it. */
typedef struct _SDICMULTIREFLIST {
  uint16_t level;    /* 0 for the root */
  uint16_t position; /* among siblings, from 0 */
  struct _SDICMULTIREFLIST* next;
  struct _SDICMULTIREFLIST* child; /* the first of them */
  char name[256];                  /* JIS X 0208, two bytes a character, ended by two zero bytes */
} _SDICMULTIREFLIST;

#endif
