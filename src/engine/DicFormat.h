// The bilingual dictionary's file formats in constants, shared by the engine, the compiler and the tests.
// docs/formats.md has the pictures and the worked example. All integers are little-endian.
#ifndef ENGINE_DICFORMAT_H
#define ENGINE_DICFORMAT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zavel::engine {

// Index types; the number decides the shape of an index.
inline constexpr uint16_t kTypeE = 1;     // English (ej): tables A, B, C, prefix of 3 bytes
inline constexpr uint16_t kTypeKana = 2;  // kana (je, kna): tables A, C, prefix of 2 bytes, one per kana
inline constexpr uint16_t kTypeKji = 3;   // kanji (ke, kji): tables A, C, prefix of 2 characters, 4 bytes
inline constexpr uint16_t kTypeHase = 4;  // derived words (hase): as English
inline constexpr uint16_t kTypeKatu = 5;  // conjugated forms (katu): table C only, prefix of 1 byte

// Set numbers.
inline constexpr uint16_t kSetKihon = 1;
inline constexpr uint16_t kSetUser = 2;

// Bytes of the key prefix by index type; element 0 is unused.
inline constexpr size_t kPrefixLength[] = {0, 3, 2, 4, 3, 1};

// Row sizes.
inline constexpr size_t kRowAE = 3;       // u8 key; u16 first child row in B   (types 1, 4; type 2 to C)
inline constexpr size_t kRowAKji = 4;     // u8 high, u8 low; u16 first child row in C
inline constexpr size_t kRowB = 3;        // u8 key; u16 first child row in C
inline constexpr size_t kRowC = 5;        // u8 key; u32 offset of a third-level block
inline constexpr size_t kRowCKji = 6;     // u8 high, u8 low; u32 offset
inline constexpr size_t kTableHead = 8;   // u32 size of the rows; u32 file offset of the next table
inline constexpr size_t kTableHeadC = 4;  // u32 size of the rows

constexpr size_t RowSizeC(uint16_t type) {
  return type == kTypeKji ? kRowCKji : kRowC;
}

// Row numbers are u16, and these two mean something else.
inline constexpr uint16_t kRowNotFound = 0xFFFF;
inline constexpr uint16_t kRowBad = 0xFFFE;

// Block offsets that mean "no block".
inline constexpr uint32_t kNoBlockKihon = 0xFFFFFFFF;
inline constexpr uint32_t kNoBlockUser = 0;

// User files begin with a header that is kept and copied. In kji.idx its u16 at 10 counts the
// continuation indexes.
inline constexpr size_t kUserHeader = 128;
inline constexpr size_t kKjiCountOffset = 10;
inline constexpr uint16_t kMaxKjiIndexes = 10;

// A user kanji index in memory: 128 + (8 + 10,000 * 4) + (4 + 10,000 * 6).
inline constexpr size_t kUserKjiRows = 10000;
inline constexpr size_t kUserKjiBlock = 100140;

// Third-level block: u16 rows n; u16 bytes in the whole block; n u16 offsets into the string area; string
// area of { u16 length; remainder; NUL }; n u32 entry offsets.
inline constexpr size_t kIx3Head = 4;
inline constexpr size_t kIx3RowOverhead = 9;  // 2 row offset, 2 length, 1 NUL, 4 entry offset
inline constexpr size_t kMaxIx3 = 65535;

// An entry in a .dic file ends before the next kTagEntry, at the end of the file or at this many bytes.
inline constexpr size_t kMaxEntry = 65535;

// What one search takes from one dictionary.
inline constexpr uint16_t kMaxRows = 50;

// Tags in entry text, high byte first.
inline constexpr uint16_t kTagSubscript = 0xF4A4;
inline constexpr uint16_t kTagMarker = 0xF4B5;     // a homograph number follows; superscript elsewhere
inline constexpr uint16_t kTagMarkerEnd = 0xF4D0;  // ends it; the headword for conjugation follows
inline constexpr uint16_t kTagIgnore = 0xF5A7;
inline constexpr uint16_t kTagBold = 0xF5B1;
inline constexpr uint16_t kTagGothic = 0xF5BD;  // with a digit and kTagRoman: a sense number
inline constexpr uint16_t kTagRoman = 0xF5C1;
inline constexpr uint16_t kTagCompound = 0xF5D0;
inline constexpr uint16_t kTagEntry = 0xF5D1;  // start of an entry; the headword line follows
inline constexpr uint16_t kTagOrigin = 0xF5D2;
inline constexpr uint16_t kTagHinsi = 0xF5D3;   // part-of-speech line, begins "-"
inline constexpr uint16_t kTagImi = 0xF5D4;     // meaning of a word
inline constexpr uint16_t kTagYourei = 0xF5D5;  // example; kurei list of a Japanese entry
inline constexpr uint16_t kTagPhrase = 0xF5D6;  // phrase; bunrei list of a Japanese entry
inline constexpr uint16_t kTagNote = 0xF5D7;
inline constexpr uint16_t kTagOtherSide = 0xF5D8;  // the other side of an example, after one blank
inline constexpr uint16_t kTagRunOn = 0xF5D9;
inline constexpr uint16_t kTagPhraseHinsi = 0xF5E3;
inline constexpr uint16_t kTagPhraseImi = 0xF5E4;
inline constexpr uint16_t kTagPhraseYourei = 0xF5E5;
inline constexpr uint16_t kTagPhraseNote = 0xF5E7;

// Other bytes with a meaning.
inline constexpr uint8_t kKanjiSeparator = 0x1B;  // between kana and kanji in a Japanese headword
inline constexpr uint8_t kSyllableMark = 0xA5;    // in English headwords; what a line shows for 0x1B
inline constexpr uint8_t kShortLong = 0xB0;       // shown as the pair 0x81 0x5B

// User entries. The `kind` of an English one:
inline constexpr uint8_t kKindMeaning = 1;  // a meaning with a part of speech
inline constexpr uint8_t kKindPhrase = 2;   // a phrase
inline constexpr uint16_t kLastHinsi = 9;   // parts of speech are 1 to 9
// What stands ahead of the first kurei and of the first bunrei of a Japanese entry; "/" ahead of later ones.
inline constexpr std::string_view kKureiMark = "\x81\xF7";                 // ¶
inline constexpr std::string_view kBunreiMark = "[\x95\xB6\x97\xE1]\x1B";  // [文例]
// The .dic files of the user sets by number.
inline constexpr uint16_t kEntriesE = 1;
inline constexpr uint16_t kEntriesJ = 2;

// Characters that a Japanese key passes over.
inline constexpr unsigned kLongSound = 0x815B;  // ー
inline constexpr unsigned kFullMinus = 0x817C;  // －
inline constexpr unsigned kEllipsis = 0x8163;   // …

// katu.dic: every byte is stored 10 below its value, so the braces read 'q' and 's'; a record is looked
// for in the 512 bytes from its offset.
inline constexpr uint8_t kKatuShift = 10;
inline constexpr char kKatuOpen = 'q';
inline constexpr char kKatuClose = 's';
inline constexpr size_t kKatuWindow = 512;

// True for exactly the 28 tags of entry text; *tag then holds the pair, `hi` high.
bool IsTag(uint8_t hi, uint8_t lo, uint16_t* tag);

}  // namespace zavel::engine

#endif
