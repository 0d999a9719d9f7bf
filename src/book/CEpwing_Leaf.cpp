// The scan of an index's leaves. States: 0 the next block, 1 its header, 2 fixed records, 3 records with a
// length, 4 groups, 5 groups of keyword and cross indexes, 6 an index that is one address, 7 the end, 8
// groups of multi searches. Every length comes from the book, so that each record is checked against its
// block. Tests: tests/book/IndexTest.cpp
#include "book/Address.h"
#include "book/CEpwing.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

constexpr uint16_t kDigitZero = 0x2330;
constexpr uint16_t kDigitsEnd = 0x233B;
constexpr size_t kAddress = 6;
constexpr uint32_t kLongestHeading = 64u
                                     << 10;  // bytes; a list without line feeds would be walked to its end

_SDICADDRESS addressAt(const uint8_t* bytes) {
  return {readBE32(bytes), readBE16(bytes + 4)};
}

bool isKeywordKind(uint16_t kind) {
  return lowByte(kind) == kKindKeyword || lowByte(kind) == kKindCross;
}

bool hasLongTrailer(uint16_t kind) {
  switch (lowByte(kind)) {
    case kKindBackward:
    case kKindBackwardAlphabetic:
    case kKindForward:
    case kKindForwardAlphabetic:
    case kKindWordOnly2:
      return true;
    default:
      return false;
  }
}

bool hasLongTrailerInGroups(uint16_t kind) {
  return lowByte(kind) == kKindForwardKana || lowByte(kind) == kKindBackwardKana;
}

}  // namespace

int CEpwing::Fp_SearchBottomLevel(_SDICITEMADDRESS* hit) {
  m_bIsAlreadyEqual = false;
  for (;;) {
    switch (m_scanState) {
      case 0:
        if ((m_blockFlags & kIndexLast) != 0 || !readNextLeaf()) return 0;
        m_scanState = 1;
        break;
      case 1:
        if (!parseLeaf()) return 0;
        break;
      case 6:
        return scanDirect(hit);
      case 7:
        return 0;
      default:
        if (m_entryCount > 0) return m_scanState < 4 ? scanPlain(hit) : scanTagged(hit);
        m_scanState = 0;
    }
  }
}

bool CEpwing::readNextLeaf() {
  return Fp_ReadBlock(m_nextBlock++, 0);
}

bool CEpwing::parseLeaf() {
  const uint8_t* const block = m_blockPtr[0];
  if ((block[0] & kIndexLeaf) == 0) return false;
  m_blockFlags = block[0];
  m_keyLength = block[1];
  m_entryCount = readBE16(block + 2);
  m_cursor = kIndexHeader;
  nPtrLen = kShortTrailer;
  if (m_keyLength > 0) {
    m_scanState = 2;
  } else if ((m_blockFlags & kIndexGroups) == 0) {
    if (hasLongTrailer(m_index.kind)) nPtrLen = kLongTrailer;
    m_scanState = 3;
  } else if (isKeywordKind(m_index.kind)) {
    m_scanState = 5;
  } else if (lowByte(m_index.kind) == kKindGrouped) {
    m_scanState = 8;
  } else {
    if (hasLongTrailerInGroups(m_index.kind)) nPtrLen = kLongTrailer;
    m_scanState = 4;
  }
  return true;
}

// The record at the cursor: its key of `keyLength` bytes at `keyAt`, then `behind` bytes. Steps past it.
// False when it doesn't lie in the block.
bool CEpwing::takeRecord(size_t keyAt, size_t keyLength, size_t behind, LeafRecord* record) {
  if (m_cursor + keyAt + keyLength + behind > kBlock) return false;
  const uint8_t* const start = m_blockPtr[0] + m_cursor;
  record->key = {reinterpret_cast<const char*>(start + keyAt), keyLength};
  record->behind = start + keyAt + keyLength;
  m_cursor += keyAt + keyLength + behind;
  --m_entryCount;
  return true;
}

int CEpwing::compareWith(const char* key, const LeafRecord& record, uint32_t vowelPass) const {
  return Fp_CompareKey(key, record.key.data(), record.key.size(), vowelPass, kFoldAll);
}

bool CEpwing::goesOn(const LeafRecord& record, uint32_t flags) const {
  return Fp_CompareKey(m_continueKey.data(), record.key.data(), record.key.size(), 0, flags) >= 0;
}

int CEpwing::judge(const char* key, const LeafRecord& record, uint32_t continueFlags) {
  const bool hit = compareWith(key, record, m_vowelPass) == 0;
  return (goesOn(record, continueFlags) ? kScanGoOn : 0) + (hit ? kScanHit : 0);
}

