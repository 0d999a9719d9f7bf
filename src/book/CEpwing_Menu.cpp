// Menus. Tests: tests/book/MenuTest.cpp
#include <cstdlib>

#include "book/Address.h"
#include "book/CEpwing.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr uint16_t kFirstHiddenKind = 0xFF00;

_SDICADDRESS wordAhead(const _SDICADDRESS& address) {
  if (address.offset >= 2) return {address.block, address.offset - 2};
  return {address.block - 1, static_cast<uint32_t>(kBlock - 2)};
}

}  // namespace

BookStatus CEpwing::readText(const _SDICADDRESS& address, char** bytes, uint32_t* length) {
  const uint32_t size = Fp_GetBodyLength(&address, kWalkOfCallers);
  if (size == 0) return kReadFailed;
  if (const BookStatus status = readOut(address, size, bytes)) return status;
  *length = size;
  return kDone;
}

bool CEpwing::firstBlockOf(bool (*isOne)(uint16_t kind), _SDICADDRESS* address) const {
  for (const _EPBOOKCONTROLENTRY& entry : m_entries) {
    if (!isOne(entry.kind)) continue;
    *address = {entry.start, 0};
    return true;
  }
  return false;
}

BookStatus CEpwing::Fn_GetMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length, bool* more) {
  if (!m_bOpened) return kNotOpen;
  if (!bytes || !length || !more) return kInvalidArgument;
  if ((m_methods & kMethodMenu) == 0) return kNotAvailable;
  const auto isMenu = [](uint16_t kind) {
    return kind < kFirstHiddenKind && (lowByte(kind) == kKindMenu || lowByte(kind) == kKindMenuToo);
  };
  _SDICADDRESS at{};
  if (!address && !firstBlockOf(isMenu, &at)) return kBroken;
  if (address) at = normalised(*address);
  uint16_t before = 0;
  const bool fromStart =
      (at.block > 0 || at.offset >= 2) && readWord(wordAhead(at), &before) && before == kTagBegin;
  if (const BookStatus status = readText(at, bytes, length)) return status;
  const uint16_t last = readBE16(reinterpret_cast<const uint8_t*>(*bytes) + *length - 2);
  *more = !(fromStart && last == kTagEnd);
  return kDone;
}

BookStatus CEpwing::Fn_GetColorMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!bytes || !length) return kInvalidArgument;
  if ((m_methods & kMethodColorMenu) == 0) return kNotAvailable;
  const auto isColorMenu = [](uint16_t kind) {
    return highByte(kind) < 0xFF && lowByte(kind) == kKindColorMenu;
  };
  _SDICADDRESS at{};
  if (!address && !firstBlockOf(isColorMenu, &at)) return kBroken;
  if (address) at = normalised(*address);
  if (const BookStatus status = readText(at, bytes, length)) return status;
  const uint16_t first = readBE16(reinterpret_cast<const uint8_t*>(*bytes));
  if (first == 0x1F4B || first == 0x1F4C) return kDone;
  std::free(*bytes);
  *bytes = nullptr;
  return kBroken;
}

}  // namespace zavel::book
