#include "book/SDic.h"

#include <gtest/gtest.h>

#include <functional>

#include "OpenBook.h"
#include "Words.h"

extern "C" {
size_t itemAddressSizeInC(void);
size_t itemBodyOffsetInC(void);
int headwordInC(const char* path, const char* query);
}

namespace zavel::book {
namespace {

using namespace zavel::test;

// Room for whatever the functions write.
struct Out {
  uint32_t u32 = 0, more32 = 0;
  uint16_t u16 = 0;
  uint8_t u8 = 0;
  bool flag = false;
  long count = 0, first = 0;
  char* text = nullptr;
  char* data = nullptr;
  char buffer[64] = {};
  uint32_t numbers[4] = {};
  _SDICMULTIREFLIST* list = nullptr;
  _SDICITEMADDRESS hit{};
  _SDICADDRESS found{};
  _SDICADDRESS at{1, 0};
};

struct Call {
  const char* name;
  std::function<uint32_t(void*, Out&)> run;
};

const char kTag[600] = "\x1F\x44";
const char kQuery[] = "\x22\x21\x23\x41";

// Each function that answers with a code, called as it should be.
const std::vector<Call>& calls() {
  static const std::vector<Call> all = {
      {"Honbun", [](void* b, Out& o) { return SDicGetHonbunBlockInformation(b, &o.u32, &o.more32); }},
      {"Methods", [](void* b, Out& o) { return SDicGetAvailableMethods(b, &o.u32); }},
      {"MultiCount", [](void* b, Out& o) { return SDicGetMultiSearchCount(b, &o.u16); }},
      {"MultiName", [](void* b, Out& o) { return SDicGetMultiSearchName(b, 0, &o.text); }},
      {"EntryCount", [](void* b, Out& o) { return SDicGetMultiSearchEntryCount(b, 0, &o.u8); }},
      {"EntryInfo", [](void* b, Out& o) { return SDicGetMultiSearchEntryInfo(b, 0, 0, &o.text, &o.flag); }},
      {"List", [](void* b, Out& o) { return SDicGetMultiSearchReferenceList(b, 0, 0, &o.list); }},
      {"Search",
       [](void* b, Out& o) { return SDicExecIndexSearch(b, kQuery, false, false, &o.count, &o.first); }},
      {"Result", [](void* b, Out& o) { return SDicGetSearchResult(b, 0, &o.hit); }},
      {"Headword", [](void* b, Out& o) { return SDicGetHeadword(b, &o.at, &o.text, &o.u16, false); }},
      {"Body", [](void* b, Out& o) { return SDicGetBodyData(b, &o.at, &o.text, &o.u32); }},
      {"Prev", [](void* b, Out& o) { return SDicGetPrevEntryAddress(b, &o.at, &o.found); }},
      {"Next", [](void* b, Out& o) { return SDicGetNextEntryAddress(b, &o.at, &o.found); }},
      {"ZenbunPrev", [](void* b, Out& o) { return SDicGetZenbunPrevEntryAddress(b, &o.at, &o.found); }},
      {"ZenbunNext", [](void* b, Out& o) { return SDicGetZenbunNextEntryAddress(b, &o.at, &o.found); }},
      {"Bitmap", [](void* b, Out& o) { return SDicGetCustomCharacterBitmap(b, true, 0xA121, 16, &o.data); }},
      {"Raw", [](void* b,
                 Out& o) { return SDicGetRawCustomCharacterBitmap(b, true, 0xA121, 16, o.buffer, &o.u16); }},
      {"Valid", [](void* b, Out& o) { return SDicIsValidAddress(b, &o.at, 0); }},
      {"Picture",
       [](void* b, Out& o) { return SDicGetPictureData(b, kTag, &o.text, &o.u16, &o.data, &o.u32); }},
      {"Direct", [](void* b, Out& o) { return SDicGetPictureDataDirect(b, &o.at, &o.data, &o.u32); }},
      {"Stream",
       [](void* b, Out& o) { return SDicGetStreamData(b, kTag, &o.text, &o.u16, &o.data, &o.u32); }},
      {"Read", [](void* b, Out& o) { return SDicReadData(b, &o.at, 2, &o.data); }},
      {"Menu", [](void* b, Out& o) { return SDicGetMenuData(b, nullptr, &o.data, &o.u32, &o.flag); }},
      {"ColorMenu", [](void* b, Out& o) { return SDicGetColorMenuData(b, nullptr, &o.data, &o.u32); }},
      {"Publisher", [](void* b, Out& o) { return SDicGetPublisherInfo(b, &o.text, &o.u32); }},
      {"Truncate", [](void* b, Out& o) { return SDicTruncateHeadword(b, kQuery, &o.text, 1); }},
      {"Film", [](void* b, Out& o) {
         return SDicGetMovieFileName(b, kTag, &o.text, &o.u32, &o.data, &o.more32, o.numbers);
       }}};
  return all;
}

TEST(SDic, RefusesANullHandle) {
  for (const Call& call : calls()) {
    Out out;
    EXPECT_EQ(call.run(nullptr, out), 0x80000016u) << call.name;
  }
  Out out;
  EXPECT_EQ(SDicGetContentType(nullptr, &out.u32), 0x80000016u);
  EXPECT_EQ(SDicGetDataSpecVersion(nullptr, &out.u32, &out.more32), 0x80000016u);
  EXPECT_EQ(SDicSetKillCompare(nullptr, true), 0x80000016u);
  EXPECT_EQ(SDicCloseDictionary(nullptr), 0u);
  EXPECT_FALSE(SDicIsZenbunSearch(nullptr));
  EXPECT_EQ(SDicCustomCharCodeNumber(nullptr, true), 0);
  EXPECT_EQ(SDicStartCharCodeNumber(nullptr, true), 0);
  EXPECT_EQ(SDicCustomCharCodeToIndex(nullptr, true, 0xA121), -1);
  EXPECT_EQ(SDicGetPublisherVersion(nullptr), 0);
  EXPECT_EQ(SDicGetDicName(nullptr), nullptr);
  EXPECT_EQ(SDicGetDicID(nullptr), 0u);
}

TEST(SDic, AnswersForAClosedBook) {
  const TempFolder folder;
  folder.write("none", "no book");
  void* book = nullptr;
  ASSERT_EQ(SDicOpenDictionary(folder.file("none").c_str(), &book, nullptr, false, false), 0u);
  ASSERT_NE(book, nullptr);
  for (const Call& call : calls()) {
    Out out;
    EXPECT_EQ(call.run(book, out), 0x80041007u) << call.name;
  }
  Out out;
  EXPECT_EQ(SDicGetContentType(book, &out.u32), 0u);
  EXPECT_EQ(SDicGetDataSpecVersion(book, &out.u32, &out.more32), 0u);
  EXPECT_EQ(SDicSetKillCompare(book, false), 0u);
  EXPECT_FALSE(SDicIsZenbunSearch(book));
  EXPECT_EQ(SDicCustomCharCodeNumber(book, true), 0);
  EXPECT_EQ(SDicCustomCharCodeToIndex(book, false, 0xA121), -1);
  EXPECT_EQ(SDicGetPublisherVersion(book), 1);
  EXPECT_STREQ(SDicGetDicName(book), "");
  EXPECT_EQ(SDicGetDicID(book), 0u);
  EXPECT_EQ(SDicCloseDictionary(book), 0u);
}

BookWriter wholeBook() {
  BookWriter writer;
  writer.region(0, 1, padded(Text().entry("AB", "CD").entry("EF", "GH").end().bytes()));
  writer.region(1, 2, padded(words({0x2341, 0x1F03})));
  writer.region(0x10, 3, padded(words({0x1F4C, 0, 0x1F03})));
  writer.region(0x60, 4, IndexBlock(0xE0).leaf(jis("AB"), place(1, 0)).bytes());
  std::string form = be16(1) + std::string(14, '\0') + std::string("\x01\0", 2) + jis("X");
  form.resize(48);
  writer.region(0xFF, 5, padded(form + std::string("\x01\0", 2) + be32(6) + be32(1)));
  writer.info("[GENERAL]\nSRCINFO=someone\nSRCVER=7\n");
  return writer;
}

// Every pointer in turn is null.
TEST(SDic, RefusesNullArguments) {
  OpenBook open(wholeBook());
  ASSERT_EQ(open.status, 0u);
  void* const b = open.handle;
  Out o;
  const uint32_t codes[] = {SDicGetHonbunBlockInformation(b, nullptr, &o.u32),
                            SDicGetHonbunBlockInformation(b, &o.u32, nullptr),
                            SDicGetAvailableMethods(b, nullptr),
                            SDicGetMultiSearchCount(b, nullptr),
                            SDicGetMultiSearchName(b, 0, nullptr),
                            SDicGetMultiSearchEntryCount(b, 0, nullptr),
                            SDicGetMultiSearchEntryInfo(b, 0, 0, nullptr, &o.flag),
                            SDicGetMultiSearchEntryInfo(b, 0, 0, &o.text, nullptr),
                            SDicGetMultiSearchReferenceList(b, 0, 0, nullptr),
                            SDicExecIndexSearch(b, nullptr, false, false, &o.count, &o.first),
                            SDicExecIndexSearch(b, kQuery, false, false, nullptr, &o.first),
                            SDicExecIndexSearch(b, kQuery, false, false, &o.count, nullptr),
                            SDicGetSearchResult(b, 0, nullptr),
                            SDicGetHeadword(b, nullptr, &o.text, &o.u16, false),
                            SDicGetHeadword(b, &o.at, nullptr, &o.u16, false),
                            SDicGetHeadword(b, &o.at, &o.text, nullptr, false),
                            SDicGetBodyData(b, nullptr, &o.text, &o.u32),
                            SDicGetBodyData(b, &o.at, nullptr, &o.u32),
                            SDicGetBodyData(b, &o.at, &o.text, nullptr),
                            SDicGetPrevEntryAddress(b, nullptr, &o.found),
                            SDicGetPrevEntryAddress(b, &o.at, nullptr),
                            SDicGetNextEntryAddress(b, nullptr, &o.found),
                            SDicGetNextEntryAddress(b, &o.at, nullptr),
                            SDicGetZenbunPrevEntryAddress(b, nullptr, &o.found),
                            SDicGetZenbunPrevEntryAddress(b, &o.at, nullptr),
                            SDicGetZenbunNextEntryAddress(b, nullptr, &o.found),
                            SDicGetZenbunNextEntryAddress(b, &o.at, nullptr),
                            SDicGetCustomCharacterBitmap(b, true, 0xA121, 16, nullptr),
                            SDicGetRawCustomCharacterBitmap(b, true, 0xA121, 16, nullptr, &o.u16),
                            SDicGetRawCustomCharacterBitmap(b, true, 0xA121, 16, o.buffer, nullptr),
                            SDicIsValidAddress(b, nullptr, 0),
                            SDicGetPictureData(b, nullptr, &o.text, &o.u16, &o.data, &o.u32),
                            SDicGetPictureData(b, kTag, &o.text, &o.u16, nullptr, &o.u32),
                            SDicGetPictureData(b, kTag, &o.text, &o.u16, &o.data, nullptr),
                            SDicGetPictureDataDirect(b, nullptr, &o.data, &o.u32),
                            SDicGetPictureDataDirect(b, &o.at, nullptr, &o.u32),
                            SDicGetPictureDataDirect(b, &o.at, &o.data, nullptr),
                            SDicGetStreamData(b, nullptr, &o.text, &o.u16, &o.data, &o.u32),
                            SDicGetStreamData(b, kTag, &o.text, &o.u16, nullptr, &o.u32),
                            SDicGetStreamData(b, kTag, &o.text, &o.u16, &o.data, nullptr),
                            SDicReadData(b, nullptr, 2, &o.data),
                            SDicReadData(b, &o.at, 0, &o.data),
                            SDicReadData(b, &o.at, 2, nullptr),
                            SDicGetMenuData(b, nullptr, nullptr, &o.u32, &o.flag),
                            SDicGetMenuData(b, nullptr, &o.data, nullptr, &o.flag),
                            SDicGetMenuData(b, nullptr, &o.data, &o.u32, nullptr),
                            SDicGetColorMenuData(b, nullptr, nullptr, &o.u32),
                            SDicGetColorMenuData(b, nullptr, &o.data, nullptr),
                            SDicGetPublisherInfo(b, nullptr, &o.u32),
                            SDicGetPublisherInfo(b, &o.text, nullptr),
                            SDicGetContentType(b, nullptr),
                            SDicGetDataSpecVersion(b, nullptr, &o.u32),
                            SDicGetDataSpecVersion(b, &o.u32, nullptr),
                            SDicTruncateHeadword(b, nullptr, &o.text, 1),
                            SDicTruncateHeadword(b, kQuery, nullptr, 1),
                            SDicGetMovieFileName(b, nullptr, &o.text, &o.u32, &o.data, &o.more32, o.numbers),
                            SDicGetMovieFileName(b, kTag, nullptr, &o.u32, &o.data, &o.more32, o.numbers),
                            SDicGetMovieFileName(b, kTag, &o.text, nullptr, &o.data, &o.more32, o.numbers),
                            SDicGetMovieFileName(b, kTag, &o.text, &o.u32, nullptr, &o.more32, o.numbers),
                            SDicGetMovieFileName(b, kTag, &o.text, &o.u32, &o.data, nullptr, o.numbers),
                            SDicGetMovieFileName(b, kTag, &o.text, &o.u32, &o.data, &o.more32, nullptr)};
  for (size_t i = 0; i < std::size(codes); ++i) EXPECT_EQ(codes[i], 0x80000016u) << i;
  EXPECT_EQ(SDicOpenDictionary("/", nullptr, nullptr, false, false), 0x80000016u);
  EXPECT_EQ(SDicOpenDictionary(nullptr, &open.handle, nullptr, false, false), 0x80000016u);
  EXPECT_EQ(open.handle, nullptr);
  open.handle = b;
}

TEST(SDic, GivesTheBodysBlocks) {
  OpenBook book(wholeBook());
  Out out;
  ASSERT_EQ(SDicGetHonbunBlockInformation(book.handle, &out.u32, &out.more32), 0u);
  EXPECT_EQ(out.u32, 1u);
  EXPECT_EQ(out.more32, 1u);
}

TEST(SDic, GivesWhatThePublisherSays) {
  OpenBook book(wholeBook());
  Out out;
  ASSERT_EQ(SDicGetPublisherInfo(book.handle, &out.text, &out.u32), 0u);
  EXPECT_STREQ(out.text, "someone");
  EXPECT_EQ(out.u32, 7u);
  std::free(out.text);
  EXPECT_EQ(SDicGetPublisherVersion(book.handle), 7);
}

TEST(SDic, SwapsBytesAndReadsPackedDecimals) {
  EXPECT_EQ(GFn_Swap(0x1234), 0x3412);
  EXPECT_EQ(GFn_Swap2(0x12345678), 0x78563412u);
  const uint8_t bcd[] = {0x12, 0x34, 0x56, 0x78};
  EXPECT_EQ(GFn_BCD2WORD(bcd, 2), 1234);
  EXPECT_EQ(GFn_BCD2DWORD(bcd, 4), 12345678u);
  EXPECT_EQ(GFn_BCD2WORD(nullptr, 2), 0);
  EXPECT_EQ(GFn_BCD2DWORD(nullptr, 4), 0u);
}

TEST(SDicFromC, SeesTheSameRecordsAndCalls) {
  EXPECT_EQ(itemAddressSizeInC(), sizeof(_SDICITEMADDRESS));
  EXPECT_EQ(itemAddressSizeInC(), 20u);
  EXPECT_EQ(itemBodyOffsetInC(), 12u);
  const TempFolder folder;
  EXPECT_EQ(headwordInC(wholeBook().write(folder).c_str(), jis("◆AB").c_str()), 0x23);
  EXPECT_EQ(headwordInC(folder.file("none").c_str(), jis("◆AB").c_str()), -1);
}

}  // namespace
}  // namespace zavel::book
