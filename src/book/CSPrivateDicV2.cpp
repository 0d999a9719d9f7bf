// Tests: tests/book/OpenTest.cpp, tests/book/BlockTest.cpp
#include "book/CSPrivateDicV2.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "book/BlockSet.h"
#include "foundation/ByteReader.h"
#include "foundation/IniFile.h"
#include "foundation/Storage.h"

namespace zavel::book {
namespace {

constexpr const char* kInfoFile = "EXINFO.INI";
constexpr const char* kInfoSection = "GENERAL";
constexpr size_t kInfoText = 256;
constexpr int64_t kLargestInfo = 64 << 10;  // it is read once for each form of the book

// Two books whose catalogs name them wrongly. Titles are Shift_JIS.
constexpr uint32_t kRetitledBook = 0x59;
constexpr const char* kTitleOf59 =
    "\x83\x57\x81\x5B\x83\x6A\x83\x41\x83\x58\x89\x70\x98\x61\x81\x69\x91\xE6\x82\x52\x94\xC5\x81\x6A\x81\x45"
    "\x98"
    "\x61\x89\x70\x8E\xAB\x93\x54";
constexpr uint32_t kSharedIdentity = 0x67;
constexpr uint32_t kIdentityOfTitle = 0x5E;
constexpr std::string_view kTitleOf5E =
    "\x93\xEC\x8E\x52\x93\xB0\x88\xE3\x8A\x77\x89\x70\x98\x61\x91\xE5\x8E\xAB\x93\x54\x81\x40\x91\xE6\x31\x32"
    "\x94"
    "\xC5";

// Below this data version a minor version of 0 was meant as 2.
constexpr uint32_t kFirstHonestVersion = 0x20001;
constexpr uint32_t kMinorVersionBefore = 2;

BookStatus openError() {
  return kSystemError | static_cast<uint32_t>(errno != 0 ? errno : EIO);
}

// The catalog names files below its folder, and nothing else may be opened for it.
bool staysBelow(std::string_view name) {
  while (!name.empty()) {
    const size_t end = std::min(name.find('/'), name.size());
    if (name.substr(0, end) == "..") return false;
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return true;
}

std::unique_ptr<StorageFile> openFile(const std::string& folder, const std::string& name) {
  return storage().open(folder + "/" + name, OpenMode::kRead);
}

// One value of the publisher's file, cut to the buffer. False when it isn't told.
bool readInfo(const std::string& folder, const char* key, char* out, size_t size) {
  out[0] = '\0';
  const std::unique_ptr<StorageFile> file = openFile(folder, kInfoFile);
  const int64_t length = file ? file->size() : -1;
  if (length < 0 || length > kLargestInfo) return false;
  const std::string path = folder + "/" + kInfoFile;
  return foundation::ECGetString(kInfoSection, key, nullptr, out, size, path.c_str()) == 0;
}

// A folder opens and can't be read.
bool canBeOpened(const std::string& folder, const std::string& name) {
  return staysBelow(name) && !storage().isFolder(folder + "/" + name) && openFile(folder, name);
}

void deleteRegion(void* info) {
  delete static_cast<_SDIC_ADDRMAPINFO_V2*>(info);
}

}  // namespace

// One record of the catalog.
struct CSPrivateDicV2::Record {
  explicit Record(const uint8_t* bytes)
      : entry{.kind = readBE16(bytes + kRecordKind),
              .flag0 = bytes[kRecordFlags],
              .flag1 = bytes[kRecordFlags + 1],
              .flag2 = bytes[kRecordFlags + 2],
              .flag3 = bytes[kRecordFlags + 3],
              .reserved = {},
              .start = readBE32(bytes + kRecordStart),
              .end = readBE32(bytes + kRecordEnd)},
        name(reinterpret_cast<const char*>(bytes + kRecordName),
             std::min<size_t>(bytes[kRecordNameLength], kLongestName)) {
    name.resize(std::min(name.find('\0'), name.size()));
  }

  bool isFont() const { return entry.kind >= kKindFirstFont && entry.kind <= kKindLastFont; }

