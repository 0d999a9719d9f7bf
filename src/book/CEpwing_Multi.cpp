// Multi searches: their definitions and their lists of fixed choices. Tests: tests/book/MultiSearchTest.cpp
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "book/Address.h"
#include "book/CEpwing.h"
#include "book/OutBuffer.h"
#include "foundation/Bcd.h"
#include "foundation/ByteReader.h"
#include "foundation/KanjiConversion.h"

namespace zavel::book {
namespace {

constexpr size_t kDefinitionHeader = 16;
constexpr size_t kLabel = 30;
constexpr size_t kEntryHeader = 2 + kLabel;
constexpr size_t kSubEntry = 16;
constexpr size_t kSubEntryStart = 2;
constexpr size_t kSubEntryBlocks = 6;
constexpr size_t kSubEntryFlag = 10;
constexpr uint16_t kKindChoices = 1;

// "複合検索%d" in EUC-JP, as the names of multi searches are.
constexpr const char* kDefaultName = "\xCA\xA3\xB9\xE7\xB8\xA1\xBA\xF7%d";

// Entries and sub-entries of all definitions. They come from the book: what has more has none.
constexpr size_t kMostRecords = 65536;

// Definitions: each has its name looked for in the publisher's file.
constexpr uint16_t kMostForms = 1024;

constexpr int kDeepestChoice = 64;
constexpr int kMostChoices = 65536;
constexpr int kLongestChoice = 4096;  // bytes up to the tag that ends its name

}  // namespace

// Reads one list of choices with all below it.
class CEpwing::ChoiceReader {
 public:
  explicit ChoiceReader(CEpwing* book) : book_(book) {}

  BookStatus readLevel(_SDICADDRESS at, _SDICMULTIREFLIST* node) {
    if (node->level > kDeepestChoice) return kBroken;
    for (;;) {
      _SDICADDRESS child{};
      if (const BookStatus status = readName(&at, node)) return status;
      if (const BookStatus status = readChild(&at, &child)) return status;
      if ((child.block != 0 || child.offset != 0) && !makeNode(node->level + 1, 0, &node->child))
        return refused_;
      if (node->child) {
        if (const BookStatus status = readLevel(child, node->child)) return status;
      }
      uint16_t word;
      if (!book_->readWord(at, &word)) return kReadFailed;
      if (word == kTagEnd) return kDone;
      if (!makeNode(node->level, node->position + 1, &node->next)) return refused_;
      node = node->next;
    }
  }

 private:
  // Up to the tag behind the name.
  BookStatus readName(_SDICADDRESS* at, _SDICMULTIREFLIST* node) {
    bool opened = false;
    size_t length = 0;
    for (int passed = 0; passed < kLongestChoice; passed += 2) {
      uint16_t word;
      if (!book_->readWord(*at, &word)) return kReadFailed;
      *at = further(*at, 2);
      if (word == kTagBegin) continue;
      if (opened == (word == kTagMenuItem)) return kBroken;
      opened = true;
      if (word == kTagMenuItemEnd) return kDone;
      if (word == kTagMenuItem || length + 2 >= sizeof node->name) continue;
      node->name[length++] = static_cast<char>(word >> 8);
      node->name[length++] = static_cast<char>(word);
    }
    return kBroken;
  }

  BookStatus readChild(_SDICADDRESS* at, _SDICADDRESS* child) {
    uint8_t bytes[6];
    if (!book_->Fp_ReadBook(at, sizeof bytes, bytes)) return kReadFailed;
    *child = {foundation::GFnBCD2DWORD(bytes, 4), foundation::GFnBCD2WORD(bytes + 4, 2)};
    *at = further(*at, sizeof bytes);
    return kDone;
  }

  bool makeNode(int level, int position, _SDICMULTIREFLIST** node) {
    refused_ = kBroken;
    if (++nodes_ > kMostChoices) return false;
    refused_ = kOutOfMemory;
    *node = new (std::nothrow) _SDICMULTIREFLIST{};
    if (!*node) return false;
    (*node)->level = static_cast<uint16_t>(level);
    (*node)->position = static_cast<uint16_t>(position);
    return true;
  }

