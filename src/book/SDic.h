/* The book engine: electronic dictionaries, reached through a handle. Exported with C linkage.
 *
 * Glossary: Honbun body text, Zenbun the whole text in the order of the book, Gaiji custom character, Midashi
 * headword. Texts of a book are 16-bit words, high byte first: JIS X 0208 characters from 0x2121 up, custom
 * characters from 0xA121 up, tags 0x1FXX between them.
 *
 * Conventions of this header:
 *  1. Results are the codes of book/BookStatus.h, 0 for success, unless said otherwise. A null argument gives
 *     0x80000016. On failure out-parameters are unsettled; nothing needs to be freed then.
 *  2. Out-strings and out-buffers are allocated by the callee with malloc() and freed by the caller with
 *     free(). They have at least 64 zero bytes behind them, which no length counts.
 *  3. Lengths are bytes.
 *  4. A handle is used from one thread at a time; SDicSetKillCompare alone may come from another. Searches of
 *     two books must not interleave.
 *  5. On a book that isn't open, which is what a file that is no book gives, operations answer 0x80041007;
 *     what gives a plain value gives 0 or an empty text.
 */
#ifndef BOOK_SDIC_H
#define BOOK_SDIC_H

#include <stdbool.h>
#include <stdint.h>

#include "book/BookTypes.h"
#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Opens the book whose catalog file is at `path`. Sounds that the book's folder hasn't are looked for in
 * `altDir` (may be null). With `keepMissingSound` the book is told to have sounds though their file is
 * missing; with `skipHonbunCheck` it may lack a body text.
 * Codes: 0, also for a file that is no book: the handle is then that of a closed book. The system's error
 * number with the top bit set; 0x8004100F a path without "/"; 0x8004100E a catalog that ends too soon;
 * 0x80041006 no body text; 0x8004100D and 0x8000000C no memory. The handle is null on any of these. */
ZAVEL_API uint32_t SDicOpenDictionary(const char* path, void** handle, const char* altDir,
                                      bool keepMissingSound, bool skipHonbunCheck);

/* Ends the use of a book. A null handle is fine. Always 0. */
ZAVEL_API uint32_t SDicCloseDictionary(void* handle);

/* First and last block of the body text. */
ZAVEL_API uint32_t SDicGetHonbunBlockInformation(void* handle, uint32_t* start, uint32_t* end);

/* Whether the whole text may be read through in its order. */
ZAVEL_API bool SDicIsZenbunSearch(void* handle);

/* What the book can be asked for: 0x1 exact, 0x2 forward, 0x4 backward word search, 0x20 cross search, 0x40
 * keyword search, 0x80 multi search, 0x100 menu, 0x200 colour menu, 0x800 some word method. */
ZAVEL_API uint32_t SDicGetAvailableMethods(void* handle, uint32_t* methods);

/* Multi searches: forms that the book defines, with labelled fields, numbered from 0. Names are as the book's
 * "EXINFO.INI" has them, else EUC-JP as labels are. A book that has no method of 0x80 or above gives
 * 0x8004100C, an unknown number 0x80000016. */
ZAVEL_API uint32_t SDicGetMultiSearchCount(void* handle, uint16_t* count);
ZAVEL_API uint32_t SDicGetMultiSearchName(void* handle, uint16_t block, char** name);
ZAVEL_API uint32_t SDicGetMultiSearchEntryCount(void* handle, uint16_t block, uint8_t* count);
ZAVEL_API uint32_t SDicGetMultiSearchEntryInfo(void* handle, uint16_t block, uint8_t entry, char** label,
                                               bool* hasList);

/* The fixed choices of a field. The list belongs to the book. 0x80041012 for a field without one, 0x8004100E
 * for a list that is broken. */
ZAVEL_API uint32_t SDicGetMultiSearchReferenceList(void* handle, uint16_t block, uint8_t entry,
                                                   _SDICMULTIREFLIST** list);

/* Searches. `query` is a string of two-byte JIS codes, ended by a zero byte: keys, each led by its method
 * (◆ exact, □ forward, ■ backward, △ cross, ▲ keyword), combined by ◇ (and) and │ (or) from left to right,
 * with groups in ⊂ and ⊃; or ▽ and the number of a multi search (０ for the first), then for each field in
 * use ▼, its number and its key. `count` gets the number of hits, `first` the number of the one that the
 * index had first. Hits are ordered by their bodies' places. With `keep` the hits of an earlier search stay.
 * Codes: 0, also without hits; 0x80041009 a query that is malformed, or whose intersection is empty;
 * 0x8004100C no index for that; 0x8004100D, 0x8004100E an index that can't be read or is broken. */
ZAVEL_API uint32_t SDicExecIndexSearch(void* handle, const char* query, bool ignored, bool keep, long* count,
                                       long* first);

/* Hit number `number`, from 0. Numbers hold until the next search. */
ZAVEL_API uint32_t SDicGetSearchResult(void* handle, unsigned long number, _SDICITEMADDRESS* hit);

/* The headword at `address`, with its styles' tags; two zero bytes at its end are counted in `length`. With
 * `plain` the tags 0x1FE2 and 0x1FE3 are left out. */
ZAVEL_API uint32_t SDicGetHeadword(void* handle, const _SDICADDRESS* address, char** text, uint16_t* length,
                                   bool plain);

/* The entry at `address`, tags and all. */
ZAVEL_API uint32_t SDicGetBodyData(void* handle, const _SDICADDRESS* address, char** bytes, uint32_t* length);

