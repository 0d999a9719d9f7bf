#include "support/BookCalls.h"

#include <cstdlib>

#include "support/BookWriter.h"
#include "support/SmallBook.h"

namespace zavel::test {
namespace {

// What no damage can excuse.
void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

void BookCalls::take(uint32_t code, char*& out) {
  codes_ += code == 0;
  if (code == 0 || code == 0x80042001) std::free(out);
  out = nullptr;
}

int BookCalls::useAll(const char* path) {
  codes_ = 0;
  char *large = nullptr, *small = nullptr;
  if (SDicGetDicIconInformation(path, &large, &small) == 0) ++codes_;
  std::free(large);
  std::free(small);
  void* book = nullptr;
  if (SDicOpenDictionary(path, &book, nullptr, false, false) != 0) return codes_;
  search(book);
  for (const uint32_t offset : {0u, 2u, 24u, 30u, 2040u}) texts(book, {1, offset});
  menus(book);
  multi(book);
  for (const std::string& tag :
       {smallMonoTag(), smallColorTag(), smallSoundTag(0), smallSoundTag(0x1111), smallFilmTag()})
    media(book, tag);
  gaiji(book);
  plain(book);
  SDicCloseDictionary(book);
  return codes_;
}

void BookCalls::search(void* book) {
  static const std::string queries[] = {jis("◆AB"),           jis("□A"),           jis("■あ"),
                                        jis("△AB"),           jis("▲AB"),          jis("▲CD"),
                                        jis("◆AB│⊂◆CD◇□CD⊃"), jis("▽０▼０AB▼１A"), jis("■ーあ")};
  for (const std::string& query : queries) search(book, query);
}

void BookCalls::search(void* book, const std::string& query) {
  long count = 0, first = 0;
  if (SDicExecIndexSearch(book, query.c_str(), false, false, &count, &first) != 0) return;
  ++codes_;
  require(first >= 0 && (first < count || count == 0));
  _SDICITEMADDRESS hit{};
  for (long i = 0; i < count; ++i) {
    require(SDicGetSearchResult(book, static_cast<unsigned long>(i), &hit) == 0);
    if (i < 3) texts(book, hit.headword);
  }
}

void BookCalls::texts(void* book, const _SDICADDRESS& at) {
  char* out = nullptr;
  char* cut = nullptr;
  uint16_t length = 0;
  uint32_t size = 0;
  _SDICADDRESS found{};
  if (SDicGetHeadword(book, &at, &out, &length, false) == 0) {
    require(length >= 2 && out[length - 2] == '\0' && out[length - 1] == '\0');
    take(SDicTruncateHeadword(book, out, &cut, 3), cut);
    take(0, out);
  }
  if (SDicGetBodyData(book, &at, &out, &size) == 0) {
    for (uint32_t i = 0; i + 2 <= size && i < 400; i += 2) onTag(book, out + i);
    take(0, out);
  }
  codes_ += SDicGetNextEntryAddress(book, &at, &found) == 0;
  codes_ += SDicGetPrevEntryAddress(book, &at, &found) == 0;
  codes_ += SDicGetZenbunNextEntryAddress(book, &at, &found) == 0;
  codes_ += SDicGetZenbunPrevEntryAddress(book, &at, &found) == 0;
  codes_ += SDicIsValidAddress(book, &at, 3) == 0;
  take(SDicReadData(book, &at, 10, &out), out);
  take(SDicGetPictureDataDirect(book, &at, &out, &size), out);
}

void BookCalls::menus(void* book) {
  char* out = nullptr;
  uint32_t size = 0;
  bool more = false;
  take(SDicGetMenuData(book, nullptr, &out, &size, &more), out);
  take(SDicGetColorMenuData(book, nullptr, &out, &size), out);
}

void BookCalls::multi(void* book) {
  uint16_t blocks = 0;
  if (SDicGetMultiSearchCount(book, &blocks) != 0) return;
  for (uint16_t block = 0; block < blocks; ++block) {
    char* out = nullptr;
    uint8_t entries = 0;
    take(SDicGetMultiSearchName(book, block, &out), out);
    if (SDicGetMultiSearchEntryCount(book, block, &entries) != 0) continue;
    for (uint8_t entry = 0; entry < entries; ++entry) {
      bool hasList = false;
      _SDICMULTIREFLIST* list = nullptr;
      take(SDicGetMultiSearchEntryInfo(book, block, entry, &out, &hasList), out);
      codes_ += SDicGetMultiSearchReferenceList(book, block, entry, &list) == 0;
    }
  }
}

void BookCalls::onTag(void* book, const char* tag) {
  if (tag[0] != '\x1F') return;
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  uint32_t size = 0, more = 0, numbers[4];
  uint32_t code = SDicGetPictureData(book, tag, &name, &nameLength, &data, &size);
  freeBoth(code, &name, &data);
  code = SDicGetStreamData(book, tag, &name, &nameLength, &data, &size);
  freeBoth(code == 0x80042001 ? 0 : code, &name, &data);
  code = SDicGetMovieFileName(book, tag, &name, &size, &data, &more, numbers);
  freeBoth(code == 0x80041001 ? 0 : code, &name, &data);
}

void BookCalls::freeBoth(uint32_t code, char** name, char** data) {
  codes_ += code == 0;
  if (code == 0) {
    std::free(*name);
    std::free(*data);
  }
  *name = *data = nullptr;
}

void BookCalls::media(void* book, const std::string& tag) {
  onTag(book, (tag + std::string(64, '\0')).c_str());
}

void BookCalls::gaiji(void* book) {
  for (const bool full : {true, false}) {
    const uint16_t code = SDicStartCharCodeNumber(book, full);
    char* out = nullptr;
    char buffer[32];
    uint16_t length = 0;
    take(SDicGetCustomCharacterBitmap(book, full, code, 16, &out), out);
    codes_ += SDicGetRawCustomCharacterBitmap(book, full, code, 16, buffer, &length) == 0;
    codes_ += SDicCustomCharCodeToIndex(book, full, 0xA121) == 0;
  }
}

void BookCalls::plain(void* book) {
  char* out = nullptr;
  uint32_t one = 0, two = 0;
  take(SDicGetPublisherInfo(book, &out, &one), out);
  codes_ += SDicGetHonbunBlockInformation(book, &one, &two) == 0;
  codes_ += SDicGetDicName(book) != nullptr;
}

}  // namespace zavel::test
