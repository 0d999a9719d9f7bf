// Each function leads to the book's virtual operation. Nothing that is thrown crosses the interface.
// Tests: tests/book/SDicTest.cpp
#include "book/SDic.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

#include "book/CSPrivateDicV2.h"
#include "book/DicIcon.h"
#include "foundation/Bcd.h"

using zavel::book::BookStatus;
using zavel::book::CSDicObject;
using zavel::book::CSPrivateDicV2;
using zavel::book::kDone;
using zavel::book::kInvalidArgument;
using zavel::book::kNoIcon;
using zavel::book::kOutOfMemory;

namespace {

CSDicObject* bookOf(void* handle) {
  return static_cast<CSDicObject*>(handle);
}

template <typename Call>
BookStatus guarded(void* handle, Call&& call) noexcept {
  if (!handle) return kInvalidArgument;
  try {
    return call(*bookOf(handle));
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
}

char* iconOf(const char* path, bool large) noexcept {
  try {
    return zavel::book::GFnGetDicIconBitmap(path, large);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace

uint32_t SDicOpenDictionary(const char* path, void** handle, const char* altDir, bool keepMissingSound,
                            bool skipHonbunCheck) {
  if (!handle) return kInvalidArgument;
  *handle = nullptr;
  std::unique_ptr<CSDicObject> book(new (std::nothrow) CSPrivateDicV2);
  if (!book) return kOutOfMemory;
  const BookStatus status = guarded(book.get(), [&](CSDicObject& object) {
    return object.Fn_OpenDictionary(path, altDir, keepMissingSound, skipHonbunCheck);
  });
  if (status == kDone) *handle = book.release();
  return status;
}

uint32_t SDicCloseDictionary(void* handle) {
  delete bookOf(handle);
  return kDone;
}

uint32_t SDicGetHonbunBlockInformation(void* handle, uint32_t* start, uint32_t* end) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetHonbunBlockInformation(start, end); });
}

bool SDicIsZenbunSearch(void* handle) {
  return handle && bookOf(handle)->Fn_IsZenbunSearch();
}

uint32_t SDicGetAvailableMethods(void* handle, uint32_t* methods) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetAvailableMethods(methods); });
}

uint32_t SDicGetMultiSearchCount(void* handle, uint16_t* count) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetMultiSearchCount(count); });
}

uint32_t SDicGetMultiSearchName(void* handle, uint16_t block, char** name) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetMultiSearchName(block, name); });
}

uint32_t SDicGetMultiSearchEntryCount(void* handle, uint16_t block, uint8_t* count) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetMultiSearchEntryCount(block, count); });
}

uint32_t SDicGetMultiSearchEntryInfo(void* handle, uint16_t block, uint8_t entry, char** label,
                                     bool* hasList) {
  return guarded(handle, [&](CSDicObject& book) {
    return book.Fn_GetMultiSearchEntryInfo(block, entry, label, hasList);
  });
}

uint32_t SDicGetMultiSearchReferenceList(void* handle, uint16_t block, uint8_t entry,
                                         _SDICMULTIREFLIST** list) {
  return guarded(handle,
                 [&](CSDicObject& book) { return book.Fn_GetMultiSearchReferenceList(block, entry, list); });
}

uint32_t SDicExecIndexSearch(void* handle, const char* query, bool ignored, bool keep, long* count,
                             long* first) {
  return guarded(
      handle, [&](CSDicObject& book) { return book.Fn_ExecIndexSearch(query, ignored, keep, count, first); });
}

uint32_t SDicGetSearchResult(void* handle, unsigned long number, _SDICITEMADDRESS* hit) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetSearchResult(number, hit); });
}

uint32_t SDicGetHeadword(void* handle, const _SDICADDRESS* address, char** text, uint16_t* length,
                         bool plain) {
  return guarded(handle,
                 [&](CSDicObject& book) { return book.Fn_GetHeadword(address, text, length, plain); });
}

uint32_t SDicGetBodyData(void* handle, const _SDICADDRESS* address, char** bytes, uint32_t* length) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetBodyData(address, bytes, length); });
}

uint32_t SDicGetPrevEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* previous) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetPrevEntryAddress(address, previous); });
}

uint32_t SDicGetNextEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* next) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetNextEntryAddress(address, next); });
}

uint32_t SDicGetZenbunPrevEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* previous) {
  return guarded(handle,
                 [&](CSDicObject& book) { return book.Fn_GetZenbunPrevEntryAddress(address, previous); });
}

uint32_t SDicGetZenbunNextEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* next) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetZenbunNextEntryAddress(address, next); });
}

uint16_t SDicCustomCharCodeNumber(void* handle, bool full) {
  return handle ? bookOf(handle)->Fp_CustomCharCodeNumber(full) : uint16_t{0};
}

uint16_t SDicStartCharCodeNumber(void* handle, bool full) {
  return handle ? bookOf(handle)->Fp_StartCharCodeNumber(full) : uint16_t{0};
}