  _EPBOOKCONTROLENTRY entry;
  std::string name;
};

CSPrivateDicV2::~CSPrivateDicV2() {
  Fp_DeleteAddrMapInfo();
}

void CSPrivateDicV2::Fp_DeleteAddrMapInfo() {
  foundation::avlt_delete_tree(m_addrMap, deleteRegion);
  m_addrMap = nullptr;
}

// kept: a file that is no book opens with success, and stays closed (docs/quirks.md)
BookStatus CSPrivateDicV2::Fn_OpenDictionary(const char* path, const char* altDir, bool keepMissingSound,
                                             bool skipHonbunCheck) {
  if (!path) return kInvalidArgument;
  const std::string_view whole = path;
  const size_t cut = whole.rfind('/');
  if (cut == std::string_view::npos) return kNoFolder;
  m_bookDir = whole.substr(0, cut);
  m_bAltDir = altDir != nullptr;
  m_altDir = altDir ? altDir : "";
  errno = 0;
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  if (!file) {
    m_bookDir.clear();
    return openError();
  }
  uint8_t header[kHeader];
  if (file->readAt(0, header, kHeader) != static_cast<int64_t>(kHeader)) return kDone;
  if (std::memcmp(header, kMagic.data(), kMagic.size()) != 0) return kDone;
  readHeader(header);
  if (const BookStatus status = readCatalog(*file, keepMissingSound)) return status;
  if (!skipHonbunCheck && m_honbunStart == 0) return kNoHonbun;
  readPublisher();
  Fp_InitAvailableMethodInfo();
  m_bZenbun = (header[kHeaderZenbun] & 1) == 0;
  m_bOpened = true;
  return kDone;
}

void CSPrivateDicV2::readHeader(const uint8_t* header) {
  m_specVersionHigh = readBE32(header + kHeaderVersion);
  m_specVersionLow = header[kHeaderMinorVersion];
  if (m_specVersionHigh < kFirstHonestVersion && m_specVersionLow == 0)
    m_specVersionLow = kMinorVersionBefore;
  m_dicID = readBE32(header + kHeaderIdentity);
  const size_t length = std::min<size_t>(header[kHeaderTitleLength], kHeader - kHeaderTitle);
  m_dicName.assign(reinterpret_cast<const char*>(header + kHeaderTitle), length);
  if (m_dicID == kRetitledBook) m_dicName = kTitleOf59;
  if (m_dicID == kSharedIdentity && m_dicName == kTitleOf5E) m_dicID = kIdentityOfTitle;
  m_catalogCount = readBE16(header + kHeaderRecords);
  m_contentType = header[kHeaderContentType];
}

// Reads as many records as the header says: each one that isn't kept lowers the count.
BookStatus CSPrivateDicV2::readCatalog(StorageFile& file, bool keepMissingSound) {
  uint64_t offset = kHeader;
  for (uint16_t kept = 0; kept < m_catalogCount; offset += kRecord) {
    uint8_t bytes[kRecord];
    if (file.readAt(offset, bytes, kRecord) != static_cast<int64_t>(kRecord)) return kBroken;
    try {
      if (keepRecord(Record(bytes), keepMissingSound)) {
        ++kept;
      } else {
        --m_catalogCount;
      }
    } catch (const std::bad_alloc&) {
      return kReadFailed;
    }
  }
  m_entryTotal = static_cast<uint32_t>(m_entries.size());
  return kDone;
}

bool CSPrivateDicV2::keepRecord(const Record& record, bool keepMissingSound) {
  const bool there = canBeOpened(m_bookDir, record.name);
  const bool mayBeMissing =
      record.entry.kind == kKindSound && staysBelow(record.name) && (m_bAltDir || keepMissingSound);
  if (!there && !mayBeMissing) return false;
  if (record.isFont()) {
    keepFont(record);
    return false;
  }
  if (record.entry.kind == kKindHonbun) {
    m_honbunStart = record.entry.start;
    m_honbunEnd = record.entry.end;
  }
  addRegion(record);
  if (lowByte(record.entry.kind) == kKindMultiSearch) {
    Fp_AddMultiSearch(record.entry);
    return false;
  }
  m_entries.push_back(record.entry);
  return true;
}

void CSPrivateDicV2::keepFont(const Record& record) {
  const int slot = record.entry.kind == kKindHalfWidthFont ? static_cast<int>(kHalfWidthSlot) : 0;
  m_gaijiPresent[slot] = true;
  m_gaijiPath[slot] = m_bookDir + "/" + record.name;
  Fp_InitCustomCharInformation(slot);
}

// Of two regions with the same first block the earlier one is read.
void CSPrivateDicV2::addRegion(const Record& record) {
  auto region = std::make_unique<_SDIC_ADDRMAPINFO_V2>();
  std::memcpy(region->name, record.name.data(), record.name.size());
  region->start = record.entry.start;
  region->end = record.entry.end;
  region->kind = record.entry.kind;
  const int result = foundation::avlt_add(&m_addrMap, region.get(), Fp_CompareAddrMapAdd);
  if (result == foundation::kAvltNoMemory) throw std::bad_alloc();
  if (result == foundation::kAvltAdded) region.release();
}

void CSPrivateDicV2::readPublisher() {
  char text[kInfoText];
  if (readInfo(m_bookDir, "SRCINFO", text, sizeof text)) m_publisherInfo = text;
  if (readInfo(m_bookDir, "SRCVER", text, sizeof text))
    m_publisherVersion = static_cast<int32_t>(std::strtol(text, nullptr, 10));
}

void CSPrivateDicV2::Fp_ConstructMultiSearchName(_EPMULTISEARCHBLOCK* block) {
  char key[16];
  std::snprintf(key, sizeof key, "MUL%XNAME", static_cast<unsigned>(block->index));
  readInfo(m_bookDir, key, block->name, sizeof block->name);
  if (block->name[0] == '\0') CEpwing::Fp_ConstructMultiSearchName(block);
}

BookStatus CSPrivateDicV2::Fn_GetHonbunBlockInformation(uint32_t* start, uint32_t* end) {
  if (!m_bOpened) return kNotOpen;
  if (!start || !end) return kInvalidArgument;
  *start = m_honbunStart;
  *end = m_honbunEnd;
  return kDone;
}

BookStatus CSPrivateDicV2::Fn_IsValidAddress(const _SDICADDRESS* address, uint16_t dataType) {
  if (!m_bOpened) return kNotOpen;
  if (!address) return kInvalidArgument;
  constexpr uint16_t kNeeded[] = {kKindColorPictures, kKindSound, kKindData4};  // for types 2, 3, 4
  constexpr uint16_t kNeverThere = 5;
  if (dataType == kNeverThere) return kInvalidAddress;
  if (dataType >= 2 && dataType <= 4 && !Fp_ExistEntry(kNeeded[dataType - 2])) return kInvalidAddress;
  return regionOf(address->block) ? kDone : kInvalidAddress;
}

const _SDIC_ADDRMAPINFO_V2* CSPrivateDicV2::regionOf(uint32_t block) const {
  const auto* const node = foundation::avlt_find(m_addrMap, &block, Fp_CompareAddrMapFind);
  return node ? static_cast<const _SDIC_ADDRMAPINFO_V2*>(node->item) : nullptr;
}

bool CSPrivateDicV2::holds(const _SDICADDRESS& address, uint64_t size) const {
  const uint64_t first = (uint64_t{address.block} << kBlockShift) + address.offset;
  const uint64_t last = (first + (size > 0 ? size - 1 : 0)) >> kBlockShift;
  for (uint64_t block = first >> kBlockShift; block <= last;) {
    const _SDIC_ADDRMAPINFO_V2* const region =
        block <= UINT32_MAX ? regionOf(static_cast<uint32_t>(block)) : nullptr;
    if (!region) return false;
    block = uint64_t{region->end} + 1;
  }
  return true;
}

std::unique_ptr<StorageFile> CSPrivateDicV2::openRegion(const _SDIC_ADDRMAPINFO_V2& region) const {
  std::unique_ptr<StorageFile> file = openFile(m_bookDir, region.name);
  if (!file && region.kind == kKindSound && m_bAltDir) file = openFile(m_altDir, region.name);
  return file;
}

// A slot whose set can't be read says so by its numbers: those of the set before would vouch for it else.
bool CSPrivateDicV2::Fp_CacheData(uint32_t block, int slot) {
  const _SDIC_ADDRMAPINFO_V2* const region = regionOf(block);
  if (!region) return false;
  const uint32_t inRegion = block - region->start;
  const std::unique_ptr<StorageFile> file = openRegion(*region);
  if (!file || !SFDecodeBlockSet(m_cache[slot].data(), inRegion / kSetBlocks, *file)) {
    m_cache[slot].fill(0);
    m_cacheStart[slot] = m_cacheEnd[slot] = 0;
    return false;
  }
  constexpr uint32_t kInSet = kSetBlocks - 1;
  m_cacheStart[slot] = region->start + (inRegion & ~kInSet);
  const uint64_t last = uint64_t{m_cacheStart[slot]} + kInSet;
  m_cacheEnd[slot] = static_cast<uint32_t>(std::min<uint64_t>(last, region->end));
  return true;
}

}  // namespace zavel::book
