// Constants of the book format, described in docs/book-format.md. All numbers in books are big-endian.
#ifndef BOOK_BOOKFORMAT_H
#define BOOK_BOOKFORMAT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zavel::book {

inline constexpr size_t kBlock = 2048;
inline constexpr unsigned kBlockShift = 11;
inline constexpr size_t kBlockMask = kBlock - 1;
inline constexpr size_t kSetBlocks = 16;
inline constexpr size_t kSet = kBlock * kSetBlocks;

// Catalog file: header.
inline constexpr std::string_view kMagic = "HWEDINFO";
inline constexpr size_t kHeader = 128;
inline constexpr size_t kHeaderVersion = 8;
inline constexpr size_t kHeaderTitleLength = 12;
inline constexpr size_t kHeaderTitle = 13;
inline constexpr size_t kHeaderRecords = 76;
inline constexpr size_t kHeaderContentType = 78;
inline constexpr size_t kHeaderMinorVersion = 79;
inline constexpr size_t kHeaderLargeIcon = 80;  // offset, then size
inline constexpr size_t kHeaderSmallIcon = 88;  // offset, then size
inline constexpr size_t kHeaderIdentity = 96;
inline constexpr size_t kHeaderZenbun = 100;  // bit 0 clear: the whole text can be read through

// Catalog file: records.
inline constexpr size_t kRecord = 48;
inline constexpr size_t kRecordKind = 2;
inline constexpr size_t kRecordStart = 4;
inline constexpr size_t kRecordEnd = 8;
inline constexpr size_t kRecordFlags = 12;
inline constexpr size_t kRecordNameLength = 16;
inline constexpr size_t kRecordName = 17;
inline constexpr size_t kLongestName = kRecord - kRecordName;

// Region files: block sets.
inline constexpr size_t kSetTable = 64;  // 4 bytes a set
inline constexpr size_t kSetHeader = 5;  // code count, fill byte
inline constexpr size_t kCode = 3;       // bytes
inline constexpr size_t kWindow = 4080;  // bytes of fill ahead of a set's first byte
inline constexpr size_t kLongestMatch = 15;

// Kinds of regions, mostly told by the low byte.
inline constexpr uint16_t kKindHonbun = 0x00;
inline constexpr uint16_t kKindMenu = 0x01;
inline constexpr uint16_t kKindColorMenu = 0x10;
inline constexpr uint16_t kKindMenuToo = 0x20;
inline constexpr uint16_t kKindExactKana = 0x30;
inline constexpr uint16_t kKindExactAlphabetic = 0x40;
inline constexpr uint16_t kKindWordOnly1 = 0x50;  // counts as word index, is never searched
inline constexpr uint16_t kKindExact = 0x60;
inline constexpr uint16_t kKindBackwardKana = 0x70;
inline constexpr uint16_t kKindBackward = 0x71;
inline constexpr uint16_t kKindBackwardAlphabetic = 0x72;
inline constexpr uint16_t kKindKeyword = 0x80;
inline constexpr uint16_t kKindCross = 0x81;
inline constexpr uint16_t kKindForwardKana = 0x90;
inline constexpr uint16_t kKindForward = 0x91;
inline constexpr uint16_t kKindForwardAlphabetic = 0x92;
inline constexpr uint16_t kKindWordOnly2 = 0xA0;
inline constexpr uint16_t kKindGrouped = 0xA1;  // in multi searches
inline constexpr uint16_t kKindDirect1 = 0xB0;  // in multi searches
inline constexpr uint16_t kKindDirect2 = 0xB1;
inline constexpr uint16_t kKindMonoPictures = 0xD0;
inline constexpr uint16_t kKindColorPictures = 0xD2;
inline constexpr uint16_t kKindSound = 0xD8;
inline constexpr uint16_t kKindData4 = 0xD9;  // what data type 4 of an address needs
inline constexpr uint16_t kKindFirstFont = 0xF1;
inline constexpr uint16_t kKindHalfWidthFont = 0xF2;
inline constexpr uint16_t kKindLastFont = 0xF8;
inline constexpr uint16_t kKindMultiSearch = 0xFF;

constexpr uint8_t lowByte(uint16_t kind) {
  return static_cast<uint8_t>(kind);
}
constexpr uint8_t highByte(uint16_t kind) {
  return static_cast<uint8_t>(kind >> 8);
}

