// Custom characters. Tests: tests/book/GaijiTest.cpp
#include <cstdlib>
#include <cstring>

#include "book/Bitmap.h"
#include "book/CEpwing.h"
#include "book/OutBuffer.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::book {
namespace {

constexpr uint16_t kSizes[] = {16, 24, 30, 48};
constexpr int kCellsInRow = 94;
constexpr uint32_t kResolution = 100;
constexpr size_t kLargestGlyph = 48 / 8 * 48;
constexpr size_t kRawBuffer = 32;

int slotOf(bool full, uint16_t size) {
  for (int i = 0; i < 4; ++i) {
    if (kSizes[i] == size) return i + (full ? 0 : static_cast<int>(kHalfWidthSlot));
  }
  return -1;
}

bool isSlot(int slot) {
  return slot >= 0 && slot < static_cast<int>(kFontSlots);
}

int ordinal(uint16_t code) {
  return (code & 0xFF) + kCellsInRow * (code >> 8);
}

}  // namespace

// Where a glyph stands and what it measures.
struct CEpwing::Glyph {
  int slot = 0;
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t rowBytes = 0;
  uint32_t bytes = 0;
  uint64_t place = 0;
};

bool CEpwing::Fp_ReadGaijiFile(int slot, uint64_t offset, uint32_t size, uint8_t* buffer) {
  if (!isSlot(slot) || !m_gaijiPresent[slot]) return false;
  const std::unique_ptr<StorageFile> file = storage().open(m_gaijiPath[slot], OpenMode::kRead);
  return file && file->readAt(offset, buffer, size) == static_cast<int64_t>(size);
}

void CEpwing::Fp_InitCustomCharInformation(int slot) {
  if (!isSlot(slot)) return;
  uint8_t numbers[4];
  m_gaijiPresent[slot] = Fp_ReadGaijiFile(slot, kFontFirstCode, sizeof numbers, numbers);
  m_gaijiStart[slot] = m_gaijiPresent[slot] ? readBE16(numbers) : 0;
  m_gaijiCount[slot] = m_gaijiPresent[slot] ? readBE16(numbers + 2) : 0;
}

uint16_t CEpwing::Fp_CustomCharCodeNumber(bool full) {
  return m_gaijiCount[full ? 0 : kHalfWidthSlot];
}

uint16_t CEpwing::Fp_StartCharCodeNumber(bool full) {
  return m_gaijiStart[full ? 0 : kHalfWidthSlot];
}

int CEpwing::Fp_CustomCharCodeToIndex(bool full, uint16_t code) {
  const int index = ordinal(code) - ordinal(Fp_StartCharCodeNumber(full));
  return index >= 0 && index < Fp_CustomCharCodeNumber(full) ? index : -1;
}

BookStatus CEpwing::findGlyph(bool full, uint16_t code, uint16_t size, Glyph* glyph) {
  if (!m_bOpened) return kNotOpen;
  const int index = Fp_CustomCharCodeToIndex(full, code);
  glyph->slot = slotOf(full, size);
  if (index < 0 || glyph->slot < 0 || !m_gaijiPresent[glyph->slot]) return kInvalidArgument;
  glyph->width = full ? size : size / 2;
  glyph->height = size;
  glyph->rowBytes = (glyph->width + 7) / 8;
  glyph->bytes = glyph->rowBytes * size;
  const uint32_t inGroup = static_cast<uint32_t>(kGlyphGroup) / glyph->bytes;
  const uint32_t number = static_cast<uint32_t>(index);
  glyph->place = kFontGlyphs + uint64_t{number / inGroup} * kGlyphGroup + number % inGroup * glyph->bytes;
  return kDone;
}

BookStatus CEpwing::Fn_GetCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char** bitmap) {
  if (!bitmap) return kInvalidArgument;
  Glyph glyph;
  if (const BookStatus status = findGlyph(full, code, size, &glyph)) return status;
  uint8_t dots[kLargestGlyph];
  if (!Fp_ReadGaijiFile(glyph.slot, glyph.place, glyph.bytes, dots)) return kReadFailed;
  const uint32_t stride = (glyph.rowBytes + 3) / 4 * 4;
  const uint32_t fileSize = stride * glyph.height + static_cast<uint32_t>(kMonoBitmapHeader);
  char* const out = allocateOut(fileSize);
  if (!out) return kOutOfMemory;
  writeBitmapHeader({fileSize, kMonoBitmapHeader, glyph.width, glyph.height, 1, kResolution, kResolution},
                    out);
  writePalette(kBlackWhite, out);
  for (uint32_t row = 0; row < glyph.height; ++row) {
    char* const to = out + kMonoBitmapHeader + size_t{glyph.height - 1 - row} * stride;
    for (uint32_t i = 0; i < glyph.rowBytes; ++i) to[i] = static_cast<char>(~dots[row * glyph.rowBytes + i]);
  }
  *bitmap = out;
  return kDone;
}

BookStatus CEpwing::Fn_GetRawCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char* buffer,
                                                   uint16_t* length) {
  if (!buffer || !length) return kInvalidArgument;
  Glyph glyph;
  if (const BookStatus status = findGlyph(full, code, size, &glyph)) return status;
  uint8_t dots[kLargestGlyph];
  std::memset(buffer, 0, kRawBuffer);
  if (!Fp_ReadGaijiFile(glyph.slot, glyph.place, glyph.bytes, dots)) return kReadFailed;
  std::memcpy(buffer, dots, glyph.bytes);
  *length = static_cast<uint16_t>(glyph.bytes);
  return kDone;
}

}  // namespace zavel::book