int CEpwing::scanPlain(_SDICITEMADDRESS* hit) {
  LeafRecord record;
  const bool fixed = m_scanState == 2;
  const size_t keyAt = fixed ? 0 : 1;
  if (m_cursor + keyAt > kBlock) return 0;
  const size_t length = fixed ? m_keyLength : m_blockPtr[0][m_cursor];
  if (!takeRecord(keyAt, length, nPtrLen, &record)) return 0;
  hit->body = addressAt(record.behind);
  hit->headword = nPtrLen == kLongTrailer ? addressAt(record.behind + kAddress) : hit->body;
  return judge(m_searchKey.data(), record, kSkipInKey);
}

int CEpwing::scanTagged(_SDICITEMADDRESS* hit) {
  if (m_cursor + 2 > kBlock) return 0;
  switch (m_blockPtr[0][m_cursor]) {
    case kGroupHead:
      return scanHead();
    case kGroupMember:
      return scanMember(hit);
    case kGroupSingle:
      return scanSingle(hit);
    default:
      return 0;
  }
}

int CEpwing::scanHead() {
  LeafRecord record;
  const bool hasHeadings = m_scanState == 5;
  const size_t length = m_blockPtr[0][m_cursor + 1];
  if (!takeRecord(m_scanState == 4 ? 4 : 6, length, hasHeadings ? kAddress : 0, &record)) return 0;
  if (hasHeadings) m_heading = addressAt(record.behind);
  m_groupMiss = compareWith(m_searchKey.data(), record, m_vowelPass);
  return goesOn(record, kSkipInKey) ? kScanGoOn : kScanEndOfGroup;
}

int CEpwing::scanMember(_SDICITEMADDRESS* hit) {
  LeafRecord record;
  const bool named = m_scanState == 4;
  const size_t length = named ? m_blockPtr[0][m_cursor + 1] : 0;
  const size_t behind = named ? nPtrLen : m_scanState == 5 ? kShortTrailer : kLongTrailer;
  if (!takeRecord(named ? 2 : 1, length, behind, &record)) return 0;
  if (m_groupMiss != 0) return kScanGoOn;
  if (named && compareWith(m_rawKey.data(), record, 0) != 0) return kScanGoOn;
  hit->body = addressAt(record.behind);
  if (m_scanState == 5) {
    hit->headword = m_heading;
    return passHeading() ? int{kScanGoOn} + kScanHit : int{kScanEndOfGroup};
  }
  hit->headword = behind == kLongTrailer ? addressAt(record.behind + kAddress) : hit->body;
  return kScanGoOn + kScanHit;
}

// A length of 0 ends the block: the records go on in the next one, whose own header isn't looked at.
int CEpwing::scanSingle(_SDICITEMADDRESS* hit) {
  const size_t length = m_blockPtr[0][m_cursor + 1];
  if (length == 0) {
    if (!readNextLeaf()) return 0;
    m_cursor = kIndexHeader;
    return kScanGoOn;
  }
  LeafRecord record;
  const bool named = m_scanState == 4;
  const size_t behind = named ? nPtrLen : kLongTrailer;
  if (!takeRecord(2, length, behind, &record)) return 0;
  hit->body = addressAt(record.behind);
  hit->headword = behind == kLongTrailer ? addressAt(record.behind + kAddress) : hit->body;
  m_groupMiss = 1;
  // In groups of multi searches nothing is passed over; the key has nothing of that kind any more anyhow.
  return judge(named ? m_searchKey.data() : m_rawKey.data(), record,
               m_scanState == 8 ? 0u : uint32_t{kSkipInKey});
}

// The headwords of a group's members stand one behind the other, each ended by a line feed.
bool CEpwing::passHeading() {
  m_heading = normalised(m_heading);
  for (uint32_t passed = 0; passed < kLongestHeading; passed += 2) {
    uint16_t word;
    if (!readWord(m_heading, &word)) return false;
    if (m_heading.offset > kBlock - 3) {
      ++m_heading.block;
      m_heading.offset = 0;
    } else {
      m_heading.offset += 2;
    }
    if (word == kTagLineFeed) return true;
  }
  return false;
}

// A key that is a number has nothing here; it would be looked for without end.
int CEpwing::scanDirect(_SDICITEMADDRESS* hit) {
  m_scanState = 7;
  const uint16_t first = readBE16(reinterpret_cast<const uint8_t*>(m_searchKey.data()));
  if (first >= kDigitZero && first <= kDigitsEnd) return 0;
  if (!Fp_ReadBlock(m_nextBlock, 0)) return 0;
  hit->body = addressAt(m_blockPtr[0]);
  return kScanHit;
}

}  // namespace zavel::book
