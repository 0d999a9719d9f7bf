// Pictures and sounds, menus and icons. Tests: tests/mkbook/ExampleBookTest.cpp
#include <algorithm>

#include "book/BookStatus.h"
#include "mkbook/MediumFault.h"
#include "mkbook/PictureFile.h"
#include "mkbook/Verification.h"
#include "mkbook/WaveFile.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kIconHeader = 118;     // bytes of a bitmap file ahead of its dots
constexpr size_t kLongestGlyph = 64;    // room for one of 16 dots, and what the reader clears
constexpr int64_t kToMenu = INT64_MAX;  // where an item leads that doesn't lead to an entry

}  // namespace

using namespace book;

// Each medium once.
void Verification::compareMedia(const char* bytes, const std::vector<size_t>& tags,
                                const std::vector<size_t>& media, size_t number) {
  for (size_t i = 0; i < tags.size() && i < media.size(); ++i) {
    if (sameMedia_[media[i]]) continue;
    sameMedia_[media[i]] = isMedium(bytes + tags[i], media[i]);
    if (!sameMedia_[media[i]]) fault(number, "picture or sound " + std::to_string(i + 1) + " of it differs");
  }
}

// What a reader gets is a file; what it is made of must be what the source's is made of.
bool Verification::isMedium(const char* tag, size_t medium) {
  const MediumShape& shape = media_[medium];
  const bool sound = shape.kind == MediumShape::Kind::kSound;
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  OwnBytes file;
  const auto get = sound ? SDicGetStreamData : SDicGetPictureData;
  if (get(book_.get(), tag, &name, &nameLength, &data, &file.length) != kDone) return false;
  const std::unique_ptr<char, FreeBytes> nameOwner(name);
  file.take(data);
  const std::string expected = source_.mediumBytes(medium);
  try {
    if (shape.kind == MediumShape::Kind::kColorPicture) return file.view() == expected;
    const Medium found = sound ? readWave(file.view()) : readPicture(std::string(file.view()));
    return found.bytes == expected && found.shape.format == shape.format &&
           found.shape.width == shape.width && found.shape.height == shape.height;
  } catch (const MediumFault&) {
    return false;
  }
}

bool Verification::readMenu(bool pictures, const _SDICADDRESS* at, OwnBytes* bytes) {
  char* data = nullptr;
  bool more = false;
  const uint32_t status = pictures ? SDicGetColorMenuData(book_.get(), at, &data, &bytes->length)
                                   : SDicGetMenuData(book_.get(), at, &data, &bytes->length, &more);
  if (status != kDone) return false;
  bytes->take(data);
  return !more;
}

// The menus that its items should lead to; *items gets where they do.
std::vector<size_t> Verification::compareMenu(size_t menu, const OwnBytes& bytes,
                                              std::vector<_SDICADDRESS>* items) {
  std::vector<size_t> leads, tags, media;
  const std::string expected = expectedText(menus_[menu].lines, table_, [&](const Span& span) {
    if (span.kind != Span::Kind::kMenu) return numberOf(span);
    const auto named = [&](const Menu& other) { return other.name == span.target; };
    leads.push_back(static_cast<size_t>(std::find_if(menus_.begin(), menus_.end(), named) - menus_.begin()));
    return kToMenu;
  });
  const auto numberOrMenu = [&](const _SDICADDRESS& at) {
    if (const int64_t number = numberAt(at); number >= 0) return number;
    items->push_back(at);
    return kToMenu;
  };
  if (decodedText(bytes.view(), table_, numberOrMenu, &tags) != expected) {
    faults_->add(kMenuFile, menu, "the menu \"" + menus_[menu].name + "\" differs");
    return {};
  }
  for (const Line& line : menus_[menu].lines) appendMedia(line.spans, &media);
  compareMedia(bytes.owner.get(), tags, media, 0);
  return leads;
}

// From the first menu on to all that its items lead to.
void Verification::walkMenus(bool pictures) {
  const auto first =
      std::find_if(menus_.begin(), menus_.end(), [&](const Menu& menu) { return menu.pictures == pictures; });
  if (first == menus_.end()) return;
  std::map<size_t, _SDICADDRESS> places;
  std::vector<size_t> waiting = {static_cast<size_t>(first - menus_.begin())};
  for (size_t next = 0; next < waiting.size(); ++next) {
    const size_t menu = waiting[next];
    OwnBytes bytes;
    std::vector<_SDICADDRESS> items;
    if (!readMenu(pictures, next == 0 ? nullptr : &places[menu], &bytes)) {
      faults_->add(kMenuFile, menu, "the menu \"" + menus_[menu].name + "\" can't be read");
      continue;
    }
    ++menusWalked_;
    const std::vector<size_t> leads = compareMenu(menu, bytes, &items);
    for (size_t i = 0; i < leads.size() && i < items.size(); ++i) {
      if (leads[i] == waiting[0]) continue;
      const auto [known, isNew] = places.emplace(leads[i], items[i]);
      if (isNew) waiting.push_back(leads[i]);
      if (!same(known->second, items[i]))
        faults_->add(kMenuFile, menu, "an item of the menu \"" + menus_[menu].name + "\" leads elsewhere");
    }
  }
}

void Verification::compareIcons() {
  const std::string path = folder_ + "/" + kCatalogFile;
  char *large = nullptr, *small = nullptr;
  OwnBytes icons[2];
  const uint32_t status = SDicGetDicIconInformation(path.c_str(), &large, &small);
  icons[0].take(large);
  icons[1].take(small);
  const std::string expected[] = {source_.largeIcon(), source_.smallIcon()};
  for (size_t i = 0; i < 2; ++i) {
    if (expected[i].empty()) continue;
    if (status != kDone ||
        std::string_view(icons[i].owner.get() + kIconHeader, expected[i].size()) != expected[i])
      faults_->add(kCatalogFile, i, i == 0 ? "the icon differs" : "the small icon differs");
  }
}

// Of the characters that the book leads back to Unicode.
void Verification::compareGlyphs() {
  for (const auto& [place, character] : table_.characters()) {
    const auto [half, code] = place;
    char dots[kLongestGlyph];
    uint16_t length = 0;
    const bool good = SDicGetRawCustomCharacterBitmap(book_.get(), !half, code, 16, dots, &length) == kDone &&
                      std::string_view(dots, length) == font_.glyph(character);
    if (!good) faults_->add(half ? kHalfFontFile : kFullFontFile, code, "the glyph of a character differs");
  }
}

}  // namespace zavel::mkbook