/* The entry ahead of or behind the one at `address`, within its text, or for Zenbun through the whole book.
 * 0x80041010 when there is none. An odd offset given to Prev gives 0x80000016. */
ZAVEL_API uint32_t SDicGetPrevEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* previous);
ZAVEL_API uint32_t SDicGetNextEntryAddress(void* handle, const _SDICADDRESS* address, _SDICADDRESS* next);
ZAVEL_API uint32_t SDicGetZenbunPrevEntryAddress(void* handle, const _SDICADDRESS* address,
                                                 _SDICADDRESS* previous);
ZAVEL_API uint32_t SDicGetZenbunNextEntryAddress(void* handle, const _SDICADDRESS* address,
                                                 _SDICADDRESS* next);

/* Custom characters, full-width or half-width: how many there are, the first one's code, a code's place among
 * them (-1 for none). */
ZAVEL_API uint16_t SDicCustomCharCodeNumber(void* handle, bool full);
ZAVEL_API uint16_t SDicStartCharCodeNumber(void* handle, bool full);
ZAVEL_API int SDicCustomCharCodeToIndex(void* handle, bool full, uint16_t code);

/* A custom character of `size` dots (16, 24, 30, 48) as a 1-bit bitmap file, dark on white; or its dots alone
 * into `buffer`, which takes 32 bytes for size 16. 0x80000016 for a code or size that the book hasn't. */
ZAVEL_API uint32_t SDicGetCustomCharacterBitmap(void* handle, bool full, uint16_t code, uint16_t size,
                                                char** bitmap);
ZAVEL_API uint32_t SDicGetRawCustomCharacterBitmap(void* handle, bool full, uint16_t code, uint16_t size,
                                                   char* buffer, uint16_t* length);

/* 0 when the address lies in the book; data types 2 colour picture, 3 sound and 4 also ask whether the book
 * has any, 5 never holds. Else 0x80041011. */
ZAVEL_API uint32_t SDicIsValidAddress(void* handle, const _SDICADDRESS* address, uint16_t dataType);

/* The picture that a tag of a text stands for, as a bitmap file or as the book has it; its name in JIS (null
 * for none). `tag` points into a body or headword from here. */
ZAVEL_API uint32_t SDicGetPictureData(void* handle, const char* tag, char** name, uint16_t* nameLength,
                                      char** data, uint32_t* length);
ZAVEL_API uint32_t SDicGetPictureDataDirect(void* handle, const _SDICADDRESS* address, char** data,
                                            uint32_t* length);

/* The sound that a tag stands for, as a WAVE file; its name in JIS (null for none). 0x80042001: a sound with
 * a known fault, which is given; 0x80042002: one that is known not to be there. */
ZAVEL_API uint32_t SDicGetStreamData(void* handle, const char* tag, char** name, uint16_t* nameLength,
                                     char** data, uint32_t* length);

/* Bytes of the book. */
ZAVEL_API uint32_t SDicReadData(void* handle, const _SDICADDRESS* address, uint32_t size, char** bytes);

/* The menu at `address`, or the first one (null). `more` is false where the text is whole. 0x8004100C for a
 * book without menus. */
ZAVEL_API uint32_t SDicGetMenuData(void* handle, const _SDICADDRESS* address, char** bytes, uint32_t* length,
                                   bool* more);
ZAVEL_API uint32_t SDicGetColorMenuData(void* handle, const _SDICADDRESS* address, char** bytes,
                                        uint32_t* length);

/* What the publisher says. 0x80041012 for a book that says nothing. */
ZAVEL_API uint32_t SDicGetPublisherInfo(void* handle, char** info, uint32_t* length);
/* The publisher's version, not a code; 1 when none is told. */
ZAVEL_API int32_t SDicGetPublisherVersion(void* handle);

ZAVEL_API uint32_t SDicGetContentType(void* handle, uint32_t* type);
ZAVEL_API uint32_t SDicGetDataSpecVersion(void* handle, uint32_t* high, uint32_t* low);

/* The first `characters` characters of a headword, its styles closed. */
ZAVEL_API uint32_t SDicTruncateHeadword(void* handle, const char* text, char** out, uint32_t characters);

/* Title in Shift_JIS, owned by the book; identity. */
ZAVEL_API const char* SDicGetDicName(void* handle);
ZAVEL_API uint32_t SDicGetDicID(void* handle);

/* The film that a tag stands for: file, title in JIS, four numbers. For another tag 0, with nothing set; for
 * a film without a file 0x80041001, with title and numbers. */
ZAVEL_API uint32_t SDicGetMovieFileName(void* handle, const char* tag, char** file, uint32_t* fileLength,
                                        char** title, uint32_t* titleLength, uint32_t numbers[4]);

/* While set, every comparison answers "equal", so that a search in another thread comes to its end; what it
 * found is then of no use. */
ZAVEL_API uint32_t SDicSetKillCompare(void* handle, bool kill);

/* The icons of the catalog at `path` as bitmap files. Either may be null. 0x80041004 when one can't be made.
 */
ZAVEL_API uint32_t SDicGetDicIconInformation(const char* path, char** large, char** small);

/* Bytes the other way round; packed decimal numbers of `bytes` bytes, high digit first. */
ZAVEL_API uint16_t GFn_Swap(uint16_t value);
ZAVEL_API uint32_t GFn_Swap2(uint32_t value);
ZAVEL_API uint16_t GFn_BCD2WORD(const uint8_t* bcd, unsigned long bytes);
ZAVEL_API uint32_t GFn_BCD2DWORD(const uint8_t* bcd, unsigned long bytes);

#ifdef __cplusplus
}
#endif

#endif
