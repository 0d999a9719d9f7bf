// Tests: tests/mkbook/CatalogTest.cpp
#include "mkbook/Catalog.h"

#include <stdexcept>
#include <string_view>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr uint32_t kDataVersion = 0x20001;
constexpr size_t kLongestTitle = kHeaderRecords - kHeaderTitle;

bool isLead(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

std::string_view fitting(std::string_view sjis) {
  size_t end = 0;
  while (end < sjis.size()) {
    const size_t length = isLead(static_cast<unsigned char>(sjis[end])) ? 2 : 1;
    if (end + length > sjis.size() || end + length > kLongestTitle) break;
    end += length;
  }
  return sjis.substr(0, end);
}

// Zeroes up to `place`, where the next field stands.
void fillTo(std::string* out, size_t place) {
  out->resize(place);
}

void appendRecord(std::string* out, const CatalogRecord& record) {
  if (record.name.size() > kLongestName) throw std::length_error(record.name + " is too long a name");
  const size_t start = out->size();
  fillTo(out, start + kRecordKind);
  appendBE16(*out, record.kind);
  appendBE32(*out, record.first);
  appendBE32(*out, record.last);
  for (const uint8_t flag : record.flags) *out += static_cast<char>(flag);
  *out += static_cast<char>(record.name.size());
  *out += record.name;
  fillTo(out, start + kRecord);
}

// What one dot of the picture shows, `x` and `y` in hundredths of its size, `y` from the top. Colours are
// those of book/DicIcon.cpp.
uint8_t colorAt(size_t x, size_t y) {
  constexpr uint8_t kBackground = 15, kBorder = 0, kCover = 4, kSpine = 1, kLabel = 15, kLetters = 8;
  if (x < 12 || x >= 88 || y < 6 || y >= 94) return kBackground;
  if (x < 16 || x >= 84 || y < 12 || y >= 88) return kBorder;
  if (x < 26) return kSpine;
  const bool onLabel = x >= 36 && x < 76 && y >= 24 && y < 50;
  if (!onLabel) return kCover;
  return x >= 42 && x < 70 && y >= 34 && y < 40 ? kLetters : kLabel;
}

std::string picture(size_t width, size_t height) {
  std::string out;
  for (size_t row = height; row > 0; --row) {
    for (size_t x = 0; x < width; x += 2) {
      const auto dot = [&](size_t at) { return colorAt(at * 100 / width, (row - 1) * 100 / height); };
      out += static_cast<char>(dot(x) << 4 | dot(x + 1));
    }
  }
  return out;
}

}  // namespace

std::string Catalog::storedTitle() const {
  return std::string(fitting(title));
}

std::string Catalog::bytes() const {
  const uint32_t icons = static_cast<uint32_t>(kHeader + kRecord * records.size());
  const std::string name = storedTitle();
  std::string out(kMagic);
  appendBE32(out, kDataVersion);
  out += static_cast<char>(name.size());
  out += name;
  fillTo(&out, kHeaderRecords);
  appendBE16(out, static_cast<uint16_t>(records.size()));
  fillTo(&out, kHeaderLargeIcon);
  appendBE32(out, icons);
  appendBE32(out, static_cast<uint32_t>(largeIcon.size()));
  appendBE32(out, icons + static_cast<uint32_t>(largeIcon.size()));
  appendBE32(out, static_cast<uint32_t>(smallIcon.size()));
  appendBE32(out, identity);
  out += readsThrough ? '\0' : '\1';
  fillTo(&out, kHeader);
  for (const CatalogRecord& record : records) appendRecord(&out, record);
  return out + largeIcon + smallIcon;
}

std::string largeBookIcon() {
  return picture(32, 32);
}

std::string smallBookIcon() {
  return picture(16, 15);
}

}  // namespace zavel::mkbook
