// Pictures, and where films are. Tests: tests/book/MediaTest.cpp
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "book/Address.h"
#include "book/Bitmap.h"
#include "book/CEpwing.h"
#include "book/OutBuffer.h"
#include "book/TagReader.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr size_t kMonoTable = 3;  // bytes ahead of the records
constexpr size_t kColorTable = 16;
constexpr uint16_t kMonoMark = 0x000A;
constexpr uint16_t kColorMark = 0x000E;
constexpr size_t kMonoRecord = 10;
constexpr size_t kColorRecord = 14;
constexpr uint8_t kPerCentimetre = 0;
constexpr uint8_t kPerInch = 1;

constexpr uint16_t kStreamStart = 0xFFD8, kStreamStartToo = 0x2439;
constexpr uint16_t kStreamEnd = 0xFFD9, kStreamEndToo = 0x2448;
constexpr uint64_t kLargestStream = 256u << 20;

constexpr size_t kFilmName = 22, kFilmTitle = 46;
constexpr uint32_t kFirstFilmKind = 1000, kLastFilmKind = 1999;

const uint8_t* bytesOf(const std::string& text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

// Dots a metre, of a unit and a value. False for a unit that isn't known.
bool dotsPerMetre(const uint8_t* bytes, uint32_t* out) {
  const uint32_t value = readBE16(bytes + 1);
  if (bytes[0] != kPerInch && bytes[0] != kPerCentimetre) return false;
  *out = bytes[0] == kPerInch ? value * 10000 / 254 : value * 100;
  return true;
}

}  // namespace

BookStatus CEpwing::copyName(std::string_view text, char** name, uint16_t* nameLength) {
  if (name) *name = nullptr;
  if (nameLength) *nameLength = 0;
  if (!name || text.empty()) return kDone;
  *name = copyOut(text);
  if (!*name) return kOutOfMemory;
  if (nameLength) *nameLength = static_cast<uint16_t>(text.size());
  return kDone;
}

// The table at the start of the pictures' region, and in it the data of one record; nothing where it has
// none.
BookStatus CEpwing::pictureRecord(uint16_t kind, uint16_t number, std::optional<std::string>* record) {
  const int entry = Fp_FindBookControlEntry(lowByte(kind));
  if (entry < 0) return kBroken;
  const _SDICADDRESS start = {m_entries[static_cast<size_t>(entry)].start, 0};
  const size_t header = kind == kKindMonoPictures ? kMonoTable : kColorTable;
  uint8_t head[kColorTable];
  if (!Fp_ReadBook(&start, static_cast<int64_t>(header), head)) return kReadFailed;
  if (kind == kKindMonoPictures && head[0] != 1) return kUnsupportedMedia;
  std::string table(readBE16(head + 1), '\0');
  const _SDICADDRESS behind = further(start, header);
  if (!Fp_ReadBook(&behind, static_cast<int64_t>(table.size()), table.data())) return kReadFailed;
  for (size_t at = 0; at + 4 <= table.size();) {
    const size_t length = readBE16(bytesOf(table) + at + 2);
    if (readBE16(bytesOf(table) + at) == number) {
      if (at + 4 + length > table.size()) return kBroken;
      *record = table.substr(at + 4, length);
      return kDone;
    }
    at += 4 + length;
  }
  return kDone;
}

BookStatus CEpwing::Fn_GetPictureData(const char* tag, char** name, uint16_t* nameLength, char** data,
                                      uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!tag || !data || !length) return kInvalidArgument;
  switch (TagReader(tag).word(0)) {
    case kTagMonoPicture:
      return monoPicture(tag, name, nameLength, data, length);
    case kTagColorPicture:
    case kTagColorPictureInText:
      return colorPicture(tag, name, nameLength, data, length);
    default:
      return kBroken;
  }
}

BookStatus CEpwing::monoPicture(const char* tag, char** name, uint16_t* nameLength, char** data,
                                uint32_t* length) {
  const TagReader reader(tag);
  const auto title = reader.upTo(12, kTagMonoPictureEnd);
  if (!title) return kBroken;
  std::optional<std::string> record;
  const uint16_t number = static_cast<uint16_t>(reader.bcd(2, 2));
  if (const BookStatus status = pictureRecord(kKindMonoPictures, number, &record)) return status;
  if (!record) return kBroken;
  BitmapInfo info{0, kMonoBitmapHeader, reader.bcd(8, 4), reader.bcd(4, 4), 1, 0, 0};
  const uint8_t* const fields = bytesOf(*record);
  if (record->size() < kMonoRecord || readBE16(fields) != kMonoMark ||
      !dotsPerMetre(fields + 4, &info.xPerMetre) || !dotsPerMetre(fields + 7, &info.yPerMetre))
    return kUnsupportedMedia;
  const _SDICADDRESS at = reader.address(12 + title->size() + 2);
  if (const BookStatus status = readMonoPicture(at, &info, data)) return status;
  *length = info.fileSize;
  if (copyName(*title, name, nameLength) == kDone) return kDone;
  std::free(*data);
  *data = nullptr;
  return kOutOfMemory;
}

