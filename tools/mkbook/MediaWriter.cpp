// Tests: tests/mkbook/MediaWriterTest.cpp
#include "mkbook/MediaWriter.h"

#include <algorithm>
#include <stdexcept>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/BodyWriter.h"
#include "mkbook/Failure.h"
#include "mkbook/RegionFile.h"

namespace zavel::mkbook {
namespace {

using namespace book;
using Kind = MediumShape::Kind;

constexpr size_t kMonoTable = 3, kColorTable = 16;     // bytes ahead of the records
constexpr size_t kMonoRecord = 14, kColorRecord = 18;  // bytes of each
constexpr size_t kLongestTable = 0xFFFF;               // bytes that a table's length can tell
constexpr size_t kMostMono = kLongestTable / kMonoRecord;
constexpr size_t kMostOthers = 0xFFFF;
constexpr uint16_t kMonoMark = 0x000A, kColorMark = 0x000E;
constexpr uint8_t kPerInch = 1;
constexpr uint16_t kColorForm = 0x1100;
// Readers disagree at which of the two bytes to look.
constexpr uint16_t kSoundArgument = 0x0101;
constexpr std::string_view kDataMark = "data";
constexpr size_t kDataHeader = 8;

// Ahead of the bytes of a medium.
std::string headerOf(const MediumShape& shape) {
  if (shape.kind != Kind::kColorPicture) return "";
  std::string out(kDataMark);
  for (const int shift : {0, 8, 16, 24}) out += static_cast<char>(shape.size >> shift);
  return out;
}

uint64_t sizeInBook(const MediumShape& shape) {
  const uint64_t size = uint64_t{shape.size} + (shape.kind == Kind::kColorPicture ? kDataHeader : 0);
  return (size + 1) / 2 * 2;
}

void appendAddress(std::string* out, const _SDICADDRESS& address) {
  appendBcd(out, address.block, 4);
  appendBcd(out, address.offset, 2);
}

}  // namespace

MediaWriter::MediaWriter(const std::vector<MediumShape>& media)
    : regions_{{Kind::kMonoPicture, kKindMonoPictures, kMonoFile},
               {Kind::kColorPicture, kKindColorPictures, kColorFile},
               {Kind::kSound, kKindSound, kSoundFile}} {
  for (const MediumShape& shape : media) {
    Region& region = regionOf(shape.kind);
    region.items.push_back(items_.size());
    items_.push_back({shape, static_cast<uint16_t>(region.items.size()), 0});
  }
  if (regionOf(Kind::kMonoPicture).items.size() > kMostMono)
    throw std::length_error("more than " + std::to_string(kMostMono) + " pictures in black and white");
  for (Region& region : regions_) {
    if (region.items.size() > kMostOthers) throw std::length_error("more than 65535 pictures or sounds");
    layOut(&region);
  }
}

MediaWriter::Region& MediaWriter::regionOf(Kind kind) {
  return *std::find_if(regions_.begin(), regions_.end(), [&](const Region& r) { return r.kind == kind; });
}

const MediaWriter::Region& MediaWriter::regionOf(Kind kind) const {
  return const_cast<MediaWriter*>(this)->regionOf(kind);
}

void MediaWriter::layOut(Region* region) {
  if (region->items.empty()) return;
  region->size = (table(*region).size() + 1) / 2 * 2;
  for (const size_t number : region->items) {
    items_[number].offset = region->size;
    region->size += sizeInBook(items_[number].shape);
  }
}

// Of colour pictures those that the table has no room for have no record, which readers don't mind.
std::string MediaWriter::table(const Region& region) const {
  std::string records;
  for (const size_t number : region.items) {
    const Item& item = items_[number];
    if (region.kind == Kind::kMonoPicture) {
      appendBE16(records, item.number);
      appendBE16(records, kMonoRecord - 4);
      appendBE16(records, kMonoMark);
      appendBE16(records, 0);
      for (int axis = 0; axis < 2; ++axis) {
        records += static_cast<char>(kPerInch);
        appendBE16(records, item.shape.perInch);
      }
    } else if (records.size() + kColorRecord <= kLongestTable) {
      appendBE16(records, item.number);
      appendBE16(records, kColorRecord - 4);
      appendBE16(records, kColorMark);
      appendBE16(records, kColorForm);
      records.append(10, '\0');
    }
  }
  if (region.kind == Kind::kSound) return "";
  std::string out(1, region.kind == Kind::kMonoPicture ? '\1' : '\0');
  appendBE16(out, static_cast<uint16_t>(records.size()));
  out.resize(region.kind == Kind::kMonoPicture ? kMonoTable : kColorTable);
  return out + records;
}

uint32_t MediaWriter::place(uint32_t first) {
  uint64_t next = first;
  for (Region& region : regions_) {
    region.first = static_cast<uint32_t>(next);
    next += (region.size + kBlock - 1) / kBlock;
  }
  if (next > kMostBlocks)
    throw Failure(mkdict::kExitDamaged, "too_large", "pictures and sounds are too long for a book",
                  "Take fewer or smaller ones.");
  return static_cast<uint32_t>(next);
}

_SDICADDRESS MediaWriter::address(const Item& item, uint64_t behind) const {
  const uint64_t place = item.offset + behind;
  return {static_cast<uint32_t>(regionOf(item.shape.kind).first + (place >> kBlockShift)),
          static_cast<uint32_t>(place & kBlockMask)};
}

std::string MediaWriter::opening(size_t number) const {
  const Item& item = items_[number];
  std::string out;
  switch (item.shape.kind) {
    case Kind::kMonoPicture:
      appendBE16(out, kTagMonoPicture);
      appendBcd(&out, item.number, 2);
      appendBcd(&out, item.shape.height, 4);
      appendBcd(&out, item.shape.width, 4);
      break;
    case Kind::kColorPicture:
      appendBE16(out, kTagColorPicture);
      appendBE16(out, 0);
      appendBE16(out, item.number);
      out.append(8, '\0');
      appendAddress(&out, address(item, 0));
      break;
    case Kind::kSound:
      appendBE16(out, kTagSound);
      appendBE16(out, kSoundArgument);
      appendBE16(out, item.shape.format);
      appendAddress(&out, address(item, 0));
      appendAddress(&out, address(item, item.shape.size));
      // Two bytes that some readers take for a part of the tag and others for text: nothing in either case.
      appendBE16(out, kTagHalfOff);
      break;
  }
  return out;
}

std::string MediaWriter::closing(size_t number) const {
  const Item& item = items_[number];
  std::string out;
  switch (item.shape.kind) {
    case Kind::kMonoPicture:
      appendBE16(out, kTagMonoPictureEnd);
      appendAddress(&out, address(item, 0));
      break;
    case Kind::kColorPicture:
      appendBE16(out, kTagColorPictureEnd);
      break;
    case Kind::kSound:
      appendBE16(out, kTagSoundEnd);
      break;
  }
  return out;
}

std::vector<CatalogRecord> MediaWriter::write(const BookSource& source, const BookFolder& folder) const {
  std::vector<CatalogRecord> records;
  for (const Region& region : regions_) {
    if (region.items.empty()) continue;
    RegionFile file(folder.path(region.file), static_cast<uint32_t>((region.size + kBlock - 1) / kBlock));
    std::string head = table(region);
    head.resize((head.size() + 1) / 2 * 2);
    file.append(head);
    for (const size_t number : region.items) {
      std::string bytes = headerOf(items_[number].shape) + source.mediumBytes(number);
      bytes.resize(sizeInBook(items_[number].shape));
      file.append(bytes);
    }
    file.finish();
    records.push_back({region.entryKind, region.first, region.first + file.blocks() - 1, {}, region.file});
  }
  return records;
}

}  // namespace zavel::mkbook
