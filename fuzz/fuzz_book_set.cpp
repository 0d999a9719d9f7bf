// Block sets: fill byte, then codes. The decoder agrees with a loop that goes byte by byte.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "book/BlockSet.h"
#include "book/BookFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::book;
  if (size < 1 + kCode) return 0;
  const uint8_t fill = *data;
  const uint8_t* const codes = data + 1;
  const size_t count = (size - 1) / kCode;
  std::vector<uint8_t> work(kWindow + kSet + 4096);
  std::memset(work.data(), fill, kWindow);
  size_t written = 0;
  for (size_t i = 0; i < count; ++i) {
    const uint8_t* const code = codes + i * kCode;
    const size_t from = written + (static_cast<size_t>(code[0]) << 4 | code[1] >> 4);
    for (size_t k = 0; k < (code[1] & 15u) && written < kSet; ++k) {
      work[kWindow + written] = from + k < kWindow + written ? work[from + k] : uint8_t{0};
      ++written;
    }
    if (written < kSet) work[kWindow + written++] = code[2];
  }
  std::vector<uint8_t> found(kSet, 0xAA);
  decodeBlockSet(found.data(), codes, static_cast<uint32_t>(count), fill);
  if (std::memcmp(found.data(), work.data() + kWindow, kSet) != 0) std::abort();
  return 0;
}