// Rows stand from the top down in the book.
BookStatus CEpwing::readMonoPicture(const _SDICADDRESS& start, BitmapInfo* info, char** data) {
  const uint64_t rowBytes = (uint64_t{info->width} + 7) / 8;
  const uint64_t stride = (uint64_t{info->width} + 31) / 8 / 4 * 4;
  const uint64_t size = stride * info->height + kMonoBitmapHeader;
  if (size > kLargestStream || !holds(normalised(start), rowBytes * info->height)) return kReadFailed;
  char* const out = allocateOut(static_cast<size_t>(size));
  if (!out) return kOutOfMemory;
  info->fileSize = static_cast<uint32_t>(size);
  writeBitmapHeader(*info, out);
  writePalette(kWhiteBlack, out);
  const uint64_t rows = rowBytes > 0 ? info->height : 0;  // a height alone may be anything
  for (uint64_t row = 0; row < rows; ++row) {
    const _SDICADDRESS at = further(start, row * rowBytes);
    char* const to = out + kMonoBitmapHeader + (rows - 1 - row) * stride;
    if (!Fp_ReadBook(&at, static_cast<int64_t>(rowBytes), to)) {
      std::free(out);
      return kReadFailed;
    }
  }
  *data = out;
  return kDone;
}

BookStatus CEpwing::colorPicture(const char* tag, char** name, uint16_t* nameLength, char** data,
                                 uint32_t* length) {
  const TagReader reader(tag);
  const bool inText = reader.word(0) == kTagColorPictureInText;
  const auto title = reader.upTo(20, inText ? kTagColorPictureInTextEnd : kTagColorPictureEnd);
  if (!title) return kBroken;
  std::optional<std::string> record;
  if (const BookStatus status = pictureRecord(kKindColorPictures, reader.word(4), &record)) return status;
  if (record) {
    const uint8_t* const fields = bytesOf(*record);
    if (record->size() < kColorRecord || readBE16(fields) != kColorMark || fields[2] < 0x11 ||
        fields[2] > 0x13 || (fields[3] != 0 && fields[3] != 2 && fields[3] != 3))
      return kUnsupportedMedia;
  }
  _SDICADDRESS at = normalised(reader.address(14));
  uint64_t size = 0;
  if (const BookStatus status = measureColorData(&at, &size)) return status;
  if (const BookStatus status = readOut(at, size, data)) return status;
  *length = static_cast<uint32_t>(size);
  if (copyName(*title, name, nameLength) == kDone) return kDone;
  std::free(*data);
  *data = nullptr;
  return kOutOfMemory;
}

// Where the bytes begin and how many there are. Data of another beginning counts as empty.
BookStatus CEpwing::measureColorData(_SDICADDRESS* at, uint64_t* size) {
  uint8_t head[8];
  if (!Fp_ReadBook(at, 4, head)) return kReadFailed;
  if (std::memcmp(head, "data", 4) == 0) {
    if (!Fp_ReadBook(at, sizeof head, head)) return kReadFailed;
    *size = readLE32(head + 4);
    *at = further(*at, sizeof head);
    return kDone;
  }
  const uint16_t first = readBE16(head);
  if (first != kStreamStart && first != kStreamStartToo) return kDone;
  for (uint64_t behind = 2; behind < kLargestStream;) {
    uint16_t marker, segment;
    if (!readWord(further(*at, behind), &marker)) return kReadFailed;
    behind += 2;
    if (marker == kStreamEnd || marker == kStreamEndToo) {
      *size = behind;
      return kDone;
    }
    if (!readWord(further(*at, behind), &segment)) return kReadFailed;
    behind += segment;
  }
  return kBroken;
}

BookStatus CEpwing::Fn_GetPictureDataDirect(const _SDICADDRESS* address, char** data, uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !data || !length) return kInvalidArgument;
  uint8_t size[4];
  const _SDICADDRESS place = further(*address, 4);
  if (!Fp_ReadBook(&place, sizeof size, size)) return kReadFailed;
  if (const BookStatus status = readOut(further(*address, 8), readLE32(size), data)) return status;
  *length = readLE32(size);
  return kDone;
}

// Numbers and title are given also where the kind is none that has a file.
BookStatus CEpwing::Fn_GetMovieFileName(const char* tag, char** file, uint32_t* fileLength, char** title,
                                        uint32_t* titleLength, uint32_t numbers[4]) {
  if (!m_bOpened) return kNotOpen;
  if (!tag || !file || !fileLength || !title || !titleLength || !numbers) return kInvalidArgument;
  const TagReader reader(tag);
  if (reader.word(0) != kTagMovie) return kDone;
  *file = *title = nullptr;
  *fileLength = *titleLength = 0;
  for (size_t i = 0; i < 4; ++i) numbers[i] = reader.bcd(6 + 2 * i, 2);
  const auto text = reader.upTo(kFilmTitle, kTagMovieEnd);
  if (!text) return kBroken;
  const uint32_t kind = reader.bcd(2, 2);
  const bool valid = kind >= kFirstFilmKind && kind <= kLastFilmKind;
  const std::string_view room(tag + kFilmName, kFilmTitle - kFilmName);
  const size_t end = room.find_first_of(std::string_view(" \0", 2));
  const std::string_view name = valid ? room.substr(0, end) : std::string_view();
  if (valid) *file = copyOut(name);
  *title = copyOut(*text);
  if (!*title || (valid && !*file)) {
    std::free(*file);
    std::free(*title);
    *file = *title = nullptr;
    return kOutOfMemory;
  }
  *fileLength = static_cast<uint32_t>(name.size());
  *titleLength = static_cast<uint32_t>(text->size());
  return valid ? kDone : kUnsupportedMedia;
}

}  // namespace zavel::book
