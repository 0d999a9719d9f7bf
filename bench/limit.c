#include "limit.h"

#include <fcntl.h>
#include <string.h>
#include <unistd.h>

static unsigned u16(const unsigned char* p) {
  return p[0] | p[1] << 8;
}
static uint32_t u32(const unsigned char* p) {
  return u16(p) | (uint32_t)u16(p + 2) << 16;
}

static int compare(const char* row, const char* wanted, int prefix) {
  return prefix ? strncmp(row, wanted, strlen(wanted)) : strcmp(row, wanted);
}

/* The first of the rows that fit. */
static unsigned first_row(const unsigned char* block, const char* wanted, int prefix) {
  const unsigned count = u16(block);
  const unsigned char* strings = block + 4 + 2 * count;
  unsigned low = 0, high = count;
  while (low < high) {
    const unsigned middle = (low + high) / 2;
    const char* row = (const char*)strings + u16(block + 4 + 2 * middle) + 2;
    if (compare(row, wanted, prefix) < 0)
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

long limit_look(const struct limit_plan* plan, char* entry, uint32_t capacity) {
  static unsigned char block[65536];
  long total = 0;
  const int idx = open(plan->idx, O_RDONLY | O_CLOEXEC);
  const int ix3 = open(plan->ix3, O_RDONLY | O_CLOEXEC);
  const int dic = open(plan->dic, O_RDONLY | O_CLOEXEC);
  if (pread(ix3, block, plan->blockSize, plan->blockOffset) != (ssize_t)plan->blockSize) total = -1;
  if (total == 0) {
    const unsigned count = u16(block), limit = plan->prefix ? 50 : 1;
    const unsigned char* strings = block + 4 + 2 * count;
    const unsigned char* offsets = block + plan->blockSize - 4 * count;
    const unsigned first = first_row(block, plan->remainder, plan->prefix);
    for (unsigned i = 0; i < limit && first + i < count; ++i) {
      const char* row = (const char*)strings + u16(block + 4 + 2 * (first + i)) + 2;
      if (compare(row, plan->remainder, plan->prefix) != 0) break;
      const uint32_t length = plan->entryLength[i] < capacity ? plan->entryLength[i] : capacity;
      if (pread(dic, entry, length, u32(offsets + 4 * (first + i))) != (ssize_t)length) {
        total = -1;
        break;
      }
      total += length;
    }
  }
  close(idx);
  close(ix3);
  close(dic);
  return total;
}