// Bits of what a book can be asked for.
enum Method : uint32_t {
  kMethodExact = 0x1,
  kMethodForward = 0x2,
  kMethodBackward = 0x4,
  kMethodCross = 0x20,
  kMethodKeyword = 0x40,
  kMethodMulti = 0x80,
  kMethodMenu = 0x100,
  kMethodColorMenu = 0x200,
  kMethodWord = 0x800,  // there is one of the above for words
};

// Index blocks.
inline constexpr size_t kIndexHeader = 4;
inline constexpr uint8_t kIndexLeaf = 0x80;
inline constexpr uint8_t kIndexLast = 0x20;  // the last block of its level
inline constexpr uint8_t kIndexGroups = 0x10;
inline constexpr uint8_t kGroupHead = 0x80;
inline constexpr uint8_t kGroupMember = 0xC0;
inline constexpr uint8_t kGroupSingle = 0x00;
inline constexpr size_t kShortTrailer = 6;  // body address
inline constexpr size_t kLongTrailer = 12;  // body address, headword address

// Two-byte codes of queries (JIS X 0208).
inline constexpr uint16_t kTokenExact = 0x2221;     // ◆
inline constexpr uint16_t kTokenForward = 0x2222;   // □
inline constexpr uint16_t kTokenBackward = 0x2223;  // ■
inline constexpr uint16_t kTokenCross = 0x2224;     // △
inline constexpr uint16_t kTokenKeyword = 0x2225;   // ▲
inline constexpr uint16_t kTokenMulti = 0x2226;     // ▽, then the number of a multi search
inline constexpr uint16_t kTokenField = 0x2227;     // ▼, then the number of one of its entries
inline constexpr uint16_t kTokenOpen = 0x223E;      // ⊂
inline constexpr uint16_t kTokenClose = 0x223F;     // ⊃
inline constexpr uint16_t kTokenAnd = 0x217E;       // ◇
inline constexpr uint16_t kTokenOr = 0x2822;        // │
inline constexpr uint16_t kTokenZero = 0x2330;      // ０: numbers count from it

// Words of text: a character at kFirstCharacter and above, else a tag.
inline constexpr uint16_t kFirstCharacter = 0x2121;
inline constexpr uint16_t kFullWidthBlank = 0x2121;
inline constexpr uint16_t kLongVowelMark = 0x213C;   // ー
inline constexpr uint16_t kOpeningBracket = 0x215A;  // 【

enum Tag : uint16_t {
  kTagBegin = 0x1F02,
  kTagEnd = 0x1F03,
  kTagHalfOn = 0x1F04,
  kTagHalfOff = 0x1F05,
  kTagSubOn = 0x1F06,
  kTagSubOff = 0x1F07,
  kTagIndent = 0x1F09,
  kTagLineFeed = 0x1F0A,
  kTagUnicodeOn = 0x1F0B,
  kTagUnicodeOff = 0x1F0C,
  kTagSuperOn = 0x1F0E,
  kTagSuperOff = 0x1F0F,
  kTagEmphasisOn = 0x1F12,
  kTagEmphasisOff = 0x1F13,
  kTagMovie = 0x1F39,
  kTagColorPictureInText = 0x1F3C,
  kTagKeyword = 0x1F41,
  kTagReference = 0x1F42,
  kTagMenuItem = 0x1F43,
  kTagMonoPicture = 0x1F44,
  kTagSound = 0x1F4A,
  kTagColorPicture = 0x1F4D,
  kTagMovieToo = 0x1F4F,
  kTagMovieEnd = 0x1F59,
  kTagColorPictureInTextEnd = 0x1F5C,
  kTagKeywordEnd = 0x1F61,
  kTagReferenceEnd = 0x1F62,
  kTagMenuItemEnd = 0x1F63,
  kTagMonoPictureEnd = 0x1F64,
  kTagSoundEnd = 0x1F6A,
  kTagColorPictureEnd = 0x1F6D,
  kTagStyleOn = 0x1FE0,
  kTagStyleOff = 0x1FE1,
  kTagAuxOn = 0x1FE2,
  kTagAuxOff = 0x1FE3,
};

// Custom character fonts.
inline constexpr size_t kFontFirstCode = 10;
inline constexpr size_t kFontCount = 12;
inline constexpr size_t kFontGlyphs = 2048;
inline constexpr size_t kGlyphGroup = 1024;  // bytes that no glyph crosses
inline constexpr size_t kFontSlots = 8;      // sizes 16, 24, 30, 48; then the same in half width
inline constexpr size_t kHalfWidthSlot = 4;

}  // namespace zavel::book

#endif