  CEpwing* book_;  // borrowed
  int nodes_ = 0;
  BookStatus refused_ = kBroken;
};

void CEpwing::Fp_AddMultiSearch(const _EPBOOKCONTROLENTRY& entry) {
  if (m_multiCount >= kMostForms) return;
  auto block = std::make_unique<_EPMULTISEARCHBLOCK>();
  block->index = static_cast<int16_t>(m_multiCount);
  if (!readMultiSearch(entry.start, block.get())) return;
  Fp_ConstructMultiSearchName(block.get());
  if (foundation::avlt_add(&m_multiTree, block.get(), Fp_CompareMultiBlockIdx) == foundation::kAvltAdded)
    block.release();
  m_multiCount = static_cast<uint16_t>(foundation::avlt_renumber(m_multiTree) + 1);
}

bool CEpwing::readMultiSearch(uint32_t start, _EPMULTISEARCHBLOCK* block) {
  _SDICADDRESS at = {start, 0};
  uint8_t count[2];
  if (!Fp_ReadBook(&at, sizeof count, count)) return false;
  at = further(at, kDefinitionHeader);
  for (size_t left = readBE16(count); left > 0; --left) {
    if (!readMultiEntry(&at, &block->entries.emplace_back())) return false;
  }
  return true;
}

bool CEpwing::readMultiEntry(_SDICADDRESS* at, _EPMULTISEARCHENTRY* entry) {
  uint8_t header[kEntryHeader];
  if (++m_multiRecords > kMostRecords || !Fp_ReadBook(at, sizeof header, header)) return false;
  *at = further(*at, sizeof header);
  foundation::GFnConvJIS2EUC(entry->label, reinterpret_cast<const char*>(header + 2), kLabel);
  for (size_t left = header[0]; left > 0; --left) {
    uint8_t bytes[kSubEntry];
    if (++m_multiRecords > kMostRecords || !Fp_ReadBook(at, sizeof bytes, bytes)) return false;
    *at = further(*at, sizeof bytes);
    _EPBOOKCONTROLENTRY sub;
    sub.kind = bytes[0];
    sub.flag0 = bytes[kSubEntryFlag];
    sub.start = readBE32(bytes + kSubEntryStart);
    sub.end = sub.start + readBE32(bytes + kSubEntryBlocks) - 1;
    entry->hasReference = entry->hasReference || sub.kind == kKindChoices;
    entry->subEntries.push_back(sub);
  }
  return true;
}

void CEpwing::Fp_ConstructMultiSearchName(_EPMULTISEARCHBLOCK* block) {
  std::snprintf(block->name, sizeof block->name, kDefaultName, block->index + 1);
}

_EPMULTISEARCHBLOCK* CEpwing::multiBlock(int16_t number) const {
  const auto* const node = foundation::avlt_find(m_multiTree, &number, Fp_CompareMultiBlockNumber);
  return node ? static_cast<_EPMULTISEARCHBLOCK*>(node->item) : nullptr;
}

// kept: the test is by size, so that menus and any word method let a book through (docs/quirks.md)
BookStatus CEpwing::mayAskMulti() const {
  if (!m_bOpened) return kNotOpen;
  return m_methods < kMethodMulti ? kNotAvailable : kDone;
}

BookStatus CEpwing::multiEntry(uint16_t block, uint8_t entry, _EPMULTISEARCHENTRY** found) const {
  if (const BookStatus status = mayAskMulti()) return status;
  _EPMULTISEARCHBLOCK* const multi = block < m_multiCount ? multiBlock(static_cast<int16_t>(block)) : nullptr;
  if (!multi || entry >= multi->entries.size()) return kInvalidArgument;
  *found = &multi->entries[entry];
  return kDone;
}

BookStatus CEpwing::Fn_GetMultiSearchCount(uint16_t* count) {
  if (!count) return kInvalidArgument;
  if (const BookStatus status = mayAskMulti()) return status;
  *count = m_multiCount;
  return kDone;
}

BookStatus CEpwing::Fn_GetMultiSearchName(uint16_t block, char** name) {
  if (!name) return kInvalidArgument;
  if (const BookStatus status = mayAskMulti()) return status;
  const _EPMULTISEARCHBLOCK* const multi =
      block < m_multiCount ? multiBlock(static_cast<int16_t>(block)) : nullptr;
  if (!multi) return kInvalidArgument;
  *name = copyOut(multi->name);
  return *name ? kDone : kOutOfMemory;
}

// A form of over 255 entries shows the first 255: the count has no room for more.
BookStatus CEpwing::Fn_GetMultiSearchEntryCount(uint16_t block, uint8_t* count) {
  if (!count) return kInvalidArgument;
  if (const BookStatus status = mayAskMulti()) return status;
  const _EPMULTISEARCHBLOCK* const multi =
      block < m_multiCount ? multiBlock(static_cast<int16_t>(block)) : nullptr;
  if (!multi) return kInvalidArgument;
  *count = static_cast<uint8_t>(multi->entries.size() > 255 ? 255 : multi->entries.size());
  return kDone;
}

BookStatus CEpwing::Fn_GetMultiSearchEntryInfo(uint16_t block, uint8_t entry, char** label, bool* hasList) {
  if (!label || !hasList) return kInvalidArgument;
  _EPMULTISEARCHENTRY* found = nullptr;
  if (const BookStatus status = multiEntry(block, entry, &found)) return status;
  *label = copyOut(found->label);
  if (!*label) return kOutOfMemory;
  *hasList = found->hasReference;
  return kDone;
}

BookStatus CEpwing::Fn_GetMultiSearchReferenceList(uint16_t block, uint8_t entry, _SDICMULTIREFLIST** list) {
  if (!list) return kInvalidArgument;
  _EPMULTISEARCHENTRY* found = nullptr;
  if (const BookStatus status = multiEntry(block, entry, &found)) return status;
  if (!found->hasReference) return kNoInformation;
  if (!found->list) {
    if (const BookStatus status = makeReferenceList(found)) return status;
  }
  *list = found->list;
  return kDone;
}

BookStatus CEpwing::makeReferenceList(_EPMULTISEARCHENTRY* entry) {
  uint32_t start = 0;
  for (const _EPBOOKCONTROLENTRY& sub : entry->subEntries) {
    if (sub.kind == kKindChoices) {
      start = sub.start;
      break;
    }
  }
  if (start == 0) return kBroken;
  auto* const root = new (std::nothrow) _SDICMULTIREFLIST{};
  if (!root) return kOutOfMemory;
  if (const BookStatus status = Fp_MakeRefTable({start, 0}, root)) {
    Fp_FreeRefTable(root);
    return status;
  }
  entry->list = root;
  return kDone;
}

BookStatus CEpwing::Fp_MakeRefTable(const _SDICADDRESS& address, _SDICMULTIREFLIST* node) {
  return ChoiceReader(this).readLevel(address, node);
}

}  // namespace zavel::book
