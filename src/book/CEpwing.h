// A book laid out in the EPWING manner: regions of 2048-byte blocks behind a catalog of control entries.
// What stands below reads blocks only through Fp_ReadBlock and Fp_ReadBook.
#ifndef BOOK_CEPWING_H
#define BOOK_CEPWING_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookFormat.h"
#include "book/CSSingleDicObject.h"
#include "book/ControlEntry.h"
#include "book/MultiSearch.h"

namespace zavel::book {

struct BitmapInfo;

class CEpwing : public CSSingleDicObject {
 public:
  ~CEpwing() override;

  BookStatus Fn_GetMultiSearchCount(uint16_t* count) override;
  BookStatus Fn_GetMultiSearchName(uint16_t block, char** name) override;
  BookStatus Fn_GetMultiSearchEntryCount(uint16_t block, uint8_t* count) override;
  BookStatus Fn_GetMultiSearchEntryInfo(uint16_t block, uint8_t entry, char** label, bool* hasList) override;
  BookStatus Fn_GetMultiSearchReferenceList(uint16_t block, uint8_t entry, _SDICMULTIREFLIST** list) override;
  BookStatus Fn_GetHeadword(const _SDICADDRESS* address, char** text, uint16_t* length, bool plain) override;
  BookStatus Fn_GetBodyData(const _SDICADDRESS* address, char** bytes, uint32_t* length) override;
  BookStatus Fn_GetPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) override;
  BookStatus Fn_GetNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) override;
  BookStatus Fn_GetZenbunPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) override;
  BookStatus Fn_GetZenbunNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) override;
  uint16_t Fp_CustomCharCodeNumber(bool full) override;
  uint16_t Fp_StartCharCodeNumber(bool full) override;
  int Fp_CustomCharCodeToIndex(bool full, uint16_t code) override;
  BookStatus Fn_GetCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char** bitmap) override;
  BookStatus Fn_GetRawCustomCharacterBitmap(bool full, uint16_t code, uint16_t size, char* buffer,
                                            uint16_t* length) override;
  BookStatus Fn_GetPictureData(const char* tag, char** name, uint16_t* nameLength, char** data,
                               uint32_t* length) override;
  BookStatus Fn_GetPictureDataDirect(const _SDICADDRESS* address, char** data, uint32_t* length) override;
  BookStatus Fn_GetStreamData(const char* tag, char** name, uint16_t* nameLength, char** data,
                              uint32_t* length) override;
  BookStatus Fn_ReadData(const _SDICADDRESS* address, uint32_t size, char** bytes) override;
  BookStatus Fn_GetMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length, bool* more) override;
  BookStatus Fn_GetColorMenuData(const _SDICADDRESS* address, char** bytes, uint32_t* length) override;
  BookStatus Fn_TruncateHeadword(const char* text, char** out, uint32_t characters) override;
  BookStatus Fn_GetMovieFileName(const char* tag, char** file, uint32_t* fileLength, char** title,
                                 uint32_t* titleLength, uint32_t numbers[4]) override;
  // From another thread too: while `kill` is set every comparison answers "equal", so that a running search
  // comes to its end.
  void Fn_KillCompare(bool kill) override { m_bKill = kill; }
  BookStatus Fp_SearchSingleKey(const char* key, foundation::_avltree** tree,
                                _SDICITEMADDRESS* firstHit) override;
  bool Fp_ReadGaijiFile(int slot, uint64_t offset, uint32_t size, uint8_t* buffer) override;
  void Fp_ConstructMultiSearchName(_EPMULTISEARCHBLOCK* block) override;

  // Copies `length` bytes from `address` on, across blocks. False for a null argument, a negative length and
  // a block that can't be read.
  bool Fp_ReadBook(const _SDICADDRESS* address, int64_t length, void* buffer);

  // Has `block` in cache slot `slot` (0 to 2) and m_blockPtr[slot] point at it; slot 2 gets no pointer.
  bool Fp_ReadBlock(uint32_t block, int slot);

  // Index of the first control entry whose kind has this low byte; -1 for none.
  int Fp_FindBookControlEntry(uint8_t kind) const;
  // Whether there is one of exactly this kind.
  bool Fp_ExistEntry(uint16_t kind) const;

  // A function that may know the body of an entry in book 120 better than the book; null, and never set here.
  // A null `*bytes` after the call means that it doesn't.
  using MeikyoHook = void (*)(const _SDICADDRESS* address, char** bytes, uint32_t* length);
  static MeikyoHook _meikyoBodyData;

 protected:
  // What a leaf of an index says of one record: where its key stands and where it leads.
  struct LeafRecord {
    std::string_view key;
    const uint8_t* behind = nullptr;  // the trailer, or what stands in its place
  };

  enum ScanResult : int { kScanHit = 1, kScanEndOfGroup = 2, kScanGoOn = 4 };
  enum CompareFlag : uint32_t {
    kSkipInKey = 1,
    kSkipInEntry = 2,
    kFoldKana = 4,
    kFoldCase = 8,
    kFoldAll = 15,
  };

  void Fp_FreeIndexInfo();
  void Fp_InitAvailableMethodInfo();
  void addMethod(uint32_t bit);
  void addMethodsOf(uint16_t kind, bool* word);

  // Index search.
  BookStatus Fp_SearchSingleKeySub(const char* key, foundation::_avltree** tree, _SDICITEMADDRESS* firstHit);
  BookStatus searchOnePass(foundation::_avltree** tree, _SDICITEMADDRESS* firstHit);
  BookStatus Fp_InitIndexSearch(const char* key, bool* again);
  BookStatus initFieldSearch(std::string_view key);
  BookStatus initWordSearch(std::string_view key, bool* again);
  BookStatus walkToLeaf();
  BookStatus childFor(const uint8_t* block, uint32_t* child, bool* found);
  bool Fp_SelectKeyIndex(const char* key);
  bool selectFirst(std::initializer_list<uint16_t> kinds);
  void Fp_FormatKeyString(char* out, const char* in, bool keepFirstMark) const;
  void Fp_MakeCheckContinueKey();
  int Fp_CompareKey(const char* key, const char* entry, size_t entryLength, uint32_t vowelPass,
                    uint32_t flags) const;
  static uint32_t Fp_GetKeyToNumber(const char* key);

  int Fp_SearchBottomLevel(_SDICITEMADDRESS* hit);
  bool readNextLeaf();
  bool parseLeaf();
  int scanPlain(_SDICITEMADDRESS* hit);
  int scanTagged(_SDICITEMADDRESS* hit);
  int scanHead();
  int scanMember(_SDICITEMADDRESS* hit);
  int scanSingle(_SDICITEMADDRESS* hit);
  int scanDirect(_SDICITEMADDRESS* hit);
  bool takeRecord(size_t keyAt, size_t keyLength, size_t behind, LeafRecord* record);
  int judge(const char* key, const LeafRecord& record, uint32_t continueFlags);
  int compareWith(const char* key, const LeafRecord& record, uint32_t vowelPass) const;
  bool goesOn(const LeafRecord& record, uint32_t flags) const;
  bool passHeading();

  // Multi search.
  class ChoiceReader;
  void Fp_AddMultiSearch(const _EPBOOKCONTROLENTRY& entry);
  bool readMultiSearch(uint32_t start, _EPMULTISEARCHBLOCK* block);
  bool readMultiEntry(_SDICADDRESS* at, _EPMULTISEARCHENTRY* entry);
  _EPMULTISEARCHBLOCK* multiBlock(int16_t number) const;
  BookStatus multiEntry(uint16_t block, uint8_t entry, _EPMULTISEARCHENTRY** found) const;
  BookStatus mayAskMulti() const;
  BookStatus makeReferenceList(_EPMULTISEARCHENTRY* entry);
  BookStatus Fp_MakeRefTable(const _SDICADDRESS& address, _SDICMULTIREFLIST* node);

  // `size` bytes from `address` into a new out-buffer. Nothing is allocated for more than the book can hold.
  BookStatus readOut(const _SDICADDRESS& address, uint64_t size, char** bytes);
  // Whether every block from `address` on for `size` bytes lies in a region.
  virtual bool holds(const _SDICADDRESS& address, uint64_t size) const = 0;

  // Body, headwords, navigation, menus.
  class BodyWalk;
  class HeadwordWalk;
  class BackwardWalk;
  // Bytes of the entry at `address`, 0 where it can't be read. `mode` matters in books 101 and 102 alone; all
  // callers pass kWalkOfCallers, which agrees with the way back in book 102.
  uint32_t Fp_GetBodyLength(const _SDICADDRESS* address, bool mode);
  static constexpr bool kWalkOfCallers = false;
  BookStatus skipToEntry(_SDICADDRESS at, bool zenbun, _SDICADDRESS* next);
  BookStatus readText(const _SDICADDRESS& address, char** bytes, uint32_t* length);
  bool firstBlockOf(bool (*isOne)(uint16_t kind), _SDICADDRESS* address) const;
  bool readWord(const _SDICADDRESS& address, uint16_t* word);

  // Custom characters.
  struct Glyph;
  BookStatus findGlyph(bool full, uint16_t code, uint16_t size, Glyph* glyph);
  void Fp_InitCustomCharInformation(int slot);

  // Pictures and sounds.
  BookStatus pictureRecord(uint16_t kind, uint16_t number, std::optional<std::string>* record);
  BookStatus monoPicture(const char* tag, char** name, uint16_t* nameLength, char** data, uint32_t* length);
  BookStatus readMonoPicture(const _SDICADDRESS& start, BitmapInfo* info, char** data);
  BookStatus colorPicture(const char* tag, char** name, uint16_t* nameLength, char** data, uint32_t* length);
  BookStatus measureColorData(_SDICADDRESS* at, uint64_t* size);
  BookStatus readSound(const _SDICADDRESS& start, uint64_t length, size_t header, char** data);
  // A new copy of a picture's or sound's name, null for none. `name` and `nameLength` may be null.
  static BookStatus copyName(std::string_view text, char** name, uint16_t* nameLength);

  static bool m_bIsAlreadyEqual;  // an entry of the block compared before was the key's beginning
  static size_t nPtrLen;          // bytes behind a record's key

  uint32_t m_maxBlock = 0;

  // The scan of an index.
  int m_groupMiss = 1;  // 0: the members of this group are of the key
  int m_scanState = 0;
  std::array<char, 258> m_rawKey{};       // behind the method tag, cut at 254 bytes
  std::array<char, 258> m_continueKey{};  // what an entry is compared with to know whether it is behind
  uint8_t m_blockFlags = 0;
  uint8_t m_keyLength = 0;
  uint16_t m_entryCount = 0;            // records left in the block
  size_t m_cursor = 0;                  // of the next record in it
  std::array<char, 258> m_searchKey{};  // as the index wants it
  uint32_t m_nextBlock = 0;
  _EPBOOKCONTROLENTRY m_index;
  _SDICADDRESS m_heading{};  // of the next member, in groups that have their headwords apart

  uint8_t* m_blockPtr[3] = {};
  // Slot 0 is for index walking, 1 for Fp_ReadBook, so that neither drives out the other's set.
  std::array<std::array<uint8_t, kSet>, 3> m_cache{};
  uint32_t m_cacheEnd[3] = {};
  uint32_t m_cacheStart[3] = {};
  size_t m_multiRecords = 0;  // entries and sub-entries read so far, those of dropped definitions as well
  uint16_t m_catalogCount = 0;
  uint32_t m_catalogBlock = 0;
  std::vector<_EPBOOKCONTROLENTRY> m_entries;
  uint32_t m_entryTotal = 0;
  bool m_gaijiPresent[kFontSlots] = {};
  std::string m_gaijiPath[kFontSlots];
  uint16_t m_gaijiStart[kFontSlots] = {};
  uint16_t m_gaijiCount[kFontSlots] = {};
  uint32_t m_honbunStart = 0;
  uint32_t m_honbunEnd = 0;
  std::atomic<bool> m_bKill = false;
};

}  // namespace zavel::book

#endif
