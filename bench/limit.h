/* The bare limit of a look-up: what the system calls alone cost when everything else is known beforehand. */
#ifndef BENCH_LIMIT_H
#define BENCH_LIMIT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Where one word stands, found out ahead of the measurement. */
struct limit_plan {
  const char* idx; /* paths of the three files */
  const char* ix3;
  const char* dic;
  uint32_t blockOffset;
  uint32_t blockSize;
  char remainder[256]; /* of the key behind its prefix */
  uint32_t entryLength[50];
  int prefix; /* 0: rows equal to the remainder, at most one; 1: rows that begin with it, at most 50 */
};

/* Opens the three files, reads the block with one pread, searches it, reads the entries with one pread each
 * and closes. Bytes of entry text read, or -1. */
long limit_look(const struct limit_plan* plan, char* entry, uint32_t capacity);

#ifdef __cplusplus
}
#endif

#endif