int SDicCustomCharCodeToIndex(void* handle, bool full, uint16_t code) {
  return handle ? bookOf(handle)->Fp_CustomCharCodeToIndex(full, code) : -1;
}

uint32_t SDicGetCustomCharacterBitmap(void* handle, bool full, uint16_t code, uint16_t size, char** bitmap) {
  return guarded(
      handle, [&](CSDicObject& book) { return book.Fn_GetCustomCharacterBitmap(full, code, size, bitmap); });
}

uint32_t SDicGetRawCustomCharacterBitmap(void* handle, bool full, uint16_t code, uint16_t size, char* buffer,
                                         uint16_t* length) {
  return guarded(handle, [&](CSDicObject& book) {
    return book.Fn_GetRawCustomCharacterBitmap(full, code, size, buffer, length);
  });
}

uint32_t SDicIsValidAddress(void* handle, const _SDICADDRESS* address, uint16_t dataType) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_IsValidAddress(address, dataType); });
}

uint32_t SDicGetPictureData(void* handle, const char* tag, char** name, uint16_t* nameLength, char** data,
                            uint32_t* length) {
  return guarded(
      handle, [&](CSDicObject& book) { return book.Fn_GetPictureData(tag, name, nameLength, data, length); });
}

uint32_t SDicGetPictureDataDirect(void* handle, const _SDICADDRESS* address, char** data, uint32_t* length) {
  return guarded(handle,
                 [&](CSDicObject& book) { return book.Fn_GetPictureDataDirect(address, data, length); });
}

uint32_t SDicGetStreamData(void* handle, const char* tag, char** name, uint16_t* nameLength, char** data,
                           uint32_t* length) {
  return guarded(
      handle, [&](CSDicObject& book) { return book.Fn_GetStreamData(tag, name, nameLength, data, length); });
}

uint32_t SDicReadData(void* handle, const _SDICADDRESS* address, uint32_t size, char** bytes) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_ReadData(address, size, bytes); });
}

uint32_t SDicGetMenuData(void* handle, const _SDICADDRESS* address, char** bytes, uint32_t* length,
                         bool* more) {
  return guarded(handle,
                 [&](CSDicObject& book) { return book.Fn_GetMenuData(address, bytes, length, more); });
}

uint32_t SDicGetColorMenuData(void* handle, const _SDICADDRESS* address, char** bytes, uint32_t* length) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetColorMenuData(address, bytes, length); });
}

uint32_t SDicGetPublisherInfo(void* handle, char** info, uint32_t* length) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetPublisherInfo(info, length); });
}

int32_t SDicGetPublisherVersion(void* handle) {
  return handle ? bookOf(handle)->Fn_GetPublisherVersion() : 0;
}

uint32_t SDicGetContentType(void* handle, uint32_t* type) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetContentType(type); });
}

uint32_t SDicGetDataSpecVersion(void* handle, uint32_t* high, uint32_t* low) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_GetDataSpecVersion(high, low); });
}

uint32_t SDicTruncateHeadword(void* handle, const char* text, char** out, uint32_t characters) {
  return guarded(handle, [&](CSDicObject& book) { return book.Fn_TruncateHeadword(text, out, characters); });
}

const char* SDicGetDicName(void* handle) {
  return handle ? bookOf(handle)->Fn_GetDicName() : nullptr;
}

uint32_t SDicGetDicID(void* handle) {
  return handle ? bookOf(handle)->Fn_GetDicID() : 0;
}

uint32_t SDicGetMovieFileName(void* handle, const char* tag, char** file, uint32_t* fileLength, char** title,
                              uint32_t* titleLength, uint32_t numbers[4]) {
  return guarded(handle, [&](CSDicObject& book) {
    return book.Fn_GetMovieFileName(tag, file, fileLength, title, titleLength, numbers);
  });
}

uint32_t SDicSetKillCompare(void* handle, bool kill) {
  if (!handle) return kInvalidArgument;
  bookOf(handle)->Fn_KillCompare(kill);
  return kDone;
}

uint32_t SDicGetDicIconInformation(const char* path, char** large, char** small) {
  if (large) *large = iconOf(path, true);
  if (small) *small = iconOf(path, false);
  if ((!large || *large) && (!small || *small)) return kDone;
  if (large) std::free(std::exchange(*large, nullptr));
  if (small) std::free(std::exchange(*small, nullptr));
  return kNoIcon;
}

uint16_t GFn_Swap(uint16_t value) {
  return zavel::foundation::GFn_Swap(value);
}

uint32_t GFn_Swap2(uint32_t value) {
  return zavel::foundation::GFn_Swap2(value);
}

uint16_t GFn_BCD2WORD(const uint8_t* bcd, unsigned long bytes) {
  return bcd ? zavel::foundation::GFn_BCD2WORD(bcd, bytes) : uint16_t{0};
}

uint32_t GFn_BCD2DWORD(const uint8_t* bcd, unsigned long bytes) {
  return bcd ? zavel::foundation::GFn_BCD2DWORD(bcd, bytes) : 0;
}
