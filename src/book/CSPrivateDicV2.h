// A book in its private compressed form: a catalog file and one file of compressed block sets for each
// region. The only kind of book that is ever made.
#ifndef BOOK_CSPRIVATEDICV2_H
#define BOOK_CSPRIVATEDICV2_H

#include <memory>
#include <string>

#include "book/CEpwing.h"
#include "foundation/Storage.h"

namespace zavel::book {

class CSPrivateDicV2 : public CEpwing {
 public:
  ~CSPrivateDicV2() override;

  BookStatus Fn_OpenDictionary(const char* path, const char* altDir, bool keepMissingSound,
                               bool skipHonbunCheck) override;
  BookStatus Fn_GetHonbunBlockInformation(uint32_t* start, uint32_t* end) override;
  BookStatus Fn_IsValidAddress(const _SDICADDRESS* address, uint16_t dataType) override;
  bool Fp_CacheData(uint32_t block, int slot) override;
  void Fp_ConstructMultiSearchName(_EPMULTISEARCHBLOCK* block) override;

 protected:
  bool holds(const _SDICADDRESS& address, uint64_t size) const override;

 private:
  struct Record;

  void Fp_DeleteAddrMapInfo();
  BookStatus readCatalog(StorageFile& file, bool keepMissingSound);
  void readHeader(const uint8_t* header);
  bool keepRecord(const Record& record, bool keepMissingSound);
  void keepFont(const Record& record);
  void addRegion(const Record& record);
  void readPublisher();
  const _SDIC_ADDRMAPINFO_V2* regionOf(uint32_t block) const;
  std::unique_ptr<StorageFile> openRegion(const _SDIC_ADDRMAPINFO_V2& region) const;

  foundation::_avltree* m_addrMap = nullptr;  // of _SDIC_ADDRMAPINFO_V2, owned
  bool m_bAltDir = false;
  std::string m_altDir;  // where sounds may be that the book's own folder hasn't
};

}  // namespace zavel::book

#endif
