// A book, by what every kind of it can be asked. Operations give a BookStatus unless said otherwise; what
// each does is told with the function of the exported interface that leads to it (book/SDic.h).
//
// The order of the virtual operations is fixed: hosts reach them by their place.
#ifndef BOOK_CSDICOBJECT_H
#define BOOK_CSDICOBJECT_H

#include <cstdint>
#include <string>

#include "book/BookStatus.h"
#include "book/BookTypes.h"
#include "foundation/AvlTree.h"

namespace zavel::book {

struct _EPMULTISEARCHBLOCK;

// Out-buffers are allocated with malloc() and belong to the caller. Texts and bodies have at least 64 zero
// bytes behind them, so that a tag which the text's end cuts off can still be read.
class CSDicObject {
 public:
  CSDicObject() = default;
  virtual ~CSDicObject() = default;
  CSDicObject(const CSDicObject&) = delete;
  CSDicObject& operator=(const CSDicObject&) = delete;

  virtual BookStatus Fn_OpenDictionary(const char* path, const char* altDir, bool keepMissingSound,
                                       bool skipHonbunCheck) = 0;
  virtual BookStatus Fn_GetHonbunBlockInformation(uint32_t* start, uint32_t* end) = 0;
  virtual bool Fn_IsZenbunSearch() { return m_bZenbun; }
  virtual BookStatus Fn_GetMultiSearchCount(uint16_t* count) = 0;
  virtual BookStatus Fn_GetMultiSearchName(uint16_t block, char** name) = 0;
  virtual BookStatus Fn_GetMultiSearchEntryCount(uint16_t block, uint8_t* count) = 0;
  virtual BookStatus Fn_GetMultiSearchEntryInfo(uint16_t block, uint8_t entry, char** label,
                                                bool* hasList) = 0;
  virtual BookStatus Fn_GetMultiSearchReferenceList(uint16_t block, uint8_t entry,
                                                    _SDICMULTIREFLIST** list) = 0;
  virtual BookStatus Fn_ExecIndexSearch(const char* query, bool ignored, bool keep, long* count,
                                        long* first) = 0;
  virtual BookStatus Fn_GetSearchResult(unsigned long number, _SDICITEMADDRESS* hit) = 0;
  virtual BookStatus Fn_GetHeadword(const _SDICADDRESS* address, char** text, uint16_t* length,
                                    bool plain) = 0;
  virtual BookStatus Fn_GetBodyData(const _SDICADDRESS* address, char** bytes, uint32_t* length) = 0;
  virtual BookStatus Fn_GetPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) = 0;
  virtual BookStatus Fn_GetNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) = 0;
  virtual BookStatus Fn_GetZenbunPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) = 0;
  virtual BookStatus Fn_GetZenbunNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) = 0;
  virtual uint16_t Fp_CustomCharCodeNumber(bool full) = 0;
  virtual uint16_t Fp_StartCharCodeNumber(bool full) = 0;
  virtual int Fp_CustomCharCodeToIndex(bool full, uint16_t code) = 0;
  virtual BookStatus Fn_GetCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char** bitmap) = 0;
  virtual BookStatus Fn_GetRawCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char* buffer,
                                                    uint16_t* length) = 0;
  virtual BookStatus Fn_IsValidAddress(const _SDICADDRESS* address, uint16_t dataType) = 0;
  virtual BookStatus Fn_GetPictureData(const char* tag, char** name, uint16_t* nameLength, char** data,
                                       uint32_t* length) = 0;
  virtual BookStatus Fn_GetPictureDataDirect(const _SDICADDRESS* address, char** data, uint32_t* length) = 0;
  virtual BookStatus Fn_GetStreamData(const char* tag, char** name, uint16_t* nameLength, char** data,
                                      uint32_t* length) = 0;
  virtual BookStatus Fn_ReadData(const _SDICADDRESS* address, uint32_t size, char** bytes) = 0;
  virtual BookStatus Fn_GetMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length,
                                    bool* more) = 0;
  virtual BookStatus Fn_GetColorMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length) = 0;
  virtual BookStatus Fn_GetDataSpecVersion(uint32_t* high, uint32_t* low) = 0;
  virtual BookStatus Fn_GetContentType(uint32_t* type) = 0;
  virtual BookStatus Fn_GetPublisherInfo(char** info, uint32_t* length) = 0;
  virtual int32_t Fn_GetPublisherVersion() = 0;
  virtual BookStatus Fn_TruncateHeadword(const char* text, char** out, uint32_t characters) = 0;
  virtual const char* Fn_GetDicName() { return m_dicName.c_str(); }
  virtual uint32_t Fn_GetDicID() { return m_dicID; }
  virtual BookStatus Fn_GetMovieFileName(const char* tag, char** file, uint32_t* fileLength, char** title,
                                         uint32_t* titleLength, uint32_t numbers[4]) = 0;
  virtual void Fn_KillCompare(bool kill) = 0;
  virtual BookStatus Fp_SearchSingleKey(const char* key, foundation::_avltree** tree,
                                        _SDICITEMADDRESS* firstHit) = 0;
  virtual bool Fp_ReadGaijiFile(int slot, uint64_t offset, uint32_t size, uint8_t* buffer) = 0;
  virtual bool Fp_CacheData(uint32_t block, int slot) = 0;
  virtual void Fp_ConstructMultiSearchName(_EPMULTISEARCHBLOCK* block) = 0;

  BookStatus Fn_GetAvailableMethods(uint32_t* methods) const;

  bool isOpen() const { return m_bOpened; }

 protected:
  bool m_bOpened = false;  // set at a successful open alone
  std::string m_dicName;   // Shift_JIS
  uint32_t m_dicID = 0;
  uint32_t m_methodCount = 0;
  uint32_t m_methods = 0;  // Method bits
  bool m_bZenbun = false;
};

}  // namespace zavel::book

#endif
