// Tests: tests/book/OpenTest.cpp
#include "book/ControlEntry.h"

namespace zavel::book {

int Fp_CompareAddrMapAdd(const void* info, const void* other) {
  const uint32_t a = static_cast<const _SDIC_ADDRMAPINFO_V2*>(info)->start;
  const uint32_t b = static_cast<const _SDIC_ADDRMAPINFO_V2*>(other)->start;
  return a < b ? -1 : a > b;
}

int Fp_CompareAddrMapFind(const void* info, const void* block) {
  const auto& region = *static_cast<const _SDIC_ADDRMAPINFO_V2*>(info);
  const uint32_t number = *static_cast<const uint32_t*>(block);
  if (region.end < number) return -1;
  return region.start > number;
}

}  // namespace zavel::book
