// Blocks, control entries and the methods that follow from them. Tests: tests/book/OpenTest.cpp,
// tests/book/BlockTest.cpp
#include "book/CEpwing.h"

#include <algorithm>
#include <cstring>

namespace zavel::book {

bool CEpwing::m_bIsAlreadyEqual = false;
size_t CEpwing::nPtrLen = kShortTrailer;
CEpwing::MeikyoHook CEpwing::_meikyoBodyData = nullptr;

CEpwing::~CEpwing() {
  Fp_FreeIndexInfo();
}

void CEpwing::Fp_FreeIndexInfo() {
  m_entries.clear();
  foundation::avlt_delete_tree(m_multiTree, Fp_DeleteMultiBlock);
  m_multiTree = nullptr;
  m_multiCount = 0;
}

// A slot that holds nothing says blocks 0 to 0, so that block 0 counts as there: as zeroes
// (kept: docs/quirks.md).
bool CEpwing::Fp_ReadBlock(uint32_t block, int slot) {
  const bool there = m_cacheStart[slot] <= block && m_cacheEnd[slot] >= block;
  if (!there && !Fp_CacheData(block, slot)) return false;
  if (slot < 2) m_blockPtr[slot] = m_cache[slot].data() + (block - m_cacheStart[slot]) * kBlock;
  return true;
}

bool CEpwing::Fp_ReadBook(const _SDICADDRESS* address, int64_t length, void* buffer) {
  if (!address || !buffer || length < 0) return false;
  uint64_t block = uint64_t{address->block} + (address->offset >> kBlockShift);
  size_t offset = address->offset & kBlockMask;
  char* out = static_cast<char*>(buffer);
  for (uint64_t left = static_cast<uint64_t>(length); left > 0; ++block, offset = 0) {
    if (block > UINT32_MAX || !Fp_ReadBlock(static_cast<uint32_t>(block), 1)) return false;
    const size_t part = static_cast<size_t>(std::min<uint64_t>(left, kBlock - offset));
    std::memcpy(out, m_blockPtr[1] + offset, part);
    out += part;
    left -= part;
  }
  return true;
}

int CEpwing::Fp_FindBookControlEntry(uint8_t kind) const {
  const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                  [kind](const auto& entry) { return lowByte(entry.kind) == kind; });
  return found == m_entries.end() ? -1 : static_cast<int>(found - m_entries.begin());
}

bool CEpwing::Fp_ExistEntry(uint16_t kind) const {
  return std::any_of(m_entries.begin(), m_entries.end(),
                     [kind](const auto& entry) { return entry.kind == kind; });
}

void CEpwing::addMethod(uint32_t bit) {
  if ((m_methods & bit) != 0) return;
  m_methods |= bit;
  ++m_methodCount;
}

void CEpwing::addMethodsOf(uint16_t kind, bool* word) {
  const bool hasExact = (m_methods & kMethodExact) != 0;
  switch (lowByte(kind)) {
    case kKindMenu:
    case kKindMenuToo:
      if (kind <= 0xFEFF) addMethod(kMethodMenu);
      return;
    case kKindColorMenu:
      if (highByte(kind) != 0xFF) addMethod(kMethodColorMenu);
      return;
    case kKindExactKana:
    case kKindExactAlphabetic:
    case kKindWordOnly1:
    case kKindExact:
    case kKindWordOnly2:
      if (!hasExact) m_bAltWordKinds = 0;
      addMethod(kMethodExact);
      break;
    case kKindBackwardKana:
    case kKindBackward:
    case kKindBackwardAlphabetic:
      addMethod(kMethodBackward);
      break;
    case kKindKeyword:
      addMethod(kMethodKeyword);
      break;
    case kKindCross:
      addMethod(kMethodCross);
      break;
    case kKindForwardKana:
    case kKindForward:
    case kKindForwardAlphabetic:
      // kept: an exact index behind a forward one changes nothing any more (docs/quirks.md)
      if ((m_methods & kMethodForward) == 0 && !hasExact) {
        addMethod(kMethodExact);
        m_bAltWordKinds = 1;
      }
      addMethod(kMethodForward);
      break;
    default:
      return;
  }
  *word = true;
}

void CEpwing::Fp_InitAvailableMethodInfo() {
  m_methods = 0;
  m_methodCount = 0;
  bool word = false;
  for (const _EPBOOKCONTROLENTRY& entry : m_entries) addMethodsOf(entry.kind, &word);
  if (word) addMethod(kMethodWord);
  if (m_multiCount > 0) addMethod(kMethodMulti);
}

BookStatus CEpwing::Fn_ReadData(const _SDICADDRESS* address, uint32_t size, char** bytes) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !bytes || size == 0) return kInvalidArgument;
  return readOut(*address, size, bytes);
}

}  // namespace zavel::book
